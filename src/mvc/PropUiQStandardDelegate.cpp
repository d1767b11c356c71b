#include "PropUiQStandardDelegate.h"

#include "PropBag.h"
#include "PropUiCellEditorKeys_p.h"
#include "PropUiQControl.h"
#include "PropUiQStandardFormatter.h"
#include "PropUiRegistry.h"
#include "PropWidgetsLogging_p.h"

namespace
{

std::wstring keyOf(const OdGUID& guid)
{
  const OdString text = guid.toString();
  return std::wstring(text.c_str(), std::size_t(text.getLength()));
}

} // namespace

PropUiQStandardDelegate::PropUiQStandardDelegate(QObject* parent) : QStyledItemDelegate(parent)
{
  setSubDelegate(OdGUID::kNull, new PropUiQControlDelegate(this));
}

void PropUiQStandardDelegate::setSubDelegate(const OdGUID& guid, PropUiQControlDelegate* delegate)
{
  if (!delegate)
    return;
  delegate->setParent(this);
  const std::wstring key = keyOf(guid);
  QPointer<PropUiQControlDelegate>& held = m_subDelegates[key];
  if (held && held != delegate)
    delete held.data();
  held = delegate;
  m_resolved.clear();
  // A sub-delegate added after binding serves the same bag at once.
  delegate->setPropBag(m_bag);
  delegate->setFormatter(m_standardFormatter ? formatterForKey(key) : m_formatter);
}

PropUiQControlDelegate* PropUiQStandardDelegate::subDelegate(const OdGUID& guid) const
{
  const auto found = m_subDelegates.find(keyOf(guid));
  return found != m_subDelegates.end() ? found->second.data() : nullptr;
}

PropUiQControlDelegate* PropUiQStandardDelegate::subDelegateForItem(int item) const
{
  if (!m_bag)
    return nullptr;
  const OdGUID guid = m_bag->getControlGuid(item);
  if (auto* known = m_resolved.find(guid))
    return known;
  PropUiQControlDelegate* delegate = subDelegate(guid);
  if (!delegate)
    delegate = subDelegate(OdGUID::kNull);
  m_resolved.remember(guid, delegate);
  return delegate;
}

PropUiQFormatter* PropUiQStandardDelegate::formatterForKey(const std::wstring& key) const
{
  return m_standardFormatter ? m_standardFormatter->formatterFor(OdString(key.c_str())) : nullptr;
}

bool PropUiQStandardDelegate::propertyOf(const QModelIndex& index, int& item, unsigned long& sub,
                                         bool& isSubItem) const
{
  if (!index.isValid() || !PropUiQtMVCInterface::getPropData(index, item, sub, isSubItem))
    return false;
  if (!m_bag)
    propui::adviseGridMisuseLater(propui::GridMisuse::DelegateWithoutBag, this, [this] { return !m_bag; });
  return m_bag != nullptr;
}

void PropUiQStandardDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                                    const QModelIndex& index) const
{
  int item = -1;
  unsigned long sub = 0;
  bool isSubItem = false;
  if (!propertyOf(index, item, sub, isSubItem))
    return;
  if (PropUiQControlDelegate* delegate = subDelegateForItem(item))
    delegate->paint(painter, option, index);
  else
    QStyledItemDelegate::paint(painter, option, index);
}

QSize PropUiQStandardDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
  int item = -1;
  unsigned long sub = 0;
  bool isSubItem = false;
  if (propertyOf(index, item, sub, isSubItem))
    if (PropUiQControlDelegate* delegate = subDelegateForItem(item))
      return delegate->sizeHint(option, index);
  return QStyledItemDelegate::sizeHint(option, index);
}

QWidget* PropUiQStandardDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&,
                                               const QModelIndex& index) const
{
  int item = -1;
  unsigned long sub = 0;
  bool isSubItem = false;
  if (!propertyOf(index, item, sub, isSubItem))
    return nullptr;
  const int options = int(m_bag->getFlags(item));
  PropUiQWidget* widget = propUiCreateEditor(m_bag->getControlGuid(item), options);
  if (!widget)
    return nullptr;
  widget->setParent(parent);
  auto* control = dynamic_cast<PropUiQControl*>(widget);
  if (!control)
    return nullptr;
  try
  {
    if (isSubItem)
      control->setPropBagItem(m_bag, item, sub);
    else
      control->setPropBagItem(m_bag, item);
    if (control->setupUi())
    {
      control->updateData();
      control->updateUi();
    }
    new PropUiCellEditorKeys(control, const_cast<PropUiQStandardDelegate*>(this), index);
  }
  catch (...)
  {
    // A control that cannot show its item (it rejects what the bag lists) opens no editor.
    propui::warnCaught("a cell's editor could not show its item");
    delete control;
    return nullptr;
  }
  return control;
}

void PropUiQStandardDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const
{
  PropUiQControlDelegate::refreshEditorData(editor);
  QStyledItemDelegate::setEditorData(editor, index);
}

void PropUiQStandardDelegate::setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const
{
  QStyledItemDelegate::setModelData(editor, model, index);
}

void PropUiQStandardDelegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                                   const QModelIndex& index) const
{
  int item = -1;
  unsigned long sub = 0;
  bool isSubItem = false;
  if (propertyOf(index, item, sub, isSubItem))
    if (PropUiQControlDelegate* delegate = subDelegateForItem(item))
    {
      delegate->updateEditorGeometry(editor, option, index);
      return;
    }
  PropUiQControlDelegate::placeEditor(editor, option);
}

bool PropUiQStandardDelegate::editorEvent(QEvent* event, QAbstractItemModel* model,
                                          const QStyleOptionViewItem& option, const QModelIndex& index)
{
  int item = -1;
  unsigned long sub = 0;
  bool isSubItem = false;
  if (propertyOf(index, item, sub, isSubItem))
    if (QAbstractItemDelegate* delegate = subDelegateForItem(item))
      return delegate->editorEvent(event, model, option, index); // public on the abstract base only
  return QStyledItemDelegate::editorEvent(event, model, option, index);
}

void PropUiQStandardDelegate::setPropBag(PropBag* bag)
{
  m_bag = bag;
  for (const auto& entry : m_subDelegates)
    if (entry.second)
      entry.second->setPropBag(bag);
}

void PropUiQStandardDelegate::setFormatter(PropUiQFormatter* formatter)
{
  m_formatter = formatter;
  m_standardFormatter = qobject_cast<PropUiQStandardFormatter*>(formatter);
  for (const auto& entry : m_subDelegates)
    if (entry.second)
      entry.second->setFormatter(m_standardFormatter ? formatterForKey(entry.first) : formatter);
}

void PropUiQStandardDelegate::itemChanged(int item)
{
  if (item == -1)
  {
    for (const auto& entry : m_subDelegates)
      if (entry.second)
        entry.second->itemChanged(-1);
    return;
  }
  if (PropUiQControlDelegate* delegate = subDelegateForItem(item))
    delegate->itemChanged(item);
}

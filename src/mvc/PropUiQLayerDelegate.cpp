#include "PropUiQLayerDelegate.h"

#include "PropAction.h"
#include "PropBag.h"
#include "PropUiQIcon.h"
#include "hostDbPropBagCtx.h"
#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <cmath>

namespace
{

// The actions act on the value: the name cell of the same row neither shows nor hit-tests them.
bool isValueCell(const QModelIndex& index)
{
  return index.column() == 1;
}

} // namespace

PropUiQLayerDelegate::PropUiQLayerDelegate(QObject* parent) : PropUiQControlDelegate(parent) {}

void PropUiQLayerDelegate::loadActions(int item, unsigned long sub) const
{
  m_actions.clear();
  m_cachedItem = item;
  if (!m_bag)
    return;
  PropActionArray actions;
  m_bag->getActions(item, sub, actions);
  for (unsigned int i = 0; i < actions.size(); ++i)
  {
    PropAction* action = actions[i].get();
    if (!action)
    {
      m_actions.addAction(QIcon());
      continue;
    }
    QIcon icon;
    OdSharedPtr<PropIcon> shared = action->icon();
    if (auto* qicon = dynamic_cast<PropUiQIcon*>(shared.get()))
      icon = qicon->getIcon();
    m_actions.addAction(icon, action->checkable(), action->checked());
  }
}

void PropUiQLayerDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
  int item = -1;
  unsigned long sub = 0;
  bool isSubItem = false;
  if (!PropUiQtMVCInterface::getPropData(index, item, sub, isSubItem))
  {
    QStyledItemDelegate::paint(painter, option, index);
    return;
  }
  if (item != m_cachedItem)
    loadActions(item, sub);

  QStyleOptionViewItem textOption(option);
  if (!m_actions.isEmpty() && isValueCell(index))
  {
    const QWidget* widget = option.widget;
    QStyle* style = widget ? widget->style() : QApplication::style();
    style->drawPrimitive(QStyle::PE_PanelItemViewItem, &option, painter, widget);
    m_actions.paint(painter, option.rect, option.decorationSize, widget, style);
    textOption.rect = m_actions.cropRect(option.rect, option.decorationSize);
  }

  if (m_bag)
  {
    PropBagCtx* context = m_bag->getContext();
    if (context && context->isKindOf(hostDbPropBagCtx::desc()))
    {
      auto* dbContext = static_cast<hostDbPropBagCtx*>(context);
      PropVariant value;
      if (m_bag->getListValue(item, sub, value) && dbContext->isDisabledValue(item, value))
      {
        QPalette& palette = textOption.palette;
        const QBrush base = palette.brush(QPalette::Disabled, QPalette::Base);
        const QBrush text = palette.brush(QPalette::Disabled, QPalette::Text);
        for (int group = 0; group < QPalette::NColorGroups; ++group)
        {
          palette.setBrush(QPalette::ColorGroup(group), QPalette::Base, base);
          palette.setBrush(QPalette::ColorGroup(group), QPalette::Text, text);
        }
      }
    }
  }
  PropUiQControlDelegate::paint(painter, textOption, index);
}

QSize PropUiQLayerDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
  const QSize base = QStyledItemDelegate::sizeHint(option, index);
  int item = -1;
  unsigned long sub = 0;
  bool isSubItem = false;
  if (!isValueCell(index) || !PropUiQtMVCInterface::getPropData(index, item, sub, isSubItem))
    return base;
  if (item != m_cachedItem)
    loadActions(item, sub);
  return m_actions.sizeHint(base);
}

bool PropUiQLayerDelegate::editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                                       const QModelIndex& index)
{
  const bool press = event->type() == QEvent::MouseButtonPress;
  const bool release = event->type() == QEvent::MouseButtonRelease;
  int item = -1;
  unsigned long sub = 0;
  bool isSubItem = false;
  if ((!press && !release) || !isValueCell(index) || !PropUiQtMVCInterface::getPropData(index, item, sub, isSubItem))
    return QStyledItemDelegate::editorEvent(event, model, option, index);
  if (item != m_cachedItem)
    loadActions(item, sub);

#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
  const QPointF local = static_cast<QMouseEvent*>(event)->position();
#else
  const QPointF local = static_cast<QMouseEvent*>(event)->localPos();
#endif
  const QPoint point(int(std::lround(local.x())), int(std::lround(local.y())));
  const int hit = m_actions.hitAction(option.rect, option.decorationSize, point);
  if (hit < 0)
    return QStyledItemDelegate::editorEvent(event, model, option, index);
  event->accept();
  if (release)
    return true; // the press ran it; a release must not select or open the cell
  if (m_bag)
  {
    PropActionArray actions;
    m_bag->getActions(item, sub, actions);
    if (unsigned(hit) < actions.size())
      m_bag->executeAction(item, actions[unsigned(hit)].get());
  }
  return true;
}

void PropUiQLayerDelegate::itemChanged(int item)
{
  // A notice about the cached item itself keeps its actions: only another item's notice drops them.
  if (m_cachedItem != item)
    m_cachedItem = -1;
}

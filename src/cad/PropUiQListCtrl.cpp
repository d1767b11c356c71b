#include "PropUiQListCtrl.h"

#include "PropBag.h"
#include "PropItemType.h"
#include "PropUiCompositeForm_p.h"
#include "PropUiQFormatter.h"
#include "PropUiReactorProbe_p.h"
#include "PropUiVariantConverter_p.h"
#include "QHostItemControlDelegate.h"
#include "hostPropEditorReactor.h"
#include <QItemSelectionModel>
#include <QListView>
#include <QPointer>
#include <QStandardItemModel>
#include <QTimer>
#include <QVBoxLayout>

namespace
{

PropVariant propValueOf(const QModelIndex& index)
{
  PropVariant value;
  PropUiVariantConverter::toPropVariant(index.data(PropUiQListCtrl::kValueRole), value);
  return value;
}

/** The entries of a list value, one per row; empty for a value that is no list. */
QVariantList entriesOf(const PropVariant& value)
{
  if (!value.isArray())
    return QVariantList();
  return PropUiVariantConverter::toQVariant(value).toList();
}

} // namespace

PropUiQListCtrl::PropUiQListCtrl(QWidget* parent) : PropUiQControl(parent) {}

PropUiQListCtrl::~PropUiQListCtrl() = default;

bool PropUiQListCtrl::setupUi()
{
  PropUiQControl::setupUi();
  if (!m_bag)
    return false;
  auto* layout = adoptLayout(new QVBoxLayout);
  layout->setContentsMargins(0, 0, 0, 0);
  auto* view = new QListView(this);
  view->setObjectName(QStringLiteral("list"));
  view->setAccessibleName(PropUiCompositeForm::itemName(m_bag, m_index));
  view->setMinimumSize(0, 200);
  view->installEventFilter(this);
  m_view = view;

  auto* model = new QStandardItemModel(view);
  connect(model, &QStandardItemModel::dataChanged, this, &PropUiQListCtrl::onDataChanged);
  connect(model, &QStandardItemModel::rowsAboutToBeRemoved, this, &PropUiQListCtrl::onRowsAboutToBeRemoved);
  connect(model, &QStandardItemModel::rowsRemoved, this, &PropUiQListCtrl::onRowsRemoved);
  QItemSelectionModel* previous = view->selectionModel();
  view->setModel(model);
  delete previous;
  view->setSelectionBehavior(QAbstractItemView::SelectItems);
  view->setSelectionMode(QAbstractItemView::ExtendedSelection);
  connect(view->selectionModel(), &QItemSelectionModel::selectionChanged, this, &PropUiQListCtrl::onSelectionChanged);
  connect(view->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
          &PropUiQListCtrl::onCurrentRowChanged);
  view->setEditTriggers(QAbstractItemView::NoEditTriggers);

  int features = 0;
  if (m_options & PropUiOption::kListPins)
    features |= host_qt_ui_core::QHostItemControlDelegate::PinToggle;
  if (m_options & PropUiOption::kListPinOnHover)
  {
    view->setAttribute(Qt::WA_MouseTracking);
    features |= host_qt_ui_core::QHostItemControlDelegate::PinOnHover;
  }
  view->setItemDelegate(new host_qt_ui_core::QHostItemControlDelegate(features, kPinRole, view));
  layout->addWidget(view);
  return true;
}

QStandardItemModel* PropUiQListCtrl::model() const
{
  return m_view ? qobject_cast<QStandardItemModel*>(m_view->model()) : nullptr;
}

void PropUiQListCtrl::updateUi()
{
  PropUiQControl::updateUi();
  readCheckStates(false);
}

void PropUiQListCtrl::updateData()
{
  PropUiQControl::updateData();
  QStandardItemModel* rows = model();
  if (!m_bag || !rows)
    return;
  PropVariant value;
  if (!readValue(value))
    return;
  // Updating the rows moves the selection and the current row; that is not the user choosing.
  const WidgetUpdateScope rebuilding(this);
  const PropVariant current = m_current;
  const OdArray<PropVariant> selected = m_selected;
  const QVariantList entries = value.isVaries() ? QVariantList() : entriesOf(value);
  if (rows->rowCount() > entries.size())
    rows->removeRows(entries.size(), rows->rowCount() - entries.size());
  const bool checkable = m_options & PropUiOption::kListCheckBoxes;
  const bool pins = m_options & PropUiOption::kListPins;
  const Qt::ItemFlags flags =
    Qt::ItemIsSelectable | Qt::ItemIsEnabled | (checkable ? Qt::ItemIsUserCheckable : Qt::NoItemFlags);
  // A refresh mostly finds the rows it showed: they are changed where they differ, not made again.
  QList<QStandardItem*> made;
  QVector<PropVariant> values(entries.size());
  PropUiQFormatter* formatter = getFormatter();
  for (int i = 0; i < entries.size(); ++i)
  {
    PropVariant& entry = values[i];
    PropUiVariantConverter::toPropVariant(entries[i], entry);
    const QString text = formatter ? formatter->getElementText(m_index, entry, OdUInt64(i)) : QString();
    const QIcon icon =
      (formatter ? formatter->getElementIcon(m_index, entry, OdUInt64(i)) : QVariant()).value<QIcon>();
    const QString shown = text.isNull() ? entries[i].toString() : text;
    QStandardItem* row = i < rows->rowCount() ? rows->item(i) : nullptr;
    if (!row)
    {
      row = new QStandardItem(icon, shown);
      row->setData(entries[i], kValueRole);
      if (checkable)
        row->setData(Qt::Unchecked, Qt::CheckStateRole);
      if (pins)
        row->setData(entry == m_pinned, kPinRole);
      row->setFlags(flags);
      made.append(row);
      continue;
    }
    if (row->text() != shown)
      row->setText(shown);
    if (row->icon().cacheKey() != icon.cacheKey())
      row->setIcon(icon);
    if (row->data(kValueRole) != entries[i])
      row->setData(entries[i], kValueRole);
    if (pins && row->data(kPinRole) != QVariant(entry == m_pinned))
      row->setData(entry == m_pinned, kPinRole);
    if (row->flags() != flags)
      row->setFlags(flags);
  }
  for (QStandardItem* row : made)
    rows->appendRow(row);
  restoreSelection(values, current, selected);
  readCheckStates(true);
  // The view lays the new rows out later; only then can it show the current one. Without one,
  // a refresh posts nothing.
  QPointer<QListView> view = m_view;
  if (!view || !view->currentIndex().isValid())
    return;
  QTimer::singleShot(0, this, [view]() {
    if (view && view->currentIndex().isValid())
      view->scrollTo(view->currentIndex());
  });
}

void PropUiQListCtrl::restoreSelection(const QVector<PropVariant>& values, const PropVariant& current,
                                       const OdArray<PropVariant>& selected)
{
  QStandardItemModel* rows = model();
  QItemSelectionModel* selection = m_view ? m_view->selectionModel() : nullptr;
  if (!rows || !selection)
    return;
  QItemSelection kept;
  QModelIndex currentIndex;
  const bool anyChosen = !(current == PropVariant()) || !selected.isEmpty();
  for (int r = 0; anyChosen && r < values.size(); ++r)
  {
    const QModelIndex index = rows->index(r, 0);
    if (!currentIndex.isValid() && values[r] == current)
      currentIndex = index;
    for (const PropVariant& chosen : selected)
      if (chosen == values[r])
      {
        kept.merge(QItemSelection(index, index), QItemSelectionModel::Select);
        break;
      }
  }
  if (currentIndex.isValid())
    selection->setCurrentIndex(currentIndex, QItemSelectionModel::NoUpdate);
  else if (selection->currentIndex().isValid())
    selection->setCurrentIndex(QModelIndex(), QItemSelectionModel::NoUpdate); // its row now holds another value
  if (!kept.isEmpty() || selection->hasSelection())
    selection->select(kept, QItemSelectionModel::ClearAndSelect);
  // What is shown now is what was chosen; values whose rows went are no longer chosen.
  m_current = currentIndex.isValid() ? current : PropVariant();
  m_selected.clear();
  for (const QModelIndex& index : selection->selectedIndexes())
    m_selected.append(values.value(index.row()));
}

bool PropUiQListCtrl::rowElements(PropKeyArray& elements) const
{
  QStandardItemModel* rows = model();
  if (!m_bag || !rows || m_bag->getGroupCount(m_index) != 1)
    return false;
  const int count = m_bag->getElementCount(m_index);
  if (count < 0 || count != rows->rowCount())
    return false;
  OdStringArray captions;
  m_bag->getElements(m_index, elements, captions);
  return int(elements.size()) == rows->rowCount();
}

void PropUiQListCtrl::readCheckStates(bool uncheckUnread)
{
  QStandardItemModel* rows = model();
  if (!rows || !m_bag || !(m_options & PropUiOption::kListCheckBoxes))
    return;
  // Setting the boxes from the bag is not the user ticking them.
  const WidgetUpdateScope reading(this);
  PropVariant value;
  PropKeyArray elements;
  const bool matches = readValue(value) && !value.isVaries() && rowElements(elements);
  if (!matches && !uncheckUnread)
    return;
  for (int r = 0; r < rows->rowCount(); ++r)
  {
    PropVariant checked;
    const bool read = matches && m_bag->getElementValue(m_index, elements[r], checked) &&
                      checked.scalarType() == PropVariant::kBool && !checked.isArray() && !checked.isVaries();
    if (!read && !uncheckUnread)
      continue;
    const Qt::CheckState state = read && checked.getBool() ? Qt::Checked : Qt::Unchecked;
    QStandardItem* row = rows->item(r);
    if (row && row->data(Qt::CheckStateRole) != QVariant(state))
      row->setData(state, Qt::CheckStateRole);
  }
}

void PropUiQListCtrl::currentChanged(const PropVariant&) {}

void PropUiQListCtrl::selectionChanged(const PropVariant&) {}

void PropUiQListCtrl::onDataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight,
                                    const QVector<int>& roles)
{
  if (isApplying() || !m_bag || !topLeft.isValid() || !bottomRight.isValid())
    return;
  if (roles.contains(Qt::CheckStateRole))
    writeCheckStates(topLeft.row(), bottomRight.row());
  else if (roles.contains(kPinRole))
    reportPins(topLeft.row(), bottomRight.row());
}

void PropUiQListCtrl::writeCheckStates(int first, int last)
{
  QStandardItemModel* rows = model();
  const WriteScope writing(this);
  if (!rows || !writing.entered())
    return;
  PropKeyArray elements;
  const bool matches = rowElements(elements);
  for (int r = qMax(first, 0); r <= last && r < rows->rowCount(); ++r)
  {
    QStandardItem* row = rows->item(r);
    if (!row)
      continue;
    const bool ticked = row->data(Qt::CheckStateRole).toInt() == Qt::Checked;
    bool written = false;
    PropVariant held;
    if (matches && m_bag->getElementValue(m_index, elements[r], held) && !held.isArray() &&
        held.scalarType() == PropVariant::kBool)
    {
      if (!held.isVaries() && held.getBool() == ticked)
        continue;
      PropVariant wanted;
      wanted.setBool(ticked);
      written = commitElementValue(elements[r], wanted) == CommitResult::Written;
    }
    // A box the bag did not take goes back; the user toggled it, so back is the other state.
    if (!written)
      row->setData(ticked ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
  }
}

void PropUiQListCtrl::reportPins(int first, int last)
{
  QStandardItemModel* rows = model();
  hostPropEditorReactor* reactor = m_bag->getReactor(m_index);
  if (!rows)
    return;
  for (int r = qMax(first, 0); r <= last && r < rows->rowCount(); ++r)
  {
    const QVariant pin = rows->index(r, 0).data(kPinRole);
    if (pin.userType() != QMetaType::Bool || !pin.toBool())
      continue;
    PropVariant pinned;
    if (!PropUiVariantConverter::toPropVariant(rows->index(r, 0).data(kValueRole), pinned))
      continue;
    m_pinned = pinned;
    if (PropUiReactorProbe::listensToPins(reactor))
      reactor->pinnedChanged(typeId(), m_pinned);
  }
}

void PropUiQListCtrl::onRowsAboutToBeRemoved(const QModelIndex& parent, int first, int last)
{
  QStandardItemModel* rows = model();
  if (isApplying() || parent.isValid() || !rows)
    return;
  for (int r = first; r <= last; ++r)
  {
    const PropVariant value = propValueOf(rows->index(r, 0));
    for (unsigned int i = m_selected.size(); i-- > 0;)
      if (m_selected[i] == value)
        m_selected.removeAt(i);
    if (value == m_pinned)
      m_pinned = PropVariant();
  }
}

void PropUiQListCtrl::onRowsRemoved(const QModelIndex& parent, int, int)
{
  QStandardItemModel* rows = model();
  if (!isApplying() && !parent.isValid() && rows && rows->rowCount() == 0)
    m_current = PropVariant();
}

void PropUiQListCtrl::onSelectionChanged(const QItemSelection&, const QItemSelection&)
{
  QItemSelectionModel* selection = m_view ? m_view->selectionModel() : nullptr;
  if (!selection)
    return;
  OdArray<PropVariant> values;
  QVariantList entries;
  for (const QModelIndex& index : selection->selectedIndexes())
  {
    if (index.row() < 0 || index.column() < 0 || !model())
      continue;
    values.append(propValueOf(index));
    entries.append(index.data(kValueRole));
  }
  m_selected = values;
  if (isApplying() || !m_bag)
    return;
  hostPropEditorReactor* reactor = m_bag->getReactor(m_index);
  if (!PropUiReactorProbe::listensToSelection(reactor))
    return;
  PropVariant packed;
  if (PropUiVariantConverter::toPropVariant(entries, packed))
    reactor->selectionChanged(typeId(), packed);
}

void PropUiQListCtrl::onCurrentRowChanged(const QModelIndex& current, const QModelIndex&)
{
  const PropVariant value = propValueOf(current);
  if (value == m_current)
    return;
  PropVariant previous = m_current;
  m_current = value;
  if (isApplying() || !m_bag)
    return;
  hostPropEditorReactor* reactor = m_bag->getReactor(m_index);
  if (PropUiReactorProbe::listensToCurrent(reactor))
    reactor->currentChanged(typeId(), previous, m_current);
}

int PropUiQListCtrl::typeId() const
{
  PropItemType* type = m_bag ? m_bag->getItemType(m_index) : nullptr;
  return type ? type->typeId() : 0;
}

bool PropUiQListCtrl::eventFilter(QObject* watched, QEvent* event)
{
  return PropUiQControl::eventFilter(watched, event);
}

#include "PropertyBagModel.h"

#include "OdStringQt.h"
#include "PropBag.h"
#include "PropUiDrawingLook_p.h"
#include "PropUiOptions.h"
#include "PropUiQFormatter.h"
#include "PropUiTexts_p.h"
#include "PropWidgetsLogging_p.h"
#include <QIcon>
#include <algorithm>
#include <vector>

namespace
{

const QVector<int> kChangedRoles = {Qt::DisplayRole, Qt::DecorationRole, PropItemIndexRole, PropSubIndexRole,
                                    PropIsSubItemRole};

int elementCount(PropBag* bag, int item)
{
  PropKeyArray elements;
  OdStringArray captions;
  const unsigned int count = bag->getElements(item, elements, captions);
  // A count beyond the list the bag handed over names rows that do not exist.
  return int(std::min(count, unsigned(elements.size())));
}

} // namespace

struct PropertyBagModel::Private
{
  PropertyBagModel* owner = nullptr;
  PropBag* bag = nullptr;
  PropUiQFormatter* formatter = nullptr;
  // One entry for each item row the views were told of, holding its element count: -1 until a
  // view asks (a bag builds its element list, captions included, on every call), and changed
  // only together with the signals that tell the views. A bag whose counts change without a
  // word is read again when the host says that its data changed.
  mutable std::vector<int> elementCounts;
  // What tells a host developer that the grid was wired so that it shows nothing.
  bool everBound = false;
  mutable int failedValueReads = 0;
  mutable bool anyValueRead = false;

  int items() const { return int(elementCounts.size()); }
  int elementsOf(int item) const
  {
    int& count = elementCounts[std::size_t(item)];
    if (count < 0)
      count = elementCount(bag, item);
    return count;
  }

  // An item row's internal id is 0; an element row's is its item's number plus one.
  static bool isItemRow(const QModelIndex& index) { return index.internalId() == 0; }
  /** The item of an element row, -1 when its id names no item. */
  int parentItemOf(const QModelIndex& index) const
  {
    const quintptr id = index.internalId();
    return id == 0 || id > elementCounts.size() ? -1 : int(id - 1);
  }

  void checkBoundSoon() const;
  bool readValue(int item, PropVariant& value) const;
  void followItemCount();
  void followElementCount(int item);

  OdUInt64 chosenEntry(int item) const;
  QString variesText(int item) const;
  QVariant itemRowData(int item, int column, int role, const QModelIndex& index) const;
  QVariant elementRowData(int item, int element, int column, int role) const;
};

// A view asks for rows as soon as it has the model, before a host has bound it.
void PropertyBagModel::Private::checkBoundSoon() const
{
  if (!everBound)
    propui::adviseGridMisuseLater(propui::GridMisuse::ModelNeverBound, owner, [this] { return !everBound; });
}

bool PropertyBagModel::Private::readValue(int item, PropVariant& value) const
{
  if (bag->getValue(item, value))
  {
    anyValueRead = true;
    return true;
  }
  if (!anyValueRead && ++failedValueReads >= items())
    propui::warnGridMisuse(propui::GridMisuse::BagAnswersNothing);
  return false;
}

void PropertyBagModel::Private::followItemCount()
{
  const int count = std::max(0, bag->getItemCount());
  if (count > items())
  {
    owner->beginInsertRows(QModelIndex(), items(), count - 1);
    elementCounts.resize(std::size_t(count), -1);
    owner->endInsertRows();
  }
  else if (count < items())
  {
    owner->beginRemoveRows(QModelIndex(), count, items() - 1);
    elementCounts.resize(std::size_t(count));
    owner->endRemoveRows();
  }
}

void PropertyBagModel::Private::followElementCount(int item)
{
  const int shown = elementCounts[std::size_t(item)];
  if (shown < 0)
    return; // no view has seen its elements
  const int count = elementCount(bag, item);
  const QModelIndex parent = owner->index(item, 0);
  if (count > shown)
  {
    owner->beginInsertRows(parent, shown, count - 1);
    elementCounts[std::size_t(item)] = count;
    owner->endInsertRows();
  }
  else if (count < shown)
  {
    owner->beginRemoveRows(parent, count, shown - 1);
    elementCounts[std::size_t(item)] = count;
    owner->endRemoveRows();
  }
}

PropertyBagModel::PropertyBagModel(QObject* parent) : QAbstractItemModel(parent), d(new Private)
{
  d->owner = this;
}

PropertyBagModel::~PropertyBagModel() = default;

QModelIndex PropertyBagModel::index(int row, int column, const QModelIndex& parent) const
{
  if (!d->bag || row < 0 || column < 0 || column >= columnCount())
    return QModelIndex();
  if (!parent.isValid())
    return row < d->items() ? createIndex(row, column, quintptr(0)) : QModelIndex();
  if (row >= rowCount(parent))
    return QModelIndex();
  return createIndex(row, column, quintptr(parent.row()) + 1);
}

QModelIndex PropertyBagModel::parent(const QModelIndex& child) const
{
  if (!child.isValid() || child.model() != this || d->isItemRow(child))
    return QModelIndex();
  const int item = d->parentItemOf(child);
  return item < 0 ? QModelIndex() : createIndex(item, 0, quintptr(0));
}

int PropertyBagModel::rowCount(const QModelIndex& parent) const
{
  if (!d->bag)
  {
    d->checkBoundSoon();
    return 0;
  }
  if (!parent.isValid())
    return d->items();
  if (parent.model() != this || !d->isItemRow(parent) || parent.column() != 0 || parent.row() >= d->items())
    return 0;
  return d->elementsOf(parent.row());
}

int PropertyBagModel::columnCount(const QModelIndex&) const
{
  return 2;
}

bool PropertyBagModel::hasChildren(const QModelIndex& parent) const
{
  if (!parent.isValid())
    return QAbstractItemModel::hasChildren(parent);
  return rowCount(parent) > 0;
}

QVariant PropertyBagModel::headerData(int, Qt::Orientation, int) const
{
  return QVariant();
}

Qt::ItemFlags PropertyBagModel::flags(const QModelIndex& index) const
{
  Qt::ItemFlags result = QAbstractItemModel::flags(index);
  if (index.column() == 1)
    result |= Qt::ItemIsEditable;
  return result;
}

QModelIndex PropertyBagModel::buddy(const QModelIndex& index) const
{
  if (index.isValid() && index.model() == this && index.column() == 0)
    return index.sibling(index.row(), 1);
  return index;
}

void PropertyBagModel::setPropBag(PropBag* bag)
{
  beginResetModel();
  d->bag = bag;
  d->everBound = true;
  d->failedValueReads = 0;
  d->anyValueRead = false;
  d->elementCounts.assign(bag ? std::size_t(std::max(0, bag->getItemCount())) : 0, -1);
  endResetModel();
}

void PropertyBagModel::setFormatter(PropUiQFormatter* formatter)
{
  d->formatter = formatter;
}

// Rows come and go only here and in setPropBag, each with its signals: views and
// proxies keep what they were told, whatever the bag answers in between.
void PropertyBagModel::itemChanged(int item)
{
  if (!d->bag)
    return;
  if (item == -1)
  {
    d->followItemCount();
    for (int i = 0; i < d->items(); ++i)
      d->followElementCount(i);
    if (d->items() > 0)
      Q_EMIT dataChanged(index(0, 0), index(d->items() - 1, 1), kChangedRoles);
    return;
  }
  if (item < 0 || item >= d->items())
    return;
  d->followElementCount(item);
  Q_EMIT dataChanged(index(item, 0), index(item, 1), kChangedRoles);
}

QVariant PropertyBagModel::data(const QModelIndex& index, int role) const
{
  if (!index.isValid() || index.model() != this || !d->bag)
    return QVariant();
  if (!d->formatter)
  {
    if (index.column() == 1 && role == Qt::DisplayRole)
      propui::adviseGridMisuseLater(propui::GridMisuse::ModelWithoutFormatter, this,
                                    [this] { return d->bag && !d->formatter; });
    return QVariant();
  }
  if (d->isItemRow(index))
    return d->itemRowData(index.row(), index.column(), role, index);
  const int item = d->parentItemOf(index);
  if (item < 0)
    return QVariant();
  return d->elementRowData(item, index.row(), index.column(), role);
}

OdUInt64 PropertyBagModel::Private::chosenEntry(int item) const
{
  PropVariant value;
  if (!bag->getValue(item, value) || value.isVaries())
    return 0;
  if (!(bag->getFlags(item) & PropItemFlag::kChoice))
    return 0;
  OdStringArray names;
  PropKeyArray keys;
  if (!bag->getValueList(item, names, keys) || keys.isEmpty())
    return 0;
  for (unsigned int i = 0; i < keys.size(); ++i)
  {
    PropVariant entry;
    if (bag->getListValue(item, keys[i], entry) && entry == value)
      return i;
  }
  return 0;
}

QString PropertyBagModel::Private::variesText(int item) const
{
  // A drawing attribute's cell reads as its picker does, beside it in a panel; the grid's
  // other values keep its own word for a varying value.
  if (propui::isDrawingAttribute(bag->getControlGuid(item)))
    return PropUiTexts::varies();
  return PropertyBagModel::tr("*VARIES*");
}

QVariant PropertyBagModel::Private::itemRowData(int item, int column, int role, const QModelIndex& index) const
{
  switch (role)
  {
  case PropItemIndexRole:
    return item;
  case PropIsSubItemRole:
    return false;
  case PropSubIndexRole:
    return QVariant::fromValue<qulonglong>(chosenEntry(item));
  case Qt::DisplayRole:
  case Qt::DecorationRole:
    break;
  default:
    return QVariant();
  }
  if (role == Qt::DisplayRole && column == 0)
  {
    OdString name;
    return bag->getName(item, name) ? QVariant(toQString(name)) : QVariant();
  }
  if (column != 1)
    return QVariant();
  PropVariant value;
  // The advice about a bag that reads nothing counts each cell once: by its text, not its icon.
  if (!(role == Qt::DisplayRole ? readValue(item, value) : bag->getValue(item, value)))
    return QVariant();
  if (value.isVaries())
    return role == Qt::DisplayRole ? QVariant(variesText(item)) : QVariant(QIcon());
  const unsigned int flags = bag->getFlags(item);
  const bool choice = flags & (PropItemFlag::kChoice | PropItemFlag::kEditableList);
  if (!choice && !(flags & PropItemFlag::kIndexed))
    return role == Qt::DisplayRole ? QVariant(formatter->getText(item, value)) : formatter->getIcon(item, value);
  // Read back through the model, as a host that overrides the sub index role would have it.
  const QVariant sub = owner->data(index, PropSubIndexRole);
  if (sub.userType() != QMetaType::ULongLong)
    return QVariant();
  const OdUInt64 s = sub.toULongLong();
  if (choice)
    return role == Qt::DisplayRole ? QVariant(formatter->getChoiceText(item, value, s))
                                   : formatter->getChoiceIcon(item, value, s);
  return role == Qt::DisplayRole ? QVariant(formatter->getElementText(item, value, s))
                                 : formatter->getElementIcon(item, value, s);
}

QVariant PropertyBagModel::Private::elementRowData(int item, int element, int column, int role) const
{
  // Hosts count on this call to learn that an element list is being shown; its answer is not needed.
  bag->getElementCount(item);
  switch (role)
  {
  case PropItemIndexRole:
    return item;
  case PropSubIndexRole:
    return QVariant::fromValue<qulonglong>(OdUInt64(element));
  case PropIsSubItemRole:
    return true;
  case Qt::DisplayRole:
    break;
  default:
    return QVariant();
  }
  if (column == 0)
  {
    PropKeyArray elements;
    OdStringArray captions;
    if (bag->getElements(item, elements, captions) == 0 || unsigned(element) >= captions.size())
      return QVariant();
    return toQString(captions[unsigned(element)]);
  }
  PropVariant value;
  if (!bag->getElementValue(item, unsigned(element), value))
    return QVariant();
  if (value.isVaries())
    return PropUiTexts::varies();
  OdString text;
  if (!bag->formatValue(item, unsigned(element), value, text))
    return QVariant();
  return toQString(text);
}

#include "PropertyBagModel.h"

#include "OdStringQt.h"
#include "PropBag.h"
#include "PropUiOptions.h"
#include "PropUiQFormatter.h"
#include "PropUiTexts.h"
#include <QIcon>
#include <algorithm>
#include <vector>

namespace
{

// The internal pointer of an item row; element rows point at their item's anchor instead.
char s_itemRowSentinel;


const QVector<int> kChangedRoles = {Qt::DisplayRole, Qt::DecorationRole, PropItemIndexRole, PropSubIndexRole,
                                    PropIsSubItemRole};

unsigned int elementCount(PropBag* bag, int item)
{
  PropKeyArray elements;
  OdStringArray captions;
  return bag->getElements(item, elements, captions);
}

} // namespace

struct PropertyBagModel::Private
{
  PropertyBagModel* owner = nullptr;
  PropBag* bag = nullptr;
  // Only the addresses count: an element row's pointer names its item by its distance from the start.
  std::vector<char> anchors;
  PropUiQFormatter* formatter = nullptr;
  // A view asks for an item's row count many times while it lays out, and a bag builds its element
  // list (captions included) each time; -1 until asked, and again after a change notice.
  mutable std::vector<int> elementCounts;

  int elementsOf(int item) const
  {
    int& count = elementCounts[std::size_t(item)];
    if (count < 0)
      count = int(elementCount(bag, item));
    return count;
  }

  bool isItemRow(const QModelIndex& index) const { return index.internalPointer() == &s_itemRowSentinel; }
  /** The item of an element row, -1 when its anchor is not one of ours. */
  int parentItemOf(const QModelIndex& index) const
  {
    if (anchors.empty())
      return -1;
    const char* anchor = static_cast<const char*>(index.internalPointer());
    const char* first = anchors.data();
    if (anchor < first || anchor >= first + anchors.size())
      return -1;
    return int(anchor - first);
  }
  int anchoredItems() const { return int(anchors.size()); }

  OdUInt64 chosenEntry(int item) const;
  QVariant itemRowData(int item, int column, int role, const QModelIndex& index) const;
  QVariant elementRowData(int item, int element, int column, int role) const;
};

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
  {
    if (row >= d->anchoredItems())
      return QModelIndex();
    return createIndex(row, column, &s_itemRowSentinel);
  }
  if (parent.model() != this || !d->isItemRow(parent) || parent.row() >= d->anchoredItems() || parent.column() != 0)
    return QModelIndex();
  if (row >= rowCount(parent))
    return QModelIndex();
  return createIndex(row, column, &d->anchors[std::size_t(parent.row())]);
}

QModelIndex PropertyBagModel::parent(const QModelIndex& child) const
{
  if (!child.isValid() || child.model() != this || d->isItemRow(child))
    return QModelIndex();
  // The anchor names the item directly; asking the roles would need a formatter to be bound.
  const int item = d->parentItemOf(child);
  return item < 0 ? QModelIndex() : createIndex(item, 0, &s_itemRowSentinel);
}

int PropertyBagModel::rowCount(const QModelIndex& parent) const
{
  if (!d->bag)
    return 0;
  if (!parent.isValid())
    return std::min(d->bag->getItemCount(), d->anchoredItems()); // rows beyond the bound count do not exist
  if (parent.model() != this || !d->isItemRow(parent) || parent.column() != 0 || parent.row() >= d->anchoredItems())
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

void PropertyBagModel::setPropBag(PropBag* bag)
{
  beginResetModel();
  d->anchors.clear();
  d->elementCounts.clear();
  d->bag = bag;
  if (bag)
  {
    d->anchors.resize(std::size_t(std::max(0, bag->getItemCount())));
    d->elementCounts.assign(d->anchors.size(), -1);
  }
  endResetModel();
}

void PropertyBagModel::setFormatter(PropUiQFormatter* formatter)
{
  d->formatter = formatter;
}

void PropertyBagModel::itemChanged(int item)
{
  if (!d->bag)
    return;
  const int rows = std::min(d->bag->getItemCount(), d->anchoredItems());
  if (item >= 0 && item < rows)
  {
    d->elementCounts[std::size_t(item)] = -1;
    emit dataChanged(index(item, 0), index(item, 1), kChangedRoles);
  }
  else if (item == -1 && rows > 0)
  {
    std::fill(d->elementCounts.begin(), d->elementCounts.end(), -1);
    emit dataChanged(index(0, 0), index(rows - 1, 1), kChangedRoles);
  }
}

QVariant PropertyBagModel::data(const QModelIndex& index, int role) const
{
  if (!index.isValid() || index.model() != this || !d->bag || !d->formatter)
    return QVariant();
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
  if (!bag->getValue(item, value))
    return QVariant();
  if (value.isVaries())
    return role == Qt::DisplayRole ? QVariant(PropertyBagModel::tr("*VARIES*")) : QVariant(QIcon());
  const unsigned int flags = bag->getFlags(item);
  const bool choice = flags & (PropItemFlag::kChoice | PropItemFlag::kEditableList);
  if (!choice && !(flags & PropItemFlag::kIndexed))
    return role == Qt::DisplayRole ? QVariant(formatter->getText(item, value)) : formatter->getIcon(item, value);
  // Read back through the model, as a host that overrides the sub index role would have it.
  const QVariant sub = owner->data(index, PropSubIndexRole);
  if (sub.type() != QVariant::ULongLong)
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

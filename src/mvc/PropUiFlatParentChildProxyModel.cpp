#include "PropUiFlatParentChildProxyModel.h"

PropUiFlatParentChildProxyModel::PropUiFlatParentChildProxyModel(QObject* parent) : QAbstractProxyModel(parent) {}

PropUiFlatParentChildProxyModel::~PropUiFlatParentChildProxyModel() = default;

quint64 PropUiFlatParentChildProxyModel::sourceKey(int parentRow, int row)
{
  const quint64 parentPart = parentRow < 0 ? quint64(0xFFFFFFFFu) : quint64(quint32(parentRow));
  return (parentPart << 32) + quint64(quint32(row));
}

void PropUiFlatParentChildProxyModel::setSourceModel(QAbstractItemModel* source)
{
  beginResetModel();
  for (const QMetaObject::Connection& connection : m_connections)
    disconnect(connection);
  m_connections.clear();
  QAbstractProxyModel::setSourceModel(source);
  if (source)
  {
    using Self = PropUiFlatParentChildProxyModel;
    using Model = QAbstractItemModel;
    m_connections = {
      connect(source, &Model::modelAboutToBeReset, this, &Self::beginResetModel),
      connect(source, &Model::modelReset, this, [this]() { rebuild(); endResetModel(); }),
      connect(source, &Model::dataChanged, this, &Self::onDataChanged),
      connect(source, &Model::headerDataChanged, this, &Self::onHeaderDataChanged),
      connect(source, &Model::rowsAboutToBeInserted, this, &Self::onRowsAboutToBeInserted),
      connect(source, &Model::rowsInserted, this, &Self::onRowsInserted),
      connect(source, &Model::rowsAboutToBeRemoved, this, &Self::onRowsAboutToBeRemoved),
      connect(source, &Model::rowsRemoved, this, &Self::onRowsRemoved),
      // A move reorders the flat list the way a sort does: persistent indexes follow their rows.
      connect(source, &Model::rowsAboutToBeMoved, this, &Self::onLayoutAboutToBeChanged),
      connect(source, &Model::rowsMoved, this, &Self::onLayoutChanged),
      connect(source, &Model::layoutAboutToBeChanged, this, &Self::onLayoutAboutToBeChanged),
      connect(source, &Model::layoutChanged, this, &Self::onLayoutChanged),
      // The columns are the source's own; a change of them changes every row.
      connect(source, &Model::columnsAboutToBeInserted, this, &Self::beginResetModel),
      connect(source, &Model::columnsInserted, this, [this]() { rebuild(); endResetModel(); }),
      connect(source, &Model::columnsAboutToBeRemoved, this, &Self::beginResetModel),
      connect(source, &Model::columnsRemoved, this, [this]() { rebuild(); endResetModel(); }),
      connect(source, &Model::columnsAboutToBeMoved, this, &Self::beginResetModel),
      connect(source, &Model::columnsMoved, this, [this]() { rebuild(); endResetModel(); }),
    };
  }
  rebuild();
  endResetModel();
}

void PropUiFlatParentChildProxyModel::rebuild()
{
  m_rows.clear();
  m_rowOfKey.clear();
  const QAbstractItemModel* source = sourceModel();
  if (!source)
    return;
  const int tops = source->rowCount();
  m_rows.reserve(tops);
  for (int top = 0; top < tops; ++top)
  {
    m_rowOfKey.insert(sourceKey(-1, top), m_rows.size());
    m_rows.append({-1, top});
    const int children = source->rowCount(source->index(top, 0));
    for (int child = 0; child < children; ++child)
    {
      m_rowOfKey.insert(sourceKey(top, child), m_rows.size());
      m_rows.append({top, child});
    }
  }
}

QModelIndex PropUiFlatParentChildProxyModel::mapToSource(const QModelIndex& proxyIndex) const
{
  const QAbstractItemModel* source = sourceModel();
  if (!source || !proxyIndex.isValid() || proxyIndex.model() != this || proxyIndex.row() >= m_rows.size())
    return QModelIndex();
  const Row& row = m_rows[proxyIndex.row()];
  if (row.parentRow < 0)
    return source->index(row.row, proxyIndex.column());
  return source->index(row.row, proxyIndex.column(), source->index(row.parentRow, 0));
}

QModelIndex PropUiFlatParentChildProxyModel::mapFromSource(const QModelIndex& sourceIndex) const
{
  if (!sourceIndex.isValid() || sourceIndex.model() != sourceModel())
    return QModelIndex();
  const QModelIndex sourceParent = sourceIndex.parent();
  if (sourceParent.isValid() && sourceParent.parent().isValid())
    return QModelIndex(); // deeper rows are not listed
  const auto found = m_rowOfKey.constFind(sourceKey(sourceParent.isValid() ? sourceParent.row() : -1, sourceIndex.row()));
  if (found == m_rowOfKey.constEnd())
    return QModelIndex();
  return createIndex(found.value(), sourceIndex.column());
}

QModelIndex PropUiFlatParentChildProxyModel::index(int row, int column, const QModelIndex& parent) const
{
  if (parent.isValid() || row < 0 || row >= m_rows.size() || column < 0 || column >= columnCount())
    return QModelIndex();
  return createIndex(row, column);
}

QModelIndex PropUiFlatParentChildProxyModel::parent(const QModelIndex&) const
{
  return QModelIndex();
}

QModelIndex PropUiFlatParentChildProxyModel::sibling(int row, int column, const QModelIndex& index) const
{
  return index.isValid() && index.model() == this ? this->index(row, column) : QModelIndex();
}

int PropUiFlatParentChildProxyModel::rowCount(const QModelIndex& parent) const
{
  return parent.isValid() ? 0 : m_rows.size();
}

int PropUiFlatParentChildProxyModel::columnCount(const QModelIndex& parent) const
{
  const QAbstractItemModel* source = sourceModel();
  return source && !parent.isValid() ? source->columnCount() : 0;
}

bool PropUiFlatParentChildProxyModel::hasChildren(const QModelIndex& parent) const
{
  return !parent.isValid() && !m_rows.isEmpty();
}

int PropUiFlatParentChildProxyModel::proxyRowOfTop(int sourceRow) const
{
  return m_rowOfKey.value(sourceKey(-1, sourceRow), m_rows.size());
}

bool PropUiFlatParentChildProxyModel::isFlattenedParent(const QModelIndex& sourceParent) const
{
  // Only the first column of a top-level row carries listed rows.
  return !sourceParent.isValid() || (!sourceParent.parent().isValid() && sourceParent.column() == 0);
}

QPair<int, int> PropUiFlatParentChildProxyModel::proxyRange(const QModelIndex& sourceParent, int first, int last) const
{
  if (!sourceParent.isValid())
    return {proxyRowOfTop(first), proxyRowOfTop(last + 1)};
  const int parentRow = proxyRowOfTop(sourceParent.row());
  return {parentRow + 1 + first, parentRow + 1 + last + 1};
}

void PropUiFlatParentChildProxyModel::onRowsAboutToBeInserted(const QModelIndex& sourceParent, int first, int)
{
  m_insertAt = -1;
  if (!isFlattenedParent(sourceParent))
    return;
  // The new rows (with whatever they hold) go where the row now at `first` starts.
  m_insertAt = proxyRange(sourceParent, first, first - 1).first;
}

void PropUiFlatParentChildProxyModel::onRowsInserted(const QModelIndex& sourceParent, int first, int last)
{
  if (m_insertAt < 0)
    return;
  const int insertAt = m_insertAt;
  m_insertAt = -1;
  // The source has its new rows already: renumber the old list so that, until the views have been
  // told, each old proxy row still reaches the source row it stood for.
  const int count = last - first + 1;
  QVector<Row> oldRows = m_rows;
  for (Row& row : oldRows)
  {
    if (!sourceParent.isValid())
    {
      int& top = row.parentRow < 0 ? row.row : row.parentRow;
      if (top >= first)
        top += count;
    }
    else if (row.parentRow == sourceParent.row() && row.row >= first)
      row.row += count;
  }
  const int before = m_rows.size();
  rebuild();
  const int added = m_rows.size() - before;
  if (added <= 0)
    return;
  QVector<Row> newRows;
  QHash<quint64, int> newKeys;
  newRows.swap(m_rows);
  newKeys.swap(m_rowOfKey);
  m_rows = oldRows;
  for (int i = 0; i < m_rows.size(); ++i)
    m_rowOfKey.insert(sourceKey(m_rows[i].parentRow, m_rows[i].row), i);
  beginInsertRows(QModelIndex(), insertAt, insertAt + added - 1);
  m_rows.swap(newRows);
  m_rowOfKey.swap(newKeys);
  endInsertRows();
}

void PropUiFlatParentChildProxyModel::onRowsAboutToBeRemoved(const QModelIndex& sourceParent, int first, int last)
{
  m_removing = false;
  if (!isFlattenedParent(sourceParent))
    return;
  const QPair<int, int> range = proxyRange(sourceParent, first, last);
  if (range.second <= range.first)
    return;
  m_removing = true;
  beginRemoveRows(QModelIndex(), range.first, range.second - 1);
}

void PropUiFlatParentChildProxyModel::onRowsRemoved()
{
  if (!m_removing)
    return;
  rebuild();
  m_removing = false;
  endRemoveRows();
}

void PropUiFlatParentChildProxyModel::onLayoutAboutToBeChanged()
{
  Q_EMIT layoutAboutToBeChanged();
  m_layoutProxyIndexes = persistentIndexList();
  m_layoutSourceIndexes.clear();
  for (const QModelIndex& proxyIndex : qAsConst(m_layoutProxyIndexes))
    m_layoutSourceIndexes.append(QPersistentModelIndex(mapToSource(proxyIndex)));
}

void PropUiFlatParentChildProxyModel::onLayoutChanged()
{
  rebuild();
  QModelIndexList moved;
  moved.reserve(m_layoutSourceIndexes.size());
  for (const QPersistentModelIndex& sourceIndex : qAsConst(m_layoutSourceIndexes))
    moved.append(mapFromSource(sourceIndex));
  changePersistentIndexList(m_layoutProxyIndexes, moved);
  m_layoutProxyIndexes.clear();
  m_layoutSourceIndexes.clear();
  Q_EMIT layoutChanged();
}

void PropUiFlatParentChildProxyModel::onDataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight,
                                                    const QVector<int>& roles)
{
  if (!topLeft.isValid() || !bottomRight.isValid())
    return;
  const QModelIndex sourceParent = topLeft.parent();
  if (!isFlattenedParent(sourceParent))
    return;
  const QPair<int, int> range = proxyRange(sourceParent, topLeft.row(), bottomRight.row());
  if (range.second <= range.first)
    return;
  // Item rows are not contiguous here: the element rows between them are reported too, which costs a repaint only.
  Q_EMIT dataChanged(index(range.first, topLeft.column()), index(range.second - 1, bottomRight.column()), roles);
}

void PropUiFlatParentChildProxyModel::onHeaderDataChanged(Qt::Orientation orientation, int first, int last)
{
  // Rows are renumbered here, so only the column headers keep their meaning.
  if (orientation == Qt::Horizontal)
    Q_EMIT headerDataChanged(orientation, first, last);
}

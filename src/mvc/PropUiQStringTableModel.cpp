#include "PropUiQStringTableModel.h"

PropUiQStringTableModel::PropUiQStringTableModel(QObject* parent) : QAbstractTableModel(parent) {}

PropUiQStringTableModel::~PropUiQStringTableModel() = default;

int PropUiQStringTableModel::rowCount(const QModelIndex& parent) const
{
  return parent.isValid() ? 0 : m_rows;
}

int PropUiQStringTableModel::columnCount(const QModelIndex& parent) const
{
  return parent.isValid() ? 0 : m_columns;
}

int PropUiQStringTableModel::cellIndex(const QModelIndex& index) const
{
  return index.row() * m_columns + index.column();
}

bool PropUiQStringTableModel::isCell(const QModelIndex& index, int role) const
{
  // Display and edit are the same text; 2 is Qt::EditRole, and 0 the display role.
  if (role & ~int(Qt::EditRole))
    return false;
  if (index.model() != this)
    return false;
  return index.row() >= 0 && index.row() < m_rows && index.column() >= 0 && index.column() < m_columns;
}

QVariant PropUiQStringTableModel::data(const QModelIndex& index, int role) const
{
  if (!isCell(index, role))
    return QVariant();
  const int cell = cellIndex(index);
  return cell < m_cells.size() ? QVariant(m_cells.at(cell)) : QVariant();
}

bool PropUiQStringTableModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
  if (!isCell(index, role))
    return false;
  const int cell = cellIndex(index);
  // A short list grows to reach the cell, so that an edit of a missing cell is kept.
  while (m_cells.size() <= cell)
    m_cells.append(QString());
  m_cells[cell] = value.toString();
  Q_EMIT dataChanged(index, index, {Qt::DisplayRole, Qt::EditRole});
  return true;
}

QVariant PropUiQStringTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
  if (role != Qt::DisplayRole || section < 0)
    return QVariant();
  if (orientation == Qt::Horizontal)
    return section < m_columns && section < m_columnLabels.size() ? QVariant(m_columnLabels.at(section)) : QVariant();
  return section < m_rows && section < m_rowLabels.size() ? QVariant(m_rowLabels.at(section)) : QVariant();
}

QMap<int, QVariant> PropUiQStringTableModel::itemData(const QModelIndex& index) const
{
  return QAbstractTableModel::itemData(index);
}

bool PropUiQStringTableModel::setItemData(const QModelIndex& index, const QMap<int, QVariant>& roles)
{
  if (roles.isEmpty())
    return false;
  for (auto it = roles.cbegin(); it != roles.cend(); ++it)
    if (it.key() != Qt::DisplayRole && it.key() != Qt::EditRole)
      return false;
  const auto edit = roles.constFind(Qt::EditRole);
  if (edit != roles.cend())
    return setData(index, edit.value(), Qt::EditRole);
  return setData(index, roles.value(Qt::DisplayRole), Qt::DisplayRole);
}

Qt::ItemFlags PropUiQStringTableModel::flags(const QModelIndex& index) const
{
  if (!isCell(index, Qt::EditRole))
    return QAbstractTableModel::flags(index); // nothing to edit outside the table
  return QAbstractTableModel::flags(index) | Qt::ItemIsEditable;
}

void PropUiQStringTableModel::setCells(const QStringList& cells, int rows, int columns)
{
  rows = std::max(0, rows);
  columns = std::max(0, columns);
  if (rows != m_rows || columns != m_columns)
  {
    beginResetModel();
    m_cells = cells;
    m_rows = rows;
    m_columns = columns;
    endResetModel();
    return;
  }
  // The same shape, as nearly every refresh brings: only the cells that differ are announced,
  // and the views keep their current cell, selection and scroll position.
  int first = -1, last = -1;
  const int shown = std::max(m_cells.size(), cells.size());
  for (int cell = 0; cell < shown; ++cell)
    if (cell >= m_cells.size() || cell >= cells.size() || m_cells.at(cell) != cells.at(cell))
    {
      first = first < 0 ? cell : first;
      last = cell;
    }
  if (first < 0)
    return;
  m_cells = cells;
  if (m_columns == 0)
    return;
  const int top = first / m_columns, bottom = std::min(last / m_columns, m_rows - 1);
  if (top > bottom)
    return;
  const bool oneRow = top == bottom;
  Q_EMIT dataChanged(index(top, oneRow ? first % m_columns : 0), index(bottom, oneRow ? last % m_columns : m_columns - 1),
                     {Qt::DisplayRole, Qt::EditRole});
}

void PropUiQStringTableModel::setHeaders(const QStringList& labels, Qt::Orientation orientation)
{
  QStringList& held = orientation == Qt::Horizontal ? m_columnLabels : m_rowLabels;
  if (labels != held)
    held = labels;
  const int last = (orientation == Qt::Horizontal ? m_rows : m_columns) - 1;
  if (last >= 0)
    Q_EMIT headerDataChanged(orientation, 0, last);
}

QStringList PropUiQStringTableModel::headers(Qt::Orientation orientation) const
{
  return orientation == Qt::Horizontal ? m_columnLabels : m_rowLabels;
}

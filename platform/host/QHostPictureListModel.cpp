#include "QHostPictureListModel.h"

#include <QComboBox>

namespace host_qt_ui
{

QHostPictureListModel::QHostPictureListModel(QObject* parent) : QAbstractListModel(parent) {}

int QHostPictureListModel::rowCount(const QModelIndex& parent) const
{
  return parent.isValid() ? 0 : m_entries.size();
}

QVariant QHostPictureListModel::data(const QModelIndex& index, int role) const
{
  if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
    return QVariant();
  const Entry& entry = m_entries[index.row()];
  switch (role)
  {
  case Qt::DisplayRole: return entry.text;
  case Qt::DecorationRole: return entry.picture;
  case Qt::UserRole: return entry.key;
  case Qt::ToolTipRole: return entry.toolTip.isEmpty() ? QVariant() : QVariant(entry.toolTip);
  default: return QVariant();
  }
}

void QHostPictureListModel::appendTo(QComboBox* combo) const
{
  for (const Entry& entry : m_entries)
  {
    combo->addItem(entry.picture, entry.text, entry.key);
    if (!entry.toolTip.isEmpty())
      combo->setItemData(combo->count() - 1, entry.toolTip, Qt::ToolTipRole);
  }
}

int QHostPictureListModel::rowOfKey(const QVariant& key) const
{
  for (int row = 0; row < m_entries.size(); ++row)
    if (m_entries[row].key == key)
      return row;
  return -1;
}

void QHostPictureListModel::setEntries(const QVector<Entry>& entries)
{
  beginResetModel();
  m_entries = entries;
  endResetModel();
}

void QHostPictureListModel::setPicture(int row, const QIcon& picture)
{
  if (row < 0 || row >= m_entries.size())
    return;
  m_entries[row].picture = picture;
  const QModelIndex changed = index(row, 0);
  Q_EMIT dataChanged(changed, changed, {Qt::DecorationRole});
}

} // namespace host_qt_ui

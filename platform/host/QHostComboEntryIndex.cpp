#include "QHostComboEntryIndex.h"

#include <QAbstractItemModel>
#include <QComboBox>
#include <algorithm>

namespace host_qt_ui_core
{

namespace
{

// Folds letter by letter, as a case-blind compare does, without a folded copy of every entry.
uint foldedHash(const QString& text)
{
  uint hash = 0;
  const int size = text.size();
  for (int i = 0; i < size; ++i)
  {
    uint code = text.at(i).unicode();
    if (QChar::isHighSurrogate(code) && i + 1 < size && text.at(i + 1).isLowSurrogate())
      code = QChar::surrogateToUcs4(ushort(code), text.at(++i).unicode());
    hash = hash * 31 + QChar::toCaseFolded(code);
  }
  return hash;
}

template <class Key>
int firstRowOf(const QVector<QPair<Key, int>>& rows, Key key)
{
  const auto found = std::lower_bound(rows.cbegin(), rows.cend(), qMakePair(key, -1));
  return found != rows.cend() && found->first == key ? found->second : -1;
}

} // namespace

QHostComboEntryIndex::~QHostComboEntryIndex()
{
  forget();
}

void QHostComboEntryIndex::forget()
{
  for (const QMetaObject::Connection& connection : qAsConst(m_watch))
    QObject::disconnect(connection);
  m_watch.clear();
  m_stale = true;
}

void QHostComboEntryIndex::follow(const QComboBox& combo)
{
  QAbstractItemModel* model = combo.model();
  if (model == m_model && combo.modelColumn() == m_column && !m_watch.isEmpty())
    return;
  forget();
  m_model = model;
  m_column = combo.modelColumn();
  if (!model)
    return;
  auto stale = [this] { m_stale = true; };
  m_watch << QObject::connect(model, &QAbstractItemModel::rowsInserted, stale)
          << QObject::connect(model, &QAbstractItemModel::rowsRemoved, stale)
          << QObject::connect(model, &QAbstractItemModel::rowsMoved, stale)
          << QObject::connect(model, &QAbstractItemModel::modelReset, stale)
          << QObject::connect(model, &QAbstractItemModel::layoutChanged, stale)
          << QObject::connect(model, &QAbstractItemModel::dataChanged,
                              [this](const QModelIndex&, const QModelIndex&, const QVector<int>& roles) {
                                // A new picture or tool tip moves no row.
                                if (roles.isEmpty() || roles.contains(Qt::DisplayRole) ||
                                    roles.contains(Qt::EditRole) || roles.contains(Qt::UserRole))
                                  m_stale = true;
                              });
}

void QHostComboEntryIndex::rebuild(const QComboBox& combo)
{
  follow(combo);
  if (!m_stale)
    return;
  m_texts.clear();
  m_keys.clear();
  const int rows = combo.count();
  m_texts.reserve(rows);
  for (int row = 0; row < rows; ++row)
  {
    m_texts.append(qMakePair(foldedHash(combo.itemText(row)), row));
    const QVariant key = combo.itemData(row, Qt::UserRole);
    if (key.userType() == QMetaType::ULongLong)
      m_keys.append(qMakePair(key.toULongLong(), row));
  }
  // By hash or key, then by row: the first of equal entries comes first.
  std::sort(m_texts.begin(), m_texts.end());
  std::sort(m_keys.begin(), m_keys.end());
  m_stale = false;
}

int QHostComboEntryIndex::rowOfText(const QComboBox& combo, const QString& text)
{
  rebuild(combo);
  const int row = firstRowOf(m_texts, foldedHash(text));
  if (row < 0 || combo.itemText(row).compare(text, Qt::CaseInsensitive) == 0)
    return row;
  // Two texts of one hash: the model tells which row is the first that matches.
  return combo.findText(text, Qt::MatchFixedString);
}

int QHostComboEntryIndex::rowOfKey(const QComboBox& combo, qulonglong key)
{
  rebuild(combo);
  return firstRowOf(m_keys, key);
}

} // namespace host_qt_ui_core

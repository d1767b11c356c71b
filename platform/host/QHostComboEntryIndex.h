#pragma once

#include "HostExport.h"
#include <QMetaObject>
#include <QPair>
#include <QPointer>
#include <QVector>

class QComboBox;
class QAbstractItemModel;
class QString;

namespace host_qt_ui_core
{

/**
 * The rows of a combo box by text and by key, kept until its model changes.
 * A control refreshes its combo on every change of the drawing, and a search
 * through the model's match() asks every row for its data as a variant: over
 * the 257 colours that was most of a refresh.
 */
class HOST_EXPORT QHostComboEntryIndex
{
public:
  QHostComboEntryIndex() = default;
  ~QHostComboEntryIndex();
  QHostComboEntryIndex(const QHostComboEntryIndex&) = delete;
  QHostComboEntryIndex& operator=(const QHostComboEntryIndex&) = delete;

  /** The first row whose text equals `text` ignoring case, as findText(text, Qt::MatchFixedString) finds it. */
  int rowOfText(const QComboBox& combo, const QString& text);
  /** The first row whose user data is the unsigned 64-bit `key`; -1 when none. */
  int rowOfKey(const QComboBox& combo, qulonglong key);

private:
  void follow(const QComboBox& combo);
  void rebuild(const QComboBox& combo);
  void forget();

  QPointer<QAbstractItemModel> m_model;
  int m_column = 0;
  QVector<QMetaObject::Connection> m_watch;
  bool m_stale = true;
  // Sorted (hash or key, row) pairs: one block each to fill and free, where a hash table frees node by node.
  QVector<QPair<uint, int>> m_texts; // by a hash of the folded text, checked against the row when found
  QVector<QPair<qulonglong, int>> m_keys;
};

} // namespace host_qt_ui_core

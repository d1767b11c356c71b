#pragma once

#include "HostExport.h"
#include <QAbstractListModel>
#include <QIcon>
#include <QVector>

class QComboBox;

namespace host_qt_ui
{

/**
 * A read-only list of named pictures, each with a key as Qt::UserRole: the
 * common part of the drawing-attribute lists that pickers and formatters share.
 */
class HOST_EXPORT QHostPictureListModel : public QAbstractListModel
{
  Q_OBJECT

public:
  /** The size pictures are drawn at, in logical pixels; wide enough for a dash pattern. */
  static QSize pictureSize() { return QSize(40, 16); }

  explicit QHostPictureListModel(QObject* parent = nullptr);

  int rowCount(const QModelIndex& parent = QModelIndex()) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

  /** Appends every row to the combo box as an entry: text, picture, key and tool tip. */
  void appendTo(QComboBox* combo) const;

  /** The row whose key is the given one, or -1. */
  int rowOfKey(const QVariant& key) const;

protected:
  struct Entry
  {
    QString text;
    QIcon picture;
    QVariant key;
    QString toolTip;
  };

  /** Replaces every entry at once, as one reset. */
  void setEntries(const QVector<Entry>& entries);
  /** Changes one entry's picture, when the row exists. */
  void setPicture(int row, const QIcon& picture);
  const QVector<Entry>& entries() const { return m_entries; }

private:
  QVector<Entry> m_entries;
};

} // namespace host_qt_ui

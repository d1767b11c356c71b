#pragma once

#include "PropWidgetsExport.h"
#include <QAbstractProxyModel>
#include <QHash>
#include <QVector>

/**
 * A two-level source model seen as one flat table: each top-level row of the
 * source, followed at once by the rows under its first column. No row has
 * children. The proxy follows every change its source reports, so a host can
 * drive it like any Qt proxy.
 */
class PROPWIDGETS_EXPORT PropUiFlatParentChildProxyModel : public QAbstractProxyModel
{
  Q_OBJECT

public:
  explicit PropUiFlatParentChildProxyModel(QObject* parent = nullptr);
  ~PropUiFlatParentChildProxyModel() override;

  void setSourceModel(QAbstractItemModel* sourceModel) override;
  QModelIndex mapToSource(const QModelIndex& proxyIndex) const override;
  /** Invalid for a source row this proxy does not list. */
  QModelIndex mapFromSource(const QModelIndex& sourceIndex) const override;
  QModelIndex index(int row, int column, const QModelIndex& parent = QModelIndex()) const override;
  QModelIndex parent(const QModelIndex& child) const override;
  QModelIndex sibling(int row, int column, const QModelIndex& index) const override;
  int rowCount(const QModelIndex& parent = QModelIndex()) const override;
  int columnCount(const QModelIndex& parent = QModelIndex()) const override;
  bool hasChildren(const QModelIndex& parent = QModelIndex()) const override;

  /** The lookup key of a source row: its parent's row (0xFFFFFFFF at the top) above its own row. */
  static quint64 sourceKey(int parentRow, int row);

private:
  struct Row
  {
    int parentRow; // -1 for a top-level source row
    int row;
  };

  void rebuild();
  /** The proxy row where the top-level source row starts, or the row count when it is past the end. */
  int proxyRowOfTop(int sourceRow) const;
  /** The proxy rows that source rows first..last under the parent take, as [begin, end). */
  QPair<int, int> proxyRange(const QModelIndex& sourceParent, int first, int last) const;
  bool isFlattenedParent(const QModelIndex& sourceParent) const;

private Q_SLOTS:
  void onRowsAboutToBeInserted(const QModelIndex& sourceParent, int first, int last);
  void onRowsInserted(const QModelIndex& sourceParent, int first, int last);
  void onRowsAboutToBeRemoved(const QModelIndex& sourceParent, int first, int last);
  void onRowsRemoved();
  void onLayoutAboutToBeChanged();
  void onLayoutChanged();
  void onDataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight, const QVector<int>& roles);
  void onHeaderDataChanged(Qt::Orientation orientation, int first, int last);

private:
  QVector<Row> m_rows;
  QHash<quint64, int> m_rowOfKey;
  QVector<QMetaObject::Connection> m_connections;
  // Between the two signals of an insertion: where the new rows go.
  int m_insertAt = -1;
  bool m_removing = false;
  QModelIndexList m_layoutProxyIndexes;
  QList<QPersistentModelIndex> m_layoutSourceIndexes;
};

#pragma once

#include "PropUiQtMVCInterface.h"
#include <QAbstractItemModel>
#include <memory>

/**
 * One property bag as a two-column tree: a row per item (its name, its value
 * as text and icon) and, under an item with elements, a row per element. Every
 * answer is asked of the bag or the formatter when the view asks; rows come
 * and go only when the bag is bound and when the host reports a change.
 */
class PROPWIDGETS_EXPORT PropertyBagModel : public QAbstractItemModel, public PropUiQtMVCInterface
{
  Q_OBJECT

public:
  explicit PropertyBagModel(QObject* parent = nullptr);
  ~PropertyBagModel() override;

  QModelIndex index(int row, int column, const QModelIndex& parent = QModelIndex()) const override;
  QModelIndex parent(const QModelIndex& child) const override;
  int rowCount(const QModelIndex& parent = QModelIndex()) const override;
  int columnCount(const QModelIndex& parent = QModelIndex()) const override;
  bool hasChildren(const QModelIndex& parent = QModelIndex()) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  /** A row is edited in its value cell, whichever of its cells is current. */
  QModelIndex buddy(const QModelIndex& index) const override;

  /** Resets the model; the bag's item count now fixes the rows. */
  void setPropBag(PropBag* bag) override;
  void setFormatter(PropUiQFormatter* formatter) override;
  /**
   * Reports the item's two cells (all items for -1) as changed, after
   * following a changed element count (and, for -1, item count) with rows.
   */
  void itemChanged(int item) override;

private:
  struct Private;
  std::unique_ptr<Private> d;
};

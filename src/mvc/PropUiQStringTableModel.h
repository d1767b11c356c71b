#pragma once

#include "PropWidgetsExport.h"
#include <QAbstractTableModel>
#include <QStringList>

/**
 * An editable grid of strings, stored row by row, with optional column and
 * row labels. The sizes are kept apart from the list: a list shorter than
 * rows x columns leaves the missing cells empty (invalid).
 */
class PROPWIDGETS_EXPORT PropUiQStringTableModel : public QAbstractTableModel
{
  Q_OBJECT

public:
  explicit PropUiQStringTableModel(QObject* parent = nullptr);
  ~PropUiQStringTableModel() override;

  int rowCount(const QModelIndex& parent = QModelIndex()) const override;
  int columnCount(const QModelIndex& parent = QModelIndex()) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;
  QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
  QMap<int, QVariant> itemData(const QModelIndex& index) const override;
  bool setItemData(const QModelIndex& index, const QMap<int, QVariant>& roles) override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;

  /** Replaces the cells: a new shape resets the model, the same shape announces only the cells that changed. */
  void setCells(const QStringList& cells, int rows, int columns);
  /**
   * Replaces the column labels (Qt::Horizontal) or the row labels. The
   * change is reported over the row count for column labels and over the
   * column count for row labels, as hosts of the table control expect.
   */
  void setHeaders(const QStringList& labels, Qt::Orientation orientation);
  QStringList cells() const { return m_cells; }
  QStringList headers(Qt::Orientation orientation) const;
  int cellIndex(const QModelIndex& index) const;

private:
  bool isCell(const QModelIndex& index, int role) const;

  QStringList m_cells;
  QStringList m_columnLabels;
  QStringList m_rowLabels;
  int m_rows = 0;
  int m_columns = 0;
};

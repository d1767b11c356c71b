#pragma once

#include "PropUiQControl.h"
#include <QPointer>
#include <QTableView>

class PropUiQStringTableModel;

/**
 * A table-valued item (a title block, a schedule) in a table view.
 *
 * How the bag holds a table: the item's value is a string array of the
 * cells, row by row, so that cell (r, c) is entry r x columns + c. The
 * shape and the labels are elements of the item:
 *
 *   element 0 (kRowsElement)          the row count, an integer
 *   element 1 (kColumnsElement)       the column count, an integer
 *   element 2 (kColumnLabelsElement)  the column labels, a string array (optional)
 *   element 3 (kRowLabelsElement)     the row labels, a string array (optional)
 *
 * Without a readable shape the cells are shown as one column. A cell's text
 * is parsed by the bag with the cell's number as the element; the whole
 * table is then validated and written with the cell replaced. A refused
 * edit puts the cell back. A table that varies shows "*varies*" in every
 * cell and cannot be edited, nor can one the bag says is read-only.
 */
class PROPWIDGETS_EXPORT PropUiQTableCtrl : public PropUiQControl
{
  Q_OBJECT

public:
  enum TableElement : unsigned long
  {
    kRowsElement = 0,
    kColumnsElement = 1,
    kColumnLabelsElement = 2,
    kRowLabelsElement = 3
  };

  explicit PropUiQTableCtrl(QWidget* parent = nullptr);

  bool setupUi() override;
  void updateUi() override;
  void updateData() override;
  bool isVaries() const override;
  void setVaries(bool varies) override;

  /** Parses, validates and writes the table with this cell's new text; false when nothing was written. */
  virtual bool applyCell(const QModelIndex& cell);

public Q_SLOTS:
  virtual void onDataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight, const QVector<int>& roles);

public:
  QTableView* tableView() const { return m_view; }
  PropUiQStringTableModel* tableModel() const;

  /** More cells than this are not a table a panel can show; the control shows none. */
  static constexpr int kMaxCells = 100000;

private:
  bool readShape(int& rows, int& columns, int cellCount);
  QStringList readLabels(unsigned long element);
  void showCells(const QStringList& cells, int rows, int columns);
  void updateEditTriggers();

  QPointer<QTableView> m_view;
  /** The cells as last read from the bag: what a refused edit puts back. */
  QStringList m_shown;
  bool m_varies = false;
};

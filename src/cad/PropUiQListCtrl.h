#pragma once

#include "OdArray.h"
#include "PropUiQControl.h"
#include "PropUiQSelectionExt.h"
#include "PropBag.h"
#include "PropVariant.h"
#include <QItemSelection>
#include <QPointer>
#include <QVector>

#include <QListView>
class QStandardItemModel;

/**
 * A list-valued item as a one-column list. The item's value is an array;
 * each entry is a row, shown through the control's formatter and kept under
 * Qt::UserRole + 1. With PropUiOption::kListCheckBoxes each row has a check
 * box mirroring the boolean that the bag keeps for the row's element (the
 * elements of getElements, one per row, in order); with kListPins a row can
 * be pinned. The current row, the selection and pins are told to the item's
 * reactor, when it listens.
 */
class PROPWIDGETS_EXPORT PropUiQListCtrl : public PropUiQControl, public PropUiQSelectionExt
{
  Q_OBJECT

public:
  explicit PropUiQListCtrl(QWidget* parent = nullptr);
  ~PropUiQListCtrl() override;

  bool setupUi() override;
  void updateUi() override;
  void updateData() override;

  void currentChanged(const PropVariant& current) override;
  void selectionChanged(const PropVariant& selection) override;

public Q_SLOTS:
  virtual void onDataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight, const QVector<int>& roles);
  /** Rows going away take their values out of the selection and the pin. */
  virtual void onRowsAboutToBeRemoved(const QModelIndex& parent, int first, int last);
  /** An emptied list has no current value. */
  virtual void onRowsRemoved(const QModelIndex& parent, int first, int last);
  virtual void onSelectionChanged(const QItemSelection& selected, const QItemSelection& deselected);
  virtual void onCurrentRowChanged(const QModelIndex& current, const QModelIndex& previous);

public:
  bool eventFilter(QObject* watched, QEvent* event) override;

  QListView* listView() const { return m_view; }
  QStandardItemModel* model() const;
  const PropVariant& currentValue() const { return m_current; }
  const PropVariant& pinnedValue() const { return m_pinned; }
  const OdArray<PropVariant>& selectedValues() const { return m_selected; }

  static constexpr int kValueRole = Qt::UserRole + 1;
  static constexpr int kPinRole = Qt::UserRole + 2;

private:
  /**
   * Sets the check boxes from the bag, when the bag's elements match the rows;
   * with `uncheckUnread`, a box the bag says nothing about is cleared.
   */
  void readCheckStates(bool uncheckUnread);
  /** The elements behind the rows, or false when the bag's list does not match them. */
  bool rowElements(PropKeyArray& elements) const;
  void writeCheckStates(int first, int last);
  void reportPins(int first, int last);
  /** Chooses again, among the rows holding `values`, the current value and the selected ones that are still there. */
  void restoreSelection(const QVector<PropVariant>& values, const PropVariant& current,
                        const OdArray<PropVariant>& selected);
  int typeId() const;

  QPointer<QListView> m_view;
  PropVariant m_current;
  PropVariant m_pinned;
  OdArray<PropVariant> m_selected;
};

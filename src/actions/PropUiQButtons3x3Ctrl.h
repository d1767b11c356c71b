#pragma once

#include "PropBag.h"
#include "PropUiQControl.h"
#include <QButtonGroup>
#include <QPointer>

/**
 * A 3x3 grid of tool buttons for an item whose nine listed values name the
 * cells in row order (a justification, say). A click writes the cell's value.
 */
class PROPWIDGETS_EXPORT PropUiQButtons3x3Ctrl : public PropUiQControl
{
  Q_OBJECT

public:
  explicit PropUiQButtons3x3Ctrl(QWidget* parent = nullptr);

  bool setupUi() override;
  void updateUi() override;
  /** Raises the platform's invalid-index error for a list of fewer than nine entries. */
  void updateData() override;

public Q_SLOTS:
  virtual void onIdClicked(int id);

public:
  QButtonGroup* buttonGroup() const { return m_buttonGroup; }

protected:
  /** Tab into the grid lands on the current cell. */
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  void refreshCells(const OdStringArray& texts, const PropKeyArray& keys);
  /** After a refused click: while the item's values still differ, no cell is checked. */
  void restoreVariesLook();

  QPointer<QButtonGroup> m_buttonGroup;
};

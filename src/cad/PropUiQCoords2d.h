#pragma once

#include "PropUiQControl.h"
#include "QHostSpinBox.h"
#include <QPointer>

class PropUiQDistanceCtrl;


/**
 * A 2D point edited as X and Y, each a distance bound to its own element of
 * the item. An item holding several points (a group count of 1 or more) gets
 * a selector of the point; point g (from 1) is elements 2(g - 1) and 2(g - 1) + 1.
 */
class PROPWIDGETS_EXPORT PropUiQCoords2d : public PropUiQControl
{
  Q_OBJECT

public:
  explicit PropUiQCoords2d(QWidget* parent = nullptr);

  bool setupUi() override;
  void updateUi() override;
  void updateData() override;

public Q_SLOTS:
  /** Binds X and Y to the point the selector names and shows it. */
  virtual void onGroupChanged();

public:
  host_qt_ui_core::QHostSpinBox* groupSpinBox() const { return m_groupSpinBox; }
  PropUiQDistanceCtrl* axis(int a) const;

private:
  QPointer<host_qt_ui_core::QHostSpinBox> m_groupSpinBox;
  QPointer<PropUiQDistanceCtrl> m_x;
  QPointer<PropUiQDistanceCtrl> m_y;
};

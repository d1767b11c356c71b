#pragma once

#include "PropUiQControl.h"
#include "QHostSpinBox.h"
#include <QPointer>
#include <QVector>

class PropUiQDistanceCtrl;


/**
 * A 3D point edited as X, Y and Z (X and Y only with PropUiOption::kTwoAxes),
 * each a distance bound to its own element of the item. Points are stored
 * as three numbers whatever is shown, so point g (from 1) starts at element
 * 3(g - 1) in both forms. Only the composite shows the item's actions.
 */
class PROPWIDGETS_EXPORT PropUiQCoords3d : public PropUiQControl
{
  Q_OBJECT

public:
  explicit PropUiQCoords3d(QWidget* parent = nullptr);

  bool setupUi() override;
  void updateUi() override;
  void updateData() override;

public Q_SLOTS:
  /** Binds the axes to the point the selector names and shows it. */
  virtual void onGroupChanged();

public:
  host_qt_ui_core::QHostSpinBox* groupSpinBox() const { return m_groupSpinBox; }
  int axisCount() const { return m_axes.size(); }
  PropUiQDistanceCtrl* axis(int a) const;

private:
  QPointer<host_qt_ui_core::QHostSpinBox> m_groupSpinBox;
  QVector<QPointer<PropUiQDistanceCtrl> > m_axes;
};

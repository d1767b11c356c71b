#pragma once

#include "PropUiQControl.h"
#include <QPointer>

class PropUiQScaleElementCtrl;
#include <QToolButton>

/**
 * A 2D scale: X and Y (elements 0 and 1 of a value holding two numbers)
 * and a lock that keeps them equal. The lock button is checked while the
 * scale is edited non-uniformly. Locking a scale whose numbers differ by
 * more than 1e-10 makes Y equal to X in the bag.
 */
class PROPWIDGETS_EXPORT PropUiQScale2d : public PropUiQControl
{
  Q_OBJECT

public:
  explicit PropUiQScale2d(QWidget* parent = nullptr);

  bool setupUi() override;
  void updateUi() override;
  void updateData() override;

public Q_SLOTS:
  /** Unlocks (true) or locks (false) the scale. */
  virtual void onNonUniformChanged(bool nonUniform);

public:
  QToolButton* lockButton() const { return m_lockButton; }
  PropUiQScaleElementCtrl* element(int a) const;

  /** Numbers closer than this are one scale. */
  static constexpr double kUniformTolerance = 1e-10;

private:
  /** The scale's two numbers; false for a value that varies or is not two numbers. */
  static bool twoNumbers(const PropVariant& value, double& x, double& y);
  void showLocked(bool locked);
  void refreshFromBag();

  QPointer<PropUiQScaleElementCtrl> m_x;
  QPointer<PropUiQScaleElementCtrl> m_y;
  QPointer<QToolButton> m_lockButton;
};

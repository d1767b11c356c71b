#pragma once

#include "PropUiQControl.h"
#include <QPointer>

class PropAction;
class QAbstractButton;
#include <QButtonGroup>
class QHBoxLayout;

/**
 * A row of buttons, one per action of the item, rebuilt from the bag's list
 * on every update. A click runs the action at the button's position in the
 * list as it is at that moment.
 */
class PROPWIDGETS_EXPORT PropUiActionButtonGroupCtrl : public PropUiQControl
{
  Q_OBJECT

public:
  /** Option bit: buttons to the left (a trailing spacer). */
  static constexpr int kAlignLeft = 0x10000;
  /** Option bit: buttons to the right (a leading spacer). */
  static constexpr int kAlignRight = 0x20000;

  explicit PropUiActionButtonGroupCtrl(QWidget* parent = nullptr);

  bool setupUi() override;
  void updateUi() override;
  void updateData() override;

  virtual void onIdClicked(int id);
  /** A new button whose parent is the control. */
  virtual QAbstractButton* createBtn() = 0;
  /** Makes the button show the action. */
  virtual void updateBtn(QAbstractButton* button, PropAction* action) = 0;

protected:
  QHBoxLayout* buttonsLayout() const;

  QPointer<QButtonGroup> m_buttonGroup;
};

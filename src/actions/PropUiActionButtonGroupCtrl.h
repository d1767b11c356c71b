#pragma once

#include "PropBag.h"
#include "PropUiQControl.h"
#include <QPointer>

#include "PropAction.h"
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
  explicit PropUiActionButtonGroupCtrl(QWidget* parent = nullptr);

  bool setupUi() override;
  void updateUi() override;
  void updateData() override;

public Q_SLOTS:
  virtual void onIdClicked(int id);

public:
  /** A new button whose parent is the control. */
  virtual QAbstractButton* createBtn() = 0;
  /** Makes the button show the action. */
  virtual void updateBtn(QAbstractButton* button, PropAction* action) = 0;

protected:
  QHBoxLayout* buttonsLayout() const;
  /** A button whose font or style changed fits its width again. */
  bool eventFilter(QObject* watched, QEvent* event) override;

  QPointer<QButtonGroup> m_buttonGroup;

private:
  /** The actions the buttons show, kept alive as long as the buttons may point to them. */
  PropActionArray m_actions;
};

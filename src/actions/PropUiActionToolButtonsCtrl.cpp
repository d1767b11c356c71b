#include "PropUiActionToolButtonsCtrl.h"

#include "PropUiQAction.h"
#include <QToolButton>

PropUiActionToolButtonsCtrl::PropUiActionToolButtonsCtrl(QWidget* parent) : PropUiActionButtonGroupCtrl(parent) {}

QAbstractButton* PropUiActionToolButtonsCtrl::createBtn()
{
  auto* button = new QToolButton(this);
  button->setObjectName(QStringLiteral("actionButton"));
  // Set twice on purpose: hosts that restyle these buttons rely on the fixed policy winning.
  button->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Minimum);
  button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  button->setFixedSize(15, 15);
  button->setDefaultAction(new PropUiQAction(button));
  return button;
}

void PropUiActionToolButtonsCtrl::updateBtn(QAbstractButton* button, PropAction* action)
{
  auto* toolButton = qobject_cast<QToolButton*>(button);
  auto* mirror = toolButton ? qobject_cast<PropUiQAction*>(toolButton->defaultAction()) : nullptr;
  if (mirror)
    mirror->setPropAction(action);
}

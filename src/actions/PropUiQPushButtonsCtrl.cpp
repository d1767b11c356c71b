#include "PropUiQPushButtonsCtrl.h"

#include <QPushButton>

PropUiQPushButtonsCtrl::PropUiQPushButtonsCtrl(QWidget* parent) : PropUiButtonGroupCtrl(parent) {}

void PropUiQPushButtonsCtrl::onButtonClicked(QAbstractButton* button)
{
  commitButton(button);
}

QAbstractButton* PropUiQPushButtonsCtrl::createBtn()
{
  auto* button = new QPushButton(this);
  button->setObjectName(QStringLiteral("choice"));
  button->setCheckable(true);
  return button;
}

void PropUiQPushButtonsCtrl::updateBtn(QAbstractButton* button, const OdString& text, unsigned long key)
{
  if (qobject_cast<QPushButton*>(button))
    showEntry(button, text, key);
}

void PropUiQPushButtonsCtrl::removeBtn(QAbstractButton* button)
{
  m_buttonKeys.erase(button);
}

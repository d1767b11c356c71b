#include "PropUiQToolButtonsCtrl.h"

#include <QToolButton>

PropUiQToolButtonsCtrl::PropUiQToolButtonsCtrl(QWidget* parent) : PropUiButtonGroupCtrl(parent) {}

void PropUiQToolButtonsCtrl::onButtonClicked(QAbstractButton* button)
{
  if (qobject_cast<QToolButton*>(button))
    commitButton(button);
}

QAbstractButton* PropUiQToolButtonsCtrl::createBtn()
{
  auto* button = new QToolButton(this);
  button->setObjectName(QStringLiteral("choice"));
  button->setCheckable(true);
  return button;
}

void PropUiQToolButtonsCtrl::updateBtn(QAbstractButton* button, const OdString& text, unsigned long key)
{
  if (qobject_cast<QToolButton*>(button))
    showEntry(button, text, key);
}

void PropUiQToolButtonsCtrl::removeBtn(QAbstractButton* button)
{
  m_buttonKeys.erase(button);
}

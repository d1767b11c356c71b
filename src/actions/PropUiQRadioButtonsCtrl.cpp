#include "PropUiQRadioButtonsCtrl.h"

#include "OdStringQt.h"
#include <QRadioButton>

PropUiQRadioButtonsCtrl::PropUiQRadioButtonsCtrl(QWidget* parent) : PropUiButtonGroupCtrl(parent) {}

void PropUiQRadioButtonsCtrl::onButtonClicked(QAbstractButton* button)
{
  commitButton(button);
}

QAbstractButton* PropUiQRadioButtonsCtrl::createBtn()
{
  auto* button = new QRadioButton(this);
  button->setObjectName(QStringLiteral("choice"));
  return button;
}

void PropUiQRadioButtonsCtrl::updateBtn(QAbstractButton* button, const OdString& text, unsigned long key)
{
  auto* radio = qobject_cast<QRadioButton*>(button);
  if (!radio)
    return;
  radio->setText(toQString(text));
  radio->setToolTip(toQString(text));
  uncheck(radio);
  m_buttonKeys[radio] = key;
}

void PropUiQRadioButtonsCtrl::removeBtn(QAbstractButton* button)
{
  m_buttonKeys.erase(button);
}

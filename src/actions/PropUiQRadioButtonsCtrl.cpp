#include "PropUiQRadioButtonsCtrl.h"

#include "OdStringQt.h"
#include "PropUiButtonRow.h"
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
  const QString shown = toQString(text);
  radio->setText(shown);
  propui::setToolTipIfChanged(radio, shown);
  uncheck(radio);
  m_buttonKeys[radio] = key;
}

void PropUiQRadioButtonsCtrl::removeBtn(QAbstractButton* button)
{
  m_buttonKeys.erase(button);
}

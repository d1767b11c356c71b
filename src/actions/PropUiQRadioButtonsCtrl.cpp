#include "PropUiQRadioButtonsCtrl.h"

#include "OdStringQt.h"
#include "PropUiButtonRow.h"
#include "PropUiTextCaption.h"
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
  if (!propui::showsText(radio->text(), text))
    radio->setText(toQString(text));
  if (!propui::showsText(radio->toolTip(), text))
    radio->setToolTip(toQString(text));
  uncheck(radio);
  m_buttonKeys[radio] = key;
}

void PropUiQRadioButtonsCtrl::removeBtn(QAbstractButton* button)
{
  m_buttonKeys.erase(button);
}

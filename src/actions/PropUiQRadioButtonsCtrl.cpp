#include "PropUiQRadioButtonsCtrl.h"

#include "OdStringQt.h"
#include "PropUiButtonRow_p.h"
#include "PropUiTextCaption_p.h"
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
  const bool captionShown = propui::showsText(radio->text(), text);
  const bool tipShown = propui::showsText(radio->toolTip(), text);
  if (!captionShown || !tipShown)
  {
    const QString shown = toQString(text);
    if (!captionShown)
      radio->setText(shown);
    if (!tipShown)
      radio->setToolTip(shown);
  }
  uncheck(radio);
  m_buttonKeys[radio] = key;
}

void PropUiQRadioButtonsCtrl::removeBtn(QAbstractButton* button)
{
  m_buttonKeys.erase(button);
}

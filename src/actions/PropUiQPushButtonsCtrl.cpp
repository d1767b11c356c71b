#include "PropUiQPushButtonsCtrl.h"

#include "OdStringQt.h"
#include "PropBag.h"
#include "PropUiQIcon.h"
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
  auto* typed = qobject_cast<QPushButton*>(button);
  if (!typed)
    return;
  typed->setToolTip(toQString(text));
  if (!(m_options & kIconsOnly))
    typed->setText(toQString(text));
  uncheck(typed);
  OdSharedPtr<PropIcon> icon;
  if (m_bag && m_bag->getIcon(m_index, key, icon))
    if (auto* qicon = dynamic_cast<PropUiQIcon*>(icon.get()))
      typed->setIcon(qicon->getIcon());
  m_buttonKeys[typed] = key;
}

void PropUiQPushButtonsCtrl::removeBtn(QAbstractButton* button)
{
  m_buttonKeys.erase(button);
}

#include "PropUiQToolButtonsCtrl.h"

#include "OdStringQt.h"
#include "PropBag.h"
#include "PropUiQIcon.h"
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
  auto* typed = qobject_cast<QToolButton*>(button);
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

void PropUiQToolButtonsCtrl::removeBtn(QAbstractButton* button)
{
  m_buttonKeys.erase(button);
}

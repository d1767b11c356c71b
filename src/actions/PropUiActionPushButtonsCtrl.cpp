#include "PropUiActionPushButtonsCtrl.h"

#include "OdStringQt.h"
#include "PropAction.h"
#include "PropUiIcons.h"
#include "PropUiQIcon.h"
#include <QPushButton>

PropUiActionPushButtonsCtrl::PropUiActionPushButtonsCtrl(QWidget* parent) : PropUiActionButtonGroupCtrl(parent) {}

QAbstractButton* PropUiActionPushButtonsCtrl::createBtn()
{
  auto* button = new QPushButton(this);
  button->setObjectName(QStringLiteral("actionButton"));
  button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  button->setFixedSize(15, 15);
  return button;
}

void PropUiActionPushButtonsCtrl::updateBtn(QAbstractButton* button, PropAction* action)
{
  auto* pushButton = qobject_cast<QPushButton*>(button);
  if (!action || !pushButton)
    return;
  pushButton->setCheckable(action->checkable());
  pushButton->setChecked(action->checked());
  pushButton->setEnabled(action->enabled());
  const QString caption = toQString(action->name());
  pushButton->setToolTip(caption);
  if (!(m_options & PropUiOption::kIconsOnly))
    pushButton->setText(caption);
  OdSharedPtr<PropIcon> icon = action->icon();
  auto* qicon = dynamic_cast<PropUiQIcon*>(icon.get());
  pushButton->setIcon(qicon ? qicon->getIcon() : propUiGetIcon(QStringLiteral("default_button")));
}

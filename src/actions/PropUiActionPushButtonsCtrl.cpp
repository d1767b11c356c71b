#include "PropUiActionPushButtonsCtrl.h"

#include "OdStringQt.h"
#include "PropAction.h"
#include "PropUiActionButtonWidth.h"
#include "PropUiButtonRow.h"
#include "PropUiIcons.h"
#include "PropUiQIcon.h"
#include <QPushButton>

PropUiActionPushButtonsCtrl::PropUiActionPushButtonsCtrl(QWidget* parent) : PropUiActionButtonGroupCtrl(parent) {}

QAbstractButton* PropUiActionPushButtonsCtrl::createBtn()
{
  auto* button = new QPushButton(this);
  button->setObjectName(QStringLiteral("actionButton"));
  button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  button->setFixedSize(propui::kActionButtonSize, propui::kActionButtonSize);
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
  // Every refresh lands here: only what changed is handed on, as a button repaints and relays out for each.
  propui::setToolTipIfChanged(pushButton, caption);
  OdSharedPtr<PropIcon> icon = action->icon();
  auto* qicon = dynamic_cast<PropUiQIcon*>(icon.get());
  const bool ownPicture = qicon && !qicon->getIcon().isNull();
  const bool iconsOnly = m_options & PropUiOption::kIconsOnly;
  // The stock picture beside a caption says nothing; it stands in only where no caption shows.
  const bool showCaption = !iconsOnly && !caption.isEmpty();
  pushButton->setText(showCaption ? caption : QString());
  // A present but empty picture (a placeholder's) stays blank.
  const QIcon picture =
    qicon ? qicon->getIcon() : showCaption ? QIcon() : propUiGetIcon(QStringLiteral("default_button"));
  propui::setIconIfChanged(pushButton, picture);
  propui::fitActionButtonWidth(pushButton, showCaption ? caption : QString(), ownPicture ? pushButton->iconSize().width() : 0, 0);
}

#include "PropUiActionPushButtonsCtrl.h"

#include "OdStringQt.h"
#include "PropAction.h"
#include "PropUiActionButtonWidth_p.h"
#include "PropUiButtonRow_p.h"
#include "PropUiTextCaption_p.h"
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
  const QString textBefore = pushButton->text();
  const qint64 pictureBefore = pushButton->icon().cacheKey();
  const OdString name = action->name();
  // Every refresh lands here, mostly with what is already shown: only what
  // changed is handed on, as a button repaints and relays out for each.
  if (!propui::showsText(pushButton->toolTip(), name))
    pushButton->setToolTip(toQString(name));
  OdSharedPtr<PropIcon> icon = action->icon();
  auto* qicon = dynamic_cast<PropUiQIcon*>(icon.get());
  const bool iconsOnly = m_options & PropUiOption::kIconsOnly;
  // The stock picture beside a caption says nothing; it stands in only where no caption shows.
  const bool showCaption = !iconsOnly && !name.isEmpty();
  if (!showCaption)
    pushButton->setText(QString());
  else if (!propui::showsText(pushButton->text(), name))
    pushButton->setText(toQString(name));
  // A present but empty picture (a placeholder's) stays blank.
  static const QIcon noPicture;
  const QIcon& picture = qicon ? qicon->getIcon() : showCaption ? noPicture : propui::stockActionPicture();
  propui::setIconIfChanged(pushButton, picture);
  if (pushButton->text() != textBefore || (showCaption && pushButton->icon().cacheKey() != pictureBefore))
    propui::fitActionButtonWidth(pushButton);
}

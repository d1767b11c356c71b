#include "PropUiActionToolButtonsCtrl.h"

#include "PropAction.h"
#include "PropUiActionButtonWidth_p.h"
#include "PropUiQAction.h"
#include "PropUiQIcon.h"
#include <QToolButton>

namespace
{

/** Whether the action brings a picture of its own, rather than leaving the button to the stock one. */
bool hasOwnPicture(PropAction* action)
{
  OdSharedPtr<PropIcon> icon = action ? action->icon() : OdSharedPtr<PropIcon>();
  auto* qicon = dynamic_cast<PropUiQIcon*>(icon.get());
  return qicon && !qicon->getIcon().isNull();
}

} // namespace

PropUiActionToolButtonsCtrl::PropUiActionToolButtonsCtrl(QWidget* parent) : PropUiActionButtonGroupCtrl(parent) {}

QAbstractButton* PropUiActionToolButtonsCtrl::createBtn()
{
  auto* button = new QToolButton(this);
  button->setObjectName(QStringLiteral("actionButton"));
  // Set twice on purpose: hosts that restyle these buttons rely on the fixed policy winning.
  button->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Minimum);
  button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  button->setFixedSize(propui::kActionButtonSize, propui::kActionButtonSize);
  button->setDefaultAction(new PropUiQAction(button));
  return button;
}

void PropUiActionToolButtonsCtrl::updateBtn(QAbstractButton* button, PropAction* action)
{
  auto* toolButton = qobject_cast<QToolButton*>(button);
  auto* mirror = toolButton ? qobject_cast<PropUiQAction*>(toolButton->defaultAction()) : nullptr;
  if (!mirror)
    return;
  const QString before = mirror->iconText();
  mirror->setPropAction(action);
  // Buttons that all showed the stock picture could only be told apart by their tool
  // tips: an action without a picture of its own shows its caption instead.
  const QString caption = mirror->iconText();
  const bool showCaption = !caption.isEmpty() && !hasOwnPicture(action);
  const Qt::ToolButtonStyle style = showCaption ? Qt::ToolButtonTextOnly : Qt::ToolButtonIconOnly;
  const bool restyled = toolButton->toolButtonStyle() != style;
  if (restyled)
    toolButton->setToolButtonStyle(style);
  // QAction compares with the tip it holds; asking toolTip() first would
  // derive one from the caption on every refresh.
  mirror->setToolTip(caption);
  if (restyled || (showCaption && caption != before))
    propui::fitActionButtonWidth(toolButton);
}

#include "PropUiActionPushButtonsCtrl.h"

#include "OdStringQt.h"
#include "PropAction.h"
#include "PropUiIcons.h"
#include "PropUiQIcon.h"
#include <QPushButton>
#include <QStyle>

namespace
{

const int kButtonSize = 15;

} // namespace

PropUiActionPushButtonsCtrl::PropUiActionPushButtonsCtrl(QWidget* parent) : PropUiActionButtonGroupCtrl(parent) {}

QAbstractButton* PropUiActionPushButtonsCtrl::createBtn()
{
  auto* button = new QPushButton(this);
  button->setObjectName(QStringLiteral("actionButton"));
  button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  button->setFixedSize(kButtonSize, kButtonSize);
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
  OdSharedPtr<PropIcon> icon = action->icon();
  auto* qicon = dynamic_cast<PropUiQIcon*>(icon.get());
  const bool ownPicture = qicon && !qicon->getIcon().isNull();
  const bool iconsOnly = m_options & PropUiOption::kIconsOnly;
  // The stock picture beside a caption says nothing; it stands in only where no caption shows.
  const bool showCaption = !iconsOnly && !caption.isEmpty();
  pushButton->setText(showCaption ? caption : QString());
  if (qicon) // a present but empty picture (a placeholder's) stays blank
    pushButton->setIcon(qicon->getIcon());
  else
    pushButton->setIcon(showCaption ? QIcon() : propUiGetIcon(QStringLiteral("default_button")));
  int width = kButtonSize;
  if (showCaption)
  {
    const int margin = pushButton->style()->pixelMetric(QStyle::PM_ButtonMargin, nullptr, pushButton);
    width = pushButton->fontMetrics().horizontalAdvance(caption) + 2 * margin;
    if (ownPicture)
      width += pushButton->iconSize().width() + margin;
  }
  if (pushButton->minimumWidth() != width || pushButton->maximumWidth() != width)
    pushButton->setFixedWidth(width);
}

#include "PropUiActionPushButtonsCtrl.h"

#include "OdStringQt.h"
#include "PropAction.h"
#include "PropUiIcons.h"
#include "PropUiQIcon.h"
#include <QPushButton>
#include <QFont>
#include <QStyle>
#include <QVariant>

namespace
{

/** Tells fonts apart for remembering what a caption was measured with; far cheaper than QFont::key(). */
QString fontTag(const QFont& font)
{
  // The hash leaves out the point size, which the seed brings in.
  const uint hash = qHash(font, uint(font.pointSizeF() * 64));
  const QChar tag[] = {QChar(u'\n'), QChar(ushort(hash >> 16)), QChar(ushort(hash & 0xFFFF))};
  return QString(tag, 3);
}

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
  // Every refresh lands here: only what changed is handed on, as a button repaints and relays out for each.
  if (pushButton->toolTip() != caption)
    pushButton->setToolTip(caption);
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
  if (picture.cacheKey() != pushButton->icon().cacheKey())
    pushButton->setIcon(picture);
  const QString measured =
    showCaption ? caption + fontTag(pushButton->font()) + QChar(ownPicture ? pushButton->iconSize().width() : 0) : QString();
  const char* const kMeasuredFor = "propUiMeasuredFor";
  if (!measured.isNull() && pushButton->property(kMeasuredFor).toString() == measured)
    return;
  pushButton->setProperty(kMeasuredFor, measured);
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

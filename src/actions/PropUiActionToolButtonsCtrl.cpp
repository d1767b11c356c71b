#include "PropUiActionToolButtonsCtrl.h"

#include "PropAction.h"
#include "PropUiQAction.h"
#include "PropUiQIcon.h"
#include <QFont>
#include <QStyle>
#include <QToolButton>

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
  button->setFixedSize(kButtonSize, kButtonSize);
  button->setDefaultAction(new PropUiQAction(button));
  return button;
}

void PropUiActionToolButtonsCtrl::updateBtn(QAbstractButton* button, PropAction* action)
{
  auto* toolButton = qobject_cast<QToolButton*>(button);
  auto* mirror = toolButton ? qobject_cast<PropUiQAction*>(toolButton->defaultAction()) : nullptr;
  if (!mirror)
    return;
  mirror->setPropAction(action);
  // Buttons that all showed the stock picture could only be told apart by their tool
  // tips: an action without a picture of its own shows its caption instead.
  const QString caption = mirror->iconText();
  const bool showCaption = !caption.isEmpty() && !hasOwnPicture(action);
  const Qt::ToolButtonStyle style = showCaption ? Qt::ToolButtonTextOnly : Qt::ToolButtonIconOnly;
  if (toolButton->toolButtonStyle() != style)
    toolButton->setToolButtonStyle(style);
  if (mirror->toolTip() != caption)
    mirror->setToolTip(caption);
  // Measuring the caption was most of a refresh: measure again only when the caption or the font changed.
  const QString measured = showCaption ? caption + fontTag(toolButton->font()) : QString();
  const char* const kMeasuredFor = "propUiMeasuredFor";
  if (!measured.isNull() && toolButton->property(kMeasuredFor).toString() == measured)
    return;
  toolButton->setProperty(kMeasuredFor, measured);
  const int margin = toolButton->style()->pixelMetric(QStyle::PM_ButtonMargin, nullptr, toolButton);
  const int width =
    showCaption ? qMax(kButtonSize, toolButton->fontMetrics().horizontalAdvance(caption) + 2 * margin) : kButtonSize;
  if (toolButton->minimumWidth() != width || toolButton->maximumWidth() != width)
    toolButton->setFixedWidth(width);
}

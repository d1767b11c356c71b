#include "PropUiActionButtonWidth_p.h"

#include "HostQtStyleManager.h"
#include "PropUiIcons.h"

#include <QAbstractButton>
#include <QStyle>
#include <QToolButton>

void propui::fitActionButtonWidth(QAbstractButton* button)
{
  QString caption;
  int pictureWidth = 0;
  int minimumWidth = 0;
  if (auto* tool = qobject_cast<QToolButton*>(button))
  {
    if (tool->toolButtonStyle() == Qt::ToolButtonTextOnly)
      caption = tool->text();
    minimumWidth = kActionButtonSize;
  }
  else
  {
    caption = button->text();
    // Beside a caption a push button shows only a picture of the action's own.
    if (!button->icon().isNull())
      pictureWidth = button->iconSize().width();
  }
  int width = kActionButtonSize;
  if (!caption.isEmpty())
  {
    const int margin = button->style()->pixelMetric(QStyle::PM_ButtonMargin, nullptr, button);
    width = button->fontMetrics().horizontalAdvance(caption) + 2 * margin;
    if (pictureWidth > 0)
      width += pictureWidth + margin;
    width = qMax(minimumWidth, width);
  }
  if (button->minimumWidth() != width || button->maximumWidth() != width)
    button->setFixedWidth(width);
}

const QIcon& propui::stockActionPicture()
{
  static int theme = -1;
  static QIcon picture;
  const int current = hostGetQtStyleManager()->theme();
  if (current != theme || picture.isNull())
  {
    picture = propUiGetIcon(QStringLiteral("default_button"));
    theme = current;
  }
  return picture;
}

#include "PropUiActionButtonWidth.h"

#include <QAbstractButton>
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

} // namespace

void propui::fitActionButtonWidth(QAbstractButton* button, const QString& caption, int pictureWidth, int minimumWidth)
{
  const bool showCaption = !caption.isEmpty();
  const QString measured = showCaption ? caption + fontTag(button->font()) + QChar(ushort(pictureWidth)) : QString();
  const char* const kMeasuredFor = "propUiMeasuredFor";
  if (!measured.isNull() && button->property(kMeasuredFor).toString() == measured)
    return;
  button->setProperty(kMeasuredFor, measured);
  int width = kActionButtonSize;
  if (showCaption)
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

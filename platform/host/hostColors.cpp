#include "hostColors.h"

#include "OdStringQt.h"
#include "hostQtPicture.h"
#include <QCoreApplication>
#include <vector>

namespace
{

std::vector<OdCmColor>& customColors()
{
  static std::vector<OdCmColor> colors;
  return colors;
}

} // namespace

void hostAddCustomColor(const OdCmColor& color)
{
  if (color.isByLayer() || color.isByBlock())
    return;
  std::vector<OdCmColor>& colors = customColors();
  for (const OdCmColor& known : colors)
    if (known == color)
      return;
  if (int(colors.size()) >= kHostMaxCustomColors)
    colors.erase(colors.begin());
  colors.push_back(color);
}

void hostGetCustomColors(OdArray<OdCmColor>& colors)
{
  colors.clear();
  for (const OdCmColor& color : customColors())
    colors.append(color);
}

void hostClearCustomColors()
{
  customColors().clear();
}

QColor hostQtColor(const OdCmColor& color)
{
  if (!color.isByACI() && !color.isByColor())
    return QColor();
  return QColor(color.red(), color.green(), color.blue());
}

QString hostQtColorName(const OdCmColor& color)
{
  if (color.isByLayer())
    return QCoreApplication::translate("host_qt_ui", "ByLayer");
  if (color.isByBlock())
    return QCoreApplication::translate("host_qt_ui", "ByBlock");
  if (color.isByACI())
  {
    static const char* const standard[] = {QT_TRANSLATE_NOOP("host_qt_ui", "Red"),
                                           QT_TRANSLATE_NOOP("host_qt_ui", "Yellow"),
                                           QT_TRANSLATE_NOOP("host_qt_ui", "Green"),
                                           QT_TRANSLATE_NOOP("host_qt_ui", "Cyan"),
                                           QT_TRANSLATE_NOOP("host_qt_ui", "Blue"),
                                           QT_TRANSLATE_NOOP("host_qt_ui", "Magenta"),
                                           QT_TRANSLATE_NOOP("host_qt_ui", "White")};
    const int index = color.colorIndex();
    if (index >= 1 && index <= 7)
      return QCoreApplication::translate("host_qt_ui", standard[index - 1]);
    return QCoreApplication::translate("host_qt_ui", "Colour %1").arg(index);
  }
  if (!color.colorName().isEmpty())
    return toQString(color.colorName());
  return QStringLiteral("%1,%2,%3").arg(color.red()).arg(color.green()).arg(color.blue());
}

QIcon hostQtGetColorIcon(const OdCmColor& color, int w, int h)
{
  if (w <= 0 || h <= 0)
    return QIcon();
  const QColor fill = hostQtColor(color);
  const QColor ink = hostQtPictureInk();
  // ByLayer and ByBlock share one look, so the colour on screen is all that tells swatches apart.
  QByteArray key("swatch");
  const QRgb rgba = fill.isValid() ? fill.rgba() : 0;
  key.append(reinterpret_cast<const char*>(&rgba), sizeof rgba).append(char(fill.isValid()));
  return hostQtKeptPicture(key, QSize(w, h), ink, [&](QPainter& p, const QRectF& area) {
    const QRectF swatch = area.adjusted(1.5, 1.5, -1.5, -1.5);
    if (fill.isValid())
    {
      p.fillRect(swatch, fill);
    }
    else
    {
      // ByLayer and ByBlock have no colour of their own: half light, half dark says "decided elsewhere".
      p.fillRect(swatch, Qt::white);
      QPolygonF lower;
      lower << swatch.bottomLeft() << swatch.bottomRight() << swatch.topRight();
      p.setPen(Qt::NoPen);
      p.setBrush(Qt::black);
      p.drawPolygon(lower);
    }
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(ink, 1.0));
    p.drawRect(swatch);
  });
}

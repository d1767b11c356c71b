#include "hostQtPicture.h"

#include "HostVisualManager.h"
#include <QPixmap>

QIcon hostQtPicture(const QSize& size, const std::function<void(QPainter&, const QRectF&)>& draw)
{
  QIcon icon;
  for (int ratio = 1; ratio <= 2; ++ratio)
  {
    QPixmap pixmap(size * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    {
      QPainter painter(&pixmap);
      painter.setRenderHint(QPainter::Antialiasing);
      draw(painter, QRectF(QPointF(0, 0), QSizeF(size)));
    }
    icon.addPixmap(pixmap);
  }
  return icon;
}

QColor hostQtPictureInk()
{
  const unsigned int word = hostVisualManager()->textColor(0);
  return QColor(int(word & 0xFF), int((word >> 8) & 0xFF), int((word >> 16) & 0xFF));
}

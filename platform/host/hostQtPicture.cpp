#include "hostQtPicture.h"

#include "HostVisualManager.h"
#include <QCoreApplication>
#include <QHash>
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

namespace
{

using KeptPictures = QHash<QByteArray, QIcon>;

KeptPictures& keptPictures()
{
  static KeptPictures* kept = nullptr;
  if (!kept)
  {
    kept = new KeptPictures;
    // Pixmaps must go while the application that made them is still there.
    qAddPostRoutine([] {
      delete kept;
      kept = nullptr;
    });
  }
  return *kept;
}

} // namespace

QIcon hostQtKeptPicture(const QByteArray& key, const QSize& size, const QColor& ink,
                        const std::function<void(QPainter&, const QRectF&)>& draw)
{
  QByteArray full = key;
  const qint32 w = size.width(), h = size.height();
  const QRgb rgba = ink.rgba();
  full.append(reinterpret_cast<const char*>(&w), sizeof w)
    .append(reinterpret_cast<const char*>(&h), sizeof h)
    .append(reinterpret_cast<const char*>(&rgba), sizeof rgba);
  KeptPictures& kept = keptPictures();
  const auto known = kept.constFind(full);
  if (known != kept.constEnd())
    return known.value();
  // Every standard entry of every picker in both themes fits many times over.
  if (kept.size() >= 512)
    kept.clear();
  const QIcon picture = hostQtPicture(size, draw);
  kept.insert(full, picture);
  return picture;
}

QColor hostQtPictureInk()
{
  const unsigned int word = hostVisualManager()->textColor(0);
  return QColor(int(word & 0xFF), int((word >> 8) & 0xFF), int((word >> 16) & 0xFF));
}

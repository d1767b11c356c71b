// Draws the control icons of both themes as .ico files holding a 16x16 and a
// 32x32 picture, so that QIcon has a sharp one for a device pixel ratio of 2.
// Usage: prop_make_icons OUTPUT_DIR  (writes OUTPUT_DIR/dark/*.ico and OUTPUT_DIR/light/*.ico)

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QImageWriter>
#include <QtEndian>
#include <QPainter>
#include <QPainterPath>
#include <cstdio>
#include <functional>

namespace
{

// The pictures are drawn on a 16 unit grid and scaled to each size.
const int kUnits = 16;
const int kSizes[] = {16, 32};

struct Theme
{
  QString folder;
  QColor ink;    // strokes
  QColor accent; // the body of the padlock and the dots of the button
};

void drawDefaultButton(QPainter& p, const Theme& t)
{
  // Three dots: the usual sign for "more, run a command".
  p.setPen(Qt::NoPen);
  p.setBrush(t.ink);
  for (int i = 0; i < 3; ++i)
    p.drawEllipse(QRectF(2.0 + i * 4.5, 6.5, 3.0, 3.0));
}

void drawPadlock(QPainter& p, const Theme& t, bool open)
{
  QPen pen(t.ink, 1.6);
  pen.setCapStyle(Qt::RoundCap);
  p.setPen(pen);
  p.setBrush(Qt::NoBrush);
  QPainterPath shackle;
  if (open)
  {
    shackle.moveTo(10.5, 4.5);
    shackle.arcTo(QRectF(7.5, 1.5, 6.0, 6.0), 180.0, -180.0);
    shackle.lineTo(13.5, 7.5);
    shackle.moveTo(10.5, 4.5);
    shackle.lineTo(10.5, 7.5);
  }
  else
  {
    shackle.moveTo(5.0, 7.5);
    shackle.lineTo(5.0, 5.0);
    shackle.arcTo(QRectF(5.0, 1.5, 6.0, 7.0), 180.0, -180.0);
    shackle.lineTo(11.0, 7.5);
  }
  p.drawPath(open ? shackle.translated(-4.0, 0.0) : shackle);
  p.setPen(QPen(t.ink, 1.0));
  p.setBrush(t.accent);
  p.drawRoundedRect(QRectF(3.5, 7.5, 9.0, 7.0), 1.5, 1.5);
  p.setPen(Qt::NoPen);
  p.setBrush(t.ink);
  p.drawRect(QRectF(7.5, 9.5, 1.0, 3.0));
}

QImage render(int size, const std::function<void(QPainter&)>& draw)
{
  QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter p(&image);
  p.setRenderHint(QPainter::Antialiasing);
  p.scale(qreal(size) / kUnits, qreal(size) / kUnits);
  draw(p);
  return image;
}

// Qt writes one picture per .ico; the pictures are written one by one and
// their directory entries joined, each entry's data offset moved along.
bool write(const QString& path, const std::function<void(QPainter&)>& draw)
{
  const int headerSize = 6;
  const int entrySize = 16;
  const int count = int(sizeof(kSizes) / sizeof(kSizes[0]));
  QByteArray directory(headerSize, '\0');
  qToLittleEndian<quint16>(1, directory.data() + 2);
  qToLittleEndian<quint16>(quint16(count), directory.data() + 4);
  QByteArray payload;
  quint32 offset = quint32(headerSize + entrySize * count);
  for (int size : kSizes)
  {
    QByteArray single;
    QBuffer buffer(&single);
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, "ico");
    if (!writer.write(render(size, draw)) || single.size() < headerSize + entrySize)
      return false;
    QByteArray entry = single.mid(headerSize, entrySize);
    const quint32 length = qFromLittleEndian<quint32>(entry.constData() + 8);
    const quint32 start = qFromLittleEndian<quint32>(entry.constData() + 12);
    if (start + length > quint32(single.size()))
      return false;
    qToLittleEndian<quint32>(offset, entry.data() + 12);
    directory += entry;
    payload += single.mid(int(start), int(length));
    offset += length;
  }
  QFile file(path);
  return file.open(QIODevice::WriteOnly) && file.write(directory + payload) == directory.size() + payload.size();
}

} // namespace

int main(int argc, char** argv)
{
  QGuiApplication app(argc, argv);
  if (argc < 2)
  {
    std::fprintf(stderr, "usage: prop_make_icons OUTPUT_DIR\n");
    return 2;
  }
  const QString out = QString::fromLocal8Bit(argv[1]);
  const Theme themes[] = {{QStringLiteral("dark"), QColor(0xdf, 0xe1, 0xe5), QColor(0x4e, 0x8a, 0xf0)},
                          {QStringLiteral("light"), QColor(0x2b, 0x2d, 0x30), QColor(0x35, 0x74, 0xf0)}};
  for (const Theme& t : themes)
  {
    const QString dir = out + QLatin1Char('/') + t.folder;
    QDir().mkpath(dir);
    const bool ok = write(dir + QStringLiteral("/default_button.ico"), [&](QPainter& p) { drawDefaultButton(p, t); }) &&
                    write(dir + QStringLiteral("/lock.ico"), [&](QPainter& p) { drawPadlock(p, t, false); }) &&
                    write(dir + QStringLiteral("/unlock.ico"), [&](QPainter& p) { drawPadlock(p, t, true); });
    if (!ok)
    {
      std::fprintf(stderr, "prop_make_icons: cannot write the icons into %s\n", qPrintable(dir));
      return 1;
    }
  }
  return 0;
}

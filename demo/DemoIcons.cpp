#include "DemoIcons.h"

#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <functional>

namespace
{

// Mid tones that read on the dark and on the light theme alike.
const QColor kInk(0x80, 0x86, 0x8f);
const QColor kAccent(0x35, 0x74, 0xf0);
const QColor kWarm(0xe0, 0x8a, 0x2c);

// Drawn on a 16 unit grid, once per size, so the 2x picture is drawn rather than enlarged.
QIcon drawn(const std::function<void(QPainter&)>& draw)
{
  QIcon icon;
  for (int size : {16, 32})
  {
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    QPainter p(&pixmap);
    p.setRenderHint(QPainter::Antialiasing);
    p.scale(size / 16.0, size / 16.0);
    draw(p);
    p.end();
    icon.addPixmap(pixmap);
  }
  return icon;
}

QPen stroke(const QColor& color, qreal width = 1.6)
{
  QPen pen(color, width);
  pen.setCapStyle(Qt::RoundCap);
  pen.setJoinStyle(Qt::RoundJoin);
  return pen;
}

void circularArrow(QPainter& p, const QColor& color)
{
  p.setPen(stroke(color));
  p.setBrush(Qt::NoBrush);
  p.drawArc(QRectF(2.5, 2.5, 11.0, 11.0), 100 * 16, 290 * 16);
  QPainterPath head;
  head.moveTo(6.0, 0.8);
  head.lineTo(9.6, 2.9);
  head.lineTo(6.2, 5.4);
  head.closeSubpath();
  p.setPen(Qt::NoPen);
  p.setBrush(color);
  p.drawPath(head);
}

} // namespace

namespace DemoIcons
{

QIcon zoomTo()
{
  return drawn([](QPainter& p) {
    p.setPen(stroke(kInk, 1.8));
    p.setBrush(Qt::NoBrush);
    p.drawEllipse(QRectF(1.5, 1.5, 9.0, 9.0));
    p.drawLine(QPointF(9.5, 9.5), QPointF(14.0, 14.0));
    p.setPen(stroke(kAccent, 1.4));
    p.drawLine(QPointF(4.0, 6.0), QPointF(8.0, 6.0));
    p.drawLine(QPointF(6.0, 4.0), QPointF(6.0, 8.0));
  });
}

QIcon selectSimilar()
{
  return drawn([](QPainter& p) {
    p.setPen(stroke(kInk, 1.2));
    p.setBrush(kAccent);
    p.drawEllipse(QRectF(1.5, 1.5, 6.0, 6.0));
    p.drawEllipse(QRectF(8.5, 8.5, 6.0, 6.0));
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(kInk, 1.0, Qt::DotLine));
    p.drawEllipse(QRectF(8.5, 1.5, 6.0, 6.0));
    p.drawEllipse(QRectF(1.5, 8.5, 6.0, 6.0));
  });
}

QIcon isolate()
{
  return drawn([](QPainter& p) {
    p.setPen(QPen(kInk, 1.0, Qt::DashLine));
    p.setBrush(Qt::NoBrush);
    p.drawRect(QRectF(0.5, 0.5, 15.0, 15.0));
    p.setPen(stroke(kInk, 1.2));
    p.setBrush(kAccent);
    p.drawRoundedRect(QRectF(4.5, 4.5, 7.0, 7.0), 1.0, 1.0);
  });
}

QIcon matchProperties()
{
  return drawn([](QPainter& p) {
    // A paint brush: the handle, the ferrule and the bristles.
    p.setPen(stroke(kInk, 2.0));
    p.drawLine(QPointF(13.5, 2.5), QPointF(8.5, 7.5));
    p.setPen(Qt::NoPen);
    p.setBrush(kInk);
    p.drawPolygon(QPolygonF({QPointF(7.0, 6.0), QPointF(10.0, 9.0), QPointF(8.5, 10.5), QPointF(5.5, 7.5)}));
    p.setBrush(kWarm);
    QPainterPath bristles;
    bristles.moveTo(5.0, 8.0);
    bristles.lineTo(8.0, 11.0);
    bristles.cubicTo(6.5, 13.5, 4.0, 14.5, 1.5, 14.5);
    bristles.cubicTo(2.5, 13.0, 2.0, 10.0, 5.0, 8.0);
    p.drawPath(bristles);
  });
}

QIcon resetAll()
{
  return drawn([](QPainter& p) { circularArrow(p, kAccent); });
}

QIcon resetToOne()
{
  return drawn([](QPainter& p) {
    circularArrow(p, kInk);
    p.setPen(stroke(kAccent, 1.6));
    p.drawLine(QPointF(8.0, 5.5), QPointF(8.0, 10.5));
    p.drawLine(QPointF(6.5, 6.8), QPointF(8.0, 5.5));
  });
}

QIcon letter(const QString& text, const QColor& color)
{
  return drawn([&](QPainter& p) {
    p.setPen(Qt::NoPen);
    p.setBrush(color);
    p.drawRoundedRect(QRectF(0.5, 0.5, 15, 15), 3, 3);
    p.setPen(Qt::white);
    QFont font = p.font();
    font.setPixelSize(11);
    font.setBold(true);
    p.setFont(font);
    p.drawText(QRectF(0, 0, 16, 16), Qt::AlignCenter, text);
  });
}

QIcon cell(int index)
{
  return drawn([index](QPainter& p) {
    p.setPen(QPen(kInk, 1));
    p.setBrush(Qt::NoBrush);
    p.drawRect(QRectF(2.5, 2.5, 11, 11));
    // A light rim keeps the dot visible on a checked button's accent fill.
    p.setPen(QPen(Qt::white, 0.9));
    p.setBrush(kAccent);
    const QPointF dot(3.0 + (index % 3) * 5.0, 3.0 + (index / 3) * 5.0);
    p.drawEllipse(dot + QPointF(0.5, 0.5), 2.4, 2.4);
  });
}

} // namespace DemoIcons

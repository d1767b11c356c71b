#include "DrawingCurves.h"

#include <QTransform>
#include <QtMath>
#include <cmath>

void addDrawingArc(QPainterPath& path, const QPointF& centre, double radius, double startDegrees, double sweepDegrees,
                   bool moveFirst)
{
  const QRectF box(centre.x() - radius, centre.y() - radius, 2 * radius, 2 * radius);
  const double a = qDegreesToRadians(startDegrees);
  const QPointF start(centre.x() + radius * std::cos(a), centre.y() + radius * std::sin(a));
  if (moveFirst)
    path.moveTo(start);
  // QPainterPath counts angles with Y down; in drawing coordinates that flips their sign.
  // It counts quarter turns in an int, which a drawing's angle of many turns overflows.
  path.arcTo(box, -std::fmod(startDegrees, 360.0), -sweepDegrees);
}

void addBulgeSegment(QPainterPath& path, const QPointF& from, const QPointF& to, double bulge)
{
  const QPointF chord = to - from;
  const double length = std::hypot(chord.x(), chord.y());
  if (std::abs(bulge) < 1e-9 || length <= 0 || !std::isfinite(bulge))
  {
    path.lineTo(to);
    return;
  }
  const double sweep = 4.0 * std::atan(bulge);
  const QPointF normal(-chord.y() / length, chord.x() / length);
  const double offset = length / 2.0 * (1.0 - bulge * bulge) / (2.0 * bulge);
  const QPointF centre = (from + to) / 2.0 + normal * offset;
  const double radius = std::hypot(from.x() - centre.x(), from.y() - centre.y());
  const double start = qRadiansToDegrees(std::atan2(from.y() - centre.y(), from.x() - centre.x()));
  addDrawingArc(path, centre, radius, start, qRadiansToDegrees(sweep), false);
}

void addBulgedPolyline(QPainterPath& path, const std::vector<DrawingPoint>& points, const std::vector<double>& bulges,
                       bool closed)
{
  if (points.empty())
    return;
  path.moveTo(points[0].x, points[0].y);
  const std::size_t n = points.size();
  const std::size_t segments = closed ? n : n - 1;
  for (std::size_t i = 0; i < segments; ++i)
  {
    const DrawingPoint& a = points[i];
    const DrawingPoint& b = points[(i + 1) % n];
    addBulgeSegment(path, QPointF(a.x, a.y), QPointF(b.x, b.y), i < bulges.size() ? bulges[i] : 0.0);
  }
}

QPainterPath ellipsePath(const DrawingEntity& e)
{
  QPainterPath path;
  if (e.points.size() < 2)
    return path;
  const DrawingPoint& c = e.points[0];
  const DrawingPoint& major = e.points[1];
  const double ratio = e.ratio;
  if (std::hypot(major.x, major.y) <= 0 || !(ratio > 0) || !std::isfinite(ratio))
    return path;
  double sweep = std::fmod(e.endAngle - e.startAngle, 360.0);
  if (!std::isfinite(sweep))
    return path;
  // the parameters of a full ellipse run from 0 to 360, which the remainder makes 0
  if (sweep <= 1e-9)
    sweep += 360.0;
  QPainterPath unit;
  addDrawingArc(unit, QPointF(0, 0), 1.0, e.startAngle, sweep, true);
  // the unit circle's X axis becomes the major axis, its Y axis the minor one, turned a quarter counter-clockwise
  const QTransform axes(major.x, major.y, -major.y * ratio, major.x * ratio, c.x, c.y);
  return axes.map(unit);
}

QList<QPolygonF> smoothPolygons(const QPainterPath& path)
{
  const QRectF box = path.controlPointRect();
  const double size = std::max(box.width(), box.height());
  if (!(size > 0) || !std::isfinite(size))
    return path.toSubpathPolygons();
  // Qt flattens a curve to within half a unit; at this size that is a ten-thousandth of the outline
  const double k = 5000.0 / size;
  QList<QPolygonF> polygons = path.toSubpathPolygons(QTransform::fromScale(k, k));
  const QTransform back = QTransform::fromScale(1.0 / k, 1.0 / k);
  for (QPolygonF& polygon : polygons)
    polygon = back.map(polygon);
  return polygons;
}

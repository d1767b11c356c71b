#include "DrawingEntityCurves.h"

#include "DrawingEntity.h"
#include <cmath>
#include <limits>

namespace
{

constexpr double kTurn = 2.0 * M_PI;

/**
 * A straight piece or an arc of an outline, in the drawing's coordinates
 * (Y up). Arcs run counter-clockwise from start through sweep (0, 2 pi].
 */
struct Piece
{
  QPointF from;
  QPointF to;
  bool arc = false;
  QPointF centre;
  double radius = 0;
  double start = 0;
  double sweep = 0;
};

Piece segment(const QPointF& from, const QPointF& to)
{
  Piece p;
  p.from = from;
  p.to = to;
  return p;
}

Piece arc(const QPointF& centre, double radius, double start, double sweep)
{
  Piece p;
  p.arc = true;
  p.centre = centre;
  p.radius = std::abs(radius);
  p.start = start;
  p.sweep = sweep;
  p.from = centre + p.radius * QPointF(std::cos(start), std::sin(start));
  p.to = centre + p.radius * QPointF(std::cos(start + sweep), std::sin(start + sweep));
  return p;
}

/** The piece between two polyline vertices, bent as the bulge says (as DrawingShape bends it). */
Piece bulged(const QPointF& from, const QPointF& to, double bulge)
{
  const QPointF chord = to - from;
  const double length = std::hypot(chord.x(), chord.y());
  if (std::abs(bulge) < 1e-9 || length <= 0 || !std::isfinite(bulge))
    return segment(from, to);
  const double sweep = 4.0 * std::atan(bulge);
  const QPointF normal(-chord.y() / length, chord.x() / length);
  const double offset = length / 2.0 * (1.0 - bulge * bulge) / (2.0 * bulge);
  const QPointF centre = (from + to) / 2.0 + normal * offset;
  const double radius = std::hypot(from.x() - centre.x(), from.y() - centre.y());
  // a clockwise arc is the counter-clockwise one from its other end
  const QPointF first = sweep > 0 ? from : to;
  return arc(centre, radius, std::atan2(first.y() - centre.y(), first.x() - centre.x()), std::abs(sweep));
}

QPointF at(const DrawingEntity& e, std::size_t index)
{
  return index < e.points.size() ? QPointF(e.points[index].x, e.points[index].y) : QPointF();
}

template <class Visit>
void forEachPiece(const DrawingEntity& e, Visit&& visit)
{
  switch (e.kind)
  {
  case EntityKind::Line:
    visit(segment(at(e, 0), at(e, 1)));
    break;
  case EntityKind::Circle:
    visit(arc(at(e, 0), e.radius, 0.0, kTurn));
    break;
  case EntityKind::Arc:
  {
    double sweep = std::fmod(e.endAngle - e.startAngle, 360.0);
    if (sweep <= 0)
      sweep += 360.0;
    visit(arc(at(e, 0), e.radius, e.startAngle * M_PI / 180.0, sweep * M_PI / 180.0));
    break;
  }
  case EntityKind::Polyline:
  {
    const std::size_t n = e.points.size();
    const std::size_t pieces = n < 2 ? 0 : e.closed ? n : n - 1;
    for (std::size_t i = 0; i < pieces; ++i)
      visit(bulged(at(e, i), at(e, (i + 1) % n), i < e.bulges.size() ? e.bulges[i] : 0.0));
    break;
  }
  default:
    break;
  }
}

bool onArc(const Piece& p, double angle)
{
  double d = std::fmod(angle - p.start, kTurn);
  if (d < 0)
    d += kTurn;
  return d <= p.sweep + 1e-12;
}

bool inside(const DrawingBox& area, const QPointF& p)
{
  return area.left <= p.x() && p.x() <= area.right && area.top <= p.y() && p.y() <= area.bottom;
}


/** Whether the arc meets @p area: an end lies in it, or the arc crosses one of its edges. */
bool arcMeets(const Piece& p, const DrawingBox& area)
{
  if (inside(area, p.from) || inside(area, p.to))
    return true;
  const QPointF corners[4] = {{area.left, area.top}, {area.right, area.top}, {area.right, area.bottom}, {area.left, area.bottom}};
  for (int i = 0; i < 4; ++i)
  {
    const QPointF a = corners[i];
    const QPointF d = corners[(i + 1) % 4] - a;
    const QPointF f = a - p.centre;
    const double qa = QPointF::dotProduct(d, d);
    const double qb = 2 * QPointF::dotProduct(f, d);
    const double qc = QPointF::dotProduct(f, f) - p.radius * p.radius;
    const double discriminant = qb * qb - 4 * qa * qc;
    if (qa <= 0 || discriminant < 0)
      continue;
    const double root = std::sqrt(discriminant);
    for (const double t : {(-qb - root) / (2 * qa), (-qb + root) / (2 * qa)})
    {
      if (t < 0 || t > 1)
        continue;
      const QPointF hit = a + d * t - p.centre;
      if (onArc(p, std::atan2(hit.y(), hit.x())))
        return true;
    }
  }
  return false;
}

DrawingBox toDrawing(const DrawingBox& scene)
{
  return {scene.left, -scene.bottom, scene.right, -scene.top};
}

} // namespace

bool DrawingEntityCurves::answers(EntityKind kind)
{
  return kind == EntityKind::Line || kind == EntityKind::Circle || kind == EntityKind::Arc
         || kind == EntityKind::Polyline;
}

DrawingBox DrawingEntityCurves::bounds(const DrawingEntity& entity)
{
  DrawingBox box;
  bool finite = true;
  forEachPiece(entity, [&](const Piece& p) {
    // a box quietly skips what is not a number: it is looked for here
    finite = finite && std::isfinite(p.from.x()) && std::isfinite(p.from.y()) && std::isfinite(p.to.x())
             && std::isfinite(p.to.y()) && std::isfinite(p.radius);
    box.unite(p.from.x(), p.from.y());
    box.unite(p.to.x(), p.to.y());
    if (!p.arc)
      return;
    for (int quarter = 0; quarter < 4; ++quarter)
      if (onArc(p, quarter * M_PI / 2))
        box.unite(p.centre.x() + p.radius * std::cos(quarter * M_PI / 2),
                  p.centre.y() + p.radius * std::sin(quarter * M_PI / 2));
  });
  if (!finite)
    return {};
  return {box.left, -box.bottom, box.right, -box.top};
}

double DrawingEntityCurves::distance(const DrawingEntity& entity, const QPointF& scenePoint)
{
  const QPointF point(scenePoint.x(), -scenePoint.y());
  double nearest = std::numeric_limits<double>::infinity();
  forEachPiece(entity, [&](const Piece& p) {
    double d = 0;
    if (!p.arc)
      d = distanceToSegment(p.from, p.to, point);
    else
    {
      const QPointF v = point - p.centre;
      const double length = std::hypot(v.x(), v.y());
      if (length > 0 && onArc(p, std::atan2(v.y(), v.x())))
        d = std::abs(length - p.radius);
      else
        d = std::min(std::hypot(point.x() - p.from.x(), point.y() - p.from.y()),
                     std::hypot(point.x() - p.to.x(), point.y() - p.to.y()));
    }
    if (d < nearest)
      nearest = d;
  });
  return nearest;
}

bool DrawingEntityCurves::passesThrough(const DrawingEntity& entity, const DrawingBox& sceneArea)
{
  const DrawingBox area = toDrawing(sceneArea);
  bool meets = false;
  forEachPiece(entity, [&](const Piece& p) {
    if (!meets)
      meets = p.arc ? arcMeets(p, area) : segmentMeets(p.from, p.to, area);
  });
  return meets;
}

// the segment is cut to the area's slabs one axis at a time
bool DrawingEntityCurves::segmentMeets(const QPointF& a, const QPointF& b, const DrawingBox& area)
{
  double t0 = 0.0;
  double t1 = 1.0;
  const double starts[2] = {a.x(), a.y()};
  const double deltas[2] = {b.x() - a.x(), b.y() - a.y()};
  const double lows[2] = {area.left, area.top};
  const double highs[2] = {area.right, area.bottom};
  for (int axis = 0; axis < 2; ++axis)
  {
    if (deltas[axis] == 0)
    {
      if (starts[axis] < lows[axis] || starts[axis] > highs[axis])
        return false;
      continue;
    }
    double enter = (lows[axis] - starts[axis]) / deltas[axis];
    double leave = (highs[axis] - starts[axis]) / deltas[axis];
    if (enter > leave)
      std::swap(enter, leave);
    t0 = std::max(t0, enter);
    t1 = std::min(t1, leave);
    if (t0 > t1)
      return false;
  }
  return true;
}

double DrawingEntityCurves::distanceToSegment(const QPointF& a, const QPointF& b, const QPointF& p)
{
  const QPointF d = b - a;
  const double length2 = QPointF::dotProduct(d, d);
  const double t = length2 > 0 ? std::clamp(QPointF::dotProduct(p - a, d) / length2, 0.0, 1.0) : 0.0;
  const QPointF nearest = a + d * t;
  return std::hypot(p.x() - nearest.x(), p.y() - nearest.y());
}

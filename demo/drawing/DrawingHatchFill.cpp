#include "DrawingHatchFill.h"

#include "DrawingCurves.h"
#include <QtMath>
#include <algorithm>
#include <cmath>
#include <limits>

namespace
{

/** Where the line through @p origin along @p along crosses the polygons' edges, as distances along it. */
void crossings(const QList<QPolygonF>& polygons, const QPointF& origin, const QPointF& along, const QPointF& across,
               std::vector<double>& found)
{
  found.clear();
  for (const QPolygonF& polygon : polygons)
  {
    const int n = polygon.size();
    for (int i = 0; i < n; ++i)
    {
      const QPointF a = polygon[i];
      // every loop is closed, whether or not the polygon repeats its first point
      const QPointF b = polygon[(i + 1) % n];
      const double da = QPointF::dotProduct(a - origin, across);
      const double db = QPointF::dotProduct(b - origin, across);
      // half-open, so that a line through a vertex crosses one of its two edges, not both or neither
      if ((da > 0) == (db > 0))
        continue;
      const QPointF x = a + (b - a) * (da / (da - db));
      const double distance = QPointF::dotProduct(x - origin, along);
      if (std::isfinite(distance))
        found.push_back(distance);
    }
  }
  std::sort(found.begin(), found.end());
}

} // namespace

QPainterPath hatchLoopsPath(const std::vector<DrawingHatchLoop>& loops)
{
  QPainterPath path;
  for (const DrawingHatchLoop& loop : loops)
  {
    // a loop with a point that is not a number has no inside
    const auto finite = [](const DrawingPoint& p) { return std::isfinite(p.x) && std::isfinite(p.y); };
    if (loop.points.size() < 2 || !std::all_of(loop.points.begin(), loop.points.end(), finite))
      continue;
    addBulgedPolyline(path, loop.points, loop.bulges, true);
    path.closeSubpath();
  }
  return path;
}

bool addHatchPatternLines(QPainterPath& lines, const QPainterPath& loops, const std::vector<DrawingHatchLine>& families,
                          int maxPieces)
{
  const QList<QPolygonF> polygons = smoothPolygons(loops);
  if (polygons.isEmpty())
    return true;
  QPainterPath added;
  int pieces = 0;
  std::vector<double> found;
  for (const DrawingHatchLine& family : families)
  {
    const double angle = qDegreesToRadians(family.angle);
    const QPointF along(std::cos(angle), std::sin(angle));
    const QPointF across(-along.y(), along.x());
    const QPointF base(family.base.x, family.base.y);
    const QPointF offset(family.offset.x, family.offset.y);
    const double spacing = QPointF::dotProduct(offset, across);
    if (!std::isfinite(spacing) || !std::isfinite(angle) || std::abs(spacing) < 1e-12)
      continue;
    double lo = std::numeric_limits<double>::max();
    double hi = std::numeric_limits<double>::lowest();
    for (const QPolygonF& polygon : polygons)
      for (const QPointF& p : polygon)
      {
        const double d = QPointF::dotProduct(p - base, across) / spacing;
        lo = std::min(lo, d);
        hi = std::max(hi, d);
      }
    if (!std::isfinite(lo) || !std::isfinite(hi) || hi - lo > maxPieces - pieces)
      return false;
    double period = 0;
    for (double d : family.dashes)
      period += std::abs(d);
    const bool dashed = period > 0 && std::isfinite(period);
    // counted in whole lines: far from the origin, adding one to a line's number may not change it
    const double first = std::ceil(lo);
    const int count = int(std::floor(hi) - first) + 1;
    for (int line = 0; line < count; ++line)
    {
      const QPointF origin = base + offset * (first + line);
      crossings(polygons, origin, along, across, found);
      for (std::size_t i = 0; i + 1 < found.size(); i += 2)
      {
        const double from = found[i];
        const double to = found[i + 1];
        if (!dashed)
        {
          added.moveTo(origin + along * from);
          added.lineTo(origin + along * to);
          if (++pieces > maxPieces)
            return false;
          continue;
        }
        // the pattern starts at the line's origin and repeats both ways; every repetition in reach
        // costs a step, whether or not it draws
        const double firstRepeat = std::floor(from / period);
        const double repeats = std::ceil(to / period) - firstRepeat;
        if (!(repeats * double(family.dashes.size()) <= double(maxPieces - pieces)))
          return false;
        pieces += int(repeats) * int(family.dashes.size());
        for (int r = 0; r < int(repeats); ++r)
        {
          double position = (firstRepeat + r) * period;
          for (double d : family.dashes)
          {
            const double length = d == 0 ? period / 100.0 : std::abs(d);
            const double start = std::max(position, from);
            const double end = std::min(position + length, to);
            if (d >= 0 && start < end)
            {
              added.moveTo(origin + along * start);
              added.lineTo(origin + along * end);
            }
            position += std::abs(d);
          }
        }
      }
    }
  }
  lines.addPath(added);
  return true;
}

#include "DrawingSplines.h"

#include "DrawingEntity.h"
#include <algorithm>
#include <cmath>

namespace
{

// A spline of thousands of spans is drawn with fewer samples per span rather than without end.
constexpr int kMaxSamples = 8000;
constexpr int kSamplesPerSpan = 16;

struct Homogeneous
{
  double x, y, w;
};

bool finite(const DrawingPoint& p)
{
  return std::isfinite(p.x) && std::isfinite(p.y);
}

bool usableKnots(const std::vector<double>& knots, std::size_t count)
{
  if (knots.size() != count)
    return false;
  for (std::size_t i = 0; i < knots.size(); ++i)
    if (!std::isfinite(knots[i]) || (i > 0 && knots[i] < knots[i - 1]))
      return false;
  return knots.back() > knots.front();
}

/** The point at @p u in the span [knots[span], knots[span + 1]), by de Boor's algorithm. */
QPointF deBoor(const std::vector<Homogeneous>& control, const std::vector<double>& knots, int degree, int span, double u,
               std::vector<Homogeneous>& d)
{
  for (int j = 0; j <= degree; ++j)
    d[j] = control[std::size_t(j + span - degree)];
  for (int r = 1; r <= degree; ++r)
    for (int j = degree; j >= r; --j)
    {
      const double lo = knots[std::size_t(j + span - degree)];
      const double hi = knots[std::size_t(j + 1 + span - r)];
      const double alpha = hi > lo ? (u - lo) / (hi - lo) : 0.0;
      d[j] = {(1 - alpha) * d[j - 1].x + alpha * d[j].x, (1 - alpha) * d[j - 1].y + alpha * d[j].y,
              (1 - alpha) * d[j - 1].w + alpha * d[j].w};
    }
  const Homogeneous& p = d[std::size_t(degree)];
  return p.w != 0 ? QPointF(p.x / p.w, p.y / p.w) : QPointF(p.x, p.y);
}

QPainterPath fromControlPoints(const DrawingEntity& e)
{
  const DrawingEntityDetail& detail = e.details();
  std::vector<Homogeneous> control;
  const bool weighted = detail.weights.size() == e.points.size()
                        && std::all_of(detail.weights.begin(), detail.weights.end(),
                                       [](double w) { return w > 0 && std::isfinite(w); });
  for (std::size_t i = 0; i < e.points.size(); ++i)
  {
    if (!finite(e.points[i]))
      return {};
    const double w = weighted ? detail.weights[i] : 1.0;
    control.push_back({e.points[i].x * w, e.points[i].y * w, w});
  }
  const int degree = std::clamp(detail.degree, 1, int(control.size()) - 1);
  std::vector<double> knots = detail.knots;
  if (!usableKnots(knots, control.size() + std::size_t(degree) + 1))
  {
    if (e.closed)
    {
      // a closed spline without its knots: the first control points again, on uniform knots
      for (int i = 0; i < degree; ++i)
        control.push_back(control[std::size_t(i)]);
      knots.clear();
      for (std::size_t i = 0; i < control.size() + std::size_t(degree) + 1; ++i)
        knots.push_back(double(i));
    }
    else
    {
      knots.assign(std::size_t(degree), 0.0);
      const int inner = int(control.size()) - degree;
      for (int i = 0; i <= inner; ++i)
        knots.push_back(double(i));
      knots.insert(knots.end(), std::size_t(degree), double(inner));
    }
  }
  const int n = int(control.size());
  int spans = 0;
  for (int i = degree; i < n; ++i)
    spans += knots[std::size_t(i + 1)] > knots[std::size_t(i)] ? 1 : 0;
  if (spans == 0)
    return {};
  const int steps = degree == 1 ? 1 : std::max(2, std::min(kSamplesPerSpan, kMaxSamples / spans));
  std::vector<Homogeneous> work(std::size_t(degree) + 1);
  QPainterPath path;
  bool first = true;
  for (int span = degree; span < n; ++span)
  {
    const double lo = knots[std::size_t(span)];
    const double hi = knots[std::size_t(span + 1)];
    if (!(hi > lo))
      continue;
    for (int s = first ? 0 : 1; s <= steps; ++s)
    {
      const QPointF p = deBoor(control, knots, degree, span, lo + (hi - lo) * s / steps, work);
      if (first)
        path.moveTo(p);
      else
        path.lineTo(p);
      first = false;
    }
  }
  return path;
}

/** A smooth curve through the fit points: Catmull-Rom pieces, as cubic Béziers. */
QPainterPath fromFitPoints(const DrawingEntity& e)
{
  std::vector<QPointF> p;
  for (const DrawingPoint& f : e.details().fitPoints)
    if (finite(f) && (p.empty() || QPointF(f.x, f.y) != p.back()))
      p.emplace_back(f.x, f.y);
  const std::size_t n = p.size();
  QPainterPath path;
  if (n < 2)
    return path;
  const bool closed = e.closed && n > 2;
  const auto point = [&](std::ptrdiff_t i) {
    if (closed)
      return p[std::size_t((i + std::ptrdiff_t(n)) % std::ptrdiff_t(n))];
    // beyond the ends, the end mirrored, so that the curve leaves them towards their neighbours
    if (i < 0)
      return 2 * p[0] - p[1];
    if (i >= std::ptrdiff_t(n))
      return 2 * p[n - 1] - p[n - 2];
    return p[std::size_t(i)];
  };
  path.moveTo(p[0]);
  const std::size_t segments = closed ? n : n - 1;
  for (std::size_t i = 0; i < segments; ++i)
  {
    const auto k = std::ptrdiff_t(i);
    path.cubicTo(point(k) + (point(k + 1) - point(k - 1)) / 6.0, point(k + 1) - (point(k + 2) - point(k)) / 6.0,
                 point(k + 1));
  }
  return path;
}

} // namespace

QPainterPath splinePath(const DrawingEntity& e)
{
  if (e.points.size() >= 2)
    return fromControlPoints(e);
  return fromFitPoints(e);
}

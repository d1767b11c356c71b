#include "DrawingDashes.h"

#include <QLineF>
#include <array>
#include <cmath>

namespace
{

double distance(const QPointF& a, const QPointF& b)
{
  // hypot guards against overflow that a drawing's coordinates never come near, at many times the cost
  const QPointF d = b - a;
  return std::sqrt(d.x() * d.x() + d.y() * d.y());
}

/** At least the outline's length: its curves' control polygons are longer than the curves. */
double lengthAtLeast(const QPainterPath& outline)
{
  double length = 0;
  for (int i = 1; i < outline.elementCount(); ++i)
    if (!outline.elementAt(i).isMoveTo())
      length += distance(outline.elementAt(i - 1), outline.elementAt(i));
  return length;
}

/** A cubic Bézier piece with a table from length along it to its parameter. */
class Cubic
{
public:
  Cubic(const QPointF& p0, const QPointF& p1, const QPointF& p2, const QPointF& p3) : m_p{p0, p1, p2, p3}
  {
    m_lengths[0] = 0;
    QPointF previous = p0;
    for (int i = 1; i <= kSteps; ++i)
    {
      const QPointF p = at(double(i) / kSteps);
      m_lengths[i] = m_lengths[i - 1] + distance(previous, p);
      previous = p;
    }
  }

  double length() const { return m_lengths[kSteps]; }

  /** Adds the piece between the lengths @p from and @p to, the path's current point being its start. */
  void addPiece(QPainterPath& path, double from, double to) const
  {
    const double t0 = parameterAt(from);
    const double t1 = parameterAt(to);
    // the piece from t0 to t1: first cut at t1, then the front part at t0 / t1
    std::array<QPointF, 4> left = split(m_p, t1).first;
    const std::array<QPointF, 4> piece = t1 > 0 ? split(left, t0 / t1).second : left;
    path.cubicTo(piece[1], piece[2], piece[3]);
  }

  QPointF pointAt(double length) const { return at(parameterAt(length)); }

private:
  // a quarter circle measured in ten chords is 0.2 % short, and its dashes are placed as well
  static constexpr int kSteps = 10;

  QPointF at(double t) const
  {
    const double u = 1 - t;
    return u * u * u * m_p[0] + 3 * u * u * t * m_p[1] + 3 * u * t * t * m_p[2] + t * t * t * m_p[3];
  }

  double parameterAt(double length) const
  {
    if (length <= 0)
      return 0;
    if (length >= m_lengths[kSteps])
      return 1;
    int i = 0;
    while (i < kSteps - 1 && m_lengths[i + 1] < length)
      ++i;
    const double span = m_lengths[i + 1] - m_lengths[i];
    return (i + (span > 0 ? (length - m_lengths[i]) / span : 0.0)) / kSteps;
  }

  static std::pair<std::array<QPointF, 4>, std::array<QPointF, 4>> split(const std::array<QPointF, 4>& p, double t)
  {
    const QPointF a = p[0] + (p[1] - p[0]) * t;
    const QPointF b = p[1] + (p[2] - p[1]) * t;
    const QPointF c = p[2] + (p[3] - p[2]) * t;
    const QPointF ab = a + (b - a) * t;
    const QPointF bc = b + (c - b) * t;
    const QPointF middle = ab + (bc - ab) * t;
    return {{p[0], a, ab, middle}, {middle, bc, c, p[3]}};
  }

  std::array<QPointF, 4> m_p;
  std::array<double, kSteps + 1> m_lengths;
};

/** Where in the pattern the walk along an outline is, and what it has drawn. */
class DashWalk
{
public:
  DashWalk(const std::vector<double>& pattern, double period, QPainterPath& result)
      : m_pattern(pattern), m_dot(period / 100.0), m_result(result)
  {
  }

  void startSubpath()
  {
    m_index = 0;
    m_on = m_pattern[0] >= 0;
    m_left = lengthOf(0);
    m_drawing = false;
  }

  /** Walks a piece of the outline of @p length; @p add draws the part between two lengths along it. */
  template <typename AddPiece, typename PointAt>
  void walk(double length, AddPiece add, PointAt pointAt)
  {
    double position = 0;
    while (length - position > m_left)
    {
      if (m_on)
        draw(position, position + m_left, add, pointAt);
      position += m_left;
      m_drawing = false;
      m_index = (m_index + 1) % m_pattern.size();
      m_on = m_pattern[m_index] >= 0;
      m_left = lengthOf(m_index);
    }
    m_left -= length - position;
    if (m_on)
      draw(position, length, add, pointAt);
    else
      m_drawing = false;
  }

private:
  double lengthOf(std::size_t index) const { return m_pattern[index] == 0 ? m_dot : std::abs(m_pattern[index]); }

  template <typename AddPiece, typename PointAt>
  void draw(double from, double to, AddPiece add, PointAt pointAt)
  {
    // a dash that goes on from the previous piece goes on in the same subpath, so that its joint is a join
    if (!m_drawing)
      m_result.moveTo(pointAt(from));
    add(from, to);
    m_drawing = true;
  }

  const std::vector<double>& m_pattern;
  double m_dot;
  QPainterPath& m_result;
  std::size_t m_index = 0;
  bool m_on = true;
  double m_left = 0;
  bool m_drawing = false;
};

} // namespace

QPainterPath dashedPath(const QPainterPath& outline, const std::vector<double>& pattern, double maxDashes)
{
  double period = 0;
  for (double d : pattern)
    period += std::abs(d);
  if (pattern.empty() || !(period > 0) || !std::isfinite(period))
    return outline;
  // each element of the pattern is a dash, or a gap, once per repetition
  const double pieces = lengthAtLeast(outline) / period * double(pattern.size());
  if (!(pieces <= maxDashes))
    return outline;

  QPainterPath result;
  DashWalk walk(pattern, period, result);
  QPointF current;
  for (int i = 0; i < outline.elementCount(); ++i)
  {
    const QPainterPath::Element& e = outline.elementAt(i);
    if (e.isMoveTo())
    {
      walk.startSubpath();
      current = e;
    }
    else if (e.isLineTo())
    {
      const QPointF from = current;
      const QPointF to = e;
      const double length = distance(from, to);
      const auto pointAt = [&](double s) { return length > 0 ? from + (to - from) * (s / length) : from; };
      walk.walk(length, [&](double, double s1) { result.lineTo(pointAt(s1)); }, pointAt);
      current = to;
    }
    else if (e.isCurveTo() && i + 2 < outline.elementCount())
    {
      const Cubic cubic(current, outline.elementAt(i), outline.elementAt(i + 1), outline.elementAt(i + 2));
      walk.walk(
          cubic.length(), [&](double s0, double s1) { cubic.addPiece(result, s0, s1); },
          [&](double s) { return cubic.pointAt(s); });
      current = outline.elementAt(i + 2);
      i += 2;
    }
  }
  return result;
}

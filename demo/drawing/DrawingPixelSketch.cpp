#include "DrawingPixelSketch.h"

#include "DrawingEntity.h"
#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace
{

constexpr double kDegrees = 3.14159265358979323846 / 180.0;
// Pieces of a whole circle at most: at a dozen pixels across, more do not change a pixel.
constexpr int kCirclePieces = 16;

} // namespace

DrawingPixelSketch::DrawingPixelSketch(std::uint32_t* pixels, std::ptrdiff_t stride, int width, int height, const QTransform& toPixels)
    : m_pixels(pixels), m_stride(stride), m_width(width), m_height(height), m_11(toPixels.m11()), m_12(toPixels.m12()),
      m_21(toPixels.m21()), m_22(toPixels.m22()), m_dx(toPixels.dx()), m_dy(toPixels.dy())
{
}

DrawingPixelSketch::Point DrawingPixelSketch::map(double x, double y) const
{
  // the scene's Y axis points down, the drawing's up
  return {m_11 * x - m_21 * y + m_dx, m_12 * x - m_22 * y + m_dy};
}

bool DrawingPixelSketch::draw(const DrawingEntity& e, std::uint32_t value)
{
  m_value = value;
  const std::size_t n = e.points.size();
  switch (e.kind)
  {
  case EntityKind::Line:
    if (n < 2)
      return false;
    line(map(e.points[0].x, e.points[0].y), map(e.points[1].x, e.points[1].y));
    return true;
  case EntityKind::Circle:
  case EntityKind::Arc:
  {
    if (n < 1)
      return false;
    double start = 0, sweep = 360;
    if (e.kind == EntityKind::Arc)
    {
      start = std::fmod(e.startAngle, 360.0);
      sweep = std::fmod(e.endAngle - e.startAngle, 360.0);
      if (sweep <= 0)
        sweep += 360.0;
    }
    curve({e.points[0].x, e.points[0].y}, e.radius, start, sweep);
    return true;
  }
  case EntityKind::Polyline:
  {
    if (n < 2)
      return false;
    Point previous = map(e.points[0].x, e.points[0].y);
    const Point first = previous;
    for (std::size_t i = 1; i < n; ++i)
    {
      const Point next = map(e.points[i].x, e.points[i].y);
      line(previous, next);
      previous = next;
    }
    if (e.closed)
      line(previous, first);
    return true;
  }
  default:
    return false;
  }
}

void DrawingPixelSketch::curve(const Point& centre, double radius, double startDegrees, double sweepDegrees)
{
  // about one piece for every two pixels of the circle's length, so that a circle of a
  // couple of pixels costs a handful of them
  const double radiusPixels = radius * std::sqrt(std::abs(m_11 * m_22 - m_12 * m_21));
  const int whole = std::clamp(int(std::ceil(radiusPixels * 3)), 4, kCirclePieces);
  const int pieces = std::max(2, int(std::ceil(sweepDegrees * whole / 360.0)));
  const double step = sweepDegrees * kDegrees / pieces;
  // each point turned from the one before: two sines and cosines for the curve, not one for each point
  const double stepCos = std::cos(step), stepSin = std::sin(step);
  double c = std::cos(startDegrees * kDegrees), s = std::sin(startDegrees * kDegrees);
  Point previous = map(centre.x + radius * c, centre.y + radius * s);
  for (int i = 1; i <= pieces; ++i)
  {
    const double turned = c * stepCos - s * stepSin;
    s = c * stepSin + s * stepCos;
    c = turned;
    const Point next = map(centre.x + radius * c, centre.y + radius * s);
    line(previous, next);
    previous = next;
  }
}

void DrawingPixelSketch::line(const Point& from, const Point& to)
{
  // the pixel a point falls in, as an aliased cosmetic pen picks it
  const auto pixel = [](double v) { return int(std::floor(std::clamp(v, -1e6, 1e6))); };
  int x0 = pixel(from.x), y0 = pixel(from.y);
  const int x1 = pixel(to.x), y1 = pixel(to.y);
  const int dx = std::abs(x1 - x0), sx = x0 < x1 ? 1 : -1;
  const int dy = -std::abs(y1 - y0), sy = y0 < y1 ? 1 : -1;
  // a segment reaching far outside the image is not walked pixel by pixel
  if (dx - dy > 4 * (m_width + m_height))
    return;
  int error = dx + dy;
  for (;;)
  {
    plot(x0, y0);
    if (x0 == x1 && y0 == y1)
      return;
    const int twice = 2 * error;
    if (twice >= dy)
    {
      error += dy;
      x0 += sx;
    }
    if (twice <= dx)
    {
      error += dx;
      y0 += sy;
    }
  }
}

#pragma once

#include <QTransform>
#include <cstddef>
#include <cstdint>

struct DrawingEntity;

/**
 * Draws lines, circles, arcs and polylines of a few pixels straight into a
 * raster of numbers (a colour, or which entity is seen there), one pixel wide
 * and without antialiasing, as a cosmetic pen would: a drawing seen whole
 * has hundreds of thousands of them, and a QPainter call costs each about a
 * microsecond that the pixels do not. At that size their linetype,
 * lineweight and bulges do not show.
 */
class DrawingPixelSketch
{
public:
  /**
   * Draws into @p pixels (@p width x @p height, @p stride pixels a row),
   * with @p toPixels taking the scene's coordinates to the image's.
   */
  DrawingPixelSketch(std::uint32_t* pixels, std::ptrdiff_t stride, int width, int height, const QTransform& toPixels);

  /** Sets the pixels @p entity passes through to @p value; false, drawing nothing, for a kind it cannot draw. */
  bool draw(const DrawingEntity& entity, std::uint32_t value);

private:
  struct Point
  {
    double x;
    double y;
  };

  /** Where a point of the drawing (its Y axis up) falls in the image. */
  Point map(double x, double y) const;
  void curve(const Point& centre, double radius, double startDegrees, double sweepDegrees);
  void line(const Point& from, const Point& to);
  void plot(int x, int y)
  {
    if (unsigned(x) < unsigned(m_width) && unsigned(y) < unsigned(m_height))
      m_pixels[std::ptrdiff_t(y) * m_stride + x] = m_value;
  }

  std::uint32_t* m_pixels;
  std::ptrdiff_t m_stride;
  int m_width;
  int m_height;
  double m_11, m_12, m_21, m_22, m_dx, m_dy;
  std::uint32_t m_value = 0;
};

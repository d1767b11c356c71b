#include "DrawingDisplayList.h"

#include "DrawingDocument.h"
#include "DrawingEntityCurves.h"
#include "OdDbLayerTableRecord.h"
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <iterator>
#include <map>

namespace
{

// Shapes kept between paints; each takes about a kilobyte, and more than this are rarely bigger than a dot at once.
constexpr std::size_t kMaxCachedShapes = 100000;
// More entities than this changed at once are worked out with the tree built anew, not refitted one by one.
constexpr std::size_t kRebuildShare = 16;
// Below this size on screen, in pixels, an entity bigger than a dot is drawn without antialiasing.
constexpr double kSmallPixels = 12.0;
// Room around what is painted for pens wider than the entity's box (a highlight's glow), in pixels.
constexpr double kPenRoom = 8.0;

/**
 * Draws a line, circle, arc or polyline of a few pixels straight from its
 * numbers, in the current pen: at that size its linetype, lineweight and
 * bulges do not show, and a drawing seen whole has hundreds of thousands of
 * them, whose shapes would take seconds to build. False for other kinds.
 */
bool sketch(QPainter* painter, const DrawingEntity& e)
{
  // the scene's Y axis points down, the drawing's up
  const auto at = [&e](std::size_t i) { return QPointF(e.points[i].x, -e.points[i].y); };
  switch (e.kind)
  {
  case EntityKind::Line:
    if (e.points.size() < 2)
      return false;
    painter->drawLine(at(0), at(1));
    return true;
  case EntityKind::Circle:
  case EntityKind::Arc:
  {
    if (e.points.empty())
      return false;
    const QRectF box(at(0) - QPointF(e.radius, e.radius), QSizeF(2 * e.radius, 2 * e.radius));
    if (e.kind == EntityKind::Circle)
    {
      painter->drawEllipse(box);
      return true;
    }
    double sweep = std::fmod(e.endAngle - e.startAngle, 360.0);
    if (sweep <= 0)
      sweep += 360.0;
    // seen with the scene's Y down, the drawing's counter-clockwise turns stay counter-clockwise on screen
    painter->drawArc(box, int(std::lround(std::fmod(e.startAngle, 360.0) * 16)), int(std::lround(sweep * 16)));
    return true;
  }
  case EntityKind::Polyline:
  {
    const std::size_t n = e.points.size();
    if (n < 2)
      return false;
    QPointF corners[64];
    if (n > std::size(corners))
      return false;
    for (std::size_t i = 0; i < n; ++i)
      corners[i] = at(i);
    if (e.closed)
      painter->drawPolygon(corners, int(n));
    else
      painter->drawPolyline(corners, int(n));
    return true;
  }
  default:
    return false;
  }
}

bool isFinite(const DrawingBox& b)
{
  return std::isfinite(b.left) && std::isfinite(b.top) && std::isfinite(b.right) && std::isfinite(b.bottom);
}

/** The colour an entity's dot is painted in, resolved as DrawingShape resolves it for a top-level entity. */
QRgb resolve(const OdCmColor& color, const OdDbLayerTableRecord* layer, QRgb ink)
{
  if (color.isByBlock())
    return ink;
  if (color.isByLayer())
    return layer ? resolve(layer->color(), nullptr, ink) : ink;
  if (color.isByColor())
    return qRgb(color.red(), color.green(), color.blue());
  const int index = color.colorIndex();
  if (index == OdCmEntityColor::kACIforeground || index <= 0 || index > 255)
    return ink;
  return QColor::fromRgb(OdCmEntityColor::lookUpRGB(OdUInt8(index))).rgb();
}

} // namespace

void DrawingDisplayList::clear()
{
  m_document = nullptr;
  m_bounds.clear();
  m_colors.clear();
  m_extents = DrawingBox();
  m_index.clear();
  m_shapeSlot.clear();
  m_shapes.clear();
  m_freeSlots.clear();
  m_dotImage = QImage();
  m_drawn.clear();
  m_lastLayerKnown = false;
}

void DrawingDisplayList::rebuild(const DrawingDocument* document, const DrawingLook& look)
{
  clear();
  m_document = document;
  m_look = look;
  if (!document)
    return;
  const std::size_t count = document->entities().size();
  m_bounds.resize(count);
  m_colors.resize(count);
  m_shapeSlot.assign(count, kNoShape);
  for (std::size_t i = 0; i < count; ++i)
    workOut(i);
  m_index.build(m_bounds);
  updateExtents();
}

void DrawingDisplayList::update(const std::vector<std::size_t>& positions)
{
  if (!m_document)
    return;
  if (m_document->entities().size() != m_bounds.size())
    return rebuild(m_document, m_look);
  // a layer may have been switched off or recoloured since
  m_lastLayerKnown = false;
  const bool many = positions.size() > m_bounds.size() / kRebuildShare;
  bool rebuildIndex = false;
  for (std::size_t position : positions)
  {
    if (position >= m_bounds.size())
      continue;
    const DrawingBox before = m_bounds[position];
    forget(position);
    workOut(position);
    const DrawingBox& after = m_bounds[position];
    // a change of colour or layer leaves the box where it was, and the tree as it is
    if (!after.isValid() || (before.left == after.left && before.top == after.top && before.right == after.right
                             && before.bottom == after.bottom))
      continue;
    // an entity hidden when the tree was built is not in it
    if (many || !m_index.contains(std::uint32_t(position)))
      rebuildIndex = true;
    else
      m_index.update(std::uint32_t(position), after);
  }
  if (rebuildIndex)
    m_index.build(m_bounds);
  updateExtents();
}

void DrawingDisplayList::workOut(std::size_t position)
{
  const DrawingEntity& e = m_document->entities()[position];
  const OdDbDatabase& db = m_document->database();
  // most drawings put their entities on a few layers, in runs: the last layer's record is usually the one asked for
  if (!m_lastLayerKnown || m_lastLayerId != e.layer)
  {
    m_lastLayerId = e.layer;
    m_lastLayer = db.openLayer(e.layer);
    m_lastLayerKnown = true;
  }
  const OdDbLayerTableRecord* layer = m_lastLayer;
  const QRgb ink = m_look.ink.rgb();
  m_colors[position] = resolve(e.color, layer, ink);
  DrawingBox box;
  if (e.visible && !e.paperSpace && !(layer && (layer->isOff() || layer->isFrozen())))
  {
    if (DrawingEntityCurves::answers(e.kind))
      box = DrawingEntityCurves::bounds(e);
    else
    {
      const DrawingShape& shape = shapeOf(position);
      if (!shape.isEmpty())
        box = DrawingBox::of(shape.bounds());
    }
  }
  m_bounds[position] = isFinite(box) ? box : DrawingBox();
}

void DrawingDisplayList::updateExtents()
{
  m_extents = DrawingBox();
  for (const DrawingBox& box : m_bounds)
    m_extents.unite(box);
}

const DrawingShape& DrawingDisplayList::shapeOf(std::size_t position)
{
  std::uint32_t slot = m_shapeSlot[position];
  if (slot != kNoShape)
  {
    m_shapes[slot].lastFrame = m_frame;
    return m_shapes[slot].shape;
  }
  const DrawingEntity& entity = m_document->entities()[position];
  if (m_shapes.size() - m_freeSlots.size() >= kMaxCachedShapes)
  {
    m_scratch.build(*m_document, entity, m_look);
    return m_scratch;
  }
  if (!m_freeSlots.empty())
  {
    slot = m_freeSlots.back();
    m_freeSlots.pop_back();
  }
  else
  {
    slot = std::uint32_t(m_shapes.size());
    m_shapes.emplace_back();
  }
  CachedShape& cached = m_shapes[slot];
  cached.entity = std::uint32_t(position);
  cached.lastFrame = m_frame;
  cached.shape.build(*m_document, entity, m_look);
  m_shapeSlot[position] = slot;
  return cached.shape;
}

void DrawingDisplayList::forget(std::size_t position)
{
  const std::uint32_t slot = m_shapeSlot[position];
  if (slot == kNoShape)
    return;
  m_shapes[slot].shape = DrawingShape();
  m_freeSlots.push_back(slot);
  m_shapeSlot[position] = kNoShape;
}

void DrawingDisplayList::trimCache()
{
  // what the last frame did not paint makes room for what the next ones will
  if (m_shapes.size() - m_freeSlots.size() < kMaxCachedShapes * 3 / 4)
    return;
  for (CachedShape& cached : m_shapes)
    if (cached.lastFrame != m_frame && m_shapeSlot[cached.entity] != kNoShape
        && &m_shapes[m_shapeSlot[cached.entity]] == &cached)
      forget(cached.entity);
}

std::vector<std::uint32_t> DrawingDisplayList::enclosedBy(const DrawingBox& area) const
{
  std::vector<std::uint32_t> found;
  m_index.query(area, [&](std::uint32_t id, const DrawingBox& box) {
    if (m_bounds[id].isValid() && area.contains(box))
      found.push_back(id);
  });
  std::sort(found.begin(), found.end());
  return found;
}

std::vector<std::uint32_t> DrawingDisplayList::crossedBy(const DrawingBox& area)
{
  std::vector<std::uint32_t> found;
  m_index.query(area, [&](std::uint32_t id, const DrawingBox& box) {
    if (!m_bounds[id].isValid())
      return;
    const DrawingEntity& e = m_document->entities()[id];
    if (area.contains(box)
        || (DrawingEntityCurves::answers(e.kind) ? DrawingEntityCurves::passesThrough(e, area)
                                                 : shapePassesThrough(id, area)))
      found.push_back(id);
  });
  std::sort(found.begin(), found.end());
  return found;
}

bool DrawingDisplayList::shapePassesThrough(std::size_t position, const DrawingBox& area)
{
  const DrawingShape& shape = shapeOf(position);
  for (const QPolygonF& polygon : shape.outline().toSubpathPolygons())
    for (int i = 0; i < polygon.size(); ++i)
      if (DrawingEntityCurves::segmentMeets(polygon[i], polygon[std::max(i - 1, 0)], area))
        return true;
  // an area inside a text's box or a filled shape, away from its edges
  const QPointF middle((area.left + area.right) / 2, (area.top + area.bottom) / 2);
  const double size = std::max(area.right - area.left, area.bottom - area.top);
  return shape.hits(middle, size * 1e-6 + 1e-12);
}

double DrawingDisplayList::shapeDistance(std::size_t position, const QPointF& point, double tolerance)
{
  const DrawingShape& shape = shapeOf(position);
  if (!shape.hits(point, tolerance))
    return std::numeric_limits<double>::infinity();
  if (shape.hits(point, tolerance * 1e-3))
    return 0;
  double nearest = tolerance;
  for (const QPolygonF& polygon : shape.outline().toSubpathPolygons())
    for (int i = 0; i < polygon.size(); ++i)
      nearest = std::min(nearest, DrawingEntityCurves::distanceToSegment(polygon[i], polygon[std::max(i - 1, 0)], point));
  return nearest;
}

std::int64_t DrawingDisplayList::nearest(const QPointF& point, double tolerance)
{
  if (!m_document || !(tolerance >= 0))
    return -1;
  const DrawingBox area{point.x() - tolerance, point.y() - tolerance, point.x() + tolerance, point.y() + tolerance};
  std::int64_t best = -1;
  double bestDistance = std::numeric_limits<double>::infinity();
  m_index.query(area, [&](std::uint32_t id, const DrawingBox&) {
    if (!m_bounds[id].isValid())
      return;
    const DrawingEntity& e = m_document->entities()[id];
    const double d = DrawingEntityCurves::answers(e.kind) ? DrawingEntityCurves::distance(e, point)
                                                          : shapeDistance(id, point, tolerance);
    if (d <= tolerance && (d < bestDistance || (d == bestDistance && std::int64_t(id) > best)))
    {
      best = id;
      bestDistance = d;
    }
  });
  return best;
}

void DrawingDisplayList::paint(QPainter* painter, const DrawingBox& area, double lod, const std::vector<bool>& selected)
{
  if (!m_document || !(lod > 0) || m_document->entities().size() != m_bounds.size() || !area.isValid())
    return;
  ++m_frame;
  const double room = kPenRoom / lod;
  const DrawingBox wider{area.left - room, area.top - room, area.right + room, area.bottom + room};

  // Dots go straight into an image in the device's pixels: a million of them through
  // QPainter::drawPoints take a frame of their own. The image covers the area painted.
  // The painter's own chain (world, view, pixel ratio, a widget's place in its window)
  // differs between a widget, a view's background picture and an image: ask it whole.
  const QTransform toPixels = painter->deviceTransform();
  const double ratio = std::max(1.0, std::sqrt(std::abs(toPixels.determinant())) / lod);
  QRect pixels = toPixels.mapRect(area.toRect()).toAlignedRect().adjusted(-1, -1, 1, 1);
  pixels &= QRect(pixels.topLeft(), QSize(8192, 8192));
  if (m_dotImage.size() != pixels.size())
    m_dotImage = QImage(pixels.size(), QImage::Format_ARGB32_Premultiplied);
  m_dotImage.fill(Qt::transparent);
  QRgb* dots = reinterpret_cast<QRgb*>(m_dotImage.bits());
  const qsizetype stride = m_dotImage.bytesPerLine() / qsizetype(sizeof(QRgb));
  const int dotPixels = std::max(1, int(std::lround(ratio)));
  const double m11 = toPixels.m11(), m12 = toPixels.m12(), m21 = toPixels.m21(), m22 = toPixels.m22();
  const double dx = toPixels.dx() - pixels.left(), dy = toPixels.dy() - pixels.top();
  const int width = pixels.width() - dotPixels;
  const int height = pixels.height() - dotPixels;
  const QRgb highlight = m_look.highlight.rgb() | 0xff000000u;
  const double dotSize = kDotPixels / lod;
  bool anyDot = false;

  m_drawn.clear();
  m_index.query(wider, [&](std::uint32_t id, const DrawingBox& box) {
    if (!m_bounds[id].isValid())
      return;
    if (box.right - box.left >= dotSize || box.bottom - box.top >= dotSize)
    {
      m_drawn.push_back(id);
      return;
    }
    const double cx = (box.left + box.right) / 2;
    const double cy = (box.top + box.bottom) / 2;
    const double fx = m11 * cx + m21 * cy + dx;
    const double fy = m12 * cx + m22 * cy + dy;
    if (!(fx >= 0 && fy >= 0 && fx < width && fy < height))
      return;
    const QRgb color = id < selected.size() && selected[id] ? highlight : (m_colors[id] | 0xff000000u);
    QRgb* at = dots + qsizetype(fy) * stride + qsizetype(fx);
    for (int row = 0; row < dotPixels; ++row, at += stride)
      for (int column = 0; column < dotPixels; ++column)
        at[column] = color;
    anyDot = true;
  });

  if (anyDot)
  {
    // a world transform that takes the image's pixels to the device's, one to one
    painter->save();
    painter->setWorldTransform(QTransform::fromTranslate(pixels.left(), pixels.top()) * toPixels.inverted()
                               * painter->worldTransform());
    painter->drawImage(QPointF(0, 0), m_dotImage);
    painter->restore();
  }

  // Bigger entities in the drawing's order, so that what comes later lies on top; those of
  // a few pixels first and without antialiasing, which costs several times the drawing
  // there and shows nothing on them.
  std::sort(m_drawn.begin(), m_drawn.end());
  const double smallSize = kSmallPixels / lod;
  const auto small = [&](std::uint32_t id) {
    const DrawingBox& b = m_bounds[id];
    return b.right - b.left < smallSize && b.bottom - b.top < smallSize;
  };
  const bool antialiased = painter->testRenderHint(QPainter::Antialiasing);
  painter->setRenderHint(QPainter::Antialiasing, false);
  const std::vector<DrawingEntity>& entities = m_document->entities();
  QRgb penColor = 0;
  bool penSet = false;
  painter->setBrush(Qt::NoBrush);
  for (std::uint32_t id : m_drawn)
  {
    if (!small(id))
      continue;
    const bool on = id < selected.size() && selected[id];
    const QRgb color = on ? highlight : (m_colors[id] | 0xff000000u);
    if (!penSet || color != penColor)
    {
      painter->setPen(QPen(QColor::fromRgba(color), 0));
      penColor = color;
      penSet = true;
    }
    if (!sketch(painter, entities[id]))
    {
      shapeOf(id).paint(painter, lod, on);
      penSet = false;
      painter->setBrush(Qt::NoBrush);
    }
  }
  painter->setRenderHint(QPainter::Antialiasing, antialiased);
  for (std::uint32_t id : m_drawn)
    if (!small(id))
      shapeOf(id).paint(painter, lod, id < selected.size() && selected[id]);
  trimCache();
}

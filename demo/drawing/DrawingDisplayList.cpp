#include "DrawingDisplayList.h"

#include "DrawingDocument.h"
#include "DrawingEntityCurves.h"
#include "DrawingPixelSketch.h"
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
  m_marks = Marks();
  ++m_generation;
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
  ++m_generation;
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
    if (before.left == after.left && before.top == after.top && before.right == after.right && before.bottom == after.bottom)
      continue;
    // an entity hidden when the tree was built is not in it, and one hidden since leaves it, so that a paint need not ask
    if (many || !after.isValid() || !m_index.contains(std::uint32_t(position)))
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
  // Dots and sketches go straight into an image in the device's pixels: a million of them
  // through QPainter take a frame of their own. The image covers the area painted.
  // The painter's own chain (world, view, pixel ratio, a widget's place in its window)
  // differs between a widget, a view's background picture and an image: ask it whole.
  const QTransform toPixels = painter->deviceTransform();
  const QRect pixels = toPixels.mapRect(area.toRect()).toAlignedRect().adjusted(-1, -1, 1, 1);
  // A new selection over the same view and drawing only colours the marks again:
  // selecting everything in a million entities must not walk them.
  if (m_marks.generation != m_generation || !m_marks.pixels.contains(pixels) || m_marks.toPixels != toPixels || m_marks.lod != lod)
  {
    // Marked a little wider, on a coarse grid, so that the same view asked again with its
    // edges rounded another way finds its marks.
    constexpr int kGrid = 32;
    const auto down = [](int v) { return v >= 0 ? v / kGrid * kGrid : -((-v + kGrid - 1) / kGrid * kGrid); };
    QRect marked(QPoint(down(pixels.left()), down(pixels.top())),
                 QPoint(down(pixels.right()) + kGrid - 1, down(pixels.bottom()) + kGrid - 1));
    marked &= QRect(marked.topLeft(), QSize(8192, 8192));
    mark(DrawingBox::of(toPixels.inverted().mapRect(QRectF(marked))), lod, toPixels, marked);
  }
  if (m_marks.any)
  {
    colourMarks(selected);
    // a world transform that takes the image's pixels to the device's, one to one
    painter->save();
    painter->setWorldTransform(QTransform::fromTranslate(m_marks.pixels.left(), m_marks.pixels.top()) * toPixels.inverted()
                               * painter->worldTransform());
    painter->drawImage(QPointF(0, 0), m_dotImage);
    painter->restore();
  }

  // Bigger entities in the drawing's order, so that what comes later lies on top; those of
  // a few pixels first and without antialiasing, which costs several times the drawing
  // there and shows nothing on them.
  const double smallSize = kSmallPixels / lod;
  const auto small = [&](std::uint32_t id) {
    const DrawingBox& b = m_bounds[id];
    return b.right - b.left < smallSize && b.bottom - b.top < smallSize;
  };
  const bool antialiased = painter->testRenderHint(QPainter::Antialiasing);
  painter->setRenderHint(QPainter::Antialiasing, false);
  for (std::uint32_t id : m_marks.drawn)
    if (small(id))
      shapeOf(id).paint(painter, lod, id < selected.size() && selected[id]);
  painter->setRenderHint(QPainter::Antialiasing, antialiased);
  for (std::uint32_t id : m_marks.drawn)
    if (!small(id))
      shapeOf(id).paint(painter, lod, id < selected.size() && selected[id]);
  trimCache();
}

void DrawingDisplayList::mark(const DrawingBox& area, double lod, const QTransform& toPixels, const QRect& pixels)
{
  m_marks.generation = m_generation;
  m_marks.pixels = pixels;
  m_marks.toPixels = toPixels;
  m_marks.lod = lod;
  m_marks.any = false;
  m_marks.drawn.clear();
  m_marks.ids.assign(std::size_t(pixels.width()) * std::size_t(pixels.height()), kNoEntity);
  std::uint32_t* ids = m_marks.ids.data();
  const std::ptrdiff_t stride = pixels.width();
  const double ratio = std::max(1.0, std::sqrt(std::abs(toPixels.determinant())) / lod);
  const int dotPixels = std::max(1, int(std::lround(ratio)));
  const double m11 = toPixels.m11(), m12 = toPixels.m12(), m21 = toPixels.m21(), m22 = toPixels.m22();
  const double dx = toPixels.dx() - pixels.left(), dy = toPixels.dy() - pixels.top();
  const int width = pixels.width() - dotPixels;
  const int height = pixels.height() - dotPixels;
  const double dotSize = kDotPixels / lod;
  const double smallSize = kSmallPixels / lod;
  const std::vector<DrawingEntity>& entities = m_document->entities();
  DrawingPixelSketch sketch(ids, stride, pixels.width(), pixels.height(),
                            toPixels * QTransform::fromTranslate(-pixels.left(), -pixels.top()));
  const double room = kPenRoom / lod;
  const DrawingBox wider{area.left - room, area.top - room, area.right + room, area.bottom + room};
  m_index.query(wider, [&](std::uint32_t id, const DrawingBox& box) {
    const double boxWidth = box.right - box.left, boxHeight = box.bottom - box.top;
    if (boxWidth >= dotSize || boxHeight >= dotSize)
    {
      if (boxWidth < smallSize && boxHeight < smallSize && sketch.draw(entities[id], id))
        m_marks.any = true;
      else
        m_marks.drawn.push_back(id);
      return;
    }
    const double cx = (box.left + box.right) / 2;
    const double cy = (box.top + box.bottom) / 2;
    const double fx = m11 * cx + m21 * cy + dx;
    const double fy = m12 * cx + m22 * cy + dy;
    if (!(fx >= 0 && fy >= 0 && fx < width && fy < height))
      return;
    std::uint32_t* at = ids + std::ptrdiff_t(fy) * stride + std::ptrdiff_t(fx);
    for (int row = 0; row < dotPixels; ++row, at += stride)
      for (int column = 0; column < dotPixels; ++column)
        at[column] = id;
    m_marks.any = true;
  });
  // bigger entities are painted in the drawing's order, so that what comes later lies on top
  std::sort(m_marks.drawn.begin(), m_marks.drawn.end());
}

void DrawingDisplayList::colourMarks(const std::vector<bool>& selected)
{
  const QSize size = m_marks.pixels.size();
  if (m_dotImage.size() != size)
    m_dotImage = QImage(size, QImage::Format_ARGB32_Premultiplied);
  const QRgb highlight = m_look.highlight.rgb() | 0xff000000u;
  const std::uint32_t* id = m_marks.ids.data();
  for (int y = 0; y < size.height(); ++y)
  {
    QRgb* out = reinterpret_cast<QRgb*>(m_dotImage.scanLine(y));
    for (int x = 0; x < size.width(); ++x, ++id)
      out[x] = *id == kNoEntity ? 0u : *id < selected.size() && selected[*id] ? highlight : (m_colors[*id] | 0xff000000u);
  }
}

#pragma once

#include "DrawingShape.h"
#include "DrawingSpatialIndex.h"
#include "LargeArrayAllocator.h"
#include <QImage>
#include <QRect>
#include <QRgb>
#include <QTransform>
#include <cstdint>
#include <deque>
#include <vector>

#include "OdDbObjectId.h"

class DrawingDocument;
class OdDbLayerTableRecord;

/**
 * What a canvas keeps of a drawing to show it and pick from it, sized for a
 * million entities: per entity only its box (an invalid one when it is not
 * shown) and its colour, with a tree over the boxes. What an entity draws as
 * (its DrawingShape) is built when it is painted bigger than a dot, and
 * kept in a cache of bounded size; lines, circles, arcs and polylines are
 * boxed, picked and tested against areas from their numbers alone.
 *
 * Entities are named by their position in the document's list.
 */
class DrawingDisplayList
{
public:
  /** Below this size on screen, in pixels, an entity is painted as a dot of its colour. */
  static constexpr double kDotPixels = 2.0;

  /** Works out every entity of @p document, which must outlive the list or be followed by another rebuild. */
  void rebuild(const DrawingDocument* document, const DrawingLook& look);
  /** Works out again the entities at @p positions, which the document changed. */
  void update(const std::vector<std::size_t>& positions);
  void clear();

  std::size_t size() const { return m_bounds.size(); }
  /** Whether the entity is shown: visible, on a layer that is on and thawed, in model space, with a finite box. */
  bool isShown(std::size_t position) const { return position < m_bounds.size() && m_bounds[position].isValid(); }
  const DrawingBox& bounds(std::size_t position) const { return m_bounds[position]; }
  /** The box around every shown entity; invalid when none is. */
  DrawingBox extents() const { return m_extents; }

  /** The shown entities wholly inside @p area, in the drawing's order. */
  std::vector<std::uint32_t> enclosedBy(const DrawingBox& area) const;
  /** The shown entities that pass through @p area or lie inside it, in the drawing's order. */
  std::vector<std::uint32_t> crossedBy(const DrawingBox& area);
  /**
   * The shown entity whose outline passes nearest @p point, within
   * @p tolerance; a text or a filled shape counts as near anywhere inside.
   * Of two as near, the one drawn later (on top). -1 when there is none.
   */
  std::int64_t nearest(const QPointF& point, double tolerance);

  /**
   * Paints the entities that meet @p area (scene units) at @p lod pixels per
   * scene unit, those whose flag in @p selected is set as highlighted.
   */
  void paint(QPainter* painter, const DrawingBox& area, double lod, const std::vector<bool>& selected);

private:
  struct CachedShape
  {
    std::uint32_t entity = 0;
    std::uint32_t lastFrame = 0;
    DrawingShape shape;
  };

  void workOut(std::size_t position);
  const DrawingShape& shapeOf(std::size_t position);
  void forget(std::size_t position);
  void trimCache();
  bool shapePassesThrough(std::size_t position, const DrawingBox& area);
  double shapeDistance(std::size_t position, const QPointF& point, double tolerance);
  void updateExtents();

  const DrawingDocument* m_document = nullptr;
  DrawingLook m_look;
  std::vector<DrawingBox> m_bounds;
  std::vector<QRgb> m_colors;
  DrawingBox m_extents;
  DrawingSpatialIndex m_index;

  static constexpr std::uint32_t kNoShape = 0xffffffffu;
  std::vector<std::uint32_t> m_shapeSlot;
  std::deque<CachedShape> m_shapes;
  std::vector<std::uint32_t> m_freeSlots;
  DrawingShape m_scratch;
  OdDbObjectId m_lastLayerId;
  const OdDbLayerTableRecord* m_lastLayer = nullptr;
  bool m_lastLayerKnown = false;
  std::uint32_t m_frame = 0;

  /**
   * What the last paint drew as dots and sketches, as the entity marked in
   * each pixel, and the entities it left to their shapes; valid while the
   * view and the list stay as they were.
   */
  struct Marks
  {
    LargeArray<std::uint32_t> ids;
    std::vector<std::uint32_t> drawn;
    QTransform toPixels;
    QRect pixels;
    double lod = 0;
    std::uint32_t generation = 0;
    bool any = false;
  };
  static constexpr std::uint32_t kNoEntity = 0xffffffffu;

  void mark(const DrawingBox& area, double lod, const QTransform& toPixels, const QRect& pixels);
  void colourMarks(const std::vector<bool>& selected);

  Marks m_marks;
  /** Counts the changes of what is shown, so that marks of an older drawing are not coloured. */
  std::uint32_t m_generation = 1;
  /** Kept from one paint to the next, so that painting a million dots allocates nothing. */
  QImage m_dotImage;
};

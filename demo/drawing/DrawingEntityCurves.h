#pragma once

#include "DrawingSpatialIndex.h"
#include <QPointF>

struct DrawingEntity;
enum class EntityKind;

/**
 * The outline of a line, circle, arc or polyline worked out from its numbers
 * alone, without building what it draws as: its box, its distance from a
 * point and whether it passes through an area. These kinds make up nearly
 * all of a large drawing, and a canvas asks these questions of every one of
 * them. Points and boxes are in scene coordinates (the drawing's Y negated).
 */
class DrawingEntityCurves
{
public:
  /** Whether entities of @p kind are answered here; the others only by their shape. */
  static bool answers(EntityKind kind);

  /** The box around the outline; not finite when the entity's numbers are not. */
  static DrawingBox bounds(const DrawingEntity& entity);
  /** How far @p point is from the nearest point of the outline. */
  static double distance(const DrawingEntity& entity, const QPointF& point);
  /** Whether some point of the outline lies in @p area (edges included). */
  static bool passesThrough(const DrawingEntity& entity, const DrawingBox& area);
  /** How far @p p lies from the segment from @p a to @p b. */
  static double distanceToSegment(const QPointF& a, const QPointF& b, const QPointF& p);
  /** Whether the segment from @p a to @p b meets @p area. */
  static bool segmentMeets(const QPointF& a, const QPointF& b, const DrawingBox& area);
};

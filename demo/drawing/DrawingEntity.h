#pragma once

#include "OdCmColor.h"
#include "OdDbLineWeight.h"
#include "OdDbObjectId.h"
#include <QString>
#include <QtGlobal>
#include <vector>

/** A point of the drawing, in drawing units. */
struct DrawingPoint
{
  double x = 0.0;
  double y = 0.0;
  double z = 0.0;

  bool operator==(const DrawingPoint& o) const { return x == o.x && y == o.y && z == o.z; }
  bool operator!=(const DrawingPoint& o) const { return !(*this == o); }
};

/** What an entity is; it decides which of the entity's fields mean something. */
enum class EntityKind
{
  Line,
  Circle,
  Arc,
  Polyline,
  Text,
  MText,
  Insert,
  Dimension
};

/**
 * One object of a drawing: the properties every kind has, then its geometry.
 * A value type, so that an edit can keep the entity as it was for undo.
 */
struct DrawingEntity
{
  EntityKind kind = EntityKind::Line;
  /** Unique within its document; never reused. */
  quint64 handle = 0;

  OdDbObjectId layer;
  OdCmColor color{OdCmEntityColor::kByLayer};
  /** A linetype of the document's database; ByLayer unless the drawing says otherwise. */
  OdDbObjectId linetype;
  OdDb::LineWeight lineWeight = OdDb::kLnWtByLayer;
  double linetypeScale = 1.0;
  bool visible = true;

  /**
   * Line: start, end. Circle, Arc: centre. Polyline: its vertices.
   * Text, MText, Insert: the insertion point. Dimension: the first and second
   * definition points, then a point on the dimension line, then the text's
   * middle point, then the further definition points an angular dimension has.
   * Radial and diametric dimensions have only two definition points: on the
   * curve's far side (or its centre) and on the curve; the dimension line
   * point repeats the first.
   */
  std::vector<DrawingPoint> points;
  /** Polyline: a bulge per vertex (0 for a straight segment). */
  std::vector<double> bulges;
  bool closed = false;
  /** Circle, Arc. */
  double radius = 0.0;
  /** Arc, in degrees, counter-clockwise from the X axis. */
  double startAngle = 0.0;
  double endAngle = 0.0;
  /** Text, MText. */
  double height = 0.0;
  /** Text, MText, Insert, in degrees; Dimension: the angle of a rotated linear dimension. */
  double rotation = 0.0;
  /** MText: the width it wraps at, 0 for no wrapping. */
  double width = 0.0;
  /** MText: which point of the text box the insertion point is, 1 top left to 9 bottom right. */
  int attachment = 1;
  /** Insert. */
  DrawingPoint scale{1.0, 1.0, 1.0};
  QString blockName;
  /** Text, MText: the contents; Dimension: the text that overrides the measurement, if any. */
  QString text;
  /**
   * Dimension: as the drawing file codes it (0 rotated/linear, 1 aligned, 2
   * angular, 3 diametric, 4 radial, 5 angular by three points, 6 ordinate),
   * plus 64 for an ordinate that measures X. Radial and diametric keep their
   * leader length in radius.
   */
  int dimensionType = 0;
};

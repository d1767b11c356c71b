#pragma once

#include "OdCmColor.h"
#include "OdDbLineWeight.h"
#include "OdDbObjectId.h"
#include <QString>
#include <QtGlobal>
#include <memory>
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
  Dimension,
  Ellipse,
  Spline,
  Hatch,
  Point,
  Solid,
  Trace,
  Image,
  /** An entity the editor neither shows nor edits; a save writes it back as it was read. */
  Other
};

struct DrawingEntity;

/** One boundary of a hatch, as a closed outline: vertices and a bulge per vertex. */
struct DrawingHatchLoop
{
  std::vector<DrawingPoint> points;
  std::vector<double> bulges;
};

/** One family of parallel lines of a hatch pattern, in drawing units, as the hatch record gives it. */
struct DrawingHatchLine
{
  /** In degrees. */
  double angle = 0.0;
  DrawingPoint base;
  /** From one line of the family to the next. */
  DrawingPoint offset;
  /** Dashes (positive) and gaps (negative); empty for a continuous line. */
  std::vector<double> dashes;
};

/**
 * What only a few kinds have, kept out of the common part so that a drawing
 * of a million lines does not pay for it. Shared between copies (an undo step
 * keeps the entity as it was) and copied before a change.
 */
struct DrawingEntityDetail
{
  /** Spline: its degree, knots and weights (empty when all are 1); the control points are the entity's points. */
  int degree = 3;
  std::vector<double> knots;
  std::vector<double> weights;
  std::vector<DrawingPoint> fitPoints;

  /** Hatch: the pattern's name ("SOLID" for a solid fill), scale and angle (degrees). */
  QString pattern;
  bool solidFill = false;
  double patternScale = 1.0;
  double patternAngle = 0.0;
  std::vector<DrawingHatchLoop> loops;
  std::vector<DrawingHatchLine> patternLines;

  /** Image: the file it shows and its size in pixels. */
  QString imageFile;
  double pixelsWide = 0.0;
  double pixelsHigh = 0.0;

  /** Insert: its attributes, each a text entity (kind Text) with its tag in blockName. */
  std::vector<DrawingEntity> attributes;
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
  /** Kept from a paper-space layout of the file and saved, but the canvas shows model space only. */
  bool paperSpace = false;
  /**
   * Whether the entity changed since it was read (DrawingDocument::replaceEntities
   * says so); a save then works its changes into the record it was read from.
   */
  bool edited = false;

  /**
   * Line: start, end. Circle, Arc: centre. Polyline: its vertices.
   * Text, MText, Insert: the insertion point. Dimension: the first and second
   * definition points, then a point on the dimension line, then the text's
   * middle point, then the further definition points an angular dimension has.
   * Radial and diametric dimensions have only two definition points: on the
   * curve's far side (or its centre) and on the curve; the dimension line
   * point repeats the first.
   * Ellipse: centre, then the end of the major axis relative to the centre.
   * Spline: its control points. Point: the point. Solid, Trace: the four
   * corners in the file's order. Image: the insertion point, then the
   * vectors of one pixel along U and along V. Hatch: none (its loops).
   */
  std::vector<DrawingPoint> points;
  /** Polyline: a bulge per vertex (0 for a straight segment). */
  std::vector<double> bulges;
  /** Polyline, Spline. */
  bool closed = false;
  /** Circle, Arc. */
  double radius = 0.0;
  /** Arc, in degrees, counter-clockwise from the X axis; Ellipse: the start and end parameters, in degrees. */
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

  /** Ellipse: the minor axis as a share of the major one. */
  double ratio = 1.0;
  /** Text, MText: the style's name, as the file spells it; empty for Standard. */
  QString style;
  /** Text: the width factor (1 for the style's own) and the oblique angle in degrees. */
  double widthFactor = 1.0;
  double oblique = 0.0;
  /**
   * Text: horizontal alignment (0 left, 1 centre, 2 right, 3 aligned, 4
   * middle, 5 fit) and vertical (0 baseline, 1 bottom, 2 middle, 3 top), as
   * the file codes them; for any but left on the baseline, the second point
   * is the alignment point.
   */
  int horizontalAlignment = 0;
  int verticalAlignment = 0;
  /** Other: the entity's type as the file names it (e.g. "3DFACE"). */
  QString typeName;

  /** Where the entity's record is in the document's source (DrawingDocument::source()); size 0 for none. */
  quint32 recordBegin = 0;
  quint32 recordSize = 0;

  /** Null unless the kind needs it; see DrawingEntityDetail. */
  std::shared_ptr<DrawingEntityDetail> detail;
  const DrawingEntityDetail& details() const;
  /** The detail, made or copied first when it is shared, so that a change does not reach other copies. */
  DrawingEntityDetail& editDetails();
};

#pragma once

#include "DrawingEntity.h"
#include <QBrush>
#include <QColor>
#include <QPainterPath>
#include <QPen>
#include <QPolygonF>
#include <QRectF>
#include <QStaticText>
#include <QTransform>
#include <vector>

class DrawingDocument;
class QPainter;


/** What a canvas draws with: the ink that colour 7 stands for and the size of a millimetre on screen. */
struct DrawingLook
{
  QColor ink = Qt::black;
  QColor highlight = QColor(0x2a, 0x9d, 0xf4);
  double pixelsPerMm = 96.0 / 25.4;
};

/** One colour, linetype and lineweight of an entity (an insert has several), or one filled area. */
struct DrawingStroke
{
  QPainterPath outline;
  /** What fills the outline (by its fill rule); no brush for lines. */
  QBrush fill;
  QPainterPath dashed;
  /** One repetition of the dashes in scene units; 0 for a continuous line. */
  double period = 0;
  QPen pen;
  QPen glow;
};

struct DrawingTextRun
{
  QStaticText text;
  QTransform transform;
  QColor color;
  QPolygonF box;
};

/**
 * What one entity draws as, in scene coordinates (the drawing's Y axis
 * points up, the scene's down), worked out when the entity changes so that
 * painting allocates nothing: outlines already cut into their linetype's
 * dashes, pens, and laid-out texts.
 */
class DrawingShape
{
public:
  /** Works out the shape of @p entity as @p document holds it now. */
  void build(const DrawingDocument& document, const DrawingEntity& entity, const DrawingLook& look);

  /**
   * Where the point of a single-line @p text that an alignment (the file's
   * horizontal and vertical codes) names lies now, in the drawing: the second
   * point that keeps the text in place when it takes that alignment.
   */
  static DrawingPoint textAlignmentPoint(const DrawingDocument& document, const DrawingEntity& text, int horizontal, int vertical);

  /** Whether the shape passes within @p tolerance (scene units) of @p point. */
  bool hits(const QPointF& point, double tolerance) const;
  /** Slightly larger than what is drawn, so that a horizontal or vertical line has an area. */
  QRectF bounds() const { return m_bounds; }
  QPainterPath outline() const;
  bool isEmpty() const { return m_strokes.empty() && m_texts.empty(); }

  /** Paints at @p lod pixels per scene unit. */
  void paint(QPainter* painter, double lod, bool highlighted) const;

private:
  std::vector<DrawingStroke> m_strokes;
  std::vector<DrawingTextRun> m_texts;
  QRectF m_bounds;
  QColor m_highlight;
  QColor m_textHighlight;
};

#pragma once

#include <QColor>
#include <QGraphicsItem>
#include <QPainterPath>
#include <QPen>
#include <QStaticText>
#include <QTransform>
#include <vector>

class DrawingDocument;
struct DrawingEntity;

/** What a canvas draws with: the ink that colour 7 stands for and the size of a millimetre on screen. */
struct DrawingLook
{
  QColor ink = Qt::black;
  QColor highlight = QColor(0x2a, 0x9d, 0xf4);
  double pixelsPerMm = 96.0 / 25.4;
};

/**
 * One model-space entity on a canvas, in scene coordinates (the drawing's Y
 * axis points up, the scene's down). Everything it paints is worked out when
 * the entity changes, so that painting allocates nothing: outlines already
 * cut into their linetype's dashes, pens, and laid-out texts.
 */
class DrawingEntityItem : public QGraphicsItem
{
public:
  enum
  {
    Type = UserType + 0xd7f
  };

  explicit DrawingEntityItem(quint64 handle);

  quint64 handle() const { return m_handle; }

  /** Works out the geometry again from the entity as the document holds it now. */
  void rebuild(const DrawingDocument& document, const DrawingEntity& entity, const DrawingLook& look);

  /** Whether the entity passes within @p tolerance (scene units) of @p point. */
  bool hits(const QPointF& point, double tolerance) const;

  void setHighlighted(bool highlighted);
  bool isHighlighted() const { return m_highlighted; }

  int type() const override { return Type; }
  QRectF boundingRect() const override;
  QPainterPath shape() const override;
  void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

  /** One colour, linetype and lineweight of the entity (an insert has several). */
  struct Stroke
  {
    QPainterPath outline;
    QPainterPath dashed;
    /** One repetition of the dashes in scene units; 0 for a continuous line. */
    double period = 0;
    QPen pen;
    QPen glow;
  };
  struct TextRun
  {
    QStaticText text;
    QTransform transform;
    QColor color;
    QPolygonF box;
  };

private:
  quint64 m_handle;
  std::vector<Stroke> m_strokes;
  std::vector<TextRun> m_texts;
  QRectF m_bounds;
  QColor m_highlight;
  QColor m_textHighlight;
  bool m_highlighted = false;
};

#pragma once

#include "DrawingShape.h"
#include <QGraphicsItem>

/** One model-space entity on a canvas: its shape, and whether it is highlighted as selected. */
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
  bool hits(const QPointF& point, double tolerance) const { return m_shape.hits(point, tolerance); }

  void setHighlighted(bool highlighted);
  bool isHighlighted() const { return m_highlighted; }

  int type() const override { return Type; }
  QRectF boundingRect() const override { return m_shape.bounds(); }
  QPainterPath shape() const override { return m_shape.outline(); }
  void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

private:
  quint64 m_handle;
  DrawingShape m_shape;
  bool m_highlighted = false;
};

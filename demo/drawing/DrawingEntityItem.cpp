#include "DrawingEntityItem.h"

#include <QPainter>
#include <QStyleOptionGraphicsItem>

DrawingEntityItem::DrawingEntityItem(quint64 handle) : m_handle(handle) {}

void DrawingEntityItem::rebuild(const DrawingDocument& document, const DrawingEntity& entity, const DrawingLook& look)
{
  prepareGeometryChange();
  m_shape.build(document, entity, look);
  setVisible(!m_shape.isEmpty());
  update();
}

void DrawingEntityItem::setHighlighted(bool highlighted)
{
  if (m_highlighted == highlighted)
    return;
  m_highlighted = highlighted;
  update();
}

void DrawingEntityItem::paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget*)
{
  m_shape.paint(painter, option->levelOfDetailFromTransform(painter->worldTransform()), m_highlighted);
}

#include "DrawingCanvas.h"

#include "DrawingDocument.h"
#include "HostQtStyleManager.h"
#include <QKeyEvent>
#include <QMouseEvent>
#include <QRubberBand>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

namespace
{

// How far from an entity a click still picks it, in pixels.
constexpr int kPickTolerance = 4;
// A press that moves less than this is a click, not the start of a rectangle.
constexpr int kDragThreshold = 3;
// One wheel notch zooms by this factor.
constexpr double kWheelZoom = 1.2;

} // namespace

DrawingCanvas::DrawingCanvas(DrawingDocument* document, QWidget* parent)
    : QGraphicsView(parent), m_document(document), m_scene(new QGraphicsScene(this)),
      m_band(new QRubberBand(QRubberBand::Rectangle, viewport()))
{
  setObjectName(QStringLiteral("drawingCanvas"));
  setAccessibleName(tr("Drawing"));
  setScene(m_scene);
  setFocusPolicy(Qt::StrongFocus);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setTransformationAnchor(QGraphicsView::NoAnchor);
  setResizeAnchor(QGraphicsView::AnchorViewCenter);
  setRenderHint(QPainter::Antialiasing);
  setRenderHint(QPainter::TextAntialiasing);
  // lines are drawn with cosmetic pens a few pixels wide, which the scene's boxes cannot include
  setViewportUpdateMode(QGraphicsView::SmartViewportUpdate);
  setOptimizationFlag(QGraphicsView::DontSavePainterState);
  m_band->hide();
  m_look.pixelsPerMm = logicalDpiX() / 25.4;
  applyTheme();

  if (HostQtStyleManager* styles = hostGetQtStyleManager())
    connect(styles, &HostQtStyleManager::themeChanged, this, &DrawingCanvas::onThemeChanged);
  if (m_document)
  {
    connect(m_document, &DrawingDocument::entitiesChanged, this, &DrawingCanvas::onEntitiesChanged);
    connect(m_document, &DrawingDocument::documentReset, this, [this] {
      const bool hadSelection = !selection().isEmpty();
      rebuild();
      zoomExtents();
      if (hadSelection)
        Q_EMIT selectionChanged();
    });
  }
  rebuild();
}

DrawingCanvas::~DrawingCanvas() = default;

QVector<quint64> DrawingCanvas::selection() const
{
  QVector<quint64> handles;
  if (!m_document)
    return handles;
  for (const DrawingEntity& entity : m_document->entities())
    if (const DrawingEntityItem* item = m_items.value(entity.handle); item && item->isHighlighted())
      handles.append(entity.handle);
  return handles;
}

void DrawingCanvas::setSelection(const QVector<quint64>& handles)
{
  const QSet<quint64> wanted(handles.begin(), handles.end());
  bool changed = false;
  for (DrawingEntityItem* item : qAsConst(m_items))
  {
    const bool on = item->isVisible() && wanted.contains(item->handle());
    if (item->isHighlighted() != on)
    {
      item->setHighlighted(on);
      changed = true;
    }
  }
  if (changed)
    Q_EMIT selectionChanged();
}

void DrawingCanvas::selectAll()
{
  QList<DrawingEntityItem*> shown;
  for (DrawingEntityItem* item : qAsConst(m_items))
    if (item->isVisible())
      shown.append(item);
  selectItems(shown, false);
}

void DrawingCanvas::zoomExtents()
{
  QRectF extents;
  for (const DrawingEntityItem* item : qAsConst(m_items))
    if (item->isVisible())
      extents |= item->boundingRect();
  if (extents.isEmpty())
    return;
  m_zoomPending = !isVisible();
  const double margin = std::max(extents.width(), extents.height()) * 0.03;
  fitInView(extents.adjusted(-margin, -margin, margin, margin), Qt::KeepAspectRatio);
}

void DrawingCanvas::rebuild()
{
  const QVector<quint64> selected = selection();
  m_scene->clear();
  m_items.clear();
  if (!m_document)
    return;
  QRectF extents;
  m_items.reserve(int(m_document->entities().size()));
  for (const DrawingEntity& entity : m_document->entities())
  {
    auto* item = new DrawingEntityItem(entity.handle);
    item->rebuild(*m_document, entity, m_look);
    m_scene->addItem(item);
    m_items.insert(entity.handle, item);
    extents |= item->boundingRect();
  }
  // room to pan well past the drawing's edges
  const double room = std::max({extents.width(), extents.height(), 1.0}) * 20.0;
  m_scene->setSceneRect(extents.adjusted(-room, -room, room, room));
  for (quint64 handle : selected)
    if (DrawingEntityItem* item = m_items.value(handle))
      item->setHighlighted(true);
}

void DrawingCanvas::onEntitiesChanged(const QVector<quint64>& handles)
{
  if (!m_document)
    return;
  for (quint64 handle : handles)
  {
    DrawingEntityItem* item = m_items.value(handle);
    const DrawingEntity* entity = m_document->entity(handle);
    if (!item || !entity)
      continue;
    // Wide cosmetic pens (a selected entity's glow) paint beyond the item's box,
    // which is all the scene repaints: without room for them, the old place
    // keeps traces and the new one is clipped.
    const auto repaintAround = [this, item] {
      const int penRoom = 16;
      viewport()->update(mapFromScene(item->sceneBoundingRect()).boundingRect().adjusted(-penRoom, -penRoom, penRoom, penRoom));
    };
    repaintAround();
    item->rebuild(*m_document, *entity, m_look);
    repaintAround();
  }
}

void DrawingCanvas::onThemeChanged()
{
  applyTheme();
  rebuild();
}

void DrawingCanvas::applyTheme()
{
  const HostQtStyleManager* styles = hostGetQtStyleManager();
  const bool dark = styles && styles->theme() == HostQtStyleManager::Dark;
  setBackgroundBrush(dark ? QColor(0x1c, 0x20, 0x26) : QColor(Qt::white));
  // colour 7 is the ink that stands out from the paper, whichever it is
  m_look.ink = dark ? QColor(0xf2, 0xf2, 0xf2) : QColor(Qt::black);
}

DrawingEntityItem* DrawingCanvas::itemAt(const QPoint& viewportPos) const
{
  const QPointF point = mapToScene(viewportPos);
  const double scale = std::abs(transform().m11()) > 0 ? std::abs(transform().m11()) : 1.0;
  const double tolerance = kPickTolerance / scale;
  const QRectF near(point - QPointF(tolerance, tolerance), QSizeF(2 * tolerance, 2 * tolerance));
  const QList<QGraphicsItem*> candidates = m_scene->items(near, Qt::IntersectsItemBoundingRect, Qt::DescendingOrder);
  for (QGraphicsItem* candidate : candidates)
  {
    auto* item = qgraphicsitem_cast<DrawingEntityItem*>(candidate);
    if (item && item->isVisible() && item->hits(point, tolerance))
      return item;
  }
  return nullptr;
}

void DrawingCanvas::selectItems(const QList<DrawingEntityItem*>& items, bool add)
{
  bool changed = false;
  const QSet<DrawingEntityItem*> keep(items.begin(), items.end());
  if (!add)
    for (DrawingEntityItem* item : qAsConst(m_items))
      if (item->isHighlighted() && !keep.contains(item))
      {
        item->setHighlighted(false);
        changed = true;
      }
  for (DrawingEntityItem* item : items)
    if (!item->isHighlighted())
    {
      item->setHighlighted(true);
      changed = true;
    }
  if (changed)
    Q_EMIT selectionChanged();
}

void DrawingCanvas::pan(int dx, int dy)
{
  horizontalScrollBar()->setValue(horizontalScrollBar()->value() + dx);
  verticalScrollBar()->setValue(verticalScrollBar()->value() + dy);
}

void DrawingCanvas::mousePressEvent(QMouseEvent* event)
{
  if (event->button() == Qt::MiddleButton)
  {
    m_panning = true;
    m_lastPanPos = event->pos();
    viewport()->setCursor(Qt::ClosedHandCursor);
    event->accept();
    return;
  }
  if (event->button() != Qt::LeftButton)
    return QGraphicsView::mousePressEvent(event);
  event->accept();
  const bool toggle = event->modifiers() & Qt::ShiftModifier;
  if (DrawingEntityItem* item = itemAt(event->pos()))
  {
    if (toggle)
    {
      item->setHighlighted(!item->isHighlighted());
      Q_EMIT selectionChanged();
    }
    else
      selectItems({item}, false);
    return;
  }
  m_banding = true;
  m_bandAdds = toggle;
  m_pressPos = event->pos();
  m_band->setGeometry(QRect(m_pressPos, QSize()));
}

void DrawingCanvas::mouseMoveEvent(QMouseEvent* event)
{
  if (m_panning)
  {
    const QPoint delta = event->pos() - m_lastPanPos;
    m_lastPanPos = event->pos();
    pan(-delta.x(), -delta.y());
    return;
  }
  if (m_banding)
  {
    const QRect rect = QRect(m_pressPos, event->pos()).normalized();
    m_band->setGeometry(rect);
    m_band->setVisible((event->pos() - m_pressPos).manhattanLength() >= kDragThreshold);
    return;
  }
  QGraphicsView::mouseMoveEvent(event);
}

void DrawingCanvas::mouseReleaseEvent(QMouseEvent* event)
{
  if (m_panning && event->button() == Qt::MiddleButton)
  {
    m_panning = false;
    viewport()->unsetCursor();
    return;
  }
  if (!m_banding || event->button() != Qt::LeftButton)
    return QGraphicsView::mouseReleaseEvent(event);
  m_banding = false;
  m_band->hide();
  if ((event->pos() - m_pressPos).manhattanLength() < kDragThreshold)
  {
    // a click on empty paper
    if (!m_bandAdds)
      selectItems({}, false);
    return;
  }
  const QRect rect = QRect(m_pressPos, event->pos()).normalized();
  QList<DrawingEntityItem*> enclosed;
  for (QGraphicsItem* candidate : m_scene->items(mapToScene(rect), Qt::ContainsItemBoundingRect))
    if (auto* item = qgraphicsitem_cast<DrawingEntityItem*>(candidate); item && item->isVisible())
      enclosed.append(item);
  selectItems(enclosed, m_bandAdds);
}

void DrawingCanvas::wheelEvent(QWheelEvent* event)
{
  const double notches = event->angleDelta().y() / 120.0;
  if (notches == 0)
    return;
  const double factor = std::pow(kWheelZoom, notches);
  const double current = std::abs(transform().m11());
  // beyond these the numbers lose their precision before the user finds anything
  if ((factor > 1 && current > 1e6) || (factor < 1 && current < 1e-6))
    return;
  // the point under the cursor stays there, wherever the cursor is
  const QPoint cursor = event->position().toPoint();
  const QPointF pinned = mapToScene(cursor);
  scale(factor, factor);
  const QPoint drift = mapFromScene(pinned) - cursor;
  pan(drift.x(), drift.y());
  event->accept();
}

void DrawingCanvas::keyPressEvent(QKeyEvent* event)
{
  const int step = std::max(viewport()->width(), viewport()->height()) / 10;
  if (event->matches(QKeySequence::SelectAll))
    selectAll();
  else if (event->key() == Qt::Key_Escape)
    selectItems({}, false);
  else if (event->key() == Qt::Key_Left)
    pan(-step, 0);
  else if (event->key() == Qt::Key_Right)
    pan(step, 0);
  else if (event->key() == Qt::Key_Up)
    pan(0, -step);
  else if (event->key() == Qt::Key_Down)
    pan(0, step);
  else
    return QGraphicsView::keyPressEvent(event);
  event->accept();
}

void DrawingCanvas::showEvent(QShowEvent* event)
{
  QGraphicsView::showEvent(event);
  if (m_zoomPending)
    zoomExtents();
}

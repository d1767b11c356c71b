#include "DrawingCanvas.h"

#include "DrawingDocument.h"
#include "HostQtStyleManager.h"
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

namespace
{

// How far from an entity's outline a click still picks it, in logical pixels.
constexpr double kPickTolerance = 8.0;
// A press that moves less than this is a click, not the start of a window.
constexpr int kDragThreshold = 3;
// One wheel notch zooms by this factor.
constexpr double kWheelZoom = 1.2;

} // namespace

DrawingCanvas::DrawingCanvas(DrawingDocument* document, QWidget* parent)
    : QGraphicsView(parent), m_document(document), m_scene(new QGraphicsScene(this))
{
  setObjectName(QStringLiteral("drawingCanvas"));
  setAccessibleName(tr("Drawing"));
  m_scene->setItemIndexMethod(QGraphicsScene::NoIndex);
  setScene(m_scene);
  setFocusPolicy(Qt::StrongFocus);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setTransformationAnchor(QGraphicsView::NoAnchor);
  setResizeAnchor(QGraphicsView::AnchorViewCenter);
  setRenderHint(QPainter::Antialiasing);
  setRenderHint(QPainter::TextAntialiasing);
  // The drawing is the background, kept as a picture: a window dragged over it or a
  // pan repaints from the picture, and only a change of the drawing, the zoom or the
  // selection paints the entities again.
  setCacheMode(QGraphicsView::CacheBackground);
  setViewportUpdateMode(QGraphicsView::MinimalViewportUpdate);
  setOptimizationFlag(QGraphicsView::DontSavePainterState);
  m_look.pixelsPerMm = logicalDpiX() / 25.4;
  applyTheme();

  if (HostQtStyleManager* styles = hostGetQtStyleManager())
    connect(styles, &HostQtStyleManager::themeChanged, this, &DrawingCanvas::onThemeChanged);
  if (m_document)
  {
    connect(m_document, &DrawingDocument::entitiesChanged, this, &DrawingCanvas::onEntitiesChanged);
    connect(m_document, &DrawingDocument::documentReset, this, [this] {
      const bool hadSelection = std::find(m_selected.begin(), m_selected.end(), true) != m_selected.end();
      m_selected.clear();
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
  const std::vector<DrawingEntity>& entities = m_document->entities();
  const std::size_t count = std::min(entities.size(), m_selected.size());
  const std::size_t selected = std::size_t(std::count(m_selected.begin(), m_selected.begin() + std::ptrdiff_t(count), true));
  // everything selected shares the document's list: a million handles written out anew cost more than the rest of a select all
  if (selected == entities.size() && std::size_t(m_document->handles().size()) == selected)
    return m_document->handles();
  // counted first: a million appends that grow the list as they go cost more than the walk
  handles.resize(int(selected));
  quint64* out = handles.data();
  for (std::size_t i = 0; i < count; ++i)
    if (m_selected[i])
      *out++ = entities[i].handle;
  return handles;
}

void DrawingCanvas::setSelection(const QVector<quint64>& handles)
{
  ensureCurrent();
  std::vector<std::uint32_t> positions;
  if (m_document)
  {
    const DrawingEntity* first = m_document->entities().data();
    for (quint64 handle : handles)
      if (const DrawingEntity* entity = m_document->entity(handle))
        if (m_list.isShown(std::size_t(entity - first)))
          positions.push_back(std::uint32_t(entity - first));
  }
  select(positions, false);
}

void DrawingCanvas::selectAll()
{
  ensureCurrent();
  std::vector<std::uint32_t> shown;
  shown.reserve(m_list.size());
  for (std::size_t i = 0; i < m_list.size(); ++i)
    if (m_list.isShown(i))
      shown.push_back(std::uint32_t(i));
  select(shown, false);
}

void DrawingCanvas::select(const std::vector<std::uint32_t>& positions, bool add)
{
  std::vector<bool> wanted = add ? m_selected : std::vector<bool>(m_list.size(), false);
  wanted.resize(m_list.size(), false);
  for (std::uint32_t position : positions)
    if (position < wanted.size())
      wanted[position] = true;
  if (wanted == m_selected)
    return;
  m_selected = std::move(wanted);
  repaintDrawing();
  Q_EMIT selectionChanged();
}

void DrawingCanvas::zoomExtents()
{
  ensureCurrent();
  const DrawingBox extents = m_list.extents();
  if (!extents.isValid())
    return;
  m_zoomPending = !isVisible();
  QRectF area = extents.toRect();
  // a drawing of one horizontal line, or of one point, has no height or no size to fit
  const double margin = std::max({area.width(), area.height(), 1e-6}) * 0.03;
  area.adjust(-margin, -margin, margin, margin);
  fitInView(area, Qt::KeepAspectRatio);
  repaintDrawing();
}

void DrawingCanvas::rebuild()
{
  m_list.rebuild(m_document, m_look);
  m_selected.resize(m_list.size(), false);
  const DrawingBox extents = m_list.extents();
  const QRectF area = extents.isValid() ? extents.toRect() : QRectF(0, 0, 1, 1);
  // room to pan well past the drawing's edges
  const double room = std::max({area.width(), area.height(), 1.0}) * 20.0;
  m_scene->setSceneRect(area.adjusted(-room, -room, room, room));
  repaintDrawing();
}

void DrawingCanvas::ensureCurrent()
{
  // a document filled after the canvas was made says nothing: its count tells
  if (m_document ? m_list.size() != m_document->entities().size() : m_list.size() != 0)
    rebuild();
}

void DrawingCanvas::onEntitiesChanged(const QVector<quint64>& handles)
{
  if (!m_document)
    return;
  if (m_list.size() != m_document->entities().size())
    return rebuild();
  std::vector<std::size_t> positions;
  // finding a handle costs a look-up in a tree: for most of a drawing, working out all of it is cheaper
  if (std::size_t(handles.size()) > m_list.size() / 8)
  {
    positions.resize(m_list.size());
    for (std::size_t i = 0; i < positions.size(); ++i)
      positions[i] = i;
  }
  else
  {
    const DrawingEntity* first = m_document->entities().data();
    for (quint64 handle : handles)
      if (const DrawingEntity* entity = m_document->entity(handle))
        positions.push_back(std::size_t(entity - first));
  }
  m_list.update(positions);
  repaintDrawing();
}

void DrawingCanvas::onThemeChanged()
{
  applyTheme();
  rebuild();
}

void DrawingCanvas::applyTheme()
{
  const HostQtStyleManager* styles = hostGetQtStyleManager();
  m_dark = styles && styles->theme() == HostQtStyleManager::Dark;
  setBackgroundBrush(m_dark ? QColor(0x1c, 0x20, 0x26) : QColor(Qt::white));
  // colour 7 is the ink that stands out from the paper, whichever it is
  m_look.ink = m_dark ? QColor(0xf2, 0xf2, 0xf2) : QColor(Qt::black);
}

void DrawingCanvas::repaintDrawing()
{
  // Painted again into the view's picture of the background: resetting the cache would
  // make the picture anew, and fresh megabytes cost more than the paint of a selection.
  invalidateScene(mapToScene(viewport()->rect()).boundingRect(), QGraphicsScene::BackgroundLayer);
  viewport()->update();
}

double DrawingCanvas::pixelsPerUnit() const
{
  const double scale = std::abs(transform().m11());
  return scale > 0 ? scale : 1.0;
}

void DrawingCanvas::drawBackground(QPainter* painter, const QRectF& rect)
{
  QGraphicsView::drawBackground(painter, rect);
  ensureCurrent();
  // the view paints its background picture with a painter of its own, which has none of the view's hints
  painter->setRenderHints(renderHints());
  m_list.paint(painter, DrawingBox::of(rect), pixelsPerUnit(), m_selected);
}

QRect DrawingCanvas::bandRect() const
{
  return QRect(m_pressPos, m_bandEnd).normalized();
}

void DrawingCanvas::drawForeground(QPainter* painter, const QRectF&)
{
  if (!m_bandShown)
    return;
  // as CAD programs show them: a window solid and blue, a crossing dashed and green
  const bool crossing = bandCrosses();
  QColor edge = crossing ? (m_dark ? QColor(0x6c, 0xe0, 0x7c) : QColor(0x1c, 0x8c, 0x32))
                         : (m_dark ? QColor(0x6c, 0xaa, 0xff) : QColor(0x1e, 0x5a, 0xc8));
  QColor fill = edge;
  fill.setAlpha(m_dark ? 56 : 40);
  painter->save();
  painter->resetTransform();
  painter->setRenderHint(QPainter::Antialiasing, false);
  QPen pen(edge, 1, crossing ? Qt::DashLine : Qt::SolidLine);
  pen.setCosmetic(true);
  painter->setPen(pen);
  painter->setBrush(fill);
  painter->drawRect(bandRect());
  painter->restore();
}

void DrawingCanvas::updateBand(const QPoint& end)
{
  const QRect before = bandRect();
  const bool wasShown = m_bandShown;
  m_bandEnd = end;
  m_bandShown = (end - m_pressPos).manhattanLength() >= kDragThreshold;
  if (wasShown || m_bandShown)
    viewport()->update(before.united(bandRect()).adjusted(-2, -2, 2, 2));
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
  ensureCurrent();
  const bool shift = event->modifiers() & Qt::ShiftModifier;
  const std::int64_t picked = m_list.nearest(mapToScene(event->pos()), kPickTolerance / pixelsPerUnit());
  if (picked >= 0)
  {
    if (!shift)
      return select({std::uint32_t(picked)}, false);
    m_selected[std::size_t(picked)] = !m_selected[std::size_t(picked)];
    repaintDrawing();
    Q_EMIT selectionChanged();
    return;
  }
  m_banding = true;
  m_bandAdds = shift;
  m_pressPos = event->pos();
  m_bandEnd = m_pressPos;
  m_bandShown = false;
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
    return updateBand(event->pos());
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
  updateBand(event->pos());
  m_banding = false;
  const bool wasDrag = m_bandShown;
  m_bandShown = false;
  viewport()->update(bandRect().adjusted(-2, -2, 2, 2));
  if (!wasDrag)
  {
    // a click on empty paper
    if (!m_bandAdds)
      select({}, false);
    return;
  }
  const QRectF area = mapToScene(bandRect()).boundingRect();
  const DrawingBox box = DrawingBox::of(area);
  select(bandCrosses() ? m_list.crossedBy(box) : m_list.enclosedBy(box), m_bandAdds);
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
  repaintDrawing();
  event->accept();
}

void DrawingCanvas::keyPressEvent(QKeyEvent* event)
{
  const int step = std::max(viewport()->width(), viewport()->height()) / 10;
  if (event->matches(QKeySequence::SelectAll))
    selectAll();
  else if (event->key() == Qt::Key_Escape && m_banding)
  {
    // Escape during a drag drops the window, and keeps the selection
    m_banding = false;
    m_bandShown = false;
    viewport()->update();
  }
  else if (event->key() == Qt::Key_Escape)
    select({}, false);
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

#pragma once

#include "DrawingDisplayList.h"
#include <QGraphicsView>
#include <QPointer>
#include <vector>

class DrawingDocument;

/**
 * Shows a drawing's model space and lets the user pick from it as in a CAD
 * program: a click selects the entity nearest the cursor, Shift+click adds or
 * removes it; a drag from empty paper to the right selects what lies wholly
 * inside the window, one to the left what the window crosses or encloses;
 * Escape clears and Ctrl+A selects everything shown. The wheel zooms about
 * the cursor; the middle button and the arrow keys pan. The canvas follows
 * the host's theme.
 *
 * The view's scene stays empty: the entities are painted as its background
 * from a display list, which a million of them fit in.
 */
class DrawingCanvas : public QGraphicsView
{
  Q_OBJECT

public:
  explicit DrawingCanvas(DrawingDocument* document, QWidget* parent = nullptr);
  ~DrawingCanvas() override;

  /** The handles of the selected entities, in the drawing's order. */
  QVector<quint64> selection() const;
  /** Unknown handles and entities the canvas does not show are left out. */
  void setSelection(const QVector<quint64>& handles);
  /** Selects every entity the canvas shows. */
  void selectAll();
  /** Shows the whole drawing. */
  void zoomExtents();

Q_SIGNALS:
  /** The user or the host changed the selection; once per gesture. */
  void selectionChanged();

protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void drawBackground(QPainter* painter, const QRectF& rect) override;
  void drawForeground(QPainter* painter, const QRectF& rect) override;

private:
  void rebuild();
  void ensureCurrent();
  void onEntitiesChanged(const QVector<quint64>& handles);
  void onThemeChanged();
  void applyTheme();
  /** Puts @p positions in place of the selection, or adds them; one signal when anything changed. */
  void select(const std::vector<std::uint32_t>& positions, bool add);
  void repaintDrawing();
  void pan(int dx, int dy);
  double pixelsPerUnit() const;
  QRect bandRect() const;
  bool bandCrosses() const { return m_bandEnd.x() < m_pressPos.x(); }
  void updateBand(const QPoint& end);

  QPointer<DrawingDocument> m_document;
  QPointer<QGraphicsScene> m_scene;
  DrawingLook m_look;
  bool m_dark = false;
  DrawingDisplayList m_list;
  std::vector<bool> m_selected;
  QPoint m_pressPos;
  QPoint m_bandEnd;
  QPoint m_lastPanPos;
  bool m_banding = false;
  bool m_bandShown = false;
  bool m_panning = false;
  bool m_bandAdds = false;
  bool m_zoomPending = true;
};

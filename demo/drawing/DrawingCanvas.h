#pragma once

#include "DrawingEntityItem.h"
#include <QGraphicsView>
#include <QHash>
#include <QPointer>
#include <QVector>

class DrawingDocument;
class QRubberBand;

/**
 * Shows a drawing's model space and lets the user pick from it: a click
 * selects what is under the cursor, Shift+click adds or removes it, a drag
 * from empty space selects what the rectangle encloses, Escape clears and
 * Ctrl+A selects everything shown. The wheel zooms about the cursor; the
 * middle button and the arrow keys pan. The canvas follows the host's theme.
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
  /** The user or the host changed the selection. */
  void selectionChanged();

protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void showEvent(QShowEvent* event) override;

private:
  void rebuild();
  void onEntitiesChanged(const QVector<quint64>& handles);
  void onThemeChanged();
  void applyTheme();
  DrawingEntityItem* itemAt(const QPoint& viewportPos) const;
  void selectItems(const QList<DrawingEntityItem*>& items, bool add);
  void setHighlighted(DrawingEntityItem* item, bool on);
  void pan(int dx, int dy);

  QPointer<DrawingDocument> m_document;
  QPointer<QGraphicsScene> m_scene;
  QPointer<QRubberBand> m_band;
  DrawingLook m_look;
  QHash<quint64, DrawingEntityItem*> m_items;
  int m_selectedCount = 0;
  QPoint m_pressPos;
  QPoint m_lastPanPos;
  bool m_banding = false;
  bool m_panning = false;
  bool m_bandAdds = false;
  bool m_zoomPending = true;
};

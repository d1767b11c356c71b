#pragma once

#include <QPointer>
#include <QWidget>

class DrawingPropertyBag;
class PalettePanel;
class PaletteGrid;
class QLabel;
class QTabWidget;

/**
 * The property palette beside a drawing: the panel of controls and the grid
 * over one bag, switchable by tabs. It follows the bag: a change of the
 * drawing refreshes both forms, a change of the items builds them anew.
 */
class PropertyPalette : public QWidget
{
  Q_OBJECT

public:
  explicit PropertyPalette(DrawingPropertyBag* bag, QWidget* parent = nullptr);
  ~PropertyPalette() override;

  /** Builds both forms for the bag's current items (after a new selection). */
  void rebuild();
  /** Makes both forms re-read every item. */
  void refresh();
  /** Shows the panel (0) or the grid (1). */
  void setForm(int form);
  int form() const;

  PalettePanel* panel() const;
  PaletteGrid* grid() const;

private:
  void onBagChanged(bool sameItems);
  void showCount();

  DrawingPropertyBag* m_bag;
  QPointer<QLabel> m_count;
  QPointer<QTabWidget> m_tabs;
  QPointer<PalettePanel> m_panel;
  QPointer<PaletteGrid> m_grid;
  bool m_refreshPending = false;
  bool m_rebuildPending = false;
};

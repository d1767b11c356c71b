#pragma once

#include "DemoGridGroup.h"
#include <QPointer>
#include <QTreeView>

class PropBag;
class PropUiQFormatter;

/**
 * The grid form of a palette: the library's item model and standard delegate
 * over a bag, a row per item with its elements below it.
 */
class PaletteGrid : public QTreeView
{
  Q_OBJECT

public:
  explicit PaletteGrid(QWidget* parent = nullptr);
  ~PaletteGrid() override;

  /** Shows the bag's items; null empties the grid. */
  void setBag(PropBag* bag);
  /** Makes every row re-read its item. */
  void refresh();

private:
  DemoGridGroup m_group;
  QPointer<PropUiQFormatter> m_formatter;
};

#pragma once

#include <QPointer>
#include <QScrollArea>
#include <QVector>

class PropBag;
class PropUiQWidget;

/**
 * The panel form of a palette: a row per item of a bag, its caption and the
 * control the registry makes for the item's kind, under a heading per
 * category.
 */
class PalettePanel : public QScrollArea
{
  Q_OBJECT

public:
  explicit PalettePanel(QWidget* parent = nullptr);

  /** Builds the rows anew for the bag's items; null leaves the panel empty. */
  void setBag(PropBag* bag);
  /** Makes every control re-read its item. */
  void refresh();
  /** The controls in the order of the bag's items (null where no control is registered). */
  const QVector<QPointer<PropUiQWidget> >& controls() const { return m_controls; }

private:
  PropBag* m_bag = nullptr;
  QVector<QPointer<PropUiQWidget> > m_controls;
};

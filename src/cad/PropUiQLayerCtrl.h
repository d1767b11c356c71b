#pragma once

#include "PropUiQComboBox.h"

/**
 * A layer reference: a combo over the drawing's layers, each entry showing
 * the layer's colour, whether it is on, frozen or locked, and its name. A
 * layer the bag's context marks as disabled for the item is greyed and is
 * never written. Without a drawing the control shows the bag's text alone.
 */
class PROPWIDGETS_EXPORT PropUiQLayerCtrl : public PropUiQComboBox
{
  Q_OBJECT

public:
  explicit PropUiQLayerCtrl(QWidget* parent = nullptr);

  bool setupUi() override;
  /** Shows the value by its layer, whatever the bag's text for it; one the drawing lacks, by the bag's text. */
  void updateData() override;
  /** One entry per layer of the drawing, keyed by the layer's handle. */
  void addItems() override;
  /** Selects the value's layer when it is listed; otherwise an entry with the bag's text. */
  int addTempItem(const PropVariant& value) override;

public Q_SLOTS:
  void onActivated(int index) override;

public:
  /** The size of an entry's picture: the colour swatch and the three state marks side by side. */
  static QSize pictureSize() { return QSize(66, 16); }
};

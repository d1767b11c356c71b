#pragma once

#include "PropUiQComboBox.h"

/** A linetype reference, edited with the host's linetype picker; ByLayer shows the layer's pattern. */
class PROPWIDGETS_EXPORT PropUiQLinetypeCtrl : public PropUiQComboBox
{
  Q_OBJECT

public:
  explicit PropUiQLinetypeCtrl(QWidget* parent = nullptr);

  bool setupUi() override;
  void updateUi() override;
  /** Shows the value by its linetype, whatever the bag's text for it; one the drawing lacks, by the bag's text. */
  void updateData() override;
  /** Selects the value's linetype in the picker; -1 for a varying value or one that names no linetype. */
  int addTempItem(const PropVariant& value) override;

public Q_SLOTS:
  void onActivated(int index) override;
};

#pragma once

#include "PropUiQComboBox.h"

/** An arrowhead block reference, edited with the host's arrowhead picker. */
class PROPWIDGETS_EXPORT PropUiQArrowheadCtrl : public PropUiQComboBox
{
  Q_OBJECT

public:
  explicit PropUiQArrowheadCtrl(QWidget* parent = nullptr);

  bool setupUi() override;
  /** Shows the bag's arrowhead through the picker rather than through the item's list. */
  void updateData() override;

public Q_SLOTS:
  void onActivated(int index) override;
};

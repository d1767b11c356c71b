#pragma once

#include "PropUiQComboBox.h"

/** A lineweight, edited with the host's lineweight picker; ByLayer and Default show what they stand for. */
class PROPWIDGETS_EXPORT PropUiQLineweightCtrl : public PropUiQComboBox
{
  Q_OBJECT

public:
  explicit PropUiQLineweightCtrl(QWidget* parent = nullptr);

  bool setupUi() override;
  void updateUi() override;
  /** Shows the value by its width, whatever the bag's text for it; a value that is no width, by the bag's text. */
  void updateData() override;

public Q_SLOTS:
  void onActivated(int index) override;
};

#pragma once

#include "PropUiQComboBox.h"

/**
 * A drawing colour, edited with the host's colour picker. ByLayer shows what
 * it stands for on the edited item, and every colour the user commits joins
 * the host's custom colours, whatever the bag answers.
 */
class PROPWIDGETS_EXPORT PropUiQColorCtrl : public PropUiQComboBox
{
  Q_OBJECT

public:
  explicit PropUiQColorCtrl(QWidget* parent = nullptr);

  bool setupUi() override;
  void updateUi() override;
  /** Shows the value by its colour, whatever the bag's text for it. */
  void updateData() override;
  /** Selects the value's colour in the picker, which lists it when it must; -1 for a varying value. */
  int addTempItem(const PropVariant& value) override;

public Q_SLOTS:
  void onActivated(int index) override;
};

#pragma once

#include "PropUiButtonGroupCtrl.h"

/** The entries as radio buttons with their captions. */
class PROPWIDGETS_EXPORT PropUiQRadioButtonsCtrl : public PropUiButtonGroupCtrl
{
  Q_OBJECT

public:
  explicit PropUiQRadioButtonsCtrl(QWidget* parent = nullptr);

  void onButtonClicked(QAbstractButton* button) override;
  QAbstractButton* createBtn() override;
  void updateBtn(QAbstractButton* button, const OdString& text, unsigned long key) override;
  void removeBtn(QAbstractButton* button) override;
};

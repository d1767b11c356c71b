#pragma once

#include "PropUiButtonGroupCtrl.h"

/** The entries as radio buttons with their captions. */
class PROPWIDGETS_EXPORT PropUiQRadioButtonsCtrl : public PropUiButtonGroupCtrl
{
  Q_OBJECT

public:
  explicit PropUiQRadioButtonsCtrl(QWidget* parent = nullptr);

public Q_SLOTS:
  void onButtonClicked(QAbstractButton* button) override;

public:
  QAbstractButton* createBtn() override;
  void updateBtn(QAbstractButton* button, const OdString& text, unsigned long key) override;
  void removeBtn(QAbstractButton* button) override;
};

#pragma once

#include "PropUiButtonGroupCtrl.h"

/** The entries as checkable tool buttons, with their pictures and captions. */
class PROPWIDGETS_EXPORT PropUiQToolButtonsCtrl : public PropUiButtonGroupCtrl
{
  Q_OBJECT

public:
  explicit PropUiQToolButtonsCtrl(QWidget* parent = nullptr);

  void onButtonClicked(QAbstractButton* button) override;
  QAbstractButton* createBtn() override;
  void updateBtn(QAbstractButton* button, const OdString& text, unsigned long key) override;
  void removeBtn(QAbstractButton* button) override;
};

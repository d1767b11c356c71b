#pragma once

#include "PropUiActionButtonGroupCtrl.h"

/** The item's actions as small tool buttons; also the toolbar beside other editors. */
class PROPWIDGETS_EXPORT PropUiActionToolButtonsCtrl : public PropUiActionButtonGroupCtrl
{
  Q_OBJECT

public:
  explicit PropUiActionToolButtonsCtrl(QWidget* parent = nullptr);

  QAbstractButton* createBtn() override;
  void updateBtn(QAbstractButton* button, PropAction* action) override;
};

#pragma once

#include "PropUiActionButtonGroupCtrl.h"

/** The item's actions as push buttons with their captions (or icons only, with 0x40000). */
class PROPWIDGETS_EXPORT PropUiActionPushButtonsCtrl : public PropUiActionButtonGroupCtrl
{
  Q_OBJECT

public:
  explicit PropUiActionPushButtonsCtrl(QWidget* parent = nullptr);

  QAbstractButton* createBtn() override;
  void updateBtn(QAbstractButton* button, PropAction* action) override;
};

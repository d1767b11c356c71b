#pragma once

#include "PropUiButtonGroupCtrl.h"

/** The entries as checkable push buttons, with their captions and pictures. */
class PROPWIDGETS_EXPORT PropUiQPushButtonsCtrl : public PropUiButtonGroupCtrl
{
  Q_OBJECT

public:
  explicit PropUiQPushButtonsCtrl(QWidget* parent = nullptr);

public Q_SLOTS:
  void onButtonClicked(QAbstractButton* button) override;

public:
  QAbstractButton* createBtn() override;
  void updateBtn(QAbstractButton* button, const OdString& text, unsigned long key) override;
  void removeBtn(QAbstractButton* button) override;
};

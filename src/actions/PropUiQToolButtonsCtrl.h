#pragma once

#include "PropUiButtonGroupCtrl.h"

/** The entries as checkable tool buttons, with their pictures and captions. */
class PROPWIDGETS_EXPORT PropUiQToolButtonsCtrl : public PropUiButtonGroupCtrl
{
  Q_OBJECT

public:
  explicit PropUiQToolButtonsCtrl(QWidget* parent = nullptr);

public Q_SLOTS:
  void onButtonClicked(QAbstractButton* button) override;

public:
  QAbstractButton* createBtn() override;
  void updateBtn(QAbstractButton* button, const OdString& text, unsigned long key) override;
  void removeBtn(QAbstractButton* button) override;
};

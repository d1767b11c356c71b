#pragma once

#include "PropUiQLineEdit.h"

/** An angle; after each commit it shows the bag's formatting of what was typed. */
class PROPWIDGETS_EXPORT PropUiQAngleCtrl : public PropUiQLineEdit
{
  Q_OBJECT

public:
  explicit PropUiQAngleCtrl(QWidget* parent = nullptr);

  bool setupUi() override;

public Q_SLOTS:
  void onEditingFinished() override;
};

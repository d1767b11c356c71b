#pragma once

#include "PropUiQLineEdit.h"

/** A real number, as the bag formats and parses it. */
class PROPWIDGETS_EXPORT PropUiQDoubleCtrl : public PropUiQLineEdit
{
  Q_OBJECT

public:
  explicit PropUiQDoubleCtrl(QWidget* parent = nullptr);

  bool setupUi() override;
};

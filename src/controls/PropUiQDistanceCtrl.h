#pragma once

#include "PropUiQLineEdit.h"

/** A length, in the host's units. */
class PROPWIDGETS_EXPORT PropUiQDistanceCtrl : public PropUiQLineEdit
{
  Q_OBJECT

public:
  explicit PropUiQDistanceCtrl(QWidget* parent = nullptr);

  bool setupUi() override;
};

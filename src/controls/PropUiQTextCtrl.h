#pragma once

#include "PropUiQLineEdit.h"

/** Free text, edited in the host's text editor with the control's option word as its text options. */
class PROPWIDGETS_EXPORT PropUiQTextCtrl : public PropUiQLineEdit
{
  Q_OBJECT

public:
  explicit PropUiQTextCtrl(QWidget* parent = nullptr);

  bool setupUi() override;
};

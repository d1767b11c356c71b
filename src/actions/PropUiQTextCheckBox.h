#pragma once

#include "PropUiQCheckBox.h"

/** A check box whose caption is the item's single listed text, "*varies*" while values differ. */
class PROPWIDGETS_EXPORT PropUiQTextCheckBox : public PropUiQCheckBox
{
  Q_OBJECT

public:
  explicit PropUiQTextCheckBox(QWidget* parent = nullptr);

  void updateData() override;
  void setVaries(bool varies) override;
};

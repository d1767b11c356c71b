#pragma once

#include "PropUiQSwitchBox.h"

/** A switch whose caption is the item's single listed text, "*varies*" while values differ. */
class PROPWIDGETS_EXPORT PropUiQTextSwitchBox : public PropUiQSwitchBox
{
  Q_OBJECT

public:
  explicit PropUiQTextSwitchBox(QWidget* parent = nullptr);

  void updateData() override;
  void setVaries(bool varies) override;
};

#pragma once

#include "PropUiQControlExt.h"

class PropVariant;

/** A control whose entries can be made current or selected by value. */
class PROPWIDGETS_EXPORT PropUiQSelectionExt : public PropUiQControlExt
{
public:
  ~PropUiQSelectionExt() override;
  virtual void currentChanged(const PropVariant& current) = 0;
  virtual void selectionChanged(const PropVariant& selection) = 0;
};

#pragma once

#include "PropAction.h"

/** Keeps a button position filled: a blank, disabled button that does nothing. */
class PROPWIDGETS_EXPORT PropUiPlaceholder : public PropAction
{
public:
  bool execute(const PropVariant& in, PropVariant& out) override;
  OdString name() override;
  OdSharedPtr<PropIcon> icon() override;
  bool enabled() override;
};

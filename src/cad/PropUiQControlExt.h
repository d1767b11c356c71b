#pragma once

#include "PropWidgetsExport.h"

/**
 * The root of the extension interfaces by which other code reaches a
 * control's optional abilities (dynamic_cast from the control) without
 * knowing its class.
 */
class PROPWIDGETS_EXPORT PropUiQControlExt
{
public:
  virtual ~PropUiQControlExt();
};

#pragma once

#include "PropWidgetsExport.h"

/** A picture handed out by an action or a bag; always shared through OdSharedPtr<PropIcon>. */
class PROPWIDGETS_EXPORT PropIcon
{
public:
  virtual ~PropIcon();
};

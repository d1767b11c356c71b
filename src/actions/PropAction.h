#pragma once

#include "OdSharedPtr.h"
#include "PropIcon.h"
#include "PropVariant.h"
#include "PropWidgetsExport.h"

/**
 * A command that a bag offers for an item besides its value. Controls never
 * run it themselves: they hand it back to the bag's executeAction.
 */
class PROPWIDGETS_EXPORT PropAction
{
public:
  virtual ~PropAction();
  /** A copy owned by the caller; null when the action cannot be copied. */
  virtual PropAction* clone() const;
  virtual bool execute(const PropVariant& in, PropVariant& out) = 0;
  virtual OdString name();
  virtual OdSharedPtr<PropIcon> icon();
  virtual bool checkable();
  virtual bool checked();
  virtual bool enabled();
  /** The command runs without blocking the editor. */
  virtual bool modeless();
};

#include "PropBagCtx.h"

// Registered on first use so that a context works without a start-up call.
OdRxClass* PropBagCtx::desc()
{
  static OdRxClass* cls = newOdRxClass(OdString(L"PropBagCtx"), OdRxObject::desc());
  return cls;
}

OdRxClass* PropBagCtx::isA() const
{
  return desc();
}

#pragma once

#include "HostExport.h"
#include "OdRxClass.h"

/**
 * Context of a property bag. The library knows only its run-time type, which
 * it uses to tell a database-aware context from a plain one.
 */
class HOST_EXPORT PropBagCtx : public OdRxObject
{
public:
  static OdRxClass* desc();
  OdRxClass* isA() const override;
  static OdSmartPtr<PropBagCtx> cast(const OdRxObject* object)
  {
    OdSmartPtr<PropBagCtx> result;
    result.assignCast(object);
    return result;
  }
};

/** A context that is not counted: the host keeps it alive as long as its bag. */
class HOST_EXPORT PropBagCtxBase : public PropBagCtx
{
public:
  void addRef() override {}
  void release() override {}
  long numRefs() const override { return 1; }
};

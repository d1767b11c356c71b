#pragma once

#include "PropBagCtx.h"

class OdDbDatabase;
class PropVariant;

/**
 * The context of a bag whose items live in a drawing database. The base
 * answers for a host without special values: nothing is disabled and every
 * value translates to itself.
 */
class HOST_EXPORT hostDbPropBagCtx : public PropBagCtxBase
{
public:
  explicit hostDbPropBagCtx(OdDbDatabase* database = nullptr);

  static OdRxClass* desc();
  OdRxClass* isA() const override;
  static OdSmartPtr<hostDbPropBagCtx> cast(const OdRxObject* object)
  {
    OdSmartPtr<hostDbPropBagCtx> result;
    result.assignCast(object);
    return result;
  }

  virtual OdDbDatabase* database() const;
  /** Whether the value may be shown but not chosen for the item. */
  virtual bool isDisabledValue(int index, const PropVariant& value);
  /**
   * The value as the item's editor shows it: what ByLayer stands for on the
   * edited objects, say. False when it cannot be mapped; the flag (when
   * given) is the host's own word on the answer, handed on to the pickers.
   */
  virtual bool translate(int index, const PropVariant& in, PropVariant& out, bool* flag);

private:
  OdDbDatabase* m_database;
};

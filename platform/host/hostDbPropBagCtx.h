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
  /** The value as the item's editor shows it; ok (when given) says whether it could be mapped. */
  virtual void translate(int index, const PropVariant& in, PropVariant& out, bool* ok);

private:
  OdDbDatabase* m_database;
};

#include "hostDbPropBagCtx.h"

#include "PropVariant.h"

hostDbPropBagCtx::hostDbPropBagCtx(OdDbDatabase* database) : m_database(database) {}

// Registered on first use, as its base is, so that a context works without a start-up call.
OdRxClass* hostDbPropBagCtx::desc()
{
  static OdRxClass* cls = newOdRxClass(OdString(L"hostDbPropBagCtx"), PropBagCtx::desc());
  return cls;
}

OdRxClass* hostDbPropBagCtx::isA() const
{
  return desc();
}

OdDbDatabase* hostDbPropBagCtx::database() const
{
  return m_database;
}

bool hostDbPropBagCtx::isDisabledValue(int, const PropVariant&)
{
  return false;
}

bool hostDbPropBagCtx::translate(int, const PropVariant& in, PropVariant& out, bool* flag)
{
  out = in;
  if (flag)
    *flag = true;
  return true;
}

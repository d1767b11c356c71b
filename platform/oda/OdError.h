#pragma once

#include "OdResult.h"
#include "OdString.h"

/** The exception of the platform: a result code and a text made from it. */
class ODA_EXPORT OdError
{
public:
  explicit OdError(OdResult code);
  OdError(OdResult code, const OdString& description);
  OdResult code() const { return m_code; }
  OdString description() const { return m_description; }

private:
  OdResult m_code;
  OdString m_description;
};

/** Thrown by OdArray for an index outside the array. */
class ODA_EXPORT OdError_InvalidIndex : public OdError
{
public:
  OdError_InvalidIndex() : OdError(eInvalidIndex) {}
};

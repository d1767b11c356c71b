#include "OdError.h"

static OdString describe(OdResult code)
{
  switch (code)
  {
  case eOk: return OdString(L"No error");
  case eInvalidInput: return OdString(L"Invalid input");
  case eInvalidIndex: return OdString(L"Invalid index");
  case eOutOfMemory: return OdString(L"Out of memory");
  case eNullPtr: return OdString(L"Null pointer");
  case eKeyNotFound: return OdString(L"Key not found");
  case eDuplicateKey: return OdString(L"Duplicate key");
  }
  return OdString(L"Unknown error");
}

OdError::OdError(OdResult code) : m_code(code), m_description(describe(code)) {}

OdError::OdError(OdResult code, const OdString& description) : m_code(code), m_description(description) {}

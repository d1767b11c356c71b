#pragma once

#include "OdaCommon.h"

/**
 * Names one object of a drawing database. Handles are unique across every
 * database of the process, so an id never opens an object of another
 * database by accident; the null id names nothing.
 */
class ODA_EXPORT OdDbObjectId
{
public:
  OdDbObjectId() = default;
  explicit OdDbObjectId(OdUInt64 handle) : m_handle(handle) {}

  static const OdDbObjectId kNull;

  bool isNull() const { return m_handle == 0; }
  OdUInt64 getHandle() const { return m_handle; }
  void setNull() { m_handle = 0; }

  bool operator==(const OdDbObjectId& o) const { return m_handle == o.m_handle; }
  bool operator!=(const OdDbObjectId& o) const { return m_handle != o.m_handle; }
  bool operator<(const OdDbObjectId& o) const { return m_handle < o.m_handle; }

private:
  OdUInt64 m_handle = 0;
};

#pragma once

#include "HostExport.h"
#include "OdVariant.h"

/**
 * The property system's value: an OdVariant plus a 32-bit type word that
 * carries the scalar kind and the state flags a control must honour.
 */
class HOST_EXPORT PropVariant : public OdVariant
{
public:
  // Each kind is a bit of its own, so that a control's test of "bit 0x4" or
  // "bit 0x2" can never mistake one kind for another.
  enum PropVarType : unsigned int
  {
    kEmpty = 0x1,
    kBool = 0x2,
    kInt32 = 0x4,
    kDouble = 0x8,
    kInt16 = 0x10,
    kInt64 = 0x20,
    kString = 0x40,
    kArray = 0x80,
    kUInt64 = 0x100,
    kObjectId = 0x200,
    kColor = 0x400,
    kLineWeight = 0x800,
    /** The value carries nothing usable; a control leaves its widget alone. */
    kNoData = 0x1000,
    /** The selected objects disagree; a control shows its varies state. */
    kVaries = 0x2000,
    kScalarMask = 0x3F,
    kStateMask = kArray | kNoData | kVaries
  };

  PropVariant() = default;

  unsigned int type() const { return m_type; }
  void setType(unsigned int type) { m_type = type; }
  /** The kind without the array and state bits. */
  unsigned int scalarType() const { return m_type & ~unsigned(kStateMask); }
  bool isVaries() const { return (m_type & kVaries) != 0; }
  void setVaries(bool varies = true) { m_type = varies ? (m_type | kVaries) : (m_type & ~kVaries); }
  bool hasNoData() const { return (m_type & kNoData) != 0; }

  // Setting a value also sets the scalar kind and clears the state flags.
  PropVariant& setBool(bool v) { OdVariant::setBool(v); m_type = kBool; return *this; }
  PropVariant& setInt16(OdInt16 v) { OdVariant::setInt16(v); m_type = kInt16; return *this; }
  PropVariant& setInt32(OdInt32 v) { OdVariant::setInt32(v); m_type = kInt32; return *this; }
  PropVariant& setInt64(OdInt64 v) { OdVariant::setInt64(v); m_type = kInt64; return *this; }
  PropVariant& setUInt64(OdUInt64 v) { OdVariant::setUInt64(v); m_type = kUInt64; return *this; }
  PropVariant& setDouble(double v) { OdVariant::setDouble(v); m_type = kDouble; return *this; }
  PropVariant& setString(const OdString& v) { OdVariant::setString(v); m_type = kString; return *this; }
  PropVariant& setInt32Array(const OdInt32Array& v) { OdVariant::setInt32Array(v); m_type = kInt32 | kArray; return *this; }
  PropVariant& setDoubleArray(const OdDoubleArray& v) { OdVariant::setDoubleArray(v); m_type = kDouble | kArray; return *this; }
  PropVariant& setStringArray(const OdStringArray& v) { OdVariant::setStringArray(v); m_type = kString | kArray; return *this; }

  bool operator==(const PropVariant& o) const { return m_type == o.m_type && OdVariant::operator==(o); }
  bool operator!=(const PropVariant& o) const { return !(*this == o); }

private:
  unsigned int m_type = kEmpty;
};

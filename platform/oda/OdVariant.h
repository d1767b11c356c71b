#pragma once

#include "OdArray.h"
#include <variant>

/**
 * Tagged value of the platform. Accessors never throw: asking for a type
 * that is not held converts between the numeric kinds and otherwise answers
 * the type's empty value, because values come from host code we do not control.
 */
class ODA_EXPORT OdVariant
{
public:
  enum Type
  {
    kVoid = 0,
    kString = 1,
    kBool = 2,
    kInt8 = 3,
    kInt16 = 4,
    kInt32 = 5,
    kInt64 = 6,
    kDouble = 7,
    kUInt64 = 8,
    kNextType = 9,
    kArray = 0x80
  };

  OdVariant() = default;
  virtual ~OdVariant() = default;

  /** The held type; kArray is or-ed in for the array forms. */
  int varType() const { return m_type; }
  bool isVoid() const { return m_type == kVoid; }
  bool isArray() const { return (m_type & kArray) != 0; }

  bool getBool() const;
  OdInt8 getInt8() const { return OdInt8(getInt64()); }
  OdInt16 getInt16() const { return OdInt16(getInt64()); }
  OdInt32 getInt32() const { return OdInt32(getInt64()); }
  OdInt64 getInt64() const;
  OdUInt64 getUInt64() const;
  double getDouble() const;
  OdString getString() const;

  const OdBoolArray& getBoolArray() const;
  const OdInt32Array& getInt32Array() const;
  const OdInt64Array& getInt64Array() const;
  const OdUInt64Array& getUInt64Array() const;
  const OdDoubleArray& getDoubleArray() const;
  const OdStringArray& getStringArray() const;

  OdVariant& setVoid();
  OdVariant& setBool(bool v);
  OdVariant& setInt8(OdInt8 v);
  OdVariant& setInt16(OdInt16 v);
  OdVariant& setInt32(OdInt32 v);
  OdVariant& setInt64(OdInt64 v);
  OdVariant& setUInt64(OdUInt64 v);
  OdVariant& setDouble(double v);
  OdVariant& setString(const OdString& v);

  OdVariant& setBoolArray(const OdBoolArray& v);
  OdVariant& setInt32Array(const OdInt32Array& v);
  OdVariant& setInt64Array(const OdInt64Array& v);
  OdVariant& setUInt64Array(const OdUInt64Array& v);
  OdVariant& setDoubleArray(const OdDoubleArray& v);
  OdVariant& setStringArray(const OdStringArray& v);

  bool operator==(const OdVariant& o) const { return m_type == o.m_type && m_value == o.m_value; }
  bool operator!=(const OdVariant& o) const { return !(*this == o); }

private:
  typedef std::variant<std::monostate, bool, OdInt64, OdUInt64, double, OdString, OdBoolArray, OdInt32Array,
                       OdInt64Array, OdUInt64Array, OdDoubleArray, OdStringArray>
    Storage;

  template <class A>
  const A& arrayOrEmpty() const;

  int m_type = kVoid;
  Storage m_value;
};

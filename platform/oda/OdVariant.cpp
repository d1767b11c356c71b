#include "OdVariant.h"

#include <cwchar>

bool OdVariant::getBool() const
{
  if (auto b = std::get_if<bool>(&m_value))
    return *b;
  if (auto d = std::get_if<double>(&m_value))
    return *d != 0.0;
  return getInt64() != 0;
}

OdInt64 OdVariant::getInt64() const
{
  if (auto i = std::get_if<OdInt64>(&m_value))
    return *i;
  if (auto u = std::get_if<OdUInt64>(&m_value))
    return OdInt64(*u);
  if (auto b = std::get_if<bool>(&m_value))
    return *b ? 1 : 0;
  if (auto d = std::get_if<double>(&m_value))
    return OdInt64(*d);
  return 0;
}

OdUInt64 OdVariant::getUInt64() const
{
  if (auto u = std::get_if<OdUInt64>(&m_value))
    return *u;
  return OdUInt64(getInt64());
}

double OdVariant::getDouble() const
{
  if (auto d = std::get_if<double>(&m_value))
    return *d;
  if (auto u = std::get_if<OdUInt64>(&m_value))
    return double(*u);
  return double(getInt64());
}

OdString OdVariant::getString() const
{
  if (auto s = std::get_if<OdString>(&m_value))
    return *s;
  return OdString();
}

template <class A>
const A& OdVariant::arrayOrEmpty() const
{
  static const A empty;
  if (auto a = std::get_if<A>(&m_value))
    return *a;
  return empty;
}

const OdBoolArray& OdVariant::getBoolArray() const { return arrayOrEmpty<OdBoolArray>(); }
const OdInt32Array& OdVariant::getInt32Array() const { return arrayOrEmpty<OdInt32Array>(); }
const OdInt64Array& OdVariant::getInt64Array() const { return arrayOrEmpty<OdInt64Array>(); }
const OdUInt64Array& OdVariant::getUInt64Array() const { return arrayOrEmpty<OdUInt64Array>(); }
const OdDoubleArray& OdVariant::getDoubleArray() const { return arrayOrEmpty<OdDoubleArray>(); }
const OdStringArray& OdVariant::getStringArray() const { return arrayOrEmpty<OdStringArray>(); }

OdVariant& OdVariant::setVoid() { m_type = kVoid; m_value = std::monostate(); return *this; }
OdVariant& OdVariant::setBool(bool v) { m_type = kBool; m_value = v; return *this; }
OdVariant& OdVariant::setInt8(OdInt8 v) { m_type = kInt8; m_value = OdInt64(v); return *this; }
OdVariant& OdVariant::setInt16(OdInt16 v) { m_type = kInt16; m_value = OdInt64(v); return *this; }
OdVariant& OdVariant::setInt32(OdInt32 v) { m_type = kInt32; m_value = OdInt64(v); return *this; }
OdVariant& OdVariant::setInt64(OdInt64 v) { m_type = kInt64; m_value = v; return *this; }
OdVariant& OdVariant::setUInt64(OdUInt64 v) { m_type = kUInt64; m_value = v; return *this; }
OdVariant& OdVariant::setDouble(double v) { m_type = kDouble; m_value = v; return *this; }
OdVariant& OdVariant::setString(const OdString& v) { m_type = kString; m_value = v; return *this; }

OdVariant& OdVariant::setBoolArray(const OdBoolArray& v) { m_type = kBool | kArray; m_value = v; return *this; }
OdVariant& OdVariant::setInt32Array(const OdInt32Array& v) { m_type = kInt32 | kArray; m_value = v; return *this; }
OdVariant& OdVariant::setInt64Array(const OdInt64Array& v) { m_type = kInt64 | kArray; m_value = v; return *this; }
OdVariant& OdVariant::setUInt64Array(const OdUInt64Array& v) { m_type = kUInt64 | kArray; m_value = v; return *this; }
OdVariant& OdVariant::setDoubleArray(const OdDoubleArray& v) { m_type = kDouble | kArray; m_value = v; return *this; }
OdVariant& OdVariant::setStringArray(const OdStringArray& v) { m_type = kString | kArray; m_value = v; return *this; }

#include "PropVariantConversions.h"

namespace
{

// Both words must agree: a type word that claims a kind its storage does not hold is not that kind.
bool holds(const PropVariant& value, unsigned int kind, int storage)
{
  return (value.type() & ~unsigned(PropVariant::kVaries)) == kind && value.varType() == storage;
}

} // namespace

PropVariant propVariantFromColor(const OdCmColor& color)
{
  PropVariant value;
  value.setUInt64(color.color());
  value.setType(PropVariant::kColor);
  return value;
}

bool propVariantToColor(const PropVariant& value, OdCmColor& color)
{
  if (!holds(value, PropVariant::kColor, OdVariant::kUInt64) || value.getUInt64() > 0xFFFFFFFFull)
    return false;
  OdCmColor read;
  if (!read.setColor(OdUInt32(value.getUInt64())))
    return false;
  color = read;
  return true;
}

PropVariant propVariantFromLineweight(OdDb::LineWeight weight)
{
  PropVariant value;
  value.setInt32(weight);
  value.setType(PropVariant::kLineWeight);
  return value;
}

bool propVariantToLineweight(const PropVariant& value, OdDb::LineWeight& weight)
{
  if (!holds(value, PropVariant::kLineWeight, OdVariant::kInt32) && !holds(value, PropVariant::kInt32, OdVariant::kInt32))
    return false;
  const OdInt64 number = value.getInt64();
  if (number < -3 || number > 211 || !OdDb::isLineWeight(int(number)))
    return false;
  weight = OdDb::LineWeight(number);
  return true;
}

PropVariant propVariantFromObjectId(const OdDbObjectId& id)
{
  PropVariant value;
  value.setUInt64(id.getHandle());
  value.setType(PropVariant::kObjectId);
  return value;
}

bool propVariantToObjectId(const PropVariant& value, OdDbObjectId& id)
{
  if (!holds(value, PropVariant::kObjectId, OdVariant::kUInt64) && !holds(value, PropVariant::kUInt64, OdVariant::kUInt64))
    return false;
  id = OdDbObjectId(value.getUInt64());
  return true;
}

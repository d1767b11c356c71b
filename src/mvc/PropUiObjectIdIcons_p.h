#pragma once

// How the drawing formatters answer for a list of object ids; not API.

#include "OdDbObjectId.h"
#include "PropVariantConversions.h"

#include <QVariantList>

namespace propui
{

/** One icon per listed key, each key read as the object id it is. */
template <typename IconOf>
QVariantList iconsOfObjectIds(const OdUInt64Array& keys, IconOf iconOf)
{
  QVariantList icons;
  icons.reserve(int(keys.size()));
  for (OdUInt64 key : keys)
    icons.append(iconOf(propVariantFromObjectId(OdDbObjectId(key))));
  return icons;
}

} // namespace propui

#pragma once

#include "HostExport.h"
#include "OdCmColor.h"
#include "OdDbLineWeight.h"
#include "OdDbObjectId.h"
#include "PropVariant.h"

// The property system's values for drawing attributes. A conversion from a
// variant answers false, and leaves its output alone, for a value of another
// kind or one that names no valid attribute; the varies flag is not its business.

/** A colour travels as its method and value (OdCmColor::color); a book colour's names stay behind. */
HOST_EXPORT PropVariant propVariantFromColor(const OdCmColor& color);
HOST_EXPORT bool propVariantToColor(const PropVariant& value, OdCmColor& color);

/** A lineweight travels as a 32-bit number; a plain 32-bit value is accepted back as well. */
HOST_EXPORT PropVariant propVariantFromLineweight(OdDb::LineWeight weight);
HOST_EXPORT bool propVariantToLineweight(const PropVariant& value, OdDb::LineWeight& weight);

/** An id travels as its 64-bit handle; a plain 64-bit unsigned value is accepted back as well. */
HOST_EXPORT PropVariant propVariantFromObjectId(const OdDbObjectId& id);
HOST_EXPORT bool propVariantToObjectId(const PropVariant& value, OdDbObjectId& id);

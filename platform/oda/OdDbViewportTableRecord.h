#pragma once

#include "OdDbSymbolTableRecord.h"

/** A viewport of the drawing; layers may show another colour in it. */
class ODA_EXPORT OdDbViewportTableRecord : public OdDbSymbolTableRecord
{
public:
  OdDbViewportTableRecord(OdDbDatabase* database, const OdDbObjectId& id, const OdString& name);

  /** Null for a record of another kind. */
  static OdDbViewportTableRecord* cast(OdDbSymbolTableRecord* record);
};

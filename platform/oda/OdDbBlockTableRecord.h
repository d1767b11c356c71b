#pragma once

#include "OdDbSymbolTableRecord.h"

/** A block definition; dimensions draw their arrowheads as blocks of the drawing. */
class ODA_EXPORT OdDbBlockTableRecord : public OdDbSymbolTableRecord
{
public:
  OdDbBlockTableRecord(OdDbDatabase* database, const OdDbObjectId& id, const OdString& name);

  /** Null for a record of another kind. */
  static OdDbBlockTableRecord* cast(OdDbSymbolTableRecord* record);

  /** Model and paper space are blocks too, but nothing a user picks. */
  bool isLayout() const;
};

#include "OdDbViewportTableRecord.h"

OdDbViewportTableRecord::OdDbViewportTableRecord(OdDbDatabase* database, const OdDbObjectId& id,
                                                 const OdString& name)
  : OdDbSymbolTableRecord(database, id, name)
{
}

OdDbViewportTableRecord* OdDbViewportTableRecord::cast(OdDbSymbolTableRecord* record)
{
  return dynamic_cast<OdDbViewportTableRecord*>(record);
}

#include "OdDbBlockTableRecord.h"

OdDbBlockTableRecord::OdDbBlockTableRecord(OdDbDatabase* database, const OdDbObjectId& id, const OdString& name)
  : OdDbSymbolTableRecord(database, id, name)
{
}

OdDbBlockTableRecord* OdDbBlockTableRecord::cast(OdDbSymbolTableRecord* record)
{
  return dynamic_cast<OdDbBlockTableRecord*>(record);
}

bool OdDbBlockTableRecord::isLayout() const
{
  OdString name = getName();
  name.makeUpper();
  return name == L"*MODEL_SPACE" || name.left(12) == OdString(L"*PAPER_SPACE");
}

#include "OdDbSymbolTableRecord.h"

OdDbSymbolTableRecord::OdDbSymbolTableRecord(OdDbDatabase* database, const OdDbObjectId& id, const OdString& name)
  : m_database(database), m_id(id), m_name(name)
{
}

OdDbSymbolTableRecord::~OdDbSymbolTableRecord() = default;

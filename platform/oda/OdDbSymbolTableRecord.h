#pragma once

#include "OdDbObjectId.h"
#include "OdString.h"

class OdDbDatabase;

/** A named entry of one of a database's tables; the database owns it and gives it its id. */
class ODA_EXPORT OdDbSymbolTableRecord
{
public:
  virtual ~OdDbSymbolTableRecord();
  OdDbSymbolTableRecord(const OdDbSymbolTableRecord&) = delete;
  OdDbSymbolTableRecord& operator=(const OdDbSymbolTableRecord&) = delete;

  OdDbObjectId objectId() const { return m_id; }
  OdDbDatabase* database() const { return m_database; }
  const OdString& getName() const { return m_name; }

protected:
  OdDbSymbolTableRecord(OdDbDatabase* database, const OdDbObjectId& id, const OdString& name);

private:
  OdDbDatabase* m_database;
  OdDbObjectId m_id;
  OdString m_name;
};

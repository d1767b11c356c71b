#include "OdDbLinetypeTableRecord.h"

#include <cmath>

OdDbLinetypeTableRecord::OdDbLinetypeTableRecord(OdDbDatabase* database, const OdDbObjectId& id, const OdString& name)
  : OdDbSymbolTableRecord(database, id, name)
{
}

OdDbLinetypeTableRecord* OdDbLinetypeTableRecord::cast(OdDbSymbolTableRecord* record)
{
  return dynamic_cast<OdDbLinetypeTableRecord*>(record);
}

double OdDbLinetypeTableRecord::dashLengthAt(int index) const
{
  if (index < 0 || index >= numDashes())
    return 0.0;
  return m_dashes[unsigned(index)];
}

bool OdDbLinetypeTableRecord::setDashes(const OdDoubleArray& dashes)
{
  for (double d : dashes)
    if (!std::isfinite(d))
      return false;
  m_dashes = dashes;
  return true;
}

double OdDbLinetypeTableRecord::patternLength() const
{
  double length = 0.0;
  for (double d : m_dashes)
    length += std::fabs(d);
  return length;
}

#include "OdDbLayerTableRecord.h"

OdDbLayerTableRecord::OdDbLayerTableRecord(OdDbDatabase* database, const OdDbObjectId& id, const OdString& name)
  : OdDbSymbolTableRecord(database, id, name)
{
  m_color.setColorIndex(OdCmEntityColor::kACIforeground);
}

OdDbLayerTableRecord* OdDbLayerTableRecord::cast(OdDbSymbolTableRecord* record)
{
  return dynamic_cast<OdDbLayerTableRecord*>(record);
}

OdCmColor OdDbLayerTableRecord::color(const OdDbObjectId& viewportId) const
{
  if (!viewportId.isNull())
  {
    const auto found = m_viewportColors.find(viewportId.getHandle());
    if (found != m_viewportColors.end())
      return found->second;
  }
  return m_color;
}

bool OdDbLayerTableRecord::setColor(const OdCmColor& color)
{
  if (!isLayerColor(color))
    return false;
  m_color = color;
  return true;
}

bool OdDbLayerTableRecord::setColor(const OdCmColor& color, const OdDbObjectId& viewportId)
{
  if (!isLayerColor(color) || viewportId.isNull())
    return false;
  m_viewportColors[viewportId.getHandle()] = color;
  return true;
}

void OdDbLayerTableRecord::removeColorOverride(const OdDbObjectId& viewportId)
{
  m_viewportColors.erase(viewportId.getHandle());
}

bool OdDbLayerTableRecord::setLineWeight(OdDb::LineWeight weight)
{
  if (weight == OdDb::kLnWtByLayer || weight == OdDb::kLnWtByBlock || !OdDb::isLineWeight(weight))
    return false;
  m_lineWeight = weight;
  return true;
}

#pragma once

#include "OdCmColor.h"
#include "OdDbLineWeight.h"
#include "OdDbSymbolTableRecord.h"
#include <map>

/** A layer: the colour, linetype and lineweight its objects take ByLayer, and its visibility and lock. */
class ODA_EXPORT OdDbLayerTableRecord : public OdDbSymbolTableRecord
{
public:
  OdDbLayerTableRecord(OdDbDatabase* database, const OdDbObjectId& id, const OdString& name);

  /** Null for a record of another kind. */
  static OdDbLayerTableRecord* cast(OdDbSymbolTableRecord* record);

  /** The layer's colour, or the one a viewport gives it instead when it overrides it. */
  OdCmColor color(const OdDbObjectId& viewportId = OdDbObjectId::kNull) const;
  /** A layer's own colour is a palette or a true colour; ByLayer and ByBlock are refused. */
  bool setColor(const OdCmColor& color);
  /** The colour the layer shows in one viewport only. */
  bool setColor(const OdCmColor& color, const OdDbObjectId& viewportId);
  void removeColorOverride(const OdDbObjectId& viewportId);

  OdDbObjectId linetypeObjectId() const { return m_linetype; }
  void setLinetypeObjectId(const OdDbObjectId& id) { m_linetype = id; }
  OdDb::LineWeight lineWeight() const { return m_lineWeight; }
  /** ByLayer and ByBlock mean nothing for a layer and are refused. */
  bool setLineWeight(OdDb::LineWeight weight);

  bool isOff() const { return m_off; }
  void setIsOff(bool off) { m_off = off; }
  bool isFrozen() const { return m_frozen; }
  void setIsFrozen(bool frozen) { m_frozen = frozen; }
  bool isLocked() const { return m_locked; }
  void setIsLocked(bool locked) { m_locked = locked; }

private:
  static bool isLayerColor(const OdCmColor& color) { return color.isByACI() || color.isByColor(); }

  OdCmColor m_color;
  std::map<OdUInt64, OdCmColor> m_viewportColors;
  OdDbObjectId m_linetype;
  OdDb::LineWeight m_lineWeight = OdDb::kLnWtByLwDefault;
  bool m_off = false;
  bool m_frozen = false;
  bool m_locked = false;
};

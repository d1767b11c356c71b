#pragma once

#include "OdArray.h"
#include "OdDbLineWeight.h"
#include "OdDbObjectId.h"
#include <map>
#include <memory>
#include <vector>

class OdDbBlockTableRecord;
class OdDbLayerTableRecord;
class OdDbLinetypeTableRecord;
class OdDbSymbolTableRecord;

typedef OdArray<OdDbObjectId> OdDbObjectIdArray;

/**
 * A drawing's tables: layers, linetypes and blocks, each in the order its
 * records were added. A new database holds what every drawing holds: layer
 * "0", the linetypes "ByBlock", "ByLayer" and "Continuous", model and paper
 * space, the standard arrowhead blocks and one active viewport. Names are
 * unique within a table, ignoring case, and records are never removed, so an
 * id stays valid as long as its database.
 */
class ODA_EXPORT OdDbDatabase
{
public:
  OdDbDatabase();
  ~OdDbDatabase();
  OdDbDatabase(const OdDbDatabase&) = delete;
  OdDbDatabase& operator=(const OdDbDatabase&) = delete;

  /** The new layer's id; the null id when the name is empty or taken. */
  OdDbObjectId addLayer(const OdString& name);
  /** The new linetype's id; the null id when the name is empty or taken, or a length is not finite. */
  OdDbObjectId addLinetype(const OdString& name, const OdString& comments, const OdDoubleArray& dashes);
  /** The new block's id; the null id when the name is empty or taken. */
  OdDbObjectId addBlock(const OdString& name);

  OdDbObjectIdArray getLayerIds() const { return arrayOf(m_layers); }
  OdDbObjectIdArray getLinetypeIds() const { return arrayOf(m_linetypes); }
  OdDbObjectIdArray getBlockIds() const { return arrayOf(m_blocks); }

  /** Look-ups by name, ignoring case; the null id when there is none. */
  OdDbObjectId getLayerId(const OdString& name) const;
  OdDbObjectId getLinetypeId(const OdString& name) const;
  OdDbObjectId getBlockId(const OdString& name) const;

  OdDbObjectId getLayerZeroId() const { return m_layerZero; }
  OdDbObjectId getLinetypeByLayerId() const { return m_byLayer; }
  OdDbObjectId getLinetypeByBlockId() const { return m_byBlock; }
  OdDbObjectId getLinetypeContinuousId() const { return m_continuous; }
  OdDbObjectId activeViewportId() const { return m_activeViewport; }
  /** The width that "Default" stands for. */
  OdDb::LineWeight getLWDEFAULT() const { return m_lineWeightDefault; }
  /** Only a real width: ByLayer, ByBlock and Default itself are refused. */
  bool setLWDEFAULT(OdDb::LineWeight weight);

  /** The record an id names; null for the null id and for an id of another database. */
  OdDbSymbolTableRecord* openObject(const OdDbObjectId& id) const;
  OdDbLayerTableRecord* openLayer(const OdDbObjectId& id) const;
  OdDbLinetypeTableRecord* openLinetype(const OdDbObjectId& id) const;
  OdDbBlockTableRecord* openBlock(const OdDbObjectId& id) const;

  /** The names of the standard arrowhead blocks that every new database holds, in their usual order. */
  static const OdChar* const kArrowBlockNames[];
  static const int kArrowBlockCount;

private:
  template <class Record>
  OdDbObjectId add(std::vector<OdDbObjectId>& table, const OdString& name);
  static OdDbObjectIdArray arrayOf(const std::vector<OdDbObjectId>& table);
  OdDbObjectId find(const std::vector<OdDbObjectId>& table, const OdString& name) const;

  std::map<OdUInt64, std::unique_ptr<OdDbSymbolTableRecord> > m_records;
  std::vector<OdDbObjectId> m_layers;
  std::vector<OdDbObjectId> m_linetypes;
  std::vector<OdDbObjectId> m_blocks;
  std::vector<OdDbObjectId> m_viewports;
  OdDbObjectId m_layerZero;
  OdDbObjectId m_byLayer;
  OdDbObjectId m_byBlock;
  OdDbObjectId m_continuous;
  OdDbObjectId m_activeViewport;
  OdDb::LineWeight m_lineWeightDefault = OdDb::kLnWt025;
};

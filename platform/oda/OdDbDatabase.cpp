#include "OdDbDatabase.h"

#include "OdDbBlockTableRecord.h"
#include "OdDbLayerTableRecord.h"
#include "OdDbLinetypeTableRecord.h"
#include "OdDbViewportTableRecord.h"
#include <atomic>

namespace
{

// One counter for the whole process: an id of one database is never a valid id in another.
OdUInt64 nextHandle()
{
  static std::atomic<OdUInt64> last{0};
  return ++last;
}

} // namespace

const OdChar* const OdDbDatabase::kArrowBlockNames[] = {
  L"_ClosedBlank", L"_Closed",    L"_Dot",        L"_ArchTick",  L"_Oblique",  L"_Open",
  L"_Origin",      L"_Origin2",   L"_Open90",     L"_Open30",    L"_DotSmall", L"_DotBlank",
  L"_Small",       L"_BoxBlank",  L"_BoxFilled",  L"_DatumBlank", L"_DatumFilled", L"_Integral",
  L"_None"};
const int OdDbDatabase::kArrowBlockCount = int(sizeof(kArrowBlockNames) / sizeof(kArrowBlockNames[0]));

OdDbDatabase::OdDbDatabase()
{
  m_byBlock = add<OdDbLinetypeTableRecord>(m_linetypes, OdString(L"ByBlock"));
  m_byLayer = add<OdDbLinetypeTableRecord>(m_linetypes, OdString(L"ByLayer"));
  m_continuous = addLinetype(OdString(L"Continuous"), OdString(L"Solid line"), OdDoubleArray());
  m_layerZero = addLayer(OdString(L"0"));
  add<OdDbBlockTableRecord>(m_blocks, OdString(L"*Model_Space"));
  add<OdDbBlockTableRecord>(m_blocks, OdString(L"*Paper_Space"));
  for (int i = 0; i < kArrowBlockCount; ++i)
    addBlock(OdString(kArrowBlockNames[i]));
  m_activeViewport = add<OdDbViewportTableRecord>(m_viewports, OdString(L"*Active"));
}

OdDbDatabase::~OdDbDatabase() = default;

template <class Record>
OdDbObjectId OdDbDatabase::add(std::vector<OdDbObjectId>& table, const OdString& name)
{
  if (name.isEmpty() || !find(table, name).isNull())
    return OdDbObjectId::kNull;
  const OdDbObjectId id(nextHandle());
  m_records[id.getHandle()] = std::make_unique<Record>(this, id, name);
  table.push_back(id);
  return id;
}

OdDbObjectId OdDbDatabase::addLayer(const OdString& name)
{
  const OdDbObjectId id = add<OdDbLayerTableRecord>(m_layers, name);
  if (OdDbLayerTableRecord* layer = openLayer(id))
    layer->setLinetypeObjectId(m_continuous);
  return id;
}

OdDbObjectId OdDbDatabase::addLinetype(const OdString& name, const OdString& comments, const OdDoubleArray& dashes)
{
  // Checked before the record exists, so that a refused pattern leaves no half-made linetype behind.
  OdDbLinetypeTableRecord probe(this, OdDbObjectId::kNull, name);
  if (!probe.setDashes(dashes))
    return OdDbObjectId::kNull;
  const OdDbObjectId id = add<OdDbLinetypeTableRecord>(m_linetypes, name);
  if (OdDbLinetypeTableRecord* linetype = openLinetype(id))
  {
    linetype->setComments(comments);
    linetype->setDashes(dashes);
  }
  return id;
}

OdDbObjectId OdDbDatabase::addBlock(const OdString& name)
{
  return add<OdDbBlockTableRecord>(m_blocks, name);
}

OdDbObjectIdArray OdDbDatabase::arrayOf(const std::vector<OdDbObjectId>& table)
{
  OdDbObjectIdArray ids(OdDbObjectIdArray::size_type(table.size()));
  for (const OdDbObjectId& id : table)
    ids.append(id);
  return ids;
}

OdDbObjectId OdDbDatabase::find(const std::vector<OdDbObjectId>& table, const OdString& name) const
{
  for (const OdDbObjectId& id : table)
  {
    const auto found = m_records.find(id.getHandle());
    if (found != m_records.end() && found->second->getName().iCompare(name) == 0)
      return id;
  }
  return OdDbObjectId::kNull;
}

OdDbObjectId OdDbDatabase::getLayerId(const OdString& name) const
{
  return find(m_layers, name);
}

OdDbObjectId OdDbDatabase::getLinetypeId(const OdString& name) const
{
  return find(m_linetypes, name);
}

OdDbObjectId OdDbDatabase::getBlockId(const OdString& name) const
{
  return find(m_blocks, name);
}

OdDbSymbolTableRecord* OdDbDatabase::openObject(const OdDbObjectId& id) const
{
  if (id.isNull())
    return nullptr;
  const auto found = m_records.find(id.getHandle());
  return found != m_records.end() ? found->second.get() : nullptr;
}

OdDbLayerTableRecord* OdDbDatabase::openLayer(const OdDbObjectId& id) const
{
  return OdDbLayerTableRecord::cast(openObject(id));
}

OdDbLinetypeTableRecord* OdDbDatabase::openLinetype(const OdDbObjectId& id) const
{
  return OdDbLinetypeTableRecord::cast(openObject(id));
}

OdDbBlockTableRecord* OdDbDatabase::openBlock(const OdDbObjectId& id) const
{
  return OdDbBlockTableRecord::cast(openObject(id));
}

bool OdDbDatabase::setLWDEFAULT(OdDb::LineWeight weight)
{
  if (weight < 0 || !OdDb::isLineWeight(weight))
    return false;
  m_lineWeightDefault = weight;
  return true;
}

#include "DrawingDocument.h"

#include <algorithm>
#include <utility>

namespace
{

/** Counts what drawing @p entities takes at nesting @p depth, each block counted once per depth. */
class DrawnEntityCounter
{
public:
  DrawnEntityCounter(const std::map<QString, DrawingBlock>& blocks, quint64 limit) : m_blocks(blocks), m_limit(limit) {}

  quint64 count(const std::vector<DrawingEntity>& entities, int depth)
  {
    quint64 total = 0;
    for (const DrawingEntity& entity : entities)
    {
      // a multi-line text is drawn line by line
      const int lines = entity.kind == EntityKind::MText ? entity.text.count(QLatin1String("\\P")) + 1 : 1;
      total = std::min(m_limit, total + quint64(lines));
      if (entity.kind == EntityKind::Insert && depth < DrawingDocument::kMaxBlockDepth)
        total = std::min(m_limit, total + blockCount(entity.blockName, depth + 1));
      if (total == m_limit)
        break;
    }
    return total;
  }

private:
  quint64 blockCount(const QString& name, int depth)
  {
    const auto found = m_blocks.find(name);
    if (found == m_blocks.end())
      return 0;
    const auto key = std::make_pair(name, depth);
    const auto known = m_counts.find(key);
    if (known != m_counts.end())
      return known->second;
    const quint64 counted = count(found->second.entities, depth);
    m_counts[key] = counted;
    return counted;
  }

  const std::map<QString, DrawingBlock>& m_blocks;
  const quint64 m_limit;
  std::map<std::pair<QString, int>, quint64> m_counts;
};

/**
 * Changes @p stored and marks it edited. Where it was read from and in which
 * space are the file's, never an edit's (the given entity may be the stored one itself).
 */
template <typename Change>
void edit(DrawingEntity& stored, const Change& change)
{
  const quint32 recordBegin = stored.recordBegin;
  const quint32 recordSize = stored.recordSize;
  const bool paperSpace = stored.paperSpace;
  change(stored);
  stored.recordBegin = recordBegin;
  stored.recordSize = recordSize;
  stored.paperSpace = paperSpace;
  stored.edited = true;
}

} // namespace

DrawingDocument::DrawingDocument(QObject* parent) : QObject(parent), m_database(std::make_unique<OdDbDatabase>()) {}

DrawingDocument::~DrawingDocument() = default;

const DrawingEntity* DrawingDocument::entity(quint64 handle) const
{
  const auto found = m_indexOfHandle.find(handle);
  return found == m_indexOfHandle.end() ? nullptr : &m_entities[found->second];
}

quint64 DrawingDocument::addEntity(DrawingEntity entity)
{
  if (!keepsHandle(entity.handle) || m_indexOfHandle.count(entity.handle))
    entity.handle = m_lastHandle + 1;
  m_lastHandle = std::max(m_lastHandle, entity.handle);
  if (entity.layer.isNull())
    entity.layer = m_database->getLayerZeroId();
  if (entity.linetype.isNull())
    entity.linetype = m_database->getLinetypeByLayerId();
  m_indexOfHandle[entity.handle] = m_entities.size();
  m_handles.append(entity.handle);
  m_entities.push_back(std::move(entity));
  return m_entities.back().handle;
}

void DrawingDocument::addEntities(std::vector<DrawingEntity> entities)
{
  if (!m_entities.empty())
  {
    for (DrawingEntity& entity : entities)
      addEntity(std::move(entity));
    return;
  }
  m_entities = std::move(entities);
  m_indexOfHandle.reserve(m_entities.size());
  // the file's own handles first, so that an entity without one takes none of theirs
  for (std::size_t i = 0; i < m_entities.size(); ++i)
  {
    DrawingEntity& entity = m_entities[i];
    if (keepsHandle(entity.handle) && m_indexOfHandle.emplace(entity.handle, i).second)
      m_lastHandle = std::max(m_lastHandle, entity.handle);
    else
      entity.handle = 0;
  }
  for (std::size_t i = 0; i < m_entities.size(); ++i)
  {
    DrawingEntity& entity = m_entities[i];
    if (entity.handle == 0)
    {
      entity.handle = ++m_lastHandle;
      m_indexOfHandle[entity.handle] = i;
    }
    if (entity.layer.isNull())
      entity.layer = m_database->getLayerZeroId();
    if (entity.linetype.isNull())
      entity.linetype = m_database->getLinetypeByLayerId();
  }
  m_handles.resize(int(m_entities.size()));
  for (std::size_t i = 0; i < m_entities.size(); ++i)
    m_handles[int(i)] = m_entities[i].handle;
}

quint64 DrawingDocument::drawnEntityCount(quint64 limit) const
{
  return DrawnEntityCounter(m_blocks, limit).count(m_entities, 0);
}

void DrawingDocument::replaceEntities(const std::vector<DrawingEntity>& changed)
{
  QVector<quint64> handles;
  handles.reserve(int(changed.size()));
  for (const DrawingEntity& entity : changed)
  {
    const auto found = m_indexOfHandle.find(entity.handle);
    if (found == m_indexOfHandle.end())
      continue;
    edit(m_entities[found->second], [&entity](DrawingEntity& stored) { stored = entity; });
    handles.append(entity.handle);
  }
  if (!handles.isEmpty())
    Q_EMIT entitiesChanged(handles);
}

void DrawingDocument::changeEntities(const QVector<quint64>& handles, const std::function<void(DrawingEntity&, int)>& change)
{
  QVector<quint64> changed;
  changed.reserve(handles.size());
  // Handles mostly follow the entities' order (a select all): look just after the last one first.
  std::size_t next = 0;
  for (int i = 0; i < handles.size(); ++i)
  {
    std::size_t at = next;
    if (at >= m_entities.size() || m_entities[at].handle != handles[i])
    {
      const auto found = m_indexOfHandle.find(handles[i]);
      if (found == m_indexOfHandle.end())
        continue;
      at = found->second;
    }
    edit(m_entities[at], [&change, i](DrawingEntity& stored) { change(stored, i); });
    changed.append(handles[i]);
    next = at + 1;
  }
  if (!changed.isEmpty())
    Q_EMIT entitiesChanged(changed);
}

void DrawingDocument::clear()
{
  m_database = std::make_unique<OdDbDatabase>();
  m_entities.clear();
  m_indexOfHandle.clear();
  m_handles.clear();
  m_blocks.clear();
  m_textStyles.clear();
  m_headerReals.clear();
  m_lastHandle = 0;
  m_fileName.clear();
  m_source = DrawingSource();
  Q_EMIT documentReset();
}

void DrawingDocument::takeContents(DrawingDocument& other)
{
  m_database = std::exchange(other.m_database, std::make_unique<OdDbDatabase>());
  m_entities = std::exchange(other.m_entities, {});
  m_indexOfHandle = std::exchange(other.m_indexOfHandle, {});
  m_handles = std::exchange(other.m_handles, {});
  m_blocks = std::exchange(other.m_blocks, {});
  m_textStyles = std::exchange(other.m_textStyles, {});
  m_headerReals = std::exchange(other.m_headerReals, {});
  m_lastHandle = std::exchange(other.m_lastHandle, 0);
  m_fileName = std::exchange(other.m_fileName, QString());
  m_source = std::exchange(other.m_source, DrawingSource());
  Q_EMIT other.documentReset();
  Q_EMIT documentReset();
}

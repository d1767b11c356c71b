#include "DrawingDocument.h"

#include <utility>

DrawingDocument::DrawingDocument(QObject* parent) : QObject(parent), m_database(std::make_unique<OdDbDatabase>()) {}

DrawingDocument::~DrawingDocument() = default;

const DrawingEntity* DrawingDocument::entity(quint64 handle) const
{
  const auto found = m_indexOfHandle.find(handle);
  return found == m_indexOfHandle.end() ? nullptr : &m_entities[found->second];
}

quint64 DrawingDocument::addEntity(DrawingEntity entity)
{
  if (entity.handle == 0 || m_indexOfHandle.count(entity.handle))
    entity.handle = m_lastHandle + 1;
  m_lastHandle = std::max(m_lastHandle, entity.handle);
  if (entity.layer.isNull())
    entity.layer = m_database->getLayerZeroId();
  if (entity.linetype.isNull())
    entity.linetype = m_database->getLinetypeByLayerId();
  m_indexOfHandle[entity.handle] = m_entities.size();
  m_entities.push_back(std::move(entity));
  return m_entities.back().handle;
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
    m_entities[found->second] = entity;
    handles.append(entity.handle);
  }
  if (!handles.isEmpty())
    Q_EMIT entitiesChanged(handles);
}

void DrawingDocument::clear()
{
  m_database = std::make_unique<OdDbDatabase>();
  m_entities.clear();
  m_indexOfHandle.clear();
  m_blocks.clear();
  m_lastHandle = 0;
  m_fileName.clear();
  Q_EMIT documentReset();
}

void DrawingDocument::takeContents(DrawingDocument& other)
{
  m_database = std::exchange(other.m_database, std::make_unique<OdDbDatabase>());
  m_entities = std::exchange(other.m_entities, {});
  m_indexOfHandle = std::exchange(other.m_indexOfHandle, {});
  m_blocks = std::exchange(other.m_blocks, {});
  m_lastHandle = std::exchange(other.m_lastHandle, 0);
  m_fileName = std::exchange(other.m_fileName, QString());
  Q_EMIT other.documentReset();
  Q_EMIT documentReset();
}

#include "EntityLookup.h"

#include "DrawingDocument.h"

EntityPointers lookUpEntities(const DrawingDocument& document, const QVector<quint64>& handles)
{
  const std::vector<DrawingEntity>& all = document.entities();
  EntityPointers found;
  found.reserve(std::size_t(handles.size()));
  std::size_t next = 0;
  for (quint64 handle : handles)
  {
    const DrawingEntity* entity = nullptr;
    if (next < all.size() && all[next].handle == handle)
      entity = &all[next];
    else
      entity = document.entity(handle);
    if (entity)
      next = std::size_t(entity - all.data()) + 1;
    found.push_back(entity);
  }
  return found;
}

#include "EntityChangeCommand.h"

#include "DrawingDocument.h"
#include "EntityLookup.h"

EntityChangeCommand::EntityChangeCommand(DrawingDocument* document, const QString& text, std::vector<DrawingEntity> changed,
                                         Change undoChange, Change redoChange)
  : QUndoCommand(text), m_document(document), m_firstRedo(std::move(changed)), m_undo(std::move(undoChange)),
    m_redo(std::move(redoChange))
{
  m_handles.reserve(int(m_firstRedo.size()));
  for (const DrawingEntity& entity : m_firstRedo)
    m_handles.append(entity.handle);
}

void EntityChangeCommand::undo()
{
  apply(m_undo);
}

void EntityChangeCommand::redo()
{
  if (!m_firstRedo.empty())
  {
    if (m_document)
      m_document->replaceEntities(m_firstRedo);
    std::vector<DrawingEntity>().swap(m_firstRedo);
    return;
  }
  apply(m_redo);
}

void EntityChangeCommand::apply(const Change& change)
{
  if (!m_document)
    return;
  const std::vector<const DrawingEntity*> current = lookUpEntities(*m_document, m_handles);
  std::vector<DrawingEntity> changed;
  changed.reserve(current.size());
  for (std::size_t i = 0; i < current.size(); ++i)
  {
    // An entity the drawing no longer has (another drawing was opened meanwhile) is left out.
    if (!current[i])
      continue;
    changed.push_back(*current[i]);
    change(changed.back(), i);
  }
  m_document->replaceEntities(changed);
}

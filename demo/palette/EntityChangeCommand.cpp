#include "EntityChangeCommand.h"

#include "DrawingDocument.h"

EntityChangeCommand::EntityChangeCommand(DrawingDocument* document, const QString& text,
                                         std::vector<DrawingEntity> before, std::vector<DrawingEntity> after)
  : QUndoCommand(text), m_document(document), m_before(std::move(before)), m_after(std::move(after))
{
}

void EntityChangeCommand::undo()
{
  if (m_document)
    m_document->replaceEntities(m_before);
}

void EntityChangeCommand::redo()
{
  if (m_document)
    m_document->replaceEntities(m_after);
}

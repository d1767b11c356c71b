#include "EntityChangeCommand.h"

#include "DrawingDocument.h"

EntityChangeCommand::EntityChangeCommand(DrawingDocument* document, const QString& text, QVector<quint64> handles,
                                         Change undoChange, Change redoChange)
  : QUndoCommand(text), m_document(document), m_handles(std::move(handles)), m_undo(std::move(undoChange)),
    m_redo(std::move(redoChange))
{
}

void EntityChangeCommand::undo()
{
  apply(m_undo);
}

void EntityChangeCommand::redo()
{
  apply(m_redo);
}

void EntityChangeCommand::apply(const Change& change)
{
  // An entity the drawing no longer has (another drawing was opened meanwhile) is skipped.
  if (m_document)
    m_document->changeEntities(m_handles, [&change](DrawingEntity& entity, int index) { change(entity, std::size_t(index)); });
}

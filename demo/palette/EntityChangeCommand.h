#pragma once

#include "DrawingEntity.h"
#include <QUndoCommand>
#include <QVector>
#include <functional>

class DrawingDocument;

/**
 * One edit of the palette as an undo step over the entities it changed. It
 * keeps their handles and how to change each one either way, not copies of
 * them: the caller's change functions hold only what they need (the new
 * value; the old values of the one property), so that an edit of a million
 * entities does not keep a million entities twice more. Both directions go
 * through the document, so every view of the drawing hears of the change.
 */
class EntityChangeCommand : public QUndoCommand
{
public:
  /** Changes the entity of the @p index-th handle, in place. */
  using Change = std::function<void(DrawingEntity& entity, std::size_t index)>;

  /** The first redo (when the command is pushed) makes the change. */
  EntityChangeCommand(DrawingDocument* document, const QString& text, QVector<quint64> handles, Change undoChange, Change redoChange);

  void undo() override;
  void redo() override;

private:
  void apply(const Change& change);

  DrawingDocument* m_document;
  QVector<quint64> m_handles;
  Change m_undo;
  Change m_redo;
};

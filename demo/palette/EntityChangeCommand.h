#pragma once

#include "DrawingEntity.h"
#include <QUndoCommand>
#include <vector>

class DrawingDocument;

/**
 * One edit of the palette as an undo step: the changed entities as they were
 * and as they became. Both directions go through the document, so every view
 * of the drawing hears of the change.
 */
class EntityChangeCommand : public QUndoCommand
{
public:
  EntityChangeCommand(DrawingDocument* document, const QString& text, std::vector<DrawingEntity> before,
                      std::vector<DrawingEntity> after);

  void undo() override;
  void redo() override;

private:
  DrawingDocument* m_document;
  std::vector<DrawingEntity> m_before;
  std::vector<DrawingEntity> m_after;
};

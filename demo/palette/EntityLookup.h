#pragma once

#include <QVector>
#include <QtGlobal>
#include <vector>

class DrawingDocument;
struct DrawingEntity;

/**
 * The entities that have @p handles, in the same order; null for a handle
 * the document lacks. A selection usually follows the document's order (a
 * select all, a window), so each handle is first looked for just after the
 * one before it, and only otherwise in the document's index: a million
 * handles are found in one pass over the entities.
 */
std::vector<const DrawingEntity*> lookUpEntities(const DrawingDocument& document, const QVector<quint64>& handles);

#pragma once

#include "LargeArrayAllocator.h"
#include <QVector>
#include <QtGlobal>

class DrawingDocument;
struct DrawingEntity;

/** Entities of a selection, one slot for each: a million when everything is selected. */
using EntityPointers = LargeArray<const DrawingEntity*>;

/**
 * The entities that have @p handles, in the same order; null for a handle
 * the document lacks. A selection usually follows the document's order (a
 * select all, a window), so each handle is first looked for just after the
 * one before it, and only otherwise in the document's index: a million
 * handles are found in one pass over the entities.
 */
EntityPointers lookUpEntities(const DrawingDocument& document, const QVector<quint64>& handles);

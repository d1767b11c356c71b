#pragma once

#include "DrawingEntity.h"
#include <QString>

/** What a kind of entity is called where a person reads it (the palette's type row and filter), in the language of the moment. */
QString entityKindName(EntityKind kind);

/** The kind's name for one entity: an entity the editor does not know by kind is called by the file's name for it. */
QString entityTypeName(const DrawingEntity& entity);

#pragma once

// What the drawing-attribute controls share and a host never sees.

class OdDbDatabase;
class PropBag;
class QWidget;
class hostDbPropBagCtx;

namespace propui
{

/** The bag's context when it is a database context, else null (no bag, no context, another kind). */
hostDbPropBagCtx* databaseContextOf(PropBag* bag);
/** The database of the bag's context, or null. */
OdDbDatabase* databaseOf(PropBag* bag);
/** Gives the widget the item's caption as its accessible name, when the bag has one. */
void nameAfterItem(QWidget* widget, PropBag* bag, int index);

} // namespace propui

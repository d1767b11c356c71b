#include "PropUiCadSupport_p.h"

#include "OdStringQt.h"
#include "PropBag.h"
#include "hostDbPropBagCtx.h"
#include <QWidget>

namespace propui
{

hostDbPropBagCtx* databaseContextOf(PropBag* bag)
{
  PropBagCtx* context = bag ? bag->getContext() : nullptr;
  if (!context || !context->isKindOf(hostDbPropBagCtx::desc()))
    return nullptr;
  return static_cast<hostDbPropBagCtx*>(context);
}

OdDbDatabase* databaseOf(PropBag* bag)
{
  hostDbPropBagCtx* context = databaseContextOf(bag);
  return context ? context->database() : nullptr;
}

void nameAfterItem(QWidget* widget, PropBag* bag, int index)
{
  OdString name;
  if (widget && bag && bag->getName(index, name))
    widget->setAccessibleName(toQString(name));
}

} // namespace propui

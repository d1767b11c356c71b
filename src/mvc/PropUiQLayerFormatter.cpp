#include "PropUiQLayerFormatter.h"

#include "hostColors.h"
#include "hostDbPropBagCtx.h"
#include "OdDbDatabase.h"
#include "OdDbLayerTableRecord.h"
#include "PropBag.h"
#include "PropUiObjectIdIcons.h"
#include "PropVariantConversions.h"

PropUiQLayerFormatter::PropUiQLayerFormatter(QObject* parent) : PropUiQDefaultFormatter(parent) {}

QVariant PropUiQLayerFormatter::getIcon(int, const PropVariant& value)
{
  OdDbObjectId id;
  PropBagCtx* context = m_bag ? m_bag->getContext() : nullptr;
  if (!context || !context->isKindOf(hostDbPropBagCtx::desc()) || !propVariantToObjectId(value, id))
    return QVariant();
  OdDbDatabase* database = static_cast<hostDbPropBagCtx*>(context)->database();
  const OdDbLayerTableRecord* layer = database ? database->openLayer(id) : nullptr;
  if (!layer)
    return QVariant();
  return QVariant(hostQtGetColorIcon(layer->color(database->activeViewportId()), 16, 16));
}

QVariant PropUiQLayerFormatter::getChoiceIcon(int item, const PropVariant& value, OdUInt64)
{
  return getIcon(item, value);
}

QVariantList PropUiQLayerFormatter::getValueListIcons(int item, const PropVariant&, const OdStringArray&,
                                                      const OdUInt64Array& values)
{
  return propui::iconsOfObjectIds(values, [&](const PropVariant& value) { return getIcon(item, value); });
}

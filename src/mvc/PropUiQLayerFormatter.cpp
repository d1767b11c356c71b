#include "PropUiQLayerFormatter.h"

#include "PropUiDrawingLook_p.h"
#include "PropUiObjectIdIcons_p.h"

PropUiQLayerFormatter::PropUiQLayerFormatter(QObject* parent) : PropUiQDefaultFormatter(parent) {}

QString PropUiQLayerFormatter::getText(int item, const PropVariant& value)
{
  return propui::layerLook(m_bag, item, value).text;
}

QString PropUiQLayerFormatter::getChoiceText(int item, const PropVariant& value, OdUInt64)
{
  return getText(item, value);
}

QVariant PropUiQLayerFormatter::getIcon(int item, const PropVariant& value)
{
  return propui::layerLook(m_bag, item, value).icon();
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

#include "PropUiQColorFormatter.h"

#include "PropVariantConversions.h"
#include "hostColors.h"

PropUiQColorFormatter::PropUiQColorFormatter(QObject* parent) : PropUiQDefaultFormatter(parent) {}

QVariant PropUiQColorFormatter::getIcon(int, const PropVariant& value)
{
  OdCmColor color;
  if (!propVariantToColor(value, color))
    return QVariant();
  return QVariant(hostQtGetColorIcon(color, 16, 16));
}

QVariant PropUiQColorFormatter::getChoiceIcon(int item, const PropVariant& value, OdUInt64)
{
  return getIcon(item, value);
}

QVariantList PropUiQColorFormatter::getValueListIcons(int item, const PropVariant&, const OdStringArray&,
                                                      const OdUInt64Array& values)
{
  QVariantList icons;
  icons.reserve(int(values.size()));
  for (OdUInt64 key : values)
  {
    PropVariant color;
    color.setUInt64(key);
    color.setType(PropVariant::kColor);
    icons.append(getIcon(item, color));
  }
  return icons;
}

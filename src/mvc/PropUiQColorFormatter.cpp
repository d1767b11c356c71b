#include "PropUiQColorFormatter.h"

#include "PropUiDrawingLook_p.h"
#include "PropVariantConversions.h"

PropUiQColorFormatter::PropUiQColorFormatter(QObject* parent) : PropUiQDefaultFormatter(parent) {}

QString PropUiQColorFormatter::getText(int item, const PropVariant& value)
{
  return propui::colorLook(m_bag, item, value).text;
}

QString PropUiQColorFormatter::getChoiceText(int item, const PropVariant& value, OdUInt64)
{
  return getText(item, value);
}

QVariant PropUiQColorFormatter::getIcon(int item, const PropVariant& value)
{
  return propui::colorLook(m_bag, item, value).icon();
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

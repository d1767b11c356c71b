#include "PropUiQDefaultFormatter.h"

#include "OdStringQt.h"
#include "PropBag.h"
#include "PropUiQIcon.h"
#include "PropWidgetsLogging_p.h"
#include <QIcon>

PropUiQDefaultFormatter::PropUiQDefaultFormatter(QObject* parent) : PropUiQFormatter(parent) {}

void PropUiQDefaultFormatter::setPropBag(PropBag* bag)
{
  m_bag = bag;
}

QString PropUiQDefaultFormatter::formatted(int item, unsigned long sub, const PropVariant& value) const
{
  if (!m_bag)
  {
    propui::adviseGridMisuseLater(propui::GridMisuse::FormatterWithoutBag, this, [this] { return !m_bag; });
    return QString();
  }
  OdString text;
  if (m_bag->formatValue(item, sub, value, text))
    return toQString(text);
  return QString();
}

QString PropUiQDefaultFormatter::getText(int item, const PropVariant& value)
{
  return formatted(item, 0, value);
}

QString PropUiQDefaultFormatter::getChoiceText(int item, const PropVariant& value, OdUInt64 sub)
{
  return formatted(item, sub, value);
}

QString PropUiQDefaultFormatter::getElementText(int item, const PropVariant& value, OdUInt64 sub)
{
  return formatted(item, sub, value);
}

static QStringList namesOf(const OdStringArray& names)
{
  QStringList texts;
  texts.reserve(int(names.size()));
  for (const OdString& name : names)
    texts.append(toQString(name));
  return texts;
}

QStringList PropUiQDefaultFormatter::getValueListTexts(int, const PropVariant&, const OdStringArray& names,
                                                       const OdUInt64Array&)
{
  return namesOf(names);
}

QStringList PropUiQDefaultFormatter::getNameListTexts(int, const PropVariant&, const OdStringArray& names)
{
  return namesOf(names);
}

QVariant PropUiQDefaultFormatter::getIcon(int, const PropVariant&)
{
  return QVariant();
}

QVariant PropUiQDefaultFormatter::getChoiceIcon(int item, const PropVariant&, OdUInt64 sub)
{
  OdSharedPtr<PropIcon> icon;
  if (!m_bag || !m_bag->getIcon(item, sub, icon) || icon.isNull())
    return QVariant();
  if (auto* qicon = dynamic_cast<PropUiQIcon*>(icon.get()))
    return QVariant(qicon->getIcon());
  return QVariant();
}

QVariant PropUiQDefaultFormatter::getElementIcon(int, const PropVariant&, OdUInt64)
{
  return QVariant();
}

QVariantList PropUiQDefaultFormatter::getValueListIcons(int item, const PropVariant& value, const OdStringArray&,
                                                        const OdUInt64Array& values)
{
  QVariantList icons;
  icons.reserve(int(values.size()));
  for (OdUInt64 key : values)
    icons.append(getChoiceIcon(item, value, key));
  return icons;
}

QVariantList PropUiQDefaultFormatter::getNameListIcons(int, const PropVariant&, const OdStringArray& names)
{
  QVariantList icons;
  icons.reserve(int(names.size()));
  for (unsigned int i = 0; i < names.size(); ++i)
    icons.append(QVariant(QIcon()));
  return icons;
}

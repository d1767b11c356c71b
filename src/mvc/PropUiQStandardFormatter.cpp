#include "PropUiQStandardFormatter.h"

#include "PropBag.h"
#include "PropItemType.h"
#include "PropUiGuids.h"
#include "PropUiQArrowheadFormatter.h"
#include "PropUiQColorFormatter.h"
#include "PropUiQDefaultFormatter.h"
#include "PropUiQLayerFormatter.h"
#include "PropUiQLineTypeFormatter.h"
#include "PropUiQLineWeightFormatter.h"
#include "PropWidgetsLogging_p.h"

namespace
{

std::wstring keyOf(const OdString& text)
{
  return std::wstring(text.c_str(), std::size_t(text.getLength()));
}

} // namespace

PropUiQStandardFormatter::PropUiQStandardFormatter(QObject* parent) : PropUiQFormatter(parent) {}

void PropUiQStandardFormatter::registerFormatter(const OdGUID& typeGuid, PropUiQFormatter* formatter)
{
  if (!formatter)
    return;
  formatter->setParent(this);
  formatter->setPropBag(m_bag);
  QPointer<PropUiQFormatter>& held = m_formatters[keyOf(typeGuid.toString())];
  if (held && held != formatter)
    delete held.data();
  held = formatter;
  m_resolved.clear();
}

PropUiQFormatter* PropUiQStandardFormatter::formatterFor(const OdString& keyText) const
{
  auto found = m_formatters.find(keyOf(keyText));
  if (found != m_formatters.end() && found->second)
    return found->second;
  found = m_formatters.find(keyOf(OdGUID::kNull.toString()));
  return found != m_formatters.end() ? found->second.data() : nullptr;
}

PropUiQFormatter* PropUiQStandardFormatter::formatterForItem(int item) const
{
  if (!m_bag)
  {
    propui::adviseGridMisuseLater(propui::GridMisuse::FormatterWithoutBag, this, [this] { return !m_bag; });
    return nullptr;
  }
  // A bag that gives its items no types still names their controls: a cell then shows what the
  // item's control shows, and an item of any other kind gets the default formatter.
  PropItemType* type = m_bag->getItemType(item);
  const OdGUID guid = type ? type->editorGuid() : m_bag->getControlGuid(item);
  if (auto* known = m_resolved.find(guid))
    return known;
  PropUiQFormatter* formatter = formatterFor(guid.toString());
  m_resolved.remember(guid, formatter);
  return formatter;
}

void PropUiQStandardFormatter::setPropBag(PropBag* bag)
{
  m_bag = bag;
  for (const auto& entry : m_formatters)
    if (entry.second)
      entry.second->setPropBag(bag);
}

QString PropUiQStandardFormatter::getText(int item, const PropVariant& value)
{
  PropUiQFormatter* f = formatterForItem(item);
  return f ? f->getText(item, value) : QString();
}

QString PropUiQStandardFormatter::getChoiceText(int item, const PropVariant& value, OdUInt64 sub)
{
  PropUiQFormatter* f = formatterForItem(item);
  return f ? f->getChoiceText(item, value, sub) : QString();
}

QString PropUiQStandardFormatter::getElementText(int item, const PropVariant& value, OdUInt64 sub)
{
  PropUiQFormatter* f = formatterForItem(item);
  return f ? f->getElementText(item, value, sub) : QString();
}

QStringList PropUiQStandardFormatter::getValueListTexts(int item, const PropVariant& value, const OdStringArray& names,
                                                        const OdUInt64Array& values)
{
  PropUiQFormatter* f = formatterForItem(item);
  return f ? f->getValueListTexts(item, value, names, values) : QStringList();
}

QStringList PropUiQStandardFormatter::getNameListTexts(int item, const PropVariant& value, const OdStringArray& names)
{
  PropUiQFormatter* f = formatterForItem(item);
  return f ? f->getNameListTexts(item, value, names) : QStringList();
}

QVariant PropUiQStandardFormatter::getIcon(int item, const PropVariant& value)
{
  PropUiQFormatter* f = formatterForItem(item);
  return f ? f->getIcon(item, value) : QVariant();
}

QVariant PropUiQStandardFormatter::getChoiceIcon(int item, const PropVariant& value, OdUInt64 sub)
{
  PropUiQFormatter* f = formatterForItem(item);
  return f ? f->getChoiceIcon(item, value, sub) : QVariant();
}

QVariant PropUiQStandardFormatter::getElementIcon(int item, const PropVariant& value, OdUInt64 sub)
{
  PropUiQFormatter* f = formatterForItem(item);
  return f ? f->getElementIcon(item, value, sub) : QVariant();
}

QVariantList PropUiQStandardFormatter::getValueListIcons(int item, const PropVariant& value,
                                                         const OdStringArray& names, const OdUInt64Array& values)
{
  PropUiQFormatter* f = formatterForItem(item);
  return f ? f->getValueListIcons(item, value, names, values) : QVariantList();
}

QVariantList PropUiQStandardFormatter::getNameListIcons(int item, const PropVariant& value, const OdStringArray& names)
{
  PropUiQFormatter* f = formatterForItem(item);
  return f ? f->getNameListIcons(item, value, names) : QVariantList();
}

PropUiQStandardFormatter* propUiCreateStandardFormatter(QObject* parent)
{
  auto* standard = new PropUiQStandardFormatter(parent);
  standard->registerFormatter(OdGUID::kNull, new PropUiQDefaultFormatter(standard));
  standard->registerFormatter(PropUiGuidLayer, new PropUiQLayerFormatter(standard));
  standard->registerFormatter(PropUiGuidColor, new PropUiQColorFormatter(standard));
  standard->registerFormatter(PropUiGuidLinetype, new PropUiQLineTypeFormatter(standard));
  standard->registerFormatter(PropUiGuidLineweight, new PropUiQLineWeightFormatter(standard));
  standard->registerFormatter(PropUiGuidArrowhead, new PropUiQArrowheadFormatter(standard));
  return standard;
}

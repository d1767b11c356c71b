#include "PropUiQLineWeightFormatter.h"

#include "PropBag.h"
#include "PropUiDrawingLook_p.h"
#include "PropVariantConversions.h"
#include "hostDbPropBagCtx.h"

PropUiQLineWeightFormatter::PropUiQLineWeightFormatter(QObject* parent)
  : PropUiQDefaultFormatter(parent), m_list(new host_qt_ui::QHostLineWeightListModel(this))
{
}

void PropUiQLineWeightFormatter::setPropBag(PropBag* bag)
{
  m_bag = bag;
  PropBagCtx* context = bag ? bag->getContext() : nullptr;
  if (m_list && context && context->isKindOf(hostDbPropBagCtx::desc()))
  {
    m_list->setDatabase(static_cast<hostDbPropBagCtx*>(context)->database());
    m_list->init(host_qt_ui::LineWeightByLayer | host_qt_ui::LineWeightByBlock | host_qt_ui::LineWeightDefault);
  }
}

QString PropUiQLineWeightFormatter::getText(int item, const PropVariant& value)
{
  return propui::lineweightLook(m_bag, item, value).text;
}

QString PropUiQLineWeightFormatter::getChoiceText(int item, const PropVariant& value, OdUInt64)
{
  return getText(item, value);
}

QVariant PropUiQLineWeightFormatter::getIcon(int item, const PropVariant& value)
{
  return propui::lineweightLook(m_bag, item, value).icon();
}

QVariant PropUiQLineWeightFormatter::getChoiceIcon(int item, const PropVariant& value, OdUInt64)
{
  return getIcon(item, value);
}

QVariantList PropUiQLineWeightFormatter::getValueListIcons(int item, const PropVariant&, const OdStringArray&,
                                                           const OdUInt64Array& values)
{
  QVariantList icons;
  icons.reserve(int(values.size()));
  // A key holds the width as the bag's unsigned number; ByLayer and the others come back negative.
  for (OdUInt64 key : values)
    icons.append(getIcon(item, propVariantFromLineweight(OdDb::LineWeight(OdInt32(key)))));
  return icons;
}

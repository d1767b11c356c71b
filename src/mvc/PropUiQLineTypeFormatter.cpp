#include "PropUiQLineTypeFormatter.h"

#include "hostDbPropBagCtx.h"
#include "PropBag.h"
#include "PropUiDrawingLook_p.h"
#include "PropUiObjectIdIcons_p.h"

PropUiQLineTypeFormatter::PropUiQLineTypeFormatter(QObject* parent)
  : PropUiQDefaultFormatter(parent), m_list(new host_qt_ui::QHostLineTypeListModel(this))
{
}

void PropUiQLineTypeFormatter::setPropBag(PropBag* bag)
{
  m_bag = bag;
  PropBagCtx* context = bag ? bag->getContext() : nullptr;
  if (m_list && context && context->isKindOf(hostDbPropBagCtx::desc()))
    m_list->init(host_qt_ui::LineTypeByLayer | host_qt_ui::LineTypeByBlock | host_qt_ui::LineTypeOther,
                 static_cast<hostDbPropBagCtx*>(context)->database());
}

QString PropUiQLineTypeFormatter::getText(int item, const PropVariant& value)
{
  return propui::linetypeLook(m_bag, item, value).text;
}

QString PropUiQLineTypeFormatter::getChoiceText(int item, const PropVariant& value, OdUInt64)
{
  return getText(item, value);
}

QVariant PropUiQLineTypeFormatter::getIcon(int item, const PropVariant& value)
{
  return propui::linetypeLook(m_bag, item, value).icon();
}

QVariant PropUiQLineTypeFormatter::getChoiceIcon(int item, const PropVariant& value, OdUInt64)
{
  return getIcon(item, value);
}

QVariantList PropUiQLineTypeFormatter::getValueListIcons(int item, const PropVariant&, const OdStringArray&,
                                                         const OdUInt64Array& values)
{
  return propui::iconsOfObjectIds(values, [&](const PropVariant& value) { return getIcon(item, value); });
}

#include "PropUiQArrowheadFormatter.h"

#include "hostDbPropBagCtx.h"
#include "PropBag.h"
#include "PropUiObjectIdIcons_p.h"
#include "PropVariantConversions.h"

PropUiQArrowheadFormatter::PropUiQArrowheadFormatter(QObject* parent)
  : PropUiQDefaultFormatter(parent), m_list(new host_qt_ui::QHostArrowHeadListModel(this))
{
}

void PropUiQArrowheadFormatter::setPropBag(PropBag* bag)
{
  m_bag = bag;
  PropBagCtx* context = bag ? bag->getContext() : nullptr;
  if (m_list && context && context->isKindOf(hostDbPropBagCtx::desc()))
  {
    m_list->setCurrentDatabase(static_cast<hostDbPropBagCtx*>(context)->database());
    m_list->init(host_qt_ui::ArrowUserArrow | host_qt_ui::ArrowDrawingBlocks);
  }
}

QVariant PropUiQArrowheadFormatter::getIcon(int, const PropVariant& value)
{
  OdDbObjectId id;
  // Before a drawing is known the list is empty, and so is every answer.
  if (!m_list || !m_list->currentDatabase() || !propVariantToObjectId(value, id))
    return QVariant();
  const int row = m_list->findId(id);
  return row < 0 ? QVariant() : m_list->data(m_list->index(row, 0), Qt::DecorationRole);
}

QVariant PropUiQArrowheadFormatter::getChoiceIcon(int item, const PropVariant& value, OdUInt64)
{
  return getIcon(item, value);
}

QVariantList PropUiQArrowheadFormatter::getValueListIcons(int item, const PropVariant&, const OdStringArray&,
                                                          const OdUInt64Array& values)
{
  return propui::iconsOfObjectIds(values, [&](const PropVariant& value) { return getIcon(item, value); });
}

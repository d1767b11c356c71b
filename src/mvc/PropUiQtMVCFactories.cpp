#include "PropUiQtMVCFactories.h"

#include "PropUiFlatParentChildProxyModel.h"
#include "PropUiGuids.h"
#include "PropUiQLayerDelegate.h"
#include "PropUiQStandardDelegate.h"
#include "PropUiQtMVCGroup.h"
#include "PropertyBagModel.h"

QAbstractItemModel* hostCreatePropUiItemModel(PropUiQtMVCGroup* group, QObject* parent)
{
  auto* model = new PropertyBagModel(parent);
  if (group)
    group->attachInterface(model);
  return model;
}

QAbstractItemModel* hostCreatePropUiTableModel(PropUiQtMVCGroup* group, QObject* parent)
{
  QAbstractItemModel* model = hostCreatePropUiItemModel(group, parent);
  auto* proxy = new PropUiFlatParentChildProxyModel(parent);
  proxy->setSourceModel(model);
  return proxy;
}

QAbstractItemDelegate* hostCreatePropUiItemDelegate(PropUiQtMVCGroup* group, QObject* parent)
{
  auto* delegate = new PropUiQStandardDelegate(parent);
  delegate->setSubDelegate(PropUiGuidLayer, new PropUiQLayerDelegate(delegate));
  if (group)
    group->attachInterface(delegate);
  return delegate;
}

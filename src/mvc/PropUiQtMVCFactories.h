#pragma once

#include "PropWidgetsExport.h"

class PropUiQtMVCGroup;
class QAbstractItemDelegate;
class QAbstractItemModel;
class QObject;

/** A property-bag tree model, attached to the group when there is one; the group binds it. */
PROPWIDGETS_EXPORT QAbstractItemModel* hostCreatePropUiItemModel(PropUiQtMVCGroup* group, QObject* parent);
/** The same model seen as one flat table of item and element rows; only the model is attached. */
PROPWIDGETS_EXPORT QAbstractItemModel* hostCreatePropUiTableModel(PropUiQtMVCGroup* group, QObject* parent);
/** The standard delegate, which edits cells with the registered controls. */
PROPWIDGETS_EXPORT QAbstractItemDelegate* hostCreatePropUiItemDelegate(PropUiQtMVCGroup* group, QObject* parent);

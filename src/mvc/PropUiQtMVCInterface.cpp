#include "PropUiQtMVCInterface.h"

#include <QAbstractItemModel>

bool PropUiQtMVCInterface::getPropData(const QModelIndex& index, int& item, unsigned long& sub, bool& isSubItem)
{
  if (index.row() < 0 || index.column() < 0 || !index.model())
    return false;
  const QAbstractItemModel* model = index.model();
  const QVariant itemData = model->data(index, PropItemIndexRole);
  const QVariant subData = model->data(index, PropSubIndexRole);
  const QVariant isSubData = model->data(index, PropIsSubItemRole);
  // A host model that answers with other types speaks another protocol: refuse rather than guess.
  if (itemData.userType() != QMetaType::Int || subData.userType() != QMetaType::ULongLong ||
      isSubData.userType() != QMetaType::Bool)
    return false;
  item = itemData.toInt();
  sub = static_cast<unsigned long>(subData.toULongLong());
  isSubItem = isSubData.toBool();
  return true;
}

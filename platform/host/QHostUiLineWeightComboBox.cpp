#include "QHostUiLineWeightComboBox.h"

namespace host_qt_ui
{

QHostUiLineWeightComboBox::QHostUiLineWeightComboBox(QWidget* parent)
  : QHostComboBox(parent), m_list(new QHostLineWeightListModel(this))
{
  setIconSize(QHostPictureListModel::pictureSize());
  rebuild();
}

void QHostUiLineWeightComboBox::setLineWeightOption(LineWeightOptions options)
{
  m_options = options;
  rebuild();
}

void QHostUiLineWeightComboBox::setDatabase(OdDbDatabase* database)
{
  m_list->setDatabase(database);
  rebuild();
}

void QHostUiLineWeightComboBox::rebuild()
{
  const bool hadCurrent = currentIndex() >= 0;
  const OdDb::LineWeight current = getSelectedWeight();
  const QSignalBlocker quiet(this);
  clear();
  m_list->init(int(m_options));
  m_list->appendTo(this);
  setCurrentIndex(hadCurrent ? findData(int(current), Qt::UserRole) : -1);
}

void QHostUiLineWeightComboBox::setLineweightByLayer(OdDb::LineWeight weight, bool resolved)
{
  const int row = findData(int(OdDb::kLnWtByLayer), Qt::UserRole);
  if (row >= 0)
    setItemIcon(row, QHostLineWeightListModel::weightPicture(resolved ? weight : OdDb::kLnWtByLayer));
}

void QHostUiLineWeightComboBox::setLineweightByDefault(OdDb::LineWeight weight)
{
  const int row = findData(int(OdDb::kLnWtByLwDefault), Qt::UserRole);
  if (row >= 0)
  {
    setItemIcon(row, QHostLineWeightListModel::weightPicture(weight));
    setItemData(row, QHostLineWeightListModel::weightText(weight), Qt::ToolTipRole);
  }
}

int QHostUiLineWeightComboBox::setSelectedWeight(OdDb::LineWeight weight)
{
  const int index = findData(int(weight), Qt::UserRole);
  setCurrentIndex(index);
  return index;
}

OdDb::LineWeight QHostUiLineWeightComboBox::getSelectedWeight() const
{
  const QVariant key = currentIndex() >= 0 ? itemData(currentIndex(), Qt::UserRole) : QVariant();
  if (key.userType() != QMetaType::Int || !OdDb::isLineWeight(key.toInt()))
    return OdDb::kLnWtByLayer;
  return OdDb::LineWeight(key.toInt());
}

} // namespace host_qt_ui

#include "QHostUiLineWeightComboBox.h"

#include "OdDbDatabase.h"

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
  // A control hands on all its options; only these decide the entries.
  const LineWeightOptions listed = LineWeightByLayer | LineWeightByBlock | LineWeightDefault;
  const bool sameEntries = (options & listed) == (m_options & listed);
  m_options = options;
  if (!sameEntries)
    rebuild();
}

void QHostUiLineWeightComboBox::setDatabase(OdDbDatabase* database)
{
  m_list->setDatabase(database);
  // Only Default stands for something the drawing decides; the other entries stay as they are.
  setLineweightByDefault(database ? database->getLWDEFAULT() : OdDb::kLnWt025);
}

void QHostUiLineWeightComboBox::rebuild()
{
  const bool hadCurrent = currentIndex() >= 0;
  const OdDb::LineWeight current = getSelectedWeight();
  const QSignalBlocker quiet(this);
  clear();
  m_list->init(int(m_options));
  m_list->appendTo(this);
  setCurrentIndex(hadCurrent ? m_list->findRow(current) : -1);
}

void QHostUiLineWeightComboBox::setLineweightByLayer(OdDb::LineWeight weight, bool resolved)
{
  // The entries are the list's rows, in its order: its rows are found without asking the combo's model.
  const int row = m_list->findRow(OdDb::kLnWtByLayer);
  if (row >= 0)
    showPicture(row, QHostLineWeightListModel::weightPicture(resolved ? weight : OdDb::kLnWtByLayer));
}

void QHostUiLineWeightComboBox::setLineweightByDefault(OdDb::LineWeight weight)
{
  const int row = m_list->findRow(OdDb::kLnWtByLwDefault);
  if (row < 0)
    return;
  showPicture(row, QHostLineWeightListModel::weightPicture(weight));
  const QString toolTip = QHostLineWeightListModel::weightText(weight);
  if (itemData(row, Qt::ToolTipRole).toString() != toolTip)
    setItemData(row, toolTip, Qt::ToolTipRole);
}

void QHostUiLineWeightComboBox::showPicture(int row, const QIcon& picture)
{
  // Every refresh of the control lands here, and nearly always finds the picture already shown.
  if (itemIcon(row).cacheKey() != picture.cacheKey())
    setItemIcon(row, picture);
}

int QHostUiLineWeightComboBox::setSelectedWeight(OdDb::LineWeight weight)
{
  const int index = m_list->findRow(weight);
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

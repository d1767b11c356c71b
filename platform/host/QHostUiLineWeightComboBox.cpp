#include "QHostUiLineWeightComboBox.h"

#include "OdDbDatabase.h"
#include "QHostComboBrowseFilter.h"
#include "hostQtPicture.h"

namespace host_qt_ui
{

QHostUiLineWeightComboBox::QHostUiLineWeightComboBox(QWidget* parent)
  : QHostComboBox(parent), m_list(new QHostLineWeightListModel(this))
{
  setIconSize(QHostPictureListModel::pictureSize());
  host_qt_ui_core::QHostComboBrowseFilter::install(this);
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
  m_byLayerShown = ShownWeight();
  m_byDefaultShown = ShownWeight();
  m_list->init(int(m_options));
  m_list->appendTo(this);
  setCurrentIndex(hadCurrent ? m_list->findRow(current) : -1);
}

void QHostUiLineWeightComboBox::setLineweightByLayer(OdDb::LineWeight weight, bool resolved)
{
  // The entries are the list's rows, in its order: its rows are found without asking the combo's model.
  const int row = m_list->findRow(OdDb::kLnWtByLayer);
  const OdDb::LineWeight shown = resolved ? weight : OdDb::kLnWtByLayer;
  if (row >= 0 && !m_byLayerShown.holds(*this, row, shown))
    m_byLayerShown.remember(*this, row, shown, QHostLineWeightListModel::weightPicture(shown));
}

void QHostUiLineWeightComboBox::setLineweightByDefault(OdDb::LineWeight weight)
{
  const int row = m_list->findRow(OdDb::kLnWtByLwDefault);
  if (row < 0 || m_byDefaultShown.holds(*this, row, weight))
    return;
  m_byDefaultShown.remember(*this, row, weight, QHostLineWeightListModel::weightPicture(weight));
  const QString toolTip = QHostLineWeightListModel::weightText(weight);
  if (itemData(row, Qt::ToolTipRole).toString() != toolTip)
    setItemData(row, toolTip, Qt::ToolTipRole);
}

bool QHostUiLineWeightComboBox::ShownWeight::holds(const QComboBox& combo, int row, OdDb::LineWeight wanted) const
{
  // Every refresh of the control lands here, and nearly always with the picture already shown.
  return picture != 0 && wanted == weight && hostQtPictureInk().rgba() == ink &&
         combo.itemIcon(row).cacheKey() == picture;
}

void QHostUiLineWeightComboBox::ShownWeight::remember(QComboBox& combo, int row, OdDb::LineWeight wanted,
                                                      const QIcon& shown)
{
  if (combo.itemIcon(row).cacheKey() != shown.cacheKey())
    combo.setItemIcon(row, shown);
  weight = wanted;
  ink = hostQtPictureInk().rgba();
  picture = shown.cacheKey();
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

#include "PropUiQLayerCtrl.h"

#include "OdDbDatabase.h"
#include "OdDbLayerTableRecord.h"
#include "OdStringQt.h"
#include "PropBag.h"
#include "PropUiCadPicker_p.h"
#include "PropUiCadSupport_p.h"
#include "PropUiDrawingLook_p.h"
#include "PropVariantConversions.h"
#include "hostDbPropBagCtx.h"
#include <QStandardItemModel>

PropUiQLayerCtrl::PropUiQLayerCtrl(QWidget* parent) : PropUiQComboBox(parent) {}

// The combo's row, without typing: a layer is chosen from the drawing's list.
bool PropUiQLayerCtrl::setupUi()
{
  PropUiQControl::setupUi();
  if (!m_bag)
    return false;
  buildComboRow(false, 1, [this]() {
    m_combo->setIconSize(pictureSize());
    propui::nameAfterItem(m_combo, m_bag, m_index);
  });
  // Second, so that the host redraws after the bag has the new layer.
  connect(m_combo.data(), QOverload<int>::of(&QComboBox::activated), this, &PropUiQControl::onUpdateDisplay);
  return true;
}

void PropUiQLayerCtrl::addItems()
{
  hostDbPropBagCtx* context = propui::databaseContextOf(m_bag);
  OdDbDatabase* database = context ? context->database() : nullptr;
  if (!m_combo || !database)
    return;
  auto* model = qobject_cast<QStandardItemModel*>(m_combo->model());
  const OdDbObjectId viewport = database->activeViewportId();
  for (const OdDbObjectId& id : database->getLayerIds())
  {
    const OdDbLayerTableRecord* layer = database->openLayer(id);
    if (!layer)
      continue;
    m_combo->addItem(propui::layerPicture(*layer, viewport), toQString(layer->getName()),
                     QVariant::fromValue<qulonglong>(id.getHandle()));
    // Greyed in the list and skipped by the keys; a pick that still reaches onActivated is refused there.
    if (model && context->isDisabledValue(m_index, propVariantFromObjectId(id)))
      model->item(m_combo->count() - 1)->setEnabled(false);
  }
}

void PropUiQLayerCtrl::updateData()
{
  PropUiQControl::updateData();
  propui::showValue(this, m_combo, m_lastIndex, [this](const PropVariant& value) {
    OdDbObjectId id;
    const int listed = propVariantToObjectId(value, id) && !id.isNull() ? m_combo->findKeyFast(id.getHandle()) : -1;
    return listed >= 0 ? listed : propui::extraEntry(this, m_combo, value);
  });
}

int PropUiQLayerCtrl::addTempItem(const PropVariant& value)
{
  if (!m_bag || !m_combo || value.isVaries())
    return -1;
  OdDbObjectId id;
  if (propVariantToObjectId(value, id) && !id.isNull())
  {
    const int listed = m_combo->findKeyFast(id.getHandle());
    if (listed >= 0)
      return listed;
  }
  return PropUiQComboBox::addTempItem(value);
}

void PropUiQLayerCtrl::onActivated(int index)
{
  if (!m_bag || !m_combo || index < 0 || index >= m_combo->count())
    return;
  const bool wasVaries = isVaries();
  if (wasVaries)
    setVaries(false);
  const QVariant key = m_combo->itemData(index, Qt::UserRole);
  if (key.userType() != QMetaType::ULongLong)
  {
    revertChoice(wasVaries);
    return; // the entry that shows the bag's own text stands for the value already there
  }
  const PropVariant value = propVariantFromObjectId(OdDbObjectId(key.toULongLong()));
  hostDbPropBagCtx* context = propui::databaseContextOf(m_bag);
  if (context && context->isDisabledValue(m_index, value))
  {
    revertChoice(wasVaries);
    return;
  }
  if (commitValue(value, CommitTarget::WholeItem, RefusalMessage::Error) != CommitResult::Written)
  {
    revertChoice(wasVaries);
    return;
  }
  dropStaleTempItem();
  m_lastIndex = m_combo->currentIndex();
}

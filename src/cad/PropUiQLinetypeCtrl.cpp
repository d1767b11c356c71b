#include "PropUiQLinetypeCtrl.h"

#include "PropBag.h"
#include "PropUiCadPicker_p.h"
#include "PropUiDrawingLook_p.h"
#include "PropVariantConversions.h"
#include "QHostUiLineTypeComboBox.h"

PropUiQLinetypeCtrl::PropUiQLinetypeCtrl(QWidget* parent) : PropUiQComboBox(parent)
{
  setOptions(PropUiOption::kLinetypeDefaults);
}

bool PropUiQLinetypeCtrl::setupUi()
{
  PropUiQControl::setupUi();
  auto* combo = propui::buildPicker<host_qt_ui::QHostUiLineTypeComboBox>(this);
  combo->setLineTypeOption(host_qt_ui::LineTypeOptions(getOptions()));
  propui::finishPicker(this, combo, m_combo, &PropUiQLinetypeCtrl::onActivated);
  return true;
}

void PropUiQLinetypeCtrl::updateUi()
{
  PropUiQControl::updateUi();
  if (!m_bag)
    return;
  auto* combo = qobject_cast<host_qt_ui::QHostUiLineTypeComboBox*>(m_combo.data());
  if (combo && (getOptions() & PropUiOption::kResolveByLayer))
    combo->setLinetypeByLayer(propui::byLayerLinetype(m_bag, m_index), true);
  showEditable(m_combo);
}

void PropUiQLinetypeCtrl::updateData()
{
  PropUiQControl::updateData();
  auto* combo = qobject_cast<host_qt_ui::QHostUiLineTypeComboBox*>(m_combo.data());
  propui::showValue(this, m_combo, m_lastIndex, [this, combo](const PropVariant& value) {
    const int listed = addTempItem(value);
    // "Other..." stays last, where the picker looks for it.
    return listed >= 0 || !combo ? listed : propui::extraEntry(this, combo, value, combo->chooserIndex());
  });
}

int PropUiQLinetypeCtrl::addTempItem(const PropVariant& value)
{
  auto* combo = qobject_cast<host_qt_ui::QHostUiLineTypeComboBox*>(m_combo.data());
  if (!m_bag || !combo || value.isVaries())
    return -1;
  OdDbObjectId id;
  if (!propVariantToObjectId(value, id))
    return -1;
  return combo->setSelectedLineType(id);
}

void PropUiQLinetypeCtrl::onActivated(int index)
{
  auto* combo = qobject_cast<host_qt_ui::QHostUiLineTypeComboBox*>(m_combo.data());
  if (!combo || index < 0 || index >= combo->count())
    return;
  if (index == combo->count() - 1 && (getOptions() & PropUiOption::kLinetypeChooserLast))
    return;
  const OdDbObjectId id = combo->selectedLineType();
  if (id.isNull())
    return; // a linetype is never the null id; nothing sensible to write
  const bool wasVaries = isVaries();
  if (wasVaries)
    setVaries(false);
  PropVariant value;
  value.setUInt64(id.getHandle());
  if (!propui::commitPick(this, value, m_combo, m_lastIndex) && wasVaries)
    setVaries(true);
}

#include "PropUiQLineweightCtrl.h"

#include "PropBag.h"
#include "PropUiCadPicker_p.h"
#include "PropUiDrawingLook_p.h"
#include "PropVariantConversions.h"
#include "QHostUiLineWeightComboBox.h"

PropUiQLineweightCtrl::PropUiQLineweightCtrl(QWidget* parent) : PropUiQComboBox(parent)
{
  setOptions(PropUiOption::kLineweightDefaults);
}

bool PropUiQLineweightCtrl::setupUi()
{
  PropUiQControl::setupUi();
  auto* combo = propui::buildPicker<host_qt_ui::QHostUiLineWeightComboBox>(this);
  combo->setLineWeightOption(host_qt_ui::LineWeightOptions(getOptions()));
  propui::finishPicker(this, combo, m_combo, &PropUiQLineweightCtrl::onActivated);
  return true;
}

void PropUiQLineweightCtrl::updateUi()
{
  PropUiQControl::updateUi();
  if (!m_bag)
    return;
  auto* combo = qobject_cast<host_qt_ui::QHostUiLineWeightComboBox*>(m_combo.data());
  if (combo && (getOptions() & PropUiOption::kResolveByDefault))
    combo->setLineweightByDefault(propui::defaultLineweight(m_bag, m_index));
  if (combo && (getOptions() & PropUiOption::kResolveByLayer))
    combo->setLineweightByLayer(propui::byLayerLineweight(m_bag, m_index), true);
  showEditable(m_combo);
}

void PropUiQLineweightCtrl::updateData()
{
  PropUiQControl::updateData();
  auto* combo = qobject_cast<host_qt_ui::QHostUiLineWeightComboBox*>(m_combo.data());
  propui::showValue(this, m_combo, m_lastIndex, [this, combo](const PropVariant& value) {
    OdDb::LineWeight weight;
    const int listed = combo && propVariantToLineweight(value, weight) ? combo->setSelectedWeight(weight) : -1;
    return listed >= 0 ? listed : propui::extraEntry(this, combo, value);
  });
}

void PropUiQLineweightCtrl::onActivated(int index)
{
  auto* combo = qobject_cast<host_qt_ui::QHostUiLineWeightComboBox*>(m_combo.data());
  if (!combo || index < 0 || index >= combo->count())
    return;
  const bool wasVaries = isVaries();
  if (wasVaries)
    setVaries(false);
  PropVariant value;
  value.setInt32(combo->getSelectedWeight());
  if (!propui::commitPick(this, value, m_combo, m_lastIndex) && wasVaries)
    setVaries(true);
}

#include "PropUiQLineweightCtrl.h"

#include "PropBag.h"
#include "PropUiCadSupport.h"
#include "PropUiCadPicker.h"
#include "PropVariantConversions.h"
#include "QHostUiLineWeightComboBox.h"
#include "hostDbPropBagCtx.h"

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
  hostDbPropBagCtx* context = propui::databaseContextOf(m_bag);
  auto* combo = qobject_cast<host_qt_ui::QHostUiLineWeightComboBox*>(m_combo.data());
  if (context && combo)
  {
    PropVariant resolved;
    bool flag = false;
    OdDb::LineWeight weight = OdDb::kLnWtByLayer;
    if ((getOptions() & PropUiOption::kResolveByDefault) &&
        context->translate(m_index, propVariantFromLineweight(OdDb::kLnWtByLwDefault), resolved, &flag) &&
        propVariantToLineweight(resolved, weight))
      combo->setLineweightByDefault(weight);
    if ((getOptions() & PropUiOption::kResolveByLayer) &&
        context->translate(m_index, propVariantFromLineweight(OdDb::kLnWtByLayer), resolved, &flag) &&
        propVariantToLineweight(resolved, weight))
      combo->setLineweightByLayer(weight, flag);
  }
  const bool editable = m_bag->isEditable(m_index, m_element);
  if (m_combo)
    m_combo->setEnabled(editable);
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

#include "PropUiQArrowheadCtrl.h"

#include "PropBag.h"
#include "PropUiCadPicker_p.h"
#include "PropVariantConversions.h"
#include "QHostUiArrowHeadComboBox.h"

PropUiQArrowheadCtrl::PropUiQArrowheadCtrl(QWidget* parent) : PropUiQComboBox(parent)
{
  setOptions(PropUiOption::kArrowheadDefaults);
}

bool PropUiQArrowheadCtrl::setupUi()
{
  PropUiQControl::setupUi();
  auto* combo = propui::buildPicker<host_qt_ui::QHostUiArrowHeadComboBox>(this);
  combo->setArrowOptions(host_qt_ui::ArrowOptions(getOptions()));
  propui::finishPicker(this, combo, m_combo, &PropUiQArrowheadCtrl::onActivated);
  return true;
}

void PropUiQArrowheadCtrl::updateData()
{
  PropUiQControl::updateData();
  auto* combo = qobject_cast<host_qt_ui::QHostUiArrowHeadComboBox*>(m_combo.data());
  if (!m_bag || !combo)
    return;
  PropVariant value;
  if (!readValue(value, CommitTarget::WholeItem))
    return;
  if (value.isVaries())
  {
    setVaries(true);
    return;
  }
  OdDbObjectId id;
  if (!propVariantToObjectId(value, id))
    return;
  if (isVaries())
    setVaries(false);
  combo->setSelected(id);
  m_lastIndex = combo->currentIndex();
}

void PropUiQArrowheadCtrl::onActivated(int index)
{
  auto* combo = qobject_cast<host_qt_ui::QHostUiArrowHeadComboBox*>(m_combo.data());
  if (!combo || index < 0 || index >= combo->count())
    return;
  OdDbObjectId id;
  // "User Arrow..." is current until its chooser closes; the block picked there comes as its own activation.
  if (!combo->getSelected(id))
    return;
  const bool wasVaries = isVaries();
  if (wasVaries)
    setVaries(false);
  if (!propui::commitPick(this, propVariantFromObjectId(id), m_combo, m_lastIndex) && wasVaries)
    setVaries(true);
}

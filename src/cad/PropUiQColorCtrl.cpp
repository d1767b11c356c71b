#include "PropUiQColorCtrl.h"

#include "PropBag.h"
#include "PropUiCadPicker_p.h"
#include "PropUiCadSupport_p.h"
#include "PropUiDrawingLook_p.h"
#include "PropVariantConversions.h"
#include "QHostUiColorComboBox.h"
#include "hostColors.h"
#include "hostDbPropBagCtx.h"
#include <QHBoxLayout>

PropUiQColorCtrl::PropUiQColorCtrl(QWidget* parent) : PropUiQComboBox(parent)
{
  setOptions(PropUiOption::kColorDefaults);
}

bool PropUiQColorCtrl::setupUi()
{
  PropUiQControl::setupUi();
  auto* layout = setupRow();
  auto* combo = new host_qt_ui::QHostUiColorComboBox(this, host_qt_ui::AppendOther);
  combo->setObjectName(QStringLiteral("combo"));
  combo->setColorOptions(host_qt_ui::ColorOptions(getOptions()));
  combo->disableMouseWheel(true);
  if (hostDbPropBagCtx* context = propui::databaseContextOf(m_bag))
    combo->setDatabase(context->database());
  m_combo = combo;
  m_combo->setMaxVisibleItems(30);
  if (m_combo && m_bag)
  {
    propui::nameAfterItem(combo, m_bag, m_index);
    useFocusReactor(combo);
    useFocusRedirect(combo, nullptr);
    connect(combo, QOverload<int>::of(&QComboBox::activated), this, &PropUiQColorCtrl::onActivated);
    layout->addWidget(combo, 1);
    // Second, so that the host redraws after the bag has the new colour.
    connect(combo, QOverload<int>::of(&QComboBox::activated), this, &PropUiQControl::onUpdateDisplay);
  }
  addActionsToolBar(layout);
  OdArray<OdCmColor> custom;
  hostGetCustomColors(custom);
  for (const OdCmColor& color : custom)
    combo->addColor(color);
  return true;
}

void PropUiQColorCtrl::updateUi()
{
  PropUiQControl::updateUi();
  if (!m_bag)
    return;
  auto* combo = qobject_cast<host_qt_ui::QHostUiColorComboBox*>(m_combo.data());
  if (combo && (getOptions() & PropUiOption::kResolveByLayer))
    combo->setColorByLayer(propui::byLayerColor(m_bag, m_index), true);
  showEditable(m_combo);
}

void PropUiQColorCtrl::updateData()
{
  PropUiQControl::updateData();
  propui::showValue(this, m_combo, m_lastIndex, [this](const PropVariant& value) { return addTempItem(value); });
}

int PropUiQColorCtrl::addTempItem(const PropVariant& value)
{
  auto* combo = qobject_cast<host_qt_ui::QHostUiColorComboBox*>(m_combo.data());
  if (!m_bag || !combo || value.isVaries())
    return -1;
  // A value that is no colour shows the default colour rather than nothing.
  OdCmColor color;
  propVariantToColor(value, color);
  return combo->setSelectedColor(color);
}

void PropUiQColorCtrl::onActivated(int index)
{
  auto* combo = qobject_cast<host_qt_ui::QHostUiColorComboBox*>(m_combo.data());
  if (!combo || index < 0 || index >= combo->count())
    return;
  if (index == combo->count() - 1 && (getOptions() & PropUiOption::kColorChooserLast))
    return;
  const OdCmColor color = combo->getSelectedColor();
  // Remembered before the bag answers: a colour the user went to the trouble of picking is kept.
  hostAddCustomColor(color);
  const bool wasVaries = isVaries();
  if (wasVaries)
    setVaries(false);
  const CommitResult result = commitValue(propVariantFromColor(color), CommitTarget::WholeItem, RefusalMessage::Error);
  if (result == CommitResult::Refused || result == CommitResult::Unbound)
  {
    if (result == CommitResult::Refused)
      revertChoice(wasVaries);
    return;
  }
  if (result == CommitResult::NotWritten)
    revertChoice(wasVaries);
  // After a failed write too: the entry picked becomes the one to fall back to.
  removeTempItem(m_lastIndex);
  m_lastIndex = index;
}

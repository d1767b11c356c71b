#include "PropUiQCheckBox.h"

#include "PropBag.h"
#include "PropUiBoolBox_p.h"

PropUiQCheckBox::PropUiQCheckBox(QWidget* parent) : PropUiQControl(parent) {}

bool PropUiQCheckBox::setupUi()
{
  PropUiQControl::setupUi();
  if (!m_bag)
    return false;
  m_checkBox = propui::buildCheckBox(this, false);
  connect(m_checkBox.data(), &QAbstractButton::clicked, this, &PropUiQCheckBox::onClicked);
  return true;
}

void PropUiQCheckBox::updateUi()
{
  PropUiQControl::updateUi();
  if (m_bag && m_checkBox)
    m_checkBox->setEnabled(m_bag->isEditable(m_index, m_element));
}

void PropUiQCheckBox::updateData()
{
  PropUiQControl::updateData();
  if (!m_bag || !m_checkBox)
    return;
  bool value = false;
  switch (propui::readBoolItem(this, m_checkBox, value))
  {
  case propui::BoolRead::Varies:
    setVaries(true);
    break;
  case propui::BoolRead::Value:
  {
    // Set only when it differs: unchecking a box makes Qt search its
    // siblings for an exclusive partner.
    const Qt::CheckState state = value ? Qt::Checked : Qt::Unchecked;
    const bool shown = !isVaries() && m_checkBox->checkState() == state;
    setVaries(false);
    m_lastState = state;
    if (!shown)
      m_checkBox->setCheckState(state);
    break;
  }
  default:
    break; // unreadable or not a boolean: the box stays as it is
  }
}

bool PropUiQCheckBox::isVaries() const
{
  return m_checkBox && m_checkBox->checkState() == Qt::PartiallyChecked;
}

void PropUiQCheckBox::setVaries(bool varies)
{
  if (!m_checkBox)
    return;
  if (varies)
  {
    m_checkBox->setTristate(true);
    m_checkBox->setCheckState(Qt::PartiallyChecked);
  }
  else
  {
    m_checkBox->setTristate(false);
  }
}

void PropUiQCheckBox::onClicked(bool)
{
  if (!m_bag || !m_checkBox)
    return;
  // The click has already moved the box out of its partial look; the third
  // state must not come back on the next click.
  const bool wasVaries = m_checkBox->isTristate();
  if (wasVaries)
    setVaries(false);
  PropVariant value;
  value.setBool(m_checkBox->checkState() == Qt::Checked);
  if (commitValue(value) == CommitResult::Written)
    m_lastState = m_checkBox->checkState();
  else if (wasVaries)
    setVaries(true); // the selection still disagrees
  else
    m_checkBox->setCheckState(m_lastState);
}

#include "PropUiQSwitchBox.h"

#include "PropBag.h"
#include "PropUiBoolBox_p.h"

PropUiQSwitchBox::PropUiQSwitchBox(QWidget* parent) : PropUiQControl(parent) {}

bool PropUiQSwitchBox::setupUi()
{
  PropUiQControl::setupUi();
  if (!m_bag)
    return false;
  m_checkBox = propui::buildCheckBox(this, true);
  connect(m_checkBox.data(), &QAbstractButton::clicked, this, &PropUiQSwitchBox::onClicked);
  return true;
}

void PropUiQSwitchBox::updateUi()
{
  PropUiQControl::updateUi();
  if (m_bag && m_checkBox)
    m_checkBox->setEnabled(m_bag->isEditable(m_index, m_element));
}

void PropUiQSwitchBox::updateData()
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
    m_lastChecked = value;
    if (!shown)
      m_checkBox->setCheckState(state);
    break;
  }
  default:
    break; // unreadable or not a boolean: the box stays as it is
  }
}

bool PropUiQSwitchBox::isVaries() const
{
  return m_varies;
}

// The box shows the third state only while the values differ: a click takes
// it to on, and the next click must not come back to the middle.
void PropUiQSwitchBox::setVaries(bool varies)
{
  m_varies = varies;
  if (!m_checkBox)
    return;
  m_checkBox->setTristate(varies);
  if (varies)
    m_checkBox->setCheckState(Qt::PartiallyChecked);
}

void PropUiQSwitchBox::onClicked(bool)
{
  if (!m_bag || !m_checkBox)
    return;
  const bool wasVaries = isVaries();
  if (wasVaries)
    setVaries(false);
  PropVariant value;
  value.setBool(m_checkBox->checkState() == Qt::Checked);
  if (commitValue(value) == CommitResult::Written)
    m_lastChecked = m_checkBox->checkState() == Qt::Checked;
  else if (wasVaries)
    setVaries(true); // the selection still disagrees
  else
    m_checkBox->setCheckState(m_lastChecked ? Qt::Checked : Qt::Unchecked);
}

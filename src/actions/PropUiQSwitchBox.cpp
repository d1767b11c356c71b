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
  showEditable(m_checkBox);
}

void PropUiQSwitchBox::updateData()
{
  PropUiQControl::updateData();
  bool value = false;
  if (propui::showBoolItem(this, m_checkBox, value))
    m_lastChecked = value;
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
  if (m_bag && m_checkBox &&
      propui::commitClickedState(this, m_checkBox, isVaries(), m_lastChecked ? Qt::Checked : Qt::Unchecked))
    m_lastChecked = m_checkBox->checkState() == Qt::Checked;
}

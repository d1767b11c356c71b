#include "PropUiQSwitchBox.h"

#include "OdStringQt.h"
#include "PropBag.h"
#include "PropUiCheckBoxLayout.h"

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
  if (m_bag->getFlags(m_index) & PropBag::kCaptionOnCheckBox)
  {
    OdString name;
    if (m_bag->getName(m_index, name))
      m_checkBox->setText(toQString(name));
  }
  PropVariant value;
  const bool read = m_isPropertyElement ? m_bag->getElementValue(m_index, m_element, value)
                                        : m_bag->getValue(m_index, value);
  if (!read)
    return;
  if (value.isVaries())
  {
    setVaries(true);
  }
  else if ((value.type() & PropVariant::kBool) && !value.hasNoData())
  {
    setVaries(false);
    m_lastChecked = value.getBool();
    m_checkBox->setCheckState(m_lastChecked ? Qt::Checked : Qt::Unchecked);
  }
}

bool PropUiQSwitchBox::isVaries() const
{
  return m_varies;
}

void PropUiQSwitchBox::setVaries(bool varies)
{
  m_varies = varies;
}

void PropUiQSwitchBox::onClicked(bool)
{
  if (!m_bag || !m_checkBox)
    return;
  if (isVaries())
    setVaries(false);
  PropVariant value;
  value.setBool(m_checkBox->checkState() == Qt::Checked);
  const Qt::CheckState confirmed = m_lastChecked ? Qt::Checked : Qt::Unchecked;
  OdString message;
  if (!m_bag->validate(m_index, m_element, value, message))
  {
    showErrorMessage(message);
    m_checkBox->setCheckState(confirmed);
    return;
  }
  const bool written = m_isPropertyElement ? m_bag->setElementValue(m_index, m_element, value)
                                           : m_bag->setValue(m_index, value);
  if (written)
    m_lastChecked = m_checkBox->checkState() == Qt::Checked;
  else
    m_checkBox->setCheckState(confirmed);
}

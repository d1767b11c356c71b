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
  if (!readValue(value))
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
  if (validateAndWrite(value))
    m_lastChecked = m_checkBox->checkState() == Qt::Checked;
  else
    m_checkBox->setCheckState(m_lastChecked ? Qt::Checked : Qt::Unchecked);
}

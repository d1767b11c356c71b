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
  showEditable(m_checkBox);
}

void PropUiQCheckBox::updateData()
{
  PropUiQControl::updateData();
  bool value = false;
  if (propui::showBoolItem(this, m_checkBox, value))
    m_lastState = value ? Qt::Checked : Qt::Unchecked;
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

// The click has already moved the box out of its partial look: the third
// state is told by the box still being tristate, and must not come back on
// the next click.
void PropUiQCheckBox::onClicked(bool)
{
  if (m_bag && m_checkBox &&
      propui::commitClickedState(this, m_checkBox, m_checkBox->isTristate(), m_lastState))
    m_lastState = m_checkBox->checkState();
}

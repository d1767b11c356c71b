#include "PropUiQTextSwitchBox.h"

#include "PropUiTextCaption_p.h"
#include "PropUiTexts_p.h"

PropUiQTextSwitchBox::PropUiQTextSwitchBox(QWidget* parent) : PropUiQSwitchBox(parent) {}

void PropUiQTextSwitchBox::updateData()
{
  PropUiQSwitchBox::updateData();
  if (!isVaries())
    propui::showListedCaption(m_bag, m_index, m_checkBox);
}

void PropUiQTextSwitchBox::setVaries(bool varies)
{
  PropUiQSwitchBox::setVaries(varies);
  if (!m_checkBox)
    return;
  m_checkBox->setCaptionDimmed(varies);
  if (varies)
    m_checkBox->setText(PropUiTexts::varies());
}

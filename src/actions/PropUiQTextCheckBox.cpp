#include "PropUiQTextCheckBox.h"

#include "PropUiTextCaption_p.h"
#include "PropUiTexts_p.h"

PropUiQTextCheckBox::PropUiQTextCheckBox(QWidget* parent) : PropUiQCheckBox(parent) {}

void PropUiQTextCheckBox::updateData()
{
  PropUiQCheckBox::updateData();
  if (!isVaries())
    propui::showListedCaption(m_bag, m_index, m_checkBox);
}

void PropUiQTextCheckBox::setVaries(bool varies)
{
  PropUiQCheckBox::setVaries(varies);
  if (!m_checkBox)
    return;
  m_checkBox->setCaptionDimmed(varies);
  if (varies)
    m_checkBox->setText(PropUiTexts::varies());
}

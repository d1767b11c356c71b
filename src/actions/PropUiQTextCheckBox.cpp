#include "PropUiQTextCheckBox.h"

#include "PropUiTextCaption.h"
#include "PropUiTexts.h"

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
  if (varies && m_checkBox)
    m_checkBox->setText(PropUiTexts::varies());
}

#include "DataHelper.h"

#include <QComboBox>

void DataHelper::init(int index, const QString& text)
{
  m_index = index;
  m_text = index < 0 ? text : QString();
}

void DataHelper::clear()
{
  m_index = -1;
  m_text.clear();
}

void DataHelper::restore(QComboBox* combo) const
{
  if (!combo)
    return;
  combo->setCurrentIndex(m_index);
  if (m_index >= 0)
    return;
  if (combo->isEditable())
    combo->setEditText(m_text);
  else
    combo->setCurrentText(m_text);
}

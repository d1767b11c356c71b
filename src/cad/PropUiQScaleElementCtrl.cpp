#include "PropUiQScaleElementCtrl.h"

#include "OdStringQt.h"
#include "PropBag.h"

PropUiQScaleElementCtrl::PropUiQScaleElementCtrl(QWidget* parent) : PropUiQDoubleCtrl(parent) {}

bool PropUiQScaleElementCtrl::applyData()
{
  if (m_nonUniform)
    return PropUiQDoubleCtrl::applyData();
  if (!m_bag || !m_edit || m_edit->text() == m_lastText)
    return false;
  PropVariant parsed;
  const unsigned int numbers = PropVariant::kDouble | PropVariant::kInt16 | PropVariant::kInt32 | PropVariant::kInt64;
  const bool isNumber = m_bag->parseValue(m_index, m_element, toOdString(m_edit->text().trimmed()), parsed) &&
                        !parsed.isArray() && (parsed.scalarType() & numbers);
  if (!isNumber)
  {
    m_edit->setText(m_lastText);
    return false;
  }
  const double number = parsed.getDouble();
  OdDoubleArray both;
  both.append(number);
  both.append(number);
  PropVariant scale;
  scale.setDoubleArray(both);
  // The scale is one value: locked, both numbers go to the bag together.
  if (commitValue(scale, CommitTarget::WholeItem) != CommitResult::Written)
  {
    m_edit->setText(m_lastText);
    return false;
  }
  m_lastText = m_edit->text();
  emit uniformWritten();
  return true;
}

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
  bool evaluated = false;
  const unsigned int numbers = PropVariant::kDouble | PropVariant::kInt16 | PropVariant::kInt32 | PropVariant::kInt64;
  if (!readTypedValue(parsed, evaluated) || parsed.isArray() || !(parsed.scalarType() & numbers))
  {
    refuseEdit();
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
    refuseEdit();
    return false;
  }
  confirmEdit(parsed, evaluated);
  Q_EMIT uniformWritten();
  return true;
}

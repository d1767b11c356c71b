#include "PropUiQScale2d.h"

#include "PropBag.h"
#include "PropUiCompositeForm_p.h"
#include "PropUiIcons.h"
#include "PropUiQScaleElementCtrl.h"
#include "PropUiRefresh_p.h"
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QToolButton>
#include <cmath>

PropUiQScale2d::PropUiQScale2d(QWidget* parent) : PropUiQControl(parent) {}

bool PropUiQScale2d::setupUi()
{
  PropUiQControl::setupUi();
  if (!m_bag)
    return false;
  auto* outer = setupRow(-1);
  QFormLayout* form = PropUiCompositeForm::makeForm();
  outer->addLayout(form);

  PropVariant value;
  double x = 0;
  double y = 0;
  const bool nonUniform =
    readValue(value, CommitTarget::WholeItem) && twoNumbers(value, x, y) && std::fabs(x - y) > kUniformTolerance;
  const QString name = PropUiCompositeForm::itemName(m_bag, m_index);
  const QString letters[] = {QStringLiteral("X"), QStringLiteral("Y")};
  for (unsigned long a = 0; a < 2; ++a)
  {
    auto* child = new PropUiQScaleElementCtrl(this);
    child->setNonUniform(nonUniform);
    PropUiCompositeForm::addElementRow(form, this, m_bag, m_index, a, name + QLatin1Char(' ') + letters[a], child);
    connect(child, &PropUiQScaleElementCtrl::uniformWritten, this, &PropUiQScale2d::refreshFromBag);
    (a == 0 ? m_x : m_y) = child;
  }

  auto* button = new QToolButton(this);
  button->setObjectName(QStringLiteral("lockButton"));
  button->setToolTip(tr("Edit scale non-uniformly"));
  button->setAccessibleName(tr("%1: edit scale non-uniformly").arg(name));
  button->setCheckable(true);
  button->setChecked(nonUniform);
  button->setIcon(propUiGetIcon(nonUniform ? QStringLiteral("unlock") : QStringLiteral("lock")));
  if (m_x && m_x->lineEdit())
    button->setFixedHeight(m_x->lineEdit()->sizeHint().height());
  m_lockButton = button;
  connect(button, &QToolButton::toggled, this, &PropUiQScale2d::onNonUniformChanged);
  outer->addWidget(button);
  return true;
}

void PropUiQScale2d::updateUi()
{
  PropUiQControl::updateUi();
  for (PropUiQScaleElementCtrl* child : {m_x.data(), m_y.data()})
    if (child)
      child->updateUi();
}

void PropUiQScale2d::updateData()
{
  PropUiQControl::updateData();
  for (PropUiQScaleElementCtrl* child : {m_x.data(), m_y.data()})
    if (child)
      child->updateData();
}

PropUiQScaleElementCtrl* PropUiQScale2d::element(int a) const
{
  return a == 0 ? m_x.data() : a == 1 ? m_y.data() : nullptr;
}

bool PropUiQScale2d::twoNumbers(const PropVariant& value, double& x, double& y)
{
  if (value.isVaries() || value.hasNoData() || !value.isArray())
    return false;
  if (value.scalarType() == PropVariant::kDouble)
  {
    const OdDoubleArray& numbers = value.getDoubleArray();
    if (numbers.size() != 2)
      return false;
    x = numbers[0];
    y = numbers[1];
    return true;
  }
  if (value.scalarType() == PropVariant::kInt32)
  {
    const OdInt32Array& numbers = value.getInt32Array();
    if (numbers.size() != 2)
      return false;
    x = numbers[0];
    y = numbers[1];
    return true;
  }
  return false;
}

void PropUiQScale2d::onNonUniformChanged(bool nonUniform)
{
  PropVariant value;
  if (!m_bag || !readValue(value, CommitTarget::WholeItem))
  {
    // The bag did not answer: the button goes back to what the numbers do.
    showLocked(!(m_x && m_x->isNonUniform()));
    return;
  }
  if (nonUniform)
  {
    showLocked(false);
    return;
  }
  // A scale that varies, or is not two numbers, is locked without a write:
  // there is no one X to copy, and the next edit writes both numbers anyway.
  double x = 0;
  double y = 0;
  if (twoNumbers(value, x, y) && std::fabs(x - y) > kUniformTolerance)
  {
    OdDoubleArray both;
    both.append(x);
    both.append(x);
    PropVariant scale;
    scale.setDoubleArray(both);
    if (commitValue(scale, CommitTarget::WholeItem) != CommitResult::Written)
    {
      showLocked(false);
      return;
    }
  }
  showLocked(true);
  propui::refreshQuietly(this);
}

void PropUiQScale2d::showLocked(bool locked)
{
  for (PropUiQScaleElementCtrl* child : {m_x.data(), m_y.data()})
    if (child)
      child->setNonUniform(!locked);
  if (!m_lockButton)
    return;
  const QSignalBlocker quiet(m_lockButton.data());
  m_lockButton->setChecked(!locked);
  m_lockButton->setIcon(propUiGetIcon(locked ? QStringLiteral("lock") : QStringLiteral("unlock")));
}

void PropUiQScale2d::refreshFromBag()
{
  propui::refreshQuietly(this);
}

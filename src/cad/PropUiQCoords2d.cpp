#include "PropUiQCoords2d.h"

#include "PropBag.h"
#include "PropUiCompositeForm_p.h"
#include "PropUiQDistanceCtrl.h"
#include "PropUiRefresh_p.h"
#include "QHostSpinBox.h"
#include <QFormLayout>

namespace
{
constexpr unsigned long kAxes = 2;
}

PropUiQCoords2d::PropUiQCoords2d(QWidget* parent) : PropUiQControl(parent) {}

bool PropUiQCoords2d::setupUi()
{
  PropUiQControl::setupUi();
  if (!m_bag)
    return false;
  QFormLayout* form = PropUiCompositeForm::makeForm();
  adoptLayout(form);
  QString name = PropUiCompositeForm::itemName(m_bag, m_index);
  m_groupSpinBox = PropUiCompositeForm::addGroupRow(form, this, m_bag, m_index, name);
  if (m_groupSpinBox)
    connect(m_groupSpinBox.data(), QOverload<int>::of(&QSpinBox::valueChanged), this, &PropUiQCoords2d::onGroupChanged);
  name += QLatin1Char(' ');
  const QString letters[] = {QStringLiteral("X"), QStringLiteral("Y")};
  for (unsigned long a = 0; a < kAxes; ++a)
  {
    auto* child = new PropUiQDistanceCtrl(this);
    PropUiCompositeForm::addElementRow(form, this, m_bag, m_index, a, name + letters[a], child);
    (a == 0 ? m_x : m_y) = child;
  }
  return true;
}

void PropUiQCoords2d::updateUi()
{
  PropUiQControl::updateUi();
  for (PropUiQDistanceCtrl* child : {m_x.data(), m_y.data()})
    if (child)
      child->updateUi();
}

void PropUiQCoords2d::updateData()
{
  PropUiQControl::updateData();
  for (PropUiQDistanceCtrl* child : {m_x.data(), m_y.data()})
    if (child)
      child->updateData();
}

void PropUiQCoords2d::onGroupChanged()
{
  if (!m_bag || !m_groupSpinBox)
    return;
  const unsigned long first = static_cast<unsigned long>(m_groupSpinBox->value() - 1) * kAxes;
  for (unsigned long a = 0; a < kAxes; ++a)
    if (PropUiQDistanceCtrl* child = axis(int(a)))
    {
      child->setPropBagItem(m_bag, m_index, first + a);
      // Elements of one point may differ in whether they can be edited.
      child->updateUi();
    }
  propui::refreshQuietly(this);
}

PropUiQDistanceCtrl* PropUiQCoords2d::axis(int a) const
{
  return a == 0 ? m_x.data() : a == 1 ? m_y.data() : nullptr;
}

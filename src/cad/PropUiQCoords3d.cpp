#include "PropUiQCoords3d.h"

#include "PropBag.h"
#include "PropUiCompositeForm_p.h"
#include "PropUiQDistanceCtrl.h"
#include "PropUiRefresh_p.h"
#include "QHostSpinBox.h"
#include <QFormLayout>
#include <QHBoxLayout>

namespace
{
// The stride of a point, also when only two of its numbers are shown.
constexpr unsigned long kStride = 3;
}

PropUiQCoords3d::PropUiQCoords3d(QWidget* parent) : PropUiQControl(parent) {}

bool PropUiQCoords3d::setupUi()
{
  PropUiQControl::setupUi();
  m_axes.clear();
  if (!m_bag)
    return false;
  auto* outer = setupRow(-1);
  QFormLayout* form = PropUiCompositeForm::makeForm();
  outer->addLayout(form);
  QString name = PropUiCompositeForm::itemName(m_bag, m_index);
  m_groupSpinBox = PropUiCompositeForm::addGroupRow(form, this, m_bag, m_index, name);
  if (m_groupSpinBox)
    connect(m_groupSpinBox.data(), QOverload<int>::of(&QSpinBox::valueChanged), this, &PropUiQCoords3d::onGroupChanged);
  name += QLatin1Char(' ');
  const QString letters[] = {QStringLiteral("X"), QStringLiteral("Y"), QStringLiteral("Z")};
  const unsigned long axes = (m_options & PropUiOption::kTwoAxes) ? 2 : 3;
  for (unsigned long a = 0; a < axes; ++a)
  {
    auto* child = new PropUiQDistanceCtrl(this);
    child->disableActionsToolbar(true);
    PropUiCompositeForm::addElementRow(form, this, m_bag, m_index, a, name + letters[a], child);
    m_axes.append(child);
  }
  addActionsToolBar(outer);
  return true;
}

void PropUiQCoords3d::updateUi()
{
  PropUiQControl::updateUi();
  for (PropUiQDistanceCtrl* child : qAsConst(m_axes))
    if (child)
      child->updateUi();
}

void PropUiQCoords3d::updateData()
{
  PropUiQControl::updateData();
  for (PropUiQDistanceCtrl* child : qAsConst(m_axes))
    if (child)
      child->updateData();
}

void PropUiQCoords3d::onGroupChanged()
{
  if (!m_bag || !m_groupSpinBox)
    return;
  const unsigned long first = static_cast<unsigned long>(m_groupSpinBox->value() - 1) * kStride;
  for (int a = 0; a < m_axes.size(); ++a)
    if (PropUiQDistanceCtrl* child = m_axes[a])
    {
      child->setPropBagItem(m_bag, m_index, first + static_cast<unsigned long>(a));
      child->updateUi();
    }
  propui::refreshQuietly(this);
}

PropUiQDistanceCtrl* PropUiQCoords3d::axis(int a) const
{
  return a >= 0 && a < m_axes.size() ? m_axes[a].data() : nullptr;
}

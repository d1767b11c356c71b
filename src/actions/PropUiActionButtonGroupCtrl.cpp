#include "PropUiActionButtonGroupCtrl.h"

#include "PropAction.h"
#include "PropBag.h"
#include "PropUiCollectorFocusPolicyFilter.h"
#include <QAbstractButton>
#include <QButtonGroup>
#include <QHBoxLayout>

PropUiActionButtonGroupCtrl::PropUiActionButtonGroupCtrl(QWidget* parent) : PropUiQControl(parent) {}

bool PropUiActionButtonGroupCtrl::setupUi()
{
  PropUiQControl::setupUi();
  auto* outer = new QHBoxLayout(this);
  outer->setContentsMargins(0, 0, 0, 0);
  outer->setSpacing(2);
  if (!(m_options & kNoFocusButtons))
  {
    setFocusPolicy(Qt::StrongFocus);
    new PropUiCollectorFocusPolicyFilter(this);
    useFocusReactor(this);
  }
  if (m_options & kAlignRight)
    outer->addSpacerItem(new QSpacerItem(0, 0, QSizePolicy::Expanding, QSizePolicy::Minimum));
  auto* inner = new QHBoxLayout;
  inner->setContentsMargins(0, 0, 0, 0);
  inner->setSpacing(0);
  outer->addLayout(inner);
  if (m_options & kAlignLeft)
    outer->addSpacerItem(new QSpacerItem(0, 0, QSizePolicy::Expanding, QSizePolicy::Minimum));
  m_buttonGroup = new QButtonGroup(this);
  connect(m_buttonGroup.data(), &QButtonGroup::idClicked, this, &PropUiActionButtonGroupCtrl::onIdClicked);
  return true;
}

void PropUiActionButtonGroupCtrl::updateUi()
{
  PropUiQControl::updateUi();
}

QHBoxLayout* PropUiActionButtonGroupCtrl::buttonsLayout() const
{
  auto* outer = qobject_cast<QHBoxLayout*>(layout());
  if (!outer)
    return nullptr;
  QLayoutItem* item = outer->itemAt((m_options & kAlignRight) ? 1 : 0);
  return item ? qobject_cast<QHBoxLayout*>(item->layout()) : nullptr;
}

void PropUiActionButtonGroupCtrl::updateData()
{
  PropUiQControl::updateData();
  QHBoxLayout* inner = buttonsLayout();
  if (!m_bag || !m_buttonGroup || !inner)
    return;
  PropActionArray actions;
  const int count = int(m_bag->getActions(m_index, m_element, actions));
  const int available = int(actions.size()) < count ? int(actions.size()) : count;

  while (inner->count() > available)
  {
    QLayoutItem* item = inner->takeAt(available);
    delete item->widget();
    delete item;
  }
  while (inner->count() < available)
  {
    QAbstractButton* button = createBtn();
    useFocusReactor(button);
    if (m_options & kNoFocusButtons)
      button->setFocusPolicy(Qt::NoFocus);
    inner->addWidget(button);
    m_buttonGroup->addButton(button, -1);
  }
  // Ids are positions in the list as it was read just now.
  const QList<QAbstractButton*> buttons = m_buttonGroup->buttons();
  for (int i = 0; i < buttons.size() && i < available; ++i)
  {
    updateBtn(buttons[i], actions[unsigned(i)].get());
    m_buttonGroup->setId(buttons[i], i);
  }
}

void PropUiActionButtonGroupCtrl::onIdClicked(int id)
{
  if (id < 0 || !m_bag)
    return;
  PropActionArray actions;
  if (m_bag->getActions(m_index, m_element, actions) == 0 || unsigned(id) >= actions.size())
    return;
  m_bag->executeAction(m_index, actions[unsigned(id)].get());
}

#include "PropUiActionButtonGroupCtrl.h"

#include "PropAction.h"
#include "PropBag.h"
#include "PropUiActionButtonWidth_p.h"
#include "PropUiButtonRow_p.h"
#include <QAbstractButton>
#include <QEvent>
#include <QButtonGroup>
#include <QHBoxLayout>

PropUiActionButtonGroupCtrl::PropUiActionButtonGroupCtrl(QWidget* parent) : PropUiQControl(parent) {}

bool PropUiActionButtonGroupCtrl::setupUi()
{
  PropUiQControl::setupUi();
  propui::buildButtonRow(this);
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
  return propui::buttonRowOf(this, m_options);
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

  propui::fitButtonRow(this, inner, m_buttonGroup, available,
                       [this]() {
                         QAbstractButton* button = createBtn();
                         button->installEventFilter(this);
                         return button;
                       },
                       [](QAbstractButton*) {});
  // Ids are positions in the list as it was read just now.
  const QList<QAbstractButton*> buttons = m_buttonGroup->buttons();
  for (int i = 0; i < buttons.size() && i < available; ++i)
  {
    updateBtn(buttons[i], actions[unsigned(i)].get());
    m_buttonGroup->setId(buttons[i], i);
  }
  m_actions = actions;
  // Without actions there is nothing to press, and nothing to name: no Tab stop.
  setTabStop(available > 0);
}

// A refresh measures a caption only when it changed; a new font or style
// (a style sheet's, applied when the button is first polished) changes the
// measure without the caption changing.
bool PropUiActionButtonGroupCtrl::eventFilter(QObject* watched, QEvent* event)
{
  if ((event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) && watched->parent() == this)
    if (auto* button = qobject_cast<QAbstractButton*>(watched))
      propui::fitActionButtonWidth(button);
  return PropUiQControl::eventFilter(watched, event);
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

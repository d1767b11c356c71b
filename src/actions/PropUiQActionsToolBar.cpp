#include "PropUiQActionsToolBar.h"

#include "PropAction.h"
#include "PropBag.h"
#include "PropUiQAction.h"
#include "PropUiRefresh_p.h"
#include <QHBoxLayout>
#include <QToolBar>

PropUiQActionsToolBar::PropUiQActionsToolBar(QWidget* parent) : PropUiQControl(parent) {}

bool PropUiQActionsToolBar::setupUi()
{
  PropUiQControl::setupUi();
  if (m_toolBar)
    return true;
  auto* layout = setupRow(-1);
  m_toolBar = new QToolBar(this);
  m_toolBar->setObjectName(QStringLiteral("toolBar"));
  m_toolBar->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Minimum);
  m_toolBar->setFixedHeight(24);
  m_toolBar->setIconSize(QSize(16, 16));
  layout->addWidget(m_toolBar);
  connect(m_toolBar, &QToolBar::actionTriggered, this, &PropUiQActionsToolBar::onActionTriggered);
  return true;
}

void PropUiQActionsToolBar::updateData()
{
  PropUiQControl::updateData();
  if (!m_bag || !m_toolBar)
    return;
  PropActionArray actions;
  const int count = int(m_bag->getActions(m_index, m_element, actions));
  const int available = int(actions.size()) < count ? int(actions.size()) : count;
  while (m_toolBar->actions().size() > available)
  {
    QAction* surplus = m_toolBar->actions().at(available);
    m_toolBar->removeAction(surplus);
    // It may be the action being triggered just now.
    surplus->deleteLater();
  }
  while (m_toolBar->actions().size() < available)
    m_toolBar->addAction(new PropUiQAction(m_toolBar));
  const QList<QAction*> current = m_toolBar->actions();
  for (int i = 0; i < available; ++i)
    if (auto* mirror = qobject_cast<PropUiQAction*>(current[i]))
      mirror->setPropAction(actions[unsigned(i)].get());
  // A button may be pressed long after this list was read: what it points to must still be there.
  m_actions = actions;
}

void PropUiQActionsToolBar::onActionTriggered(QAction* action)
{
  auto* mirror = qobject_cast<PropUiQAction*>(action);
  if (!mirror || !m_bag || !mirror->getPropAction())
    return;
  if (m_bag->executeAction(m_index, mirror->getPropAction()))
    if (auto* embedding = qobject_cast<PropUiQWidget*>(parentWidget()))
      propui::refreshQuietly(embedding);
}

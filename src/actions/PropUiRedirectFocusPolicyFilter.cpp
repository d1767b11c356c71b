#include "PropUiRedirectFocusPolicyFilter.h"

#include <QEvent>

PropUiRedirectFocusPolicyFilter::PropUiRedirectFocusPolicyFilter(QWidget* parent) : PropUiQEventFilter(parent) {}

void PropUiRedirectFocusPolicyFilter::setup(QWidget* watched, QWidget* target)
{
  if (target != m_target && m_active && m_policyLent && m_target)
    m_target->setFocusPolicy(m_savedPolicy);
  m_active = false;
  m_policyLent = false;
  m_target = target;

  if (m_watched)
    m_watched->removeEventFilter(this);
  m_watched = watched;
  if (m_watched)
  {
    m_watched->installEventFilter(this);
    if (!m_watched->isEnabled())
      lend();
  }
}

void PropUiRedirectFocusPolicyFilter::lend()
{
  if (!m_target || m_policyLent)
    return;
  m_active = true;
  m_savedPolicy = m_target->focusPolicy();
  // A target that takes focus on its own needs nothing lent.
  if (m_savedPolicy != Qt::NoFocus)
    return;
  m_policyLent = true;
  m_target->setFocusPolicy(m_watched ? m_watched->focusPolicy() : Qt::StrongFocus);
}

void PropUiRedirectFocusPolicyFilter::restore()
{
  if (m_active && m_policyLent && m_target)
    m_target->setFocusPolicy(m_savedPolicy);
  m_active = false;
  m_policyLent = false;
}

bool PropUiRedirectFocusPolicyFilter::eventFilter(QObject* watched, QEvent* event)
{
  if (watched == m_watched && event->type() == QEvent::EnabledChange)
  {
    // Only a change of the enabled state re-decides; showing or hiding alone does not.
    if (!m_watched->isEnabled() || !m_watched->testAttribute(Qt::WA_WState_Visible))
      lend();
    else
      restore();
  }
  return QObject::eventFilter(watched, event);
}

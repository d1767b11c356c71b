#include "PropUiCollectorFocusPolicyFilter.h"

#include <QChildEvent>
#include <QWidget>

PropUiCollectorFocusPolicyFilter::PropUiCollectorFocusPolicyFilter(QWidget* container)
  : PropUiQEventFilter(container)
{
  if (!container)
    return;
  container->installEventFilter(this);
  for (QObject* child : container->children())
    if (child->isWidgetType())
      child->installEventFilter(this);
  recompute();
}

QWidget* PropUiCollectorFocusPolicyFilter::container() const
{
  return qobject_cast<QWidget*>(parent());
}

void PropUiCollectorFocusPolicyFilter::recompute()
{
  QWidget* box = container();
  if (!box)
    return;
  bool focusable = false;
  for (QObject* child : box->children())
  {
    auto* widget = qobject_cast<QWidget*>(child);
    if (widget && widget->isEnabled() && widget->isVisibleTo(box) && widget->focusPolicy() != Qt::NoFocus)
    {
      focusable = true;
      break;
    }
  }
  if (focusable && !m_collected)
  {
    m_collected = true;
    m_savedPolicy = box->focusPolicy();
    box->setFocusPolicy(Qt::NoFocus);
  }
  else if (!focusable && m_collected)
  {
    m_collected = false;
    box->setFocusPolicy(m_savedPolicy);
  }
}

bool PropUiCollectorFocusPolicyFilter::eventFilter(QObject* watched, QEvent* event)
{
  QWidget* box = container();
  if (watched == box)
  {
    // New children are watched, but only a change of their enabled state re-decides.
    if (event->type() == QEvent::ChildAdded || event->type() == QEvent::ChildRemoved)
    {
      QObject* child = static_cast<QChildEvent*>(event)->child();
      if (child && child->isWidgetType())
      {
        if (event->type() == QEvent::ChildAdded)
          child->installEventFilter(this);
        else
          child->removeEventFilter(this);
      }
    }
  }
  else if (event->type() == QEvent::EnabledChange && watched->parent() == box)
  {
    recompute();
  }
  return false;
}

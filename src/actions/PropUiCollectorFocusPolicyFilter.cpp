#include "PropUiCollectorFocusPolicyFilter.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QChildEvent>
#include <QFocusEvent>
#include <QStyleOptionFocusRect>
#include <QStylePainter>
#include <QWidget>

namespace
{

bool canTakeFocus(const QWidget* widget, const QWidget* box)
{
  return widget && widget->isEnabled() && widget->isVisibleTo(box) && widget->focusPolicy() != Qt::NoFocus;
}

} // namespace

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
    if (canTakeFocus(qobject_cast<QWidget*>(child), box))
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

QWidget* PropUiCollectorFocusPolicyFilter::focusTarget() const
{
  QWidget* box = container();
  if (!box)
    return nullptr;
  QWidget* first = nullptr;
  for (QObject* child : box->children())
  {
    auto* widget = qobject_cast<QWidget*>(child);
    if (!widget || !widget->isEnabled() || !widget->isVisibleTo(box))
      continue;
    // Qt leaves only the focused button of an exclusive group a Tab stop, so the
    // checked one may have no focus policy left; it takes the focus all the same.
    auto* button = qobject_cast<QAbstractButton*>(widget);
    if (button && button->isCheckable() && button->isChecked())
      return widget;
    if (!first && widget->focusPolicy() != Qt::NoFocus)
      first = widget;
  }
  return first;
}

void PropUiCollectorFocusPolicyFilter::passTabToCheckedButton(QAbstractButton* button, Qt::FocusReason reason, QWidget* box)
{
  if (!button || !box || (reason != Qt::TabFocusReason && reason != Qt::BacktabFocusReason) || button->isChecked())
    return;
  QButtonGroup* group = button->group();
  QAbstractButton* current = group && group->exclusive() ? group->checkedButton() : nullptr;
  if (current && current != button && current->parentWidget() == box && current->isEnabled() && current->isVisibleTo(box))
    current->setFocus(reason);
}

void PropUiCollectorFocusPolicyFilter::paintFocusFrame(QWidget* box) const
{
  QStylePainter painter(box);
  QStyleOptionFocusRect option;
  option.initFrom(box);
  option.backgroundColor = box->palette().color(box->backgroundRole());
  painter.drawPrimitive(QStyle::PE_FrameFocusRect, option);
}

bool PropUiCollectorFocusPolicyFilter::eventFilter(QObject* watched, QEvent* event)
{
  QWidget* box = container();
  if (watched == box)
  {
    if (event->type() == QEvent::FocusIn)
    {
      // The frame itself shows nothing: a button that can hold the focus should.
      if (QWidget* target = focusTarget())
        target->setFocus(static_cast<QFocusEvent*>(event)->reason());
    }
    // Only while no button can take it does the frame keep the focus; it is drawn
    // before the container's own painting, which draws nothing over it.
    else if (event->type() == QEvent::Paint && box->hasFocus())
      paintFocusFrame(box);
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
  else if (event->type() == QEvent::FocusIn && watched->parent() == box)
  {
    passTabToCheckedButton(qobject_cast<QAbstractButton*>(watched), static_cast<QFocusEvent*>(event)->reason(), box);
  }
  return false;
}

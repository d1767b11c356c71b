#include "PropUiButtonRow_p.h"

#include "PropUiCollectorFocusPolicyFilter.h"
#include "PropUiQControl.h"
#include <QAbstractButton>
#include <QButtonGroup>
#include <QHBoxLayout>

namespace propui
{

QHBoxLayout* buildButtonRow(PropUiQControl* control)
{
  const int options = control->getOptions();
  auto* outer = control->setupRow(2);
  if (!(options & PropUiOption::kNoFocusButtons))
  {
    control->setFocusPolicy(Qt::StrongFocus);
    new PropUiCollectorFocusPolicyFilter(control);
    control->useFocusReactor(control);
  }
  if (options & PropUiOption::kAlignRight)
    outer->addSpacerItem(new QSpacerItem(0, 0, QSizePolicy::Expanding, QSizePolicy::Minimum));
  auto* inner = new QHBoxLayout;
  inner->setContentsMargins(0, 0, 0, 0);
  inner->setSpacing(0);
  outer->addLayout(inner);
  if (options & PropUiOption::kAlignLeft)
    outer->addSpacerItem(new QSpacerItem(0, 0, QSizePolicy::Expanding, QSizePolicy::Minimum));
  return inner;
}

QHBoxLayout* buttonRowOf(const QWidget* control, int options)
{
  auto* outer = qobject_cast<QHBoxLayout*>(control->layout());
  if (!outer)
    return nullptr;
  QLayoutItem* item = outer->itemAt((options & PropUiOption::kAlignRight) ? 1 : 0);
  return item ? qobject_cast<QHBoxLayout*>(item->layout()) : nullptr;
}

void fitButtonRow(PropUiQControl* control, QHBoxLayout* row, QButtonGroup* group, int count,
                  const std::function<QAbstractButton*()>& create,
                  const std::function<void(QAbstractButton*)>& forget)
{
  if (row->count() == count)
    return;
  // A refresh may run inside Qt's handling of an event for the very button
  // it no longer needs (the focus moving onto it commits an edit that
  // shortens the list): the button leaves the row and the group at once,
  // and is deleted once that event is over.
  while (row->count() > count)
  {
    QLayoutItem* item = row->takeAt(count);
    if (QWidget* widget = item->widget())
    {
      if (auto* button = qobject_cast<QAbstractButton*>(widget))
      {
        forget(button);
        group->removeButton(button);
      }
      widget->hide();
      widget->deleteLater();
    }
    delete item;
  }
  while (row->count() < count)
  {
    QAbstractButton* button = create();
    control->useFocusReactor(button);
    if (control->getOptions() & PropUiOption::kNoFocusButtons)
      button->setFocusPolicy(Qt::NoFocus);
    row->addWidget(button);
    group->addButton(button, -1);
  }
  // The filter re-decides only when a button's enabled state changes; new
  // buttons must take the frame's Tab stop over at once.
  if (auto* collector = control->findChild<PropUiCollectorFocusPolicyFilter*>(QString(), Qt::FindDirectChildrenOnly))
    collector->recompute();
}

void setToolTipIfChanged(QWidget* widget, const QString& toolTip)
{
  if (widget->toolTip() != toolTip)
    widget->setToolTip(toolTip);
}

void setIconIfChanged(QAbstractButton* button, const QIcon& icon)
{
  if (button->icon().cacheKey() != icon.cacheKey())
    button->setIcon(icon);
}

} // namespace propui

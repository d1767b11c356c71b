#include "PropUiButtonRow.h"

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
  auto* outer = control->adoptLayout(new QHBoxLayout);
  outer->setContentsMargins(0, 0, 0, 0);
  outer->setSpacing(2);
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
  while (row->count() > count)
  {
    QLayoutItem* item = row->takeAt(count);
    if (auto* button = qobject_cast<QAbstractButton*>(item->widget()))
      forget(button);
    delete item->widget();
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

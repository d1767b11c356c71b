#include "PropUiCommonToolTipFilter.h"

#include "OdStringQt.h"
#include "PropBag.h"
#include <QEvent>
#include <QWidget>

PropUiCommonToolTipFilter::PropUiCommonToolTipFilter(QWidget* control) : PropUiQEventFilter(control)
{
  if (control)
    control->installEventFilter(this);
}

void PropUiCommonToolTipFilter::update()
{
  if (!m_bag)
    return;
  OdString description;
  if (m_bag->getDescription(m_itemIndex, description))
    m_toolTip = toQString(description);
}

bool PropUiCommonToolTipFilter::eventFilter(QObject* watched, QEvent* event)
{
  if (m_bag && event->type() == QEvent::ToolTip)
  {
    // Qt shows the widget's own tool tip right after this; make it ours first.
    auto* widget = qobject_cast<QWidget*>(watched);
    if (widget && widget->toolTip() != m_toolTip)
      widget->setToolTip(m_toolTip);
  }
  return false;
}

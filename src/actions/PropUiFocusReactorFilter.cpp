#include "PropUiFocusReactorFilter.h"

#include "PropBag.h"
#include "PropItemType.h"
#include "hostPropEditorReactor.h"
#include <QFocusEvent>

PropUiFocusReactorFilter::PropUiFocusReactorFilter(QObject* control) : PropUiQEventFilter(control) {}

bool PropUiFocusReactorFilter::eventFilter(QObject* watched, QEvent* event)
{
  const bool focusIn = event->type() == QEvent::FocusIn;
  const bool focusOut = event->type() == QEvent::FocusOut;
  // A focus change before the filter is bound has nobody to tell.
  if ((focusIn || focusOut) && m_bag)
  {
    const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
    hostPropEditorReactor* reactor = m_bag->getReactor(m_itemIndex);
    // Popups and programmatic moves are not the user moving between editors.
    if (reactor && reason != Qt::PopupFocusReason && reason != Qt::OtherFocusReason)
    {
      PropItemType* type = m_bag->getItemType(m_itemIndex);
      reactor->focusChanged(type ? type->typeId() : 0, m_subIndex, focusIn);
    }
  }
  return QObject::eventFilter(watched, event);
}

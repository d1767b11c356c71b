#include "PropUiFocusReactorFilter.h"

#include "PropBag.h"
#include "PropItemType.h"
#include "hostPropEditorReactor.h"
#include "PropUiWindowState_p.h"
#include <QFocusEvent>
#include <QPointer>
#include <QTimer>
#include <QWidget>

PropUiFocusReactorFilter::PropUiFocusReactorFilter(QObject* control) : PropUiQEventFilter(control) {}

bool PropUiFocusReactorFilter::eventFilter(QObject* watched, QEvent* event)
{
  const bool focusIn = event->type() == QEvent::FocusIn;
  const bool focusOut = event->type() == QEvent::FocusOut;
  // A focus change before the filter is bound has nobody to tell.
  if ((focusIn || focusOut) && m_bag)
  {
    const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
    if (focusOut && propui::isWindowGoingAway(qobject_cast<QWidget*>(watched)))
    {
      // The window may be being destroyed, and the bag with it: tell the
      // host on the next turn, if the editor is still there.
      QPointer<QObject> editor(watched);
      QTimer::singleShot(0, this, [this, editor, reason]() {
        if (editor)
          report(reason, false);
      });
    }
    else
    {
      report(reason, focusIn);
    }
  }
  return QObject::eventFilter(watched, event);
}

void PropUiFocusReactorFilter::report(Qt::FocusReason reason, bool focusIn)
{
  if (!m_bag)
    return;
  hostPropEditorReactor* reactor = m_bag->getReactor(m_itemIndex);
  // Popups and programmatic moves are not the user moving between editors.
  if (reactor && reason != Qt::PopupFocusReason && reason != Qt::OtherFocusReason)
  {
    PropItemType* type = m_bag->getItemType(m_itemIndex);
    reactor->focusChanged(type ? type->typeId() : 0, m_subIndex, focusIn);
  }
}

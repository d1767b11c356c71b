#include "PropUiActionsContextMenu_p.h"

#include "PropAction.h"
#include "PropBag.h"
#include "PropUiQAction.h"
#include "PropUiQControl.h"
#include "PropUiRefresh_p.h"
#include "PropWidgetsLogging_p.h"
#include <QAbstractSpinBox>
#include <QCoreApplication>
#include <QContextMenuEvent>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPointer>
#include <QTextEdit>

namespace
{

/** The menu the widget would show by itself, to which the actions are added; null for one without. */
QMenu* standardMenuOf(QWidget* widget)
{
  if (auto* spin = qobject_cast<QAbstractSpinBox*>(widget))
    widget = spin->findChild<QLineEdit*>();
  if (auto* edit = qobject_cast<QLineEdit*>(widget))
    return edit->createStandardContextMenu();
  if (auto* text = qobject_cast<QTextEdit*>(widget))
    return text->createStandardContextMenu();
  if (auto* plain = qobject_cast<QPlainTextEdit*>(widget))
    return plain->createStandardContextMenu();
  return nullptr;
}

QPoint keyboardMenuPosition(const QWidget* widget)
{
  return widget->mapToGlobal(QPoint(0, widget->height()));
}

} // namespace

PropUiActionsContextMenu::PropUiActionsContextMenu(QObject* application) : QObject(application)
{
  setObjectName(QStringLiteral("actionsContextMenu"));
  application->installEventFilter(this);
}

void PropUiActionsContextMenu::install()
{
  // Goes with the application; a later application gets a filter of its own.
  static QPointer<PropUiActionsContextMenu> installed;
  if (!installed && QCoreApplication::instance())
    installed = new PropUiActionsContextMenu(QCoreApplication::instance());
}

PropUiQControl* PropUiActionsContextMenu::controlOf(QWidget* widget)
{
  for (QWidget* w = widget; w; w = w->parentWidget())
  {
    if (auto* owner = qobject_cast<PropUiQControl*>(w))
      return owner;
    // A popup of an editor (a combo box's list) is a window of its own, not the control.
    if (w->isWindow())
      return nullptr;
  }
  return nullptr;
}

QMenu* PropUiActionsContextMenu::popup(PropUiQControl* owner, QWidget* widget, const QPoint& globalPos,
                                       bool fromKeyboard)
{
  PropBag* bag = owner ? owner->propBag() : nullptr;
  if (!bag || !widget)
    return nullptr;
  PropActionArray actions;
  const int listed = int(bag->getActions(owner->itemIndex(), owner->element(), actions));
  const int count = qMin(listed, int(actions.size()));
  if (count <= 0)
    return nullptr;

  QMenu* menu = standardMenuOf(widget);
  if (menu)
    menu->addSeparator();
  else
    menu = new QMenu(widget);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  menu->setObjectName(QStringLiteral("actionsMenu"));
  menu->setAccessibleName(tr("Actions"));
  QAction* firstEntry = nullptr;
  for (int i = 0; i < count; ++i)
  {
    auto* entry = new PropUiQAction(menu);
    if (!firstEntry)
      firstEntry = entry;
    entry->setPropAction(actions[unsigned(i)].get());
    if (entry->iconText().isEmpty())
      entry->setText(tr("Action %1").arg(i + 1));
    menu->addAction(entry);
  }
  // The list is held by the menu's connection: what the entries point to lives as long as they do.
  QPointer<PropUiQControl> guarded(owner);
  connect(menu, &QMenu::triggered, owner, [guarded, actions](QAction* triggered) {
    auto* mirror = qobject_cast<PropUiQAction*>(triggered);
    if (!guarded || !mirror || !mirror->getPropAction() || !guarded->propBag())
      return;
    try
    {
      if (guarded->propBag()->executeAction(guarded->itemIndex(), mirror->getPropAction()) && guarded)
        propui::refreshQuietly(guarded);
    }
    catch (...)
    {
      propui::warnCaught("an action of the context menu failed");
    }
  });
  menu->popup(globalPos);
  // Asked for from the keyboard, the menu is there for its commands: Return runs the first.
  if (fromKeyboard && firstEntry && firstEntry->isEnabled())
    menu->setActiveAction(firstEntry);
  return menu;
}

// Called for every event of the application: anything but the two requests leaves at the switch.
bool PropUiActionsContextMenu::eventFilter(QObject* watched, QEvent* event)
{
  switch (event->type())
  {
  case QEvent::ContextMenu:
  {
    if (!watched->isWidgetType())
      return false;
    auto* widget = static_cast<QWidget*>(watched);
    auto* request = static_cast<QContextMenuEvent*>(event);
    return popup(controlOf(widget), widget, request->globalPos(), request->reason() == QContextMenuEvent::Keyboard) !=
           nullptr;
  }
  case QEvent::KeyPress:
  {
    // Not every platform turns Shift+F10 into a context menu event.
    auto* key = static_cast<QKeyEvent*>(event);
    if (key->key() != Qt::Key_F10 || key->modifiers() != Qt::ShiftModifier || !watched->isWidgetType())
      return false;
    auto* widget = static_cast<QWidget*>(watched);
    return popup(controlOf(widget), widget, keyboardMenuPosition(widget), true) != nullptr;
  }
  default:
    return false;
  }
}

#pragma once

// The context menu every control offers for its item's actions; not API.

#include <QObject>

class PropUiQControl;
class QMenu;
class QWidget;

/**
 * Offers the item's actions in the context menu of the control and of every
 * widget inside it (menu key, Shift+F10, right click), so that a command
 * whose button takes no focus can still be run from the keyboard. An editor
 * with a menu of its own (cut, copy, paste) keeps it, with the actions below.
 * Installs itself on the control and on each widget added inside it.
 */
class PropUiActionsContextMenu : public QObject
{
  Q_OBJECT

public:
  explicit PropUiActionsContextMenu(PropUiQControl* control);

  /**
   * Builds and opens the menu for `widget` at `globalPos`, the first command
   * active when asked for from the keyboard; null when the item offers no actions.
   */
  QMenu* popup(QWidget* widget, const QPoint& globalPos, bool fromKeyboard);

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  PropUiQControl* control() const;
  void watch(QWidget* widget);
  /** Whether the event reached a widget of this control rather than of a control nested in it. */
  bool isOwnWidget(QWidget* widget) const;
};

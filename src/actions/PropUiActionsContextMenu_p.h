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
 *
 * One filter on the application serves every control: a request reaches the
 * innermost control around the widget it was made on. Nothing is kept per
 * control or per widget.
 */
class PropUiActionsContextMenu : public QObject
{
  Q_OBJECT

public:
  /** Makes the menu available to every control; asking again changes nothing. */
  static void install();

  /**
   * Builds and opens the menu of `control`'s item for `widget` at
   * `globalPos`, the first command active when asked for from the keyboard;
   * null when the item offers no actions.
   */
  static QMenu* popup(PropUiQControl* control, QWidget* widget, const QPoint& globalPos, bool fromKeyboard);

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  explicit PropUiActionsContextMenu(QObject* application);
  /** The innermost control the widget belongs to, up to its window; null outside any control. */
  static PropUiQControl* controlOf(QWidget* widget);
};

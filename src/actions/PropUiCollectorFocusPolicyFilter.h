#pragma once

#include "PropUiQEventFilter.h"

class QAbstractButton;
class QWidget;

/**
 * Makes a container of buttons take no focus itself while one of its
 * children can, so that Tab lands on the buttons rather than on the frame.
 * Focus given to the container all the same (by the host, a delegate or a
 * click) passes on to its current button, or to the first one that can take
 * it, and Tab into an exclusive group lands on its checked button; a
 * container left holding the focus itself draws where it is.
 */
class PROPWIDGETS_EXPORT PropUiCollectorFocusPolicyFilter : public PropUiQEventFilter
{
  Q_OBJECT

public:
  /** Installs itself on the container and on each of its child widgets. */
  explicit PropUiCollectorFocusPolicyFilter(QWidget* container);

  /** Decides again whether the container gives up its focus. */
  void recompute();

  /** The child that focus given to the container goes to: the checked button, else the first that can take focus. */
  QWidget* focusTarget() const;

  /**
   * Moves focus that Tab gave to an unchecked button of an exclusive group in
   * the box on to the group's checked button: until one of its buttons has
   * had the focus, Qt makes every one a Tab stop.
   */
  static void passTabToCheckedButton(QAbstractButton* button, Qt::FocusReason reason, QWidget* box);

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  QWidget* container() const;
  void paintFocusFrame(QWidget* box) const;

  bool m_collected = false;
  Qt::FocusPolicy m_savedPolicy = Qt::NoFocus;
};

#pragma once

#include "PropUiQEventFilter.h"

class QWidget;

/**
 * Makes a container of buttons take no focus itself while one of its
 * children can, so that Tab lands on the buttons rather than on the frame.
 */
class PROPWIDGETS_EXPORT PropUiCollectorFocusPolicyFilter : public PropUiQEventFilter
{
  Q_OBJECT

public:
  /** Installs itself on the container and on each of its child widgets. */
  explicit PropUiCollectorFocusPolicyFilter(QWidget* container);

  /** Decides again whether the container gives up its focus. */
  void recompute();

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  QWidget* container() const;

  bool m_collected = false;
  Qt::FocusPolicy m_savedPolicy = Qt::NoFocus;
};

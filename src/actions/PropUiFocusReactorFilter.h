#pragma once

#include "PropUiQEventFilter.h"

/** Tells the item's editor reactor when one of the control's widgets gains or loses focus. */
class PROPWIDGETS_EXPORT PropUiFocusReactorFilter : public PropUiQEventFilter
{
  Q_OBJECT

public:
  explicit PropUiFocusReactorFilter(QObject* control);

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  void report(Qt::FocusReason reason, bool focusIn);
};

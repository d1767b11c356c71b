#pragma once

#include "ControlWindow.h"
#include "TestValues.h"

/** A window holding one control bound to a bag item, for tests that drive the control with keys. */
template <class Control>
class FocusedControl : public ControlWindow
{
public:
  FocusedControl(PropBag& bag, int item)
    : ControlWindow(boundControl<Control>(bag, item)), control(findChild<Control*>())
  {
  }

  /** Shows the window and waits for `field` to take the focus; false when the platform would not. */
  bool focus(QWidget* field)
  {
    if (!showActive())
      return false;
    field->setFocus(Qt::TabFocusReason);
    return QTest::qWaitFor([field] { return field->hasFocus(); });
  }

  Control* const control;
};

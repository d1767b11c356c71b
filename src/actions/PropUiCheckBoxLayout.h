#pragma once

// The layout the check box and the switch share; not part of the library's API.

class PropUiQControl;

namespace host_qt_ui_core
{
class QHostCheckBox;
}

namespace propui
{

/**
 * Lays out the host check box in the control, with the spacers a switch
 * takes from its options and the item's actions toolbar, and hooks up focus.
 */
host_qt_ui_core::QHostCheckBox* buildCheckBox(PropUiQControl* control, bool switchMode);

} // namespace propui

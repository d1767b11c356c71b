#pragma once

// What the check box and the switch share: their layout and how they read; not API.

class PropUiQControl;
class QAbstractButton;

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

/** What a read of a boolean item found. */
enum class BoolRead
{
  Unreadable,
  Varies,
  Value,
  OtherType
};

/**
 * Reads the control's boolean item (or element) for the box, first giving
 * the box the item's caption when the item asks for it (flag 0x10).
 */
BoolRead readBoolItem(PropUiQControl* control, QAbstractButton* box, bool& value);

} // namespace propui

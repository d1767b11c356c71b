#pragma once

// What the check box and the switch share: their layout and how they read; not API.

#include <Qt>

class PropUiQControl;
class QAbstractButton;
class QCheckBox;

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

/**
 * Reads the item into the box: the control's varies look when the selection
 * disagrees, else the value. True when a value was shown, which `value` then
 * holds; an unreadable item or one of another type leaves the box as it is.
 */
bool showBoolItem(PropUiQControl* control, QCheckBox* box, bool& value);

/**
 * Writes the state the user clicked. A box that showed the varies look
 * (`wasVaries`) leaves it first and takes it back when the bag refuses;
 * any other refusal puts `last` back. True when the bag took the state.
 */
bool commitClickedState(PropUiQControl* control, QCheckBox* box, bool wasVaries, Qt::CheckState last);

} // namespace propui

#pragma once

// How the library re-reads a control from inside a Qt slot; not API.

class PropUiQWidget;

namespace propui
{

/**
 * Calls the control's updateData. A platform error that the control raises
 * (the 3x3 grid over a list shorter than nine) is logged and swallowed: it
 * must not cross Qt's event loop, and the control has left its widgets as
 * they were. A host that calls updateData itself still gets the error.
 */
void refreshQuietly(PropUiQWidget* control);

} // namespace propui

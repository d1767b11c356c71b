#pragma once

// How a control's window stands while the focus moves; not API.

class QWidget;

namespace propui
{

/**
 * Whether the widget's window is being hidden, closed or destroyed just
 * now: Qt moves the focus out of a window in the middle of hiding it, and
 * a window deleted while shown is hidden first.
 */
bool isWindowGoingAway(const QWidget* widget);

} // namespace propui

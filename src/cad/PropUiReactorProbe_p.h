#pragma once

// Whether a host's reactor listens to an operation; not part of the library's API.

#include "hostPropEditorReactor.h"

/**
 * Tells whether a reactor's class replaces the library's empty body of one
 * of its operations. A control asks before it gathers what the operation
 * needs (the item's type, a packed selection), so that a host listening
 * only to focus pays nothing for the list's events.
 */
class PropUiReactorProbe
{
public:
  static bool listensToCurrent(const hostPropEditorReactor* reactor);
  static bool listensToSelection(const hostPropEditorReactor* reactor);
  static bool listensToPins(const hostPropEditorReactor* reactor);
};

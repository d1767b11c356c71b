#pragma once

// Everything the library reports goes through one category, so that a host can
// silence it or raise it (QT_LOGGING_RULES="propwidgets.warning=false").

#include <QLoggingCategory>

Q_DECLARE_LOGGING_CATEGORY(lcPropWidgets)

namespace propui
{

/**
 * Logs the exception being handled, for a catch block that keeps what a
 * host's bag throws out of Qt's event loop: what failed, then what was thrown
 * (a platform error's code, a standard exception's text). Call it only inside
 * a catch block.
 */
void warnCaught(const char* failed);

} // namespace propui

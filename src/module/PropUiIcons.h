#pragma once

#include "PropWidgetsExport.h"
#include <QIcon>
#include <QString>

/**
 * The library's own icon of this name in the host's current theme
 * (":/res/dark/<name>.ico" or ":/res/light/<name>.ico"). Every icon loaded is
 * kept for the life of the process, those of both themes side by side.
 */
PROPWIDGETS_EXPORT QIcon propUiGetIcon(const QString& name);

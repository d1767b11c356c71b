#pragma once

#include "PropWidgetsExport.h"
#include <QLocale>
#include <QString>

class QTranslator;

/**
 * The library's catalogues are built into it, one per language, under
 * ":/propwidgets/translations/" as "propwidgets_<language>.qm" (for example
 * ":/propwidgets/translations/propwidgets_de.qm"). A host that manages its
 * translators itself loads them from there; any other calls
 * propUiInstallTranslator once after creating its QApplication.
 */

/** The resource folder that holds the catalogues. */
PROPWIDGETS_EXPORT QString propUiTranslationsPath();
/**
 * Loads the catalogue for the locale's languages and installs it on the
 * application, which then owns it. Null when the library has no catalogue
 * for the locale or there is no application yet.
 */
PROPWIDGETS_EXPORT QTranslator* propUiInstallTranslator(const QLocale& locale = QLocale());

#pragma once

#include "OdGUID.h"
#include "PropWidgetsExport.h"

class PropUiQWidget;
class PropUiQWidgetFactory;

/**
 * The control registry, reachable while the module is started. A host
 * replaces a built-in control by unregistering its GUID and registering its
 * own factory.
 */

/** Takes ownership of the factory on success; false for null or a GUID already present. */
PROPWIDGETS_EXPORT bool propUiRegisterWidget(const OdGUID& guid, PropUiQWidgetFactory* factory);
/** False when nothing is registered under the GUID. */
PROPWIDGETS_EXPORT bool propUiUnregisterWidget(const OdGUID& guid);
/** A new control for a panel, or null when the GUID is unknown or the module is not started. */
PROPWIDGETS_EXPORT PropUiQWidget* propUiCreateWidget(const OdGUID& guid, int options);
/** A new control for an item-view cell, or null as above. */
PROPWIDGETS_EXPORT PropUiQWidget* propUiCreateEditor(const OdGUID& guid, int options);

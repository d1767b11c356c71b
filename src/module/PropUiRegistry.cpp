#include "PropUiRegistry.h"

#include "OdRxDictionary.h"
#include "PropUiQWidgetFactory.h"
#include "PropWidgetsService.h"

namespace
{

// The service is looked up anew on every call: modules may come and go.
PropWidgetsServicePtr findService()
{
  OdRxObjectPtr found = odrxSysRegistry()->getAt(OdString(PROPWIDGETS_SERVICE_KEY));
  if (!found || !PropWidgetsService::desc())
    return PropWidgetsServicePtr();
  return PropWidgetsService::cast(found.get());
}

} // namespace

bool propUiRegisterWidget(const OdGUID& guid, PropUiQWidgetFactory* factory)
{
  PropWidgetsServicePtr service = findService();
  return service && service->registerFactory(guid.toString(1), factory);
}

bool propUiUnregisterWidget(const OdGUID& guid)
{
  PropWidgetsServicePtr service = findService();
  return service && service->unregisterFactory(guid.toString(1));
}

PropUiQWidget* propUiCreateWidget(const OdGUID& guid, int options)
{
  PropWidgetsServicePtr service = findService();
  PropUiQWidgetFactory* factory = service ? service->factory(guid.toString(1)) : nullptr;
  return factory ? factory->createWidget(options, nullptr) : nullptr;
}

PropUiQWidget* propUiCreateEditor(const OdGUID& guid, int options)
{
  PropWidgetsServicePtr service = findService();
  PropUiQWidgetFactory* factory = service ? service->factory(guid.toString(1)) : nullptr;
  return factory ? factory->createEditor(options, nullptr) : nullptr;
}

#include "PropWidgetsModule.h"

#include "OdRxDictionary.h"
#include "PropUiBuiltinFactories_p.h"

ODRX_DEFINE_DYNAMIC_MODULE(PropWidgetsModule)

void PropWidgetsModule::initApp()
{
  PropWidgetsService::rxInit();
  OdRxObjectPtr created = PropWidgetsService::desc()->create();
  m_service = PropWidgetsService::cast(created.get());
  odrxSysRegistry()->putAt(OdString(PROPWIDGETS_SERVICE_KEY), m_service.get());
  registerBuiltinFactories();
}

void PropWidgetsModule::uninitApp()
{
  odrxSysRegistry()->remove(OdString(PROPWIDGETS_SERVICE_KEY));
  m_service.release();
  PropWidgetsService::rxUninit();
}

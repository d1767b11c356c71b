// The factory interface has no virtual destructor by contract: a factory holds
// no data and is deleted through the interface with the interface's size. The
// handles below are the one place that deletes factories.
#pragma GCC diagnostic ignored "-Wdelete-non-virtual-dtor"

#include "PropWidgetsService.h"

ODRX_DEFINE_MEMBERS(PropWidgetsService, OdRxObject, L"PropWidgetsService")

bool PropWidgetsService::registerFactory(const OdString& key, PropUiQWidgetFactory* factory)
{
  if (!factory || m_factories.count(key))
    return false;
  m_factories.emplace(key, FactoryHandle(factory));
  return true;
}

bool PropWidgetsService::unregisterFactory(const OdString& key)
{
  return m_factories.erase(key) != 0;
}

PropUiQWidgetFactory* PropWidgetsService::factory(const OdString& key) const
{
  const auto it = m_factories.find(key);
  return it == m_factories.end() ? nullptr : const_cast<PropUiQWidgetFactory*>(it->second.get());
}

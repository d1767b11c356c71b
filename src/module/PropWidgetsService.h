#pragma once

#include "OdRxClass.h"
#include "OdSharedPtr.h"
#include "PropUiQWidgetFactory.h"
#include "PropWidgetsExport.h"
#include <map>

/**
 * The published registry of control factories, keyed by the text of the
 * editor GUID. The module puts the one instance into the system registry.
 */
class PROPWIDGETS_EXPORT PropWidgetsService : public OdRxObject
{
  ODRX_DECLARE_MEMBERS(PropWidgetsService);

public:
  typedef OdSharedPtr<PropUiQWidgetFactory> FactoryHandle;
  typedef std::map<OdString, FactoryHandle, OdStringLess> FactoryMap;

  /** False for a null factory or a key already present; the caller then keeps the factory. */
  bool registerFactory(const OdString& key, PropUiQWidgetFactory* factory);
  bool unregisterFactory(const OdString& key);
  /** The factory under the key, or null. */
  PropUiQWidgetFactory* factory(const OdString& key) const;
  const FactoryMap& factories() const { return m_factories; }

private:
  FactoryMap m_factories;
};

typedef OdSmartPtr<PropWidgetsService> PropWidgetsServicePtr;

/** Key of the service in the system registry. */
#define PROPWIDGETS_SERVICE_KEY L"PROPWIDGETS_SERVICE"

#pragma once

#include "OdRxModule.h"
#include <map>

/**
 * Opens a module's shared object by name, creates its module object and starts it.
 * A name without a path or suffix is looked up as lib<name>.so on the loader's path,
 * then beside the application. Where only the run-time lib<name>.so.<major> is
 * installed, that is taken: the one already mapped into the process, else the
 * newest beside the application or beside the loader.
 */
class ODA_EXPORT OdRxDynamicLinker
{
public:
  /** The started module, or null when the object cannot be opened or is no module. */
  OdRxModulePtr loadModule(const OdString& name);
  /** Stops the module; false when it was not loaded. */
  bool unloadModule(const OdString& name);
  OdRxModulePtr getModule(const OdString& name) const;
  /** Why the last load failed, for the host's log. */
  OdString lastError() const { return m_lastError; }

private:
  std::map<OdString, OdRxModulePtr, OdStringLess> m_modules;
  OdString m_lastError;
};

ODA_EXPORT OdRxDynamicLinker* odrxDynamicLinker();

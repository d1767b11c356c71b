#pragma once

#include "OdRxClass.h"

/** A loadable run-time module: started by initApp, stopped by uninitApp. */
class ODA_EXPORT OdRxModule : public OdRxObject
{
public:
  virtual void initApp() = 0;
  virtual void uninitApp() = 0;
  virtual OdString moduleName() const { return m_name; }
  void setModuleName(const OdString& name) { m_name = name; }

private:
  OdString m_name;
};

typedef OdSmartPtr<OdRxModule> OdRxModulePtr;

/** The counting wrapper a shared-object module hands out for its module class. */
template <class ModuleClass>
class OdRxUnixModule : public ModuleClass
{
public:
  void addRef() override { ++m_refs; }
  void release() override
  {
    if (--m_refs == 0)
      delete this;
  }
  long numRefs() const override { return m_refs; }

private:
  long m_refs = 1;
};

/** Version of the platform this run-time provides. */
constexpr int kOdApiMajor = 24;
constexpr int kOdApiMinor = 8;

/**
 * Defines the two entry points of a module's shared object. The module object
 * is made on the first call and the same one is handed out afterwards.
 */
#define ODRX_DEFINE_DYNAMIC_MODULE(ModuleClass)                                                   \
  extern "C" ODRX_EXPORT_SYMBOL OdRxModule* odrxCreateModuleObject()                            \
  {                                                                                               \
    static OdRxModule* module = new OdRxUnixModule<ModuleClass>();                                \
    return module;                                                                                \
  }                                                                                               \
  extern "C" ODRX_EXPORT_SYMBOL void odrxGetAPIVersion(int& major, int& minor, int& build1, int& build2) \
  {                                                                                               \
    major = kOdApiMajor;                                                                          \
    minor = kOdApiMinor;                                                                          \
    build1 = 0;                                                                                   \
    build2 = 0;                                                                                   \
  }

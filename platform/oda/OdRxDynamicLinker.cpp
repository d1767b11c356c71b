#include "OdRxDynamicLinker.h"

#include <dlfcn.h>
#include <limits.h>
#include <string>
#include <unistd.h>

typedef OdRxModule* (*CreateModuleFn)();

static std::string fileNameOf(const OdString& name)
{
  std::string file;
  for (OdChar c : name.stdString())
    file += char(c);
  const bool hasPath = file.find('/') != std::string::npos;
  const bool hasSuffix = file.find(".so") != std::string::npos;
  if (!hasPath && !hasSuffix)
    file = "lib" + file + ".so";
  return file;
}

// Modules are installed beside the application, as hosts ship them.
static std::string applicationDir()
{
  char path[PATH_MAX];
  const ssize_t n = readlink("/proc/self/exe", path, sizeof path - 1);
  if (n <= 0)
    return std::string();
  std::string exe(path, std::size_t(n));
  return exe.substr(0, exe.rfind('/'));
}

static void* openModule(const std::string& file)
{
  void* handle = dlopen(file.c_str(), RTLD_NOW | RTLD_GLOBAL);
  if (!handle && file.find('/') == std::string::npos)
  {
    const std::string dir = applicationDir();
    if (!dir.empty())
      handle = dlopen((dir + '/' + file).c_str(), RTLD_NOW | RTLD_GLOBAL);
  }
  return handle;
}

OdRxModulePtr OdRxDynamicLinker::loadModule(const OdString& name)
{
  if (OdRxModulePtr loaded = getModule(name))
    return loaded;
  m_lastError = OdString();
  // The handle is never closed: Qt keeps pointers into a module's code (resources, meta objects).
  void* handle = openModule(fileNameOf(name));
  if (!handle)
  {
    m_lastError = OdString(dlerror());
    return OdRxModulePtr();
  }
  auto create = reinterpret_cast<CreateModuleFn>(dlsym(handle, "odrxCreateModuleObject"));
  if (!create)
  {
    m_lastError = OdString("no odrxCreateModuleObject in the module");
    return OdRxModulePtr();
  }
  OdRxModulePtr module(create());
  if (!module)
    return module;
  module->setModuleName(name);
  module->initApp();
  m_modules[name] = module;
  return module;
}

bool OdRxDynamicLinker::unloadModule(const OdString& name)
{
  const auto it = m_modules.find(name);
  if (it == m_modules.end())
    return false;
  OdRxModulePtr module = it->second;
  m_modules.erase(it);
  module->uninitApp();
  return true;
}

OdRxModulePtr OdRxDynamicLinker::getModule(const OdString& name) const
{
  const auto it = m_modules.find(name);
  return it == m_modules.end() ? OdRxModulePtr() : it->second;
}

OdRxDynamicLinker* odrxDynamicLinker()
{
  static OdRxDynamicLinker linker;
  return &linker;
}

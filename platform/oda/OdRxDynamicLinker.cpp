#include "OdRxDynamicLinker.h"

#include <dirent.h>
#include <dlfcn.h>
#include <limits.h>
#include <link.h>
#include <stdlib.h>
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

static std::string directoryOf(const std::string& path)
{
  const std::size_t slash = path.rfind('/');
  return slash == std::string::npos ? std::string() : path.substr(0, slash);
}

static std::string baseNameOf(const std::string& path)
{
  return path.substr(path.rfind('/') + 1);
}

// Where the plain lib<name>.so is missing (it comes with a development install,
// not with the run-time one), the module is the library of that name the process
// has already mapped: a host linked against it loaded it, and a second copy of
// another version would not share its registries.
static std::string mappedVersionOf(const std::string& file)
{
  struct Search
  {
    std::string prefix;
    std::string found;
  } search{file + '.', std::string()};
  dl_iterate_phdr(
    [](dl_phdr_info* info, size_t, void* data) {
      auto* s = static_cast<Search*>(data);
      const std::string path = info->dlpi_name ? info->dlpi_name : "";
      if (baseNameOf(path).compare(0, s->prefix.size(), s->prefix) != 0)
        return 0;
      s->found = path;
      return 1;
    },
    &search);
  return search.found;
}

// Otherwise the run-time file lib<name>.so.<major> in a directory of the
// installation; of several majors, the newest.
static std::string versionedFileIn(const std::string& dir, const std::string& file)
{
  std::string found;
  unsigned long newest = 0;
  DIR* d = dir.empty() ? nullptr : opendir(dir.c_str());
  if (!d)
    return found;
  const std::string prefix = file + '.';
  while (const dirent* entry = readdir(d))
  {
    const std::string base = entry->d_name;
    if (base.size() == prefix.size() || base.compare(0, prefix.size(), prefix) != 0
        || base.find_first_not_of("0123456789", prefix.size()) != std::string::npos)
      continue;
    const unsigned long major = strtoul(base.c_str() + prefix.size(), nullptr, 10);
    if (found.empty() || major > newest)
    {
      found = dir + '/' + base;
      newest = major;
    }
  }
  closedir(d);
  return found;
}

// The directory this loader was installed in, where the platform's own modules sit.
static std::string loaderDir()
{
  static const char inThisLibrary = 0;
  Dl_info info;
  if (!dladdr(&inThisLibrary, &info) || !info.dli_fname)
    return std::string();
  return directoryOf(info.dli_fname);
}

static void* openModule(const std::string& file)
{
  const int mode = RTLD_NOW | RTLD_GLOBAL;
  void* handle = dlopen(file.c_str(), mode);
  if (handle || file.find('/') != std::string::npos)
    return handle;
  const std::string appDir = applicationDir();
  if (!appDir.empty() && (handle = dlopen((appDir + '/' + file).c_str(), mode)))
    return handle;
  if (file.size() < 3 || file.compare(file.size() - 3, 3, ".so") != 0)
    return nullptr;
  std::string versioned = mappedVersionOf(file);
  if (versioned.empty())
    versioned = versionedFileIn(appDir, file);
  if (versioned.empty())
    versioned = versionedFileIn(loaderDir(), file);
  return versioned.empty() ? nullptr : dlopen(versioned.c_str(), mode);
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

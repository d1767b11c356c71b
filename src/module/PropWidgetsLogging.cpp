#include "PropWidgetsLogging_p.h"

#include "OdError.h"
#include <exception>

Q_LOGGING_CATEGORY(lcPropWidgets, "propwidgets")

namespace propui
{

void warnCaught(const char* failed)
{
  try
  {
    throw;
  }
  catch (const OdError& error)
  {
    qCWarning(lcPropWidgets, "%s (platform error %d)", failed, int(error.code()));
  }
  catch (const std::exception& error)
  {
    qCWarning(lcPropWidgets, "%s (%s)", failed, error.what());
  }
  catch (...)
  {
    qCWarning(lcPropWidgets, "%s", failed);
  }
}

} // namespace propui

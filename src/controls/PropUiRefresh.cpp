#include "PropUiRefresh_p.h"

#include "OdError.h"
#include "PropUiQWidget.h"
#include <QDebug>
#include <exception>

namespace propui
{

void refreshQuietly(PropUiQWidget* control)
{
  if (!control)
    return;
  try
  {
    control->updateData();
  }
  catch (const OdError& error)
  {
    qWarning("PropWidgets: a control could not show its item (platform error %d)", int(error.code()));
  }
  catch (const std::exception& error)
  {
    qWarning("PropWidgets: a control could not show its item (%s)", error.what());
  }
  catch (...)
  {
    qWarning("PropWidgets: a control could not show its item");
  }
}

} // namespace propui

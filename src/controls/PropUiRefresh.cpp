#include "PropUiRefresh_p.h"

#include "PropUiQWidget.h"
#include "PropWidgetsLogging_p.h"

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
  catch (...)
  {
    warnCaught("a control could not show its item");
  }
}

} // namespace propui

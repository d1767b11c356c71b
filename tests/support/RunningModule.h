#pragma once

#include "OdRxModule.h"
#include "PropWidgetsEntry.h"

/** The library's module, started for as long as the test that holds it: the controls are registered. */
struct RunningModule
{
  RunningModule() { odrxCreateModuleObject()->initApp(); }
  ~RunningModule() { odrxCreateModuleObject()->uninitApp(); }
};

#pragma once

#include "OdRxModule.h"

/**
 * The module's entry points, for hosts that link the library instead of
 * loading it through the platform's dynamic linker.
 */
extern "C" OdRxModule* odrxCreateModuleObject();
extern "C" void odrxGetAPIVersion(int& major, int& minor, int& build1, int& build2);

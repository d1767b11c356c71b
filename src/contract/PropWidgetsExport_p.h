#pragma once

#include "PropWidgetsExport.h"

/**
 * Marks a class that no host sees but the library's own tests reach into.
 * Only a build with tests exports it; a release build keeps it as hidden as
 * the rest of the library's insides.
 */
#ifdef PROPWIDGETS_BUILD_TESTS
#define PROPWIDGETS_TEST_EXPORT PROPWIDGETS_EXPORT
#else
#define PROPWIDGETS_TEST_EXPORT
#endif

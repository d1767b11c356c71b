#pragma once

/** Marks what a host links against; everything else in the library stays hidden. */
#ifdef PROPWIDGETS_BUILDING_LIBRARY
#define PROPWIDGETS_EXPORT __attribute__((visibility("default")))
#else
#define PROPWIDGETS_EXPORT __attribute__((visibility("default")))
#endif

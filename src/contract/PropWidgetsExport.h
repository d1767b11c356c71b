#pragma once

/**
 * Marks what a host links against; everything else in the library stays
 * hidden (the library is built with hidden visibility). The same attribute
 * serves the library's own build and a host's.
 */
#define PROPWIDGETS_EXPORT __attribute__((visibility("default")))

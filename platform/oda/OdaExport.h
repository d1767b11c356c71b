#pragma once

/** Marks what the platform library exports; everything else stays hidden. */
#define ODA_EXPORT __attribute__((visibility("default")))
#define ODRX_EXPORT_SYMBOL __attribute__((visibility("default")))

#pragma once

#include "OdaExport.h"
#include <cstddef>

/** The platform's heap; counts what it hands out so leaks show in tests. */
ODA_EXPORT void* odrxAlloc(std::size_t bytes);
ODA_EXPORT void odrxFree(void* block);
/** Number of blocks currently allocated through odrxAlloc. */
ODA_EXPORT long odrxAllocatedBlocks();

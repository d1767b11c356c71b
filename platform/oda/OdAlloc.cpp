#include "OdAlloc.h"

#include <atomic>
#include <cstdlib>
#include <new>

static std::atomic<long> g_blocks{0};

void* odrxAlloc(std::size_t bytes)
{
  void* p = std::malloc(bytes ? bytes : 1);
  if (!p)
    throw std::bad_alloc();
  ++g_blocks;
  return p;
}

void odrxFree(void* block)
{
  if (!block)
    return;
  --g_blocks;
  std::free(block);
}

long odrxAllocatedBlocks()
{
  return g_blocks.load();
}

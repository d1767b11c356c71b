#pragma once

#include <cstddef>
#include <memory>
#include <new>
#include <vector>

#ifdef __linux__
#include <sys/mman.h>
#endif

/**
 * The allocator of the arrays that grow with the drawing (one slot per
 * entity): those of megabytes ask the kernel for huge pages. Filling fresh
 * memory costs a page fault every 4 KiB, and on a virtual machine those
 * faults take longer than the work (8 MiB: 25 ms against under 1 ms); where
 * transparent huge pages are left to each program, only this asks for them.
 */
template <class T>
class LargeArrayAllocator
{
public:
  using value_type = T;

  LargeArrayAllocator() = default;
  template <class U>
  LargeArrayAllocator(const LargeArrayAllocator<U>&) noexcept
  {
  }

  T* allocate(std::size_t n)
  {
#ifdef __linux__
    const std::size_t bytes = n * sizeof(T);
    if (bytes >= kLarge && n <= std::size_t(-1) / sizeof(T))
    {
      void* p = mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
      if (p == MAP_FAILED)
        throw std::bad_alloc();
      madvise(p, bytes, MADV_HUGEPAGE);
      return static_cast<T*>(p);
    }
#endif
    return std::allocator<T>().allocate(n);
  }

  void deallocate(T* p, std::size_t n) noexcept
  {
#ifdef __linux__
    if (n * sizeof(T) >= kLarge)
    {
      munmap(p, n * sizeof(T));
      return;
    }
#endif
    std::allocator<T>().deallocate(p, n);
  }

  template <class U>
  bool operator==(const LargeArrayAllocator<U>&) const noexcept
  {
    return true;
  }
  template <class U>
  bool operator!=(const LargeArrayAllocator<U>&) const noexcept
  {
    return false;
  }

private:
  // the size of a huge page on x86-64 and arm64: smaller arrays cannot have one
  static constexpr std::size_t kLarge = std::size_t(2) << 20;
};

/** A vector sized by the drawing. */
template <class T>
using LargeArray = std::vector<T, LargeArrayAllocator<T>>;

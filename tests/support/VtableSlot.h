#pragma once

#include <cstddef>
#include <cstring>

/**
 * The vtable position of a virtual member function. Under the Itanium C++
 * ABI (gcc, clang) a pointer to a virtual member holds one plus the byte
 * offset of its entry, which is what a host compiled against our headers uses.
 */
template <class MemberPointer>
long vtableSlot(MemberPointer pointer)
{
  static_assert(sizeof(MemberPointer) == 2 * sizeof(void*), "not an Itanium member pointer");
  std::ptrdiff_t raw[2];
  std::memcpy(raw, &pointer, sizeof raw);
  if ((raw[0] & 1) == 0)
    return -1; // not virtual
  return long((raw[0] - 1) / std::ptrdiff_t(sizeof(void*)));
}

#include "PropUiReactorProbe_p.h"

#include <cstddef>
#include <cstring>

namespace
{

// Under the Itanium C++ ABI (gcc, clang) a pointer to a virtual member holds
// one plus the byte offset of its entry in the vtable, and an object's first
// word points at its vtable. A reactor overrides an operation when its entry
// differs from that of a reactor of the library's own class.
template <class Member>
bool overrides(const hostPropEditorReactor* reactor, Member operation)
{
  if (!reactor)
    return false;
#if defined(__GNUC__) || defined(__clang__)
  static_assert(sizeof(Member) == 2 * sizeof(void*), "not an Itanium member pointer");
  std::ptrdiff_t raw[2];
  std::memcpy(raw, &operation, sizeof raw);
  if ((raw[0] & 1) == 0)
    return true;
  const std::size_t slot = std::size_t(raw[0] - 1) / sizeof(void*);
  static const hostPropEditorReactor plain;
  void* const* own = *reinterpret_cast<void* const* const*>(reactor);
  void* const* library = *reinterpret_cast<void* const* const*>(&plain);
  return own[slot] != library[slot];
#else
  // Without a known vtable layout every reactor is told everything; the empty bodies ignore it.
  (void)operation;
  return true;
#endif
}

} // namespace

bool PropUiReactorProbe::listensToCurrent(const hostPropEditorReactor* reactor)
{
  return overrides(reactor, &hostPropEditorReactor::currentChanged);
}

bool PropUiReactorProbe::listensToSelection(const hostPropEditorReactor* reactor)
{
  return overrides(reactor, &hostPropEditorReactor::selectionChanged);
}

bool PropUiReactorProbe::listensToPins(const hostPropEditorReactor* reactor)
{
  return overrides(reactor, &hostPropEditorReactor::pinnedChanged);
}

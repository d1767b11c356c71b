#pragma once

#include "OdGUID.h"
#include <QObject>
#include <QPointer>
#include <algorithm>
#include <utility>
#include <vector>

/**
 * What a lookup by a GUID's key text answered, kept by the GUID itself. A
 * grid looks up a helper for every cell it paints, and making the key text
 * costs more than the paint; a bag uses only a handful of GUIDs.
 */
template <class T> class PropUiGuidLookupCache
{
public:
  /** The object remembered for the GUID, null when there is none or it has been deleted since. */
  T* find(const OdGUID& guid) const
  {
    for (const auto& known : m_known)
      if (known.first == guid)
        return known.second.data();
    return nullptr;
  }

  void remember(const OdGUID& guid, T* object)
  {
    m_known.erase(std::remove_if(m_known.begin(), m_known.end(),
                                 [&guid](const auto& known) { return !known.second || known.first == guid; }),
                  m_known.end());
    if (object)
      m_known.emplace_back(guid, object);
  }

  void clear() { m_known.clear(); }

private:
  std::vector<std::pair<OdGUID, QPointer<T> > > m_known;
};

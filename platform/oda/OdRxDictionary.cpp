#include "OdRxDictionary.h"

void OdRxDictionary::release()
{
  if (--m_refs == 0)
    delete this;
}

OdRxObjectPtr OdRxDictionary::getAt(const OdString& key) const
{
  const auto it = m_entries.find(key);
  return it == m_entries.end() ? OdRxObjectPtr() : it->second;
}

OdRxObjectPtr OdRxDictionary::putAt(const OdString& key, OdRxObject* object)
{
  OdRxObjectPtr previous = getAt(key);
  m_entries[key] = object;
  return previous;
}

OdRxObjectPtr OdRxDictionary::remove(const OdString& key)
{
  const auto it = m_entries.find(key);
  if (it == m_entries.end())
    return OdRxObjectPtr();
  OdRxObjectPtr held = it->second;
  m_entries.erase(it);
  return held;
}

bool OdRxDictionary::has(const OdString& key) const
{
  return m_entries.count(key) != 0;
}

// Both registries are created on first use and live until the process ends,
// so modules may still withdraw their entries from static destructors.
OdRxDictionary* odrxSysRegistry()
{
  static OdRxDictionary* registry = new OdRxDictionary();
  return registry;
}

OdRxDictionary* odrxClassDictionary()
{
  static OdRxDictionary* classes = new OdRxDictionary();
  return classes;
}

#pragma once

#include "OdSmartPtr.h"
#include <map>

/** String-keyed map of run-time objects, ordered by wcscmp of the keys. */
class ODA_EXPORT OdRxDictionary : public OdRxObject
{
public:
  void addRef() override { ++m_refs; }
  void release() override;
  long numRefs() const override { return m_refs; }

  OdRxObjectPtr getAt(const OdString& key) const;
  /** Stores the object and answers what the key held before (null when it was free). */
  OdRxObjectPtr putAt(const OdString& key, OdRxObject* object);
  /** Takes the entry out and answers what it held. */
  OdRxObjectPtr remove(const OdString& key);
  bool has(const OdString& key) const;
  unsigned int numEntries() const { return unsigned(m_entries.size()); }

private:
  std::map<OdString, OdRxObjectPtr, OdStringLess> m_entries;
  long m_refs = 1;
};

typedef OdSmartPtr<OdRxDictionary> OdRxDictionaryPtr;

/** The process-wide system registry where services are published by key. */
ODA_EXPORT OdRxDictionary* odrxSysRegistry();
/** Every run-time class registered with newOdRxClass, by name. */
ODA_EXPORT OdRxDictionary* odrxClassDictionary();

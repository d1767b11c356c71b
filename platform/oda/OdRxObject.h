#pragma once

#include "OdString.h"

class OdRxClass;

/**
 * Root of the run-time class tree: an intrusively counted object that knows
 * its run-time class and answers queries for the classes it can be cast to.
 */
class ODA_EXPORT OdRxObject
{
public:
  OdRxObject() = default;
  OdRxObject(const OdRxObject&) = delete;
  OdRxObject& operator=(const OdRxObject&) = delete;
  virtual ~OdRxObject() = default;

  virtual void addRef() = 0;
  virtual void release() = 0;
  virtual long numRefs() const = 0;

  /** The object itself when it is of the class asked for (or derived from it), else null. */
  virtual OdRxObject* queryX(const OdRxClass* cls) const;
  virtual OdRxClass* isA() const;
  bool isKindOf(const OdRxClass* cls) const;

  static OdRxClass* desc();
};

/** Counting implementation mixed in below a concrete class: OdRxObjectImpl<MyObject>. */
template <class T, class Interface = T>
class OdRxObjectImpl : public T
{
public:
  void addRef() override { ++m_refs; }
  void release() override
  {
    if (--m_refs == 0)
      delete this;
  }
  long numRefs() const override { return m_refs; }

  /** A new object held by the returned pointer only. */
  static Interface* createObjectRaw() { return new OdRxObjectImpl<T, Interface>(); }

private:
  long m_refs = 1;
};

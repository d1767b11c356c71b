#pragma once

#include "OdAlloc.h"

/** Shared ownership of a plain object: the pointer and a separately allocated use count. */
template <class T>
class OdSharedPtr
{
public:
  OdSharedPtr() = default;
  OdSharedPtr(T* object) { reset(object); }
  OdSharedPtr(const OdSharedPtr& other) : m_object(other.m_object), m_refCount(other.m_refCount)
  {
    if (m_refCount)
      ++*m_refCount;
  }
  ~OdSharedPtr() { release(); }

  OdSharedPtr& operator=(const OdSharedPtr& other)
  {
    if (this != &other)
    {
      if (other.m_refCount)
        ++*other.m_refCount;
      release();
      m_object = other.m_object;
      m_refCount = other.m_refCount;
    }
    return *this;
  }
  OdSharedPtr& operator=(T* object)
  {
    if (object != m_object)
    {
      release();
      reset(object);
    }
    return *this;
  }

  T* get() { return m_object; }
  const T* get() const { return m_object; }
  T* operator->() { return m_object; }
  const T* operator->() const { return m_object; }
  T& operator*() { return *m_object; }
  const T& operator*() const { return *m_object; }
  operator T*() { return m_object; }
  operator const T*() const { return m_object; }
  bool isNull() const { return m_object == nullptr; }
  int refCount() const { return m_refCount ? *m_refCount : 0; }

private:
  void reset(T* object)
  {
    m_object = object;
    m_refCount = nullptr;
    if (object)
    {
      m_refCount = static_cast<int*>(odrxAlloc(sizeof(int)));
      *m_refCount = 1;
    }
  }
  void release()
  {
    if (m_refCount && --*m_refCount == 0)
    {
      delete m_object;
      odrxFree(m_refCount);
    }
    m_object = nullptr;
    m_refCount = nullptr;
  }

  T* m_object = nullptr;
  int* m_refCount = nullptr;
};

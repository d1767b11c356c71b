#pragma once

#include "OdRxObject.h"

struct OdRxObjectAttachTag
{
};
/** Pass as second argument to take over a reference instead of adding one. */
constexpr OdRxObjectAttachTag kOdRxObjAttach{};

/** Counted pointer to a run-time object; assignment from another class casts by run-time type. */
template <class T>
class OdSmartPtr
{
public:
  OdSmartPtr() = default;
  OdSmartPtr(std::nullptr_t) {}
  OdSmartPtr(T* object) : m_object(object) { if (m_object) m_object->addRef(); }
  OdSmartPtr(T* object, OdRxObjectAttachTag) : m_object(object) {}
  OdSmartPtr(const OdSmartPtr& other) : OdSmartPtr(other.m_object) {}
  OdSmartPtr(OdSmartPtr&& other) noexcept : m_object(other.m_object) { other.m_object = nullptr; }
  template <class U>
  OdSmartPtr(const OdSmartPtr<U>& other) { assignCast(other.get()); }
  ~OdSmartPtr() { release(); }

  OdSmartPtr& operator=(const OdSmartPtr& other)
  {
    if (other.m_object)
      other.m_object->addRef();
    release();
    m_object = other.m_object;
    return *this;
  }
  OdSmartPtr& operator=(OdSmartPtr&& other) noexcept
  {
    if (this != &other)
    {
      release();
      m_object = other.m_object;
      other.m_object = nullptr;
    }
    return *this;
  }
  OdSmartPtr& operator=(T* object) { return *this = OdSmartPtr(object); }

  /** Queries the object for T; null when it is not one. */
  void assignCast(const OdRxObject* object)
  {
    release();
    if (object)
      m_object = static_cast<T*>(object->queryX(T::desc()));
    if (m_object)
      m_object->addRef();
  }

  void release()
  {
    if (m_object)
    {
      T* object = m_object;
      m_object = nullptr;
      object->release();
    }
  }
  /** Gives up the reference without releasing it. */
  T* detach()
  {
    T* object = m_object;
    m_object = nullptr;
    return object;
  }

  T* get() const { return m_object; }
  T* operator->() const { return m_object; }
  T& operator*() const { return *m_object; }
  operator T*() const { return m_object; }
  bool isNull() const { return m_object == nullptr; }
  explicit operator bool() const { return m_object != nullptr; }

private:
  T* m_object = nullptr;
};

typedef OdSmartPtr<OdRxObject> OdRxObjectPtr;

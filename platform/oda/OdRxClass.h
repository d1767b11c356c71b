#pragma once

#include "OdError.h"
#include "OdSmartPtr.h"

typedef OdRxObjectPtr (*OdPseudoConstructorType)();

/** Description of a run-time class: its name, its parent and how to make an instance. */
class ODA_EXPORT OdRxClass : public OdRxObject
{
public:
  OdRxClass(const OdString& name, OdRxClass* parent, OdPseudoConstructorType constructor);

  void addRef() override { ++m_refs; }
  void release() override;
  long numRefs() const override { return m_refs; }
  OdRxClass* isA() const override;

  const OdString& name() const { return m_name; }
  OdRxClass* myParent() const { return m_parent; }
  bool isDerivedFrom(const OdRxClass* other) const;
  /** A new instance, or null for a class without a constructor. */
  OdRxObjectPtr create() const;

  static OdRxClass* desc();

private:
  OdString m_name;
  OdRxClass* m_parent;
  OdPseudoConstructorType m_constructor;
  long m_refs = 1;
};

/** Registers a class under its name; a name already registered raises eDuplicateKey. */
ODA_EXPORT OdRxClass* newOdRxClass(const OdString& name, OdRxClass* parent,
                                   OdPseudoConstructorType constructor = nullptr);
/** Removes a class registered by newOdRxClass; an unknown class raises eKeyNotFound. */
ODA_EXPORT void deleteOdRxClass(OdRxClass* cls);

/** Declares the run-time class members of a class derived from OdRxObject. */
#define ODRX_DECLARE_MEMBERS(ClassName)                                      \
public:                                                                      \
  static OdRxClass* desc();                                                  \
  OdRxClass* isA() const override;                                           \
  OdRxObject* queryX(const OdRxClass* cls) const override;                   \
  static OdSmartPtr<ClassName> cast(const OdRxObject* object)                \
  {                                                                          \
    OdSmartPtr<ClassName> result;                                            \
    result.assignCast(object);                                               \
    return result;                                                           \
  }                                                                          \
  static OdSmartPtr<ClassName> createObject();                               \
  static OdRxObjectPtr pseudoConstructor();                                  \
  static void rxInit();                                                      \
  static void rxUninit()

/** Defines them: the class registers itself with rxInit and goes with rxUninit. */
#define ODRX_DEFINE_MEMBERS(ClassName, ParentClass, NameText)                                      \
  static OdRxClass* g_##ClassName##Desc = nullptr;                                                 \
  OdRxClass* ClassName::desc() { return g_##ClassName##Desc; }                                     \
  OdRxClass* ClassName::isA() const { return g_##ClassName##Desc; }                                \
  OdRxObject* ClassName::queryX(const OdRxClass* cls) const                                        \
  {                                                                                                \
    if (cls && g_##ClassName##Desc && g_##ClassName##Desc->isDerivedFrom(cls))                     \
      return const_cast<ClassName*>(this);                                                         \
    return ParentClass::queryX(cls);                                                               \
  }                                                                                                \
  OdSmartPtr<ClassName> ClassName::createObject()                                                  \
  {                                                                                                \
    return OdSmartPtr<ClassName>(OdRxObjectImpl<ClassName>::createObjectRaw(), kOdRxObjAttach);    \
  }                                                                                                \
  OdRxObjectPtr ClassName::pseudoConstructor() { return OdRxObjectPtr(createObject()); }           \
  void ClassName::rxInit()                                                                         \
  {                                                                                                \
    if (g_##ClassName##Desc)                                                                       \
      throw OdError(eDuplicateKey);                                                                \
    g_##ClassName##Desc = newOdRxClass(OdString(NameText), ParentClass::desc(), &pseudoConstructor); \
  }                                                                                                \
  void ClassName::rxUninit()                                                                       \
  {                                                                                                \
    if (!g_##ClassName##Desc)                                                                      \
      throw OdError(eKeyNotFound);                                                                 \
    OdRxClass* cls = g_##ClassName##Desc;                                                          \
    g_##ClassName##Desc = nullptr;                                                                 \
    deleteOdRxClass(cls);                                                                          \
  }

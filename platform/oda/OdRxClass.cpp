#include "OdRxClass.h"

#include "OdError.h"
#include "OdRxDictionary.h"

// The root class lives for the whole process so that every class can name it as parent.
static OdRxClass* rootClass()
{
  static OdRxClass* root = new OdRxClass(OdString(L"OdRxObject"), nullptr, nullptr);
  return root;
}

static OdRxClass* classClass()
{
  static OdRxClass* cls = new OdRxClass(OdString(L"OdRxClass"), rootClass(), nullptr);
  return cls;
}

OdRxClass* OdRxObject::desc()
{
  return rootClass();
}

OdRxClass* OdRxObject::isA() const
{
  return rootClass();
}

OdRxObject* OdRxObject::queryX(const OdRxClass* cls) const
{
  if (cls && isA()->isDerivedFrom(cls))
    return const_cast<OdRxObject*>(this);
  return nullptr;
}

bool OdRxObject::isKindOf(const OdRxClass* cls) const
{
  return queryX(cls) != nullptr;
}

OdRxClass::OdRxClass(const OdString& name, OdRxClass* parent, OdPseudoConstructorType constructor)
  : m_name(name), m_parent(parent), m_constructor(constructor)
{
}

void OdRxClass::release()
{
  if (--m_refs == 0)
    delete this;
}

OdRxClass* OdRxClass::isA() const
{
  return classClass();
}

OdRxClass* OdRxClass::desc()
{
  return classClass();
}

bool OdRxClass::isDerivedFrom(const OdRxClass* other) const
{
  for (const OdRxClass* c = this; c; c = c->m_parent)
    if (c == other)
      return true;
  return false;
}

OdRxObjectPtr OdRxClass::create() const
{
  return m_constructor ? m_constructor() : OdRxObjectPtr();
}

OdRxClass* newOdRxClass(const OdString& name, OdRxClass* parent, OdPseudoConstructorType constructor)
{
  OdRxDictionary* classes = odrxClassDictionary();
  if (classes->has(name))
    throw OdError(eDuplicateKey);
  OdRxClass* cls = new OdRxClass(name, parent ? parent : rootClass(), constructor);
  classes->putAt(name, cls);
  cls->release(); // the dictionary holds the one reference
  return cls;
}

void deleteOdRxClass(OdRxClass* cls)
{
  if (!cls)
    throw OdError(eKeyNotFound);
  OdRxDictionary* classes = odrxClassDictionary();
  OdRxObjectPtr held = classes->getAt(cls->name());
  if (held.get() != cls)
    throw OdError(eKeyNotFound);
  classes->remove(cls->name());
}

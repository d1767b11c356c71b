#pragma once

#include "OdGUID.h"
#include "PropItemType.h"

/** The type a demo bag gives each item: its number, the bag's name for it and the editor it asks for. */
class DemoItemType : public PropItemType
{
public:
  DemoItemType(int id, const OdString& name, const OdGUID& guid) : m_id(id), m_name(name), m_guid(guid) {}
  int typeId() const override { return m_id; }
  OdString typeName() const override { return m_name; }
  OdGUID editorGuid() const override { return m_guid; }

private:
  int m_id;
  OdString m_name;
  OdGUID m_guid;
};

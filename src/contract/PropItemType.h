#pragma once

#include "OdGUID.h"
#include "PropWidgetsExport.h"

/**
 * What a bag says about the type of one item. The library reads the type id
 * (handed to the editor reactor) and the editor GUID (to choose validators).
 */
class PROPWIDGETS_EXPORT PropItemType
{
public:
  virtual int typeId() const = 0;
  virtual OdString typeName() const = 0;
  virtual OdGUID editorGuid() const = 0;

protected:
  // The bag owns its type objects; nobody deletes them through this interface.
  ~PropItemType() = default;
};

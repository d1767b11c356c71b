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

/** What kind of number an item holds, as its editor tells. */
enum class PropNumberKind
{
  None,
  Integer,
  Real
};

/**
 * The number kind of an item of this type, from the editor its type names:
 * a typed value is checked against it. None for a null type.
 */
PROPWIDGETS_EXPORT PropNumberKind propNumberKindOf(const PropItemType* type);

#pragma once

#include "OdArray.h"
#include "OdGUID.h"
#include "OdSharedPtr.h"
#include "PropVariant.h"
#include "PropWidgetsExport.h"

class PropAction;
class PropIcon;
class PropBagCtx;
class PropItemType;
class hostPropEditorReactor;

typedef OdArray<OdSharedPtr<PropAction> > PropActionArray;
typedef OdArray<unsigned long> PropKeyArray;

/**
 * A set of editable items, implemented by the host. Items are addressed by
 * index and may be split into numbered elements. Every operation reports
 * failure by its result, never by an exception.
 *
 * The order of the virtual operations is part of the contract: hosts built
 * against this header must keep it. Only the item count and the whole-item
 * read and write are required; everything else answers "not available".
 */
class PROPWIDGETS_EXPORT PropBag
{
public:
  virtual ~PropBag();

  /** A name for the bag as a whole, for the host's own titles. */
  virtual bool getBagName(OdString& name);
  virtual int getItemCount() = 0;
  /** The index of the item with this caption, -1 when there is none. */
  virtual int findItem(const OdString& name);
  /** The item's type object (owned by the bag), or null. */
  virtual PropItemType* getItemType(int index);
  virtual bool isEditable(int index, unsigned long element);
  /** Whether the host shows the item at all. */
  virtual bool isVisible(int index);
  virtual bool getName(int index, OdString& name);
  /** The group the host files the item under. */
  virtual bool getCategory(int index, OdString& category);
  virtual bool getDescription(int index, OdString& description);
  /** The item's flags (PropItemFlag in PropUiOptions.h). */
  virtual unsigned int getFlags(int index);
  virtual OdGUID getControlGuid(int index);
  virtual bool validate(int index, unsigned long element, const PropVariant& value, OdString& message);
  virtual bool getRange(int index, unsigned long element, PropVariant& min, PropVariant& max);
  virtual bool formatValue(int index, unsigned long element, const PropVariant& value, OdString& text);
  virtual bool parseValue(int index, unsigned long element, const OdString& text, PropVariant& value);
  virtual bool getValue(int index, PropVariant& value) = 0;
  virtual bool setValue(int index, const PropVariant& value) = 0;
  virtual unsigned int getActions(int index, unsigned long element, PropActionArray& actions);
  virtual bool executeAction(int index, PropAction* action);
  virtual bool getValueList(int index, OdStringArray& names, PropKeyArray& keys);
  virtual bool getListValue(int index, unsigned long id, PropVariant& value);
  virtual bool getIcon(int index, unsigned long value, OdSharedPtr<PropIcon>& icon);
  virtual bool getListText(int index, const PropVariant& value, OdString& text);
  virtual unsigned int getElements(int index, PropKeyArray& elements, OdStringArray& captions);
  virtual bool getElementValue(int index, unsigned long element, PropVariant& value);
  virtual bool setElementValue(int index, unsigned long element, const PropVariant& value);
  virtual int getElementCount(int index);
  virtual int getGroupCount(int index);
  virtual PropBagCtx* getContext();
  virtual hostPropEditorReactor* getReactor(int index);
};

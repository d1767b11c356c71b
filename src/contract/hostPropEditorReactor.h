#pragma once

#include "PropVariant.h"
#include "PropWidgetsExport.h"

/**
 * Listener for the editor events of one item, handed out by the bag. Every
 * operation does nothing by default; a host overrides what it wants to hear.
 */
class PROPWIDGETS_EXPORT hostPropEditorReactor
{
public:
  virtual ~hostPropEditorReactor();
  virtual void focusChanged(int typeId, unsigned long element, bool focusIn);
  /** The current entry moved from previous to current. */
  virtual void currentChanged(int typeId, PropVariant& previous, PropVariant& current);
  virtual void selectionChanged(int typeId, PropVariant& selection);
  virtual void pinnedChanged(int typeId, PropVariant& pinned);
};

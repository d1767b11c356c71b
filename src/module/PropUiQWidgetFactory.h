#pragma once

#include "PropWidgetsExport.h"

class PropUiQWidget;
class QWidget;

/**
 * Makes the control for one editor kind. The registry owns a registered
 * factory and deletes it through this interface, which has no virtual
 * destructor: a factory must hold no data of its own.
 */
class PROPWIDGETS_EXPORT PropUiQWidgetFactory
{
public:
  /** A control for a panel, owned by the caller (or by the Qt parent). */
  virtual PropUiQWidget* createWidget(int options, QWidget* parent) = 0;
  /** A control that edits a cell of an item view. */
  virtual PropUiQWidget* createEditor(int options, QWidget* parent) = 0;
};

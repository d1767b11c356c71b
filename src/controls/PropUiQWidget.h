#pragma once

#include "PropWidgetsExport.h"
#include <QWidget>

class PropBag;

/**
 * The widget every property control is. It declares the control interface,
 * so that factories can hand out any control as a PropUiQWidget.
 */
class PROPWIDGETS_EXPORT PropUiQWidget : public QWidget
{
  Q_OBJECT

public:
  explicit PropUiQWidget(QWidget* parent = nullptr);

  /** Builds the Qt children; false when there is nothing to build (no bag bound). */
  virtual bool setupUi() = 0;
  /** Re-asks the bag for the item's state (editable, tool tip). */
  virtual void updateUi() = 0;
  virtual void setPropBagItem(PropBag* bag, int index) = 0;
  virtual void setPropBagItem(PropBag* bag, int index, unsigned long element) = 0;
  virtual void disableActionsToolbar(bool disable) = 0;
  /** Re-reads the value from the bag. */
  virtual void updateData() = 0;
  virtual int getOptions() const = 0;
  virtual void setOptions(int options) = 0;

public Q_SLOTS:
  /** Asks the host to redraw after a commit. */
  virtual void onUpdateDisplay() = 0;

public:
  virtual bool isVaries() const = 0;
  virtual void setVaries(bool varies) = 0;
};

#pragma once

#include "PropWidgetsExport.h"
#include <Qt>

class PropBag;
class PropUiQFormatter;
class QModelIndex;

/** The roles by which every index of the item-view layer tells which bag item it stands for. */
enum PropUiItemRole
{
  /** int: the bag item of the row. */
  PropItemIndexRole = Qt::UserRole,
  /** unsigned 64-bit: the element of a child row, the chosen entry of an item row. */
  PropSubIndexRole = Qt::UserRole + 1,
  /** bool: true on an element row. */
  PropIsSubItemRole = Qt::UserRole + 2
};

/**
 * What the models and delegates of the item-view layer share, so that a
 * host's group can bind one bag and one formatter to all of them and tell
 * them when the bag's data changed.
 */
class PROPWIDGETS_EXPORT PropUiQtMVCInterface
{
public:
  /** Binds a bag (null unbinds); a model resets itself. */
  virtual void setPropBag(PropBag* bag) = 0;
  virtual void setFormatter(PropUiQFormatter* formatter) = 0;
  /** The item's data changed; -1 stands for every item. */
  virtual void itemChanged(int item) = 0;

  /**
   * Reads the three roles of any index of this layer (or of a host model
   * that answers them). False, with the outputs untouched, unless all three
   * have exactly the expected types.
   */
  static bool getPropData(const QModelIndex& index, int& item, unsigned long& sub, bool& isSubItem);
};

#pragma once

#include "PropUiQtMVCInterface.h"

/**
 * Implemented by the host: it is handed every model and delegate made for it
 * and binds and notifies them together, so that one call serves a whole view.
 * The group does not own what is attached to it.
 */
class PROPWIDGETS_EXPORT PropUiQtMVCGroup : public PropUiQtMVCInterface
{
public:
  PropUiQtMVCGroup();

  void setPropBag(PropBag* bag) override = 0;
  void setFormatter(PropUiQFormatter* formatter) override = 0;
  void itemChanged(int item) override = 0;
  /** Receives each model or delegate created for this group. */
  virtual void attachInterface(PropUiQtMVCInterface* mvcInterface) = 0;
  /** The host's own; the library never calls it. */
  virtual void detachInterface(PropUiQtMVCInterface* mvcInterface) = 0;
};

#pragma once

#include "PropUiQtMVCGroup.h"
#include <QVector>

/**
 * The demo's group: the models and delegates of its grid attach here, and
 * one call binds or refreshes them all together.
 */
class DemoGridGroup : public PropUiQtMVCGroup
{
public:
  void setPropBag(PropBag* bag) override;
  void setFormatter(PropUiQFormatter* formatter) override;
  void itemChanged(int item) override;
  void attachInterface(PropUiQtMVCInterface* mvcInterface) override;
  void detachInterface(PropUiQtMVCInterface* mvcInterface) override;

private:
  QVector<PropUiQtMVCInterface*> m_attached;
};

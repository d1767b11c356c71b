#pragma once

#include "PropUiQtMVCGroup.h"
#include <QVector>

/** A host group that keeps what is attached to it and forwards every call to all of it. */
class TestMvcGroup : public PropUiQtMVCGroup
{
public:
  void setPropBag(PropBag* bag) override
  {
    for (PropUiQtMVCInterface* attached : interfaces)
      attached->setPropBag(bag);
  }
  void setFormatter(PropUiQFormatter* formatter) override
  {
    for (PropUiQtMVCInterface* attached : interfaces)
      attached->setFormatter(formatter);
  }
  void itemChanged(int item) override
  {
    for (PropUiQtMVCInterface* attached : interfaces)
      attached->itemChanged(item);
  }
  void attachInterface(PropUiQtMVCInterface* mvcInterface) override { interfaces.append(mvcInterface); }
  void detachInterface(PropUiQtMVCInterface* mvcInterface) override { interfaces.removeAll(mvcInterface); }

  QVector<PropUiQtMVCInterface*> interfaces;
};

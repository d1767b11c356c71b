#include "DemoGridGroup.h"

void DemoGridGroup::setPropBag(PropBag* bag)
{
  for (PropUiQtMVCInterface* attached : qAsConst(m_attached))
    attached->setPropBag(bag);
}

void DemoGridGroup::setFormatter(PropUiQFormatter* formatter)
{
  for (PropUiQtMVCInterface* attached : qAsConst(m_attached))
    attached->setFormatter(formatter);
}

void DemoGridGroup::itemChanged(int item)
{
  for (PropUiQtMVCInterface* attached : qAsConst(m_attached))
    attached->itemChanged(item);
}

void DemoGridGroup::attachInterface(PropUiQtMVCInterface* mvcInterface)
{
  if (mvcInterface && !m_attached.contains(mvcInterface))
    m_attached.append(mvcInterface);
}

void DemoGridGroup::detachInterface(PropUiQtMVCInterface* mvcInterface)
{
  m_attached.removeAll(mvcInterface);
}

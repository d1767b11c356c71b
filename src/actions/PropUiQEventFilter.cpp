#include "PropUiQEventFilter.h"

PropUiQEventFilter::PropUiQEventFilter(QObject* parent) : QObject(parent) {}

void PropUiQEventFilter::setPropBagItem(PropBag* bag, int index)
{
  m_bag = bag;
  m_itemIndex = index;
  m_subIndex = 0;
  m_boundWithSubIndex = false;
}

void PropUiQEventFilter::setPropBagItem(PropBag* bag, int index, unsigned long subIndex)
{
  m_bag = bag;
  m_itemIndex = index;
  m_subIndex = subIndex;
  m_boundWithSubIndex = true;
}

void PropUiQEventFilter::update() {}

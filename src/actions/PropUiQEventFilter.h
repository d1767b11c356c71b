#pragma once

#include "PropWidgetsExport.h"
#include <QObject>

class PropBag;

/**
 * Base of the filters that controls put on their widgets. It is bound to a
 * bag item like a control, with or without an element.
 */
class PROPWIDGETS_EXPORT PropUiQEventFilter : public QObject
{
  Q_OBJECT

public:
  explicit PropUiQEventFilter(QObject* parent);

  virtual void setPropBagItem(PropBag* bag, int index);
  virtual void setPropBagItem(PropBag* bag, int index, unsigned long subIndex);
  /** Re-reads whatever the filter takes from the bag. */
  virtual void update();

  bool isBoundWithSubIndex() const { return m_boundWithSubIndex; }
  int itemIndex() const { return m_itemIndex; }
  unsigned long subIndex() const { return m_subIndex; }
  PropBag* propBag() const { return m_bag; }

protected:
  bool m_boundWithSubIndex = false;
  int m_itemIndex = -1;
  unsigned long m_subIndex = 0;
  PropBag* m_bag = nullptr;
};

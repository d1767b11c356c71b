#pragma once

#include "OdStringQt.h"
#include "PropBag.h"
#include "PropVariant.h"

// Values as a bag hands them out, and controls bound the way a host binds them.

inline PropVariant intValue(int i, bool varies = false)
{
  PropVariant v;
  v.setInt32(i);
  v.setVaries(varies);
  return v;
}

inline PropVariant realValue(double d, bool varies = false)
{
  PropVariant v;
  v.setDouble(d);
  v.setVaries(varies);
  return v;
}

inline PropVariant boolValue(bool b, bool varies = false)
{
  PropVariant v;
  v.setBool(b);
  v.setVaries(varies);
  return v;
}

inline PropVariant textValue(const QString& s, bool varies = false)
{
  PropVariant v;
  v.setString(toOdString(s));
  v.setVaries(varies);
  return v;
}

/** A new control bound to the whole item, set up and showing the bag's value. */
template <class Control>
Control* boundControl(PropBag& bag, int item)
{
  auto* control = new Control;
  control->setPropBagItem(&bag, item);
  control->setupUi();
  control->updateUi();
  control->updateData();
  return control;
}

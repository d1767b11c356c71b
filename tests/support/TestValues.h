#pragma once

#include "OdStringQt.h"
#include "PropBag.h"
#include "PropVariant.h"
#include <QStringList>

// Values as a bag hands them out, and controls bound the way a host binds them.

inline PropVariant withVaries(PropVariant v, bool varies)
{
  v.setVaries(varies);
  return v;
}

inline PropVariant intValue(int i, bool varies = false) { return withVaries(PropVariant().setInt32(i), varies); }
inline PropVariant realValue(double d, bool varies = false) { return withVaries(PropVariant().setDouble(d), varies); }
inline PropVariant boolValue(bool b, bool varies = false) { return withVaries(PropVariant().setBool(b), varies); }
inline PropVariant textValue(const QString& s, bool varies = false)
{
  return withVaries(PropVariant().setString(toOdString(s)), varies);
}

inline PropVariant realsValue(const OdDoubleArray& reals) { return PropVariant().setDoubleArray(reals); }

/** A list of texts, as lists of names and tables are held. */
inline PropVariant textsValue(const QStringList& texts)
{
  OdStringArray array;
  for (const QString& text : texts)
    array.append(toOdString(text));
  return PropVariant().setStringArray(array);
}

/** A new control with the options, bound to the whole item, set up and showing the bag's value. */
template <class Control>
Control* boundControl(PropBag& bag, int item, int options = 0)
{
  auto* control = new Control;
  if (options)
    control->setOptions(options);
  control->setPropBagItem(&bag, item);
  control->setupUi();
  control->updateUi();
  control->updateData();
  return control;
}

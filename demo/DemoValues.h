#pragma once

#include "OdStringQt.h"
#include "PropVariant.h"
#include <QString>

// Values as the demo's bags hand them out.

inline PropVariant number(double d) { return PropVariant().setDouble(d); }
inline PropVariant integer(int i) { return PropVariant().setInt32(i); }
inline PropVariant boolean(bool b) { return PropVariant().setBool(b); }
inline PropVariant text(const QString& s) { return PropVariant().setString(toOdString(s)); }

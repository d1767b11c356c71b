#pragma once

// Header-only bridge so that the platform library itself stays free of Qt.
#include "OdString.h"
#include <QString>

inline QString toQString(const OdString& s)
{
  return QString::fromWCharArray(s.c_str(), s.getLength());
}

inline OdString toOdString(const QString& s)
{
  return OdString(s.toStdWString());
}

#include "OdCmColor.h"

bool OdCmColor::setNames(const OdString& colorName, const OdString& bookName)
{
  if (!m_color.isByColor())
    return false;
  m_colorName = colorName;
  m_bookName = bookName;
  return true;
}

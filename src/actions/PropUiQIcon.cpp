#include "PropUiQIcon.h"

PropUiQIcon::PropUiQIcon(const QIcon& icon) : m_icon(icon) {}

PropUiQIcon::~PropUiQIcon() = default;

QIcon& PropUiQIcon::getIcon()
{
  return m_icon;
}

#include "HostVisualManager.h"

#include "HostQtStyleManager.h"

namespace
{

constexpr unsigned int rgbWord(unsigned int r, unsigned int g, unsigned int b)
{
  return r | (g << 8) | (b << 16);
}

} // namespace

bool HostVisualManager::isDarkTheme() const
{
  return hostGetQtStyleManager()->theme() == HostQtStyleManager::Dark;
}

unsigned int HostVisualManager::accentColor() const
{
  return isDarkTheme() ? rgbWord(0x2f, 0x65, 0xca) : rgbWord(0x35, 0x74, 0xf0);
}

unsigned int HostVisualManager::textColor(int) const
{
  return isDarkTheme() ? rgbWord(0xdf, 0xe1, 0xe5) : rgbWord(0x1f, 0x23, 0x28);
}

HostVisualManager* hostVisualManager()
{
  // Derived only to reach the protected destructor of a static instance.
  struct Instance : HostVisualManager
  {
  };
  static Instance instance;
  return &instance;
}

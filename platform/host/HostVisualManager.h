#pragma once

#include "HostExport.h"

/**
 * The colours of the host's current theme. Colours are 32-bit words with red
 * in the lowest byte, then green, then blue.
 */
class HOST_EXPORT HostVisualManager
{
public:
  /** True in the dark theme, where accents are drawn lighter. */
  virtual bool isDarkTheme() const;
  virtual unsigned int accentColor() const;
  /** Role 0 is the normal text colour. */
  virtual unsigned int textColor(int role) const;

protected:
  // Callers reach the one instance through hostVisualManager() and never delete it.
  ~HostVisualManager() = default;
};

HOST_EXPORT HostVisualManager* hostVisualManager();

#pragma once

// Colours of the host's theme as Qt colours; not part of the library's API.

#include <QColor>

namespace propui
{

/** The host's 0x00BBGGRR colour word as an opaque QColor. */
inline QColor colorFromWord(unsigned int word)
{
  return QColor(int(word & 0xFF), int((word >> 8) & 0xFF), int((word >> 16) & 0xFF));
}

} // namespace propui

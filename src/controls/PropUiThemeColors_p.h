#pragma once

// Colours of the host's theme as Qt colours; not part of the library's API.

#include <QColor>
#include <QLineEdit>
#include <QPalette>

namespace propui
{

/** The host's 0x00BBGGRR colour word as an opaque QColor. */
inline QColor colorFromWord(unsigned int word)
{
  return QColor(int(word & 0xFF), int((word >> 8) & 0xFF), int((word >> 16) & 0xFF));
}

/**
 * Draws an editor's text in the theme's placeholder colour, or back in its
 * own. Only the text colour is set, so every other role follows the theme;
 * call it again when the theme changes.
 */
inline void dimTextAsPlaceholder(QLineEdit* edit, bool dimmed)
{
  if (!edit)
    return;
  QPalette look;
  if (dimmed)
  {
    const QColor placeholder = edit->parentWidget() ? edit->parentWidget()->palette().color(QPalette::PlaceholderText)
                                                    : edit->palette().color(QPalette::PlaceholderText);
    for (auto group : {QPalette::Active, QPalette::Inactive})
      look.setColor(group, QPalette::Text, placeholder);
  }
  edit->setPalette(look);
}

} // namespace propui

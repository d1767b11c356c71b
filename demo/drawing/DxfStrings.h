#pragma once

#include <QString>
#include <string>

// Drawings of this DXF version keep their texts in a code page; characters
// beyond ASCII travel as \U+XXXX escapes, which every reader understands and
// which keep a saved file the same bytes on every machine.

/** A text or name of the file as the drawing means it. */
QString fromDxfString(const std::string& bytes);
/** A text or name as the file stores it. */
std::string toDxfString(const QString& text);

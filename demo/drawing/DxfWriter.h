#pragma once

#include <QString>

class DrawingDocument;

/**
 * Writes @p document as a DXF drawing (AutoCAD 2000 text format) to @p path:
 * its layers, linetypes, blocks and entities with every property they carry,
 * entity handles included. The same document always gives the same bytes.
 * False, with a message in @p error (when given), when the file cannot be written.
 */
bool writeDxf(const QString& path, const DrawingDocument& document, QString* error);

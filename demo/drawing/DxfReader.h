#pragma once

#include <QByteArray>
#include <QString>

class DrawingDocument;

/**
 * Reads the DXF drawing at @p path into @p document, in place of what it held:
 * layers, linetypes, blocks with their entities, and the model space's lines,
 * circles, arcs, polylines, texts, multi-line texts, inserts and dimensions.
 * Entities of other kinds are skipped; @p skipped, when given, receives their
 * count. On failure the document is left as it was, @p error (when given) says
 * why (for a damaged file, at which line) and the result is false.
 */
bool readDxf(const QString& path, DrawingDocument& document, QString* error, int* skipped = nullptr);

/**
 * The same for a drawing already in memory; @p shownName is what messages call
 * it, and the document gets no file name.
 */
bool readDxfData(const QByteArray& data, const QString& shownName, DrawingDocument& document, QString* error,
                 int* skipped = nullptr);

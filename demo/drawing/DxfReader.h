#pragma once

#include <QByteArray>
#include <QString>

class DrawingDocument;

/**
 * Reads the DXF drawing at @p path into @p document, in place of what it held:
 * layers, linetypes, text styles, numeric header variables, blocks with their
 * entities, and the entities section, every record an entity in its place
 * (kind Other when the model does not know it; paper-space ones marked). The
 * document keeps the file's bytes, and each entity where its record is, for a
 * save to write back. @p skipped, when given, receives the count of entities
 * the canvas does not show: of kind Other, or in paper space. On failure the document is left as it was, @p error (when given) says
 * why (for a damaged file, at which line) and the result is false.
 */
bool readDxf(const QString& path, DrawingDocument& document, QString* error, int* skipped = nullptr);

/**
 * The same for a drawing already in memory; @p shownName is what messages call
 * it, and the document gets no file name.
 */
bool readDxfData(const QByteArray& data, const QString& shownName, DrawingDocument& document, QString* error,
                 int* skipped = nullptr);

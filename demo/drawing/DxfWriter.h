#pragma once

#include <QString>
#include <QStringList>

class DrawingDocument;

/**
 * Writes @p document as a DXF drawing to @p path. A drawing read from a file
 * is written in that file's form and version: all but its model-space
 * entities as read, each entity's record as read with its edits worked in,
 * so an unedited drawing writes the bytes it was read from. A drawing made in
 * code is written whole in AutoCAD 2000 text format through dxflib: its
 * layers, linetypes, blocks and entities with the properties dxflib writes,
 * entity handles included. The same document always gives the same bytes.
 * False, with a message in @p error (when given), when the file cannot be written.
 */
bool writeDxf(const QString& path, const DrawingDocument& document, QString* error);

/** What a save of a document changes beyond its edits; the window asks about it before writing. */
struct DxfSaveReport
{
  /** Empty when the file keeps the version it was read in; otherwise, in a sentence, what it becomes and why. */
  QString versionChange;
  /** Each a sentence naming what the file would not keep. */
  QStringList losses;
};

DxfSaveReport dxfSaveReport(const DrawingDocument& document);

#pragma once

#include "DxfWriter.h"
#include <QIODevice>

class DrawingDocument;
struct DrawingEntity;

/**
 * Writes a drawing read from a file back into that file's form: everything
 * but the model-space entities as it was read, each unedited entity's record
 * as it was read, each edited one's record with its edits worked in
 * (DxfRecordPatcher), and entities added since in records of the file's
 * version. An unedited drawing writes the bytes it was read from.
 */
class DxfSourceWriter
{
public:
  /** @p document must have a source (DrawingDocument::source()). */
  explicit DxfSourceWriter(const DrawingDocument& document);

  bool write(QIODevice& device) const;
  /** What a save cannot keep of the edits, for the window to say beforehand. */
  DxfSaveReport report() const;

  /** The record @p entity is written as: as read, patched, or new. */
  QByteArray recordOf(const DrawingEntity& entity, QStringList* unkept = nullptr) const;

private:
  QByteArray newRecord(const DrawingEntity& entity, QStringList* unkept) const;
  QByteArray handleSeedPatched(const QByteArray& head) const;

  const DrawingDocument& m_document;
};

#include "DxfSourceWriter.h"

#include "DrawingDocument.h"
#include "DxfEntityDecoder.h"
#include "DxfGroupScanner.h"
#include "DxfRecordPatcher.h"
#include "DxfStrings.h"
#include "OdDbLayerTableRecord.h"
#include "OdDbLinetypeTableRecord.h"
#include "OdStringQt.h"
#include <QCoreApplication>
#include <map>

namespace
{

// lupdate reads the texts of a class that declares its context, and not those of a free function
struct DxfWriterTexts
{
  Q_DECLARE_TR_FUNCTIONS(DxfWriter)
};

QString nameOf(std::string_view raw, const char* fallback)
{
  const QString name = fromDxfString(std::string(raw)).trimmed();
  return name.isEmpty() ? QString::fromLatin1(fallback) : name;
}

/** The entity a record says, with its names, read as the reader reads it. */
DrawingEntity decoded(const QByteArray& bytes, int begin, int size, DxfRecordNames& names)
{
  DxfGroupScanner scanner(bytes, begin, begin + size);
  std::vector<DxfGroup> record;
  DxfGroup group;
  while (scanner.next(group))
    record.push_back(group);
  DrawingEntity entity;
  DxfEntityNames raw;
  DxfEntityDecoder().decode(record, entity, raw);
  names.layer = nameOf(raw.layer, "0");
  names.linetype = nameOf(raw.linetype, "BYLAYER");
  return entity;
}

DxfRecordNames namesOf(const DrawingDocument& document, const DrawingEntity& entity)
{
  const OdDbDatabase& db = document.database();
  DxfRecordNames names;
  const OdDbLayerTableRecord* layer = db.openLayer(entity.layer);
  names.layer = layer ? toQString(layer->getName()) : QStringLiteral("0");
  if (entity.linetype == db.getLinetypeByBlockId())
    names.linetype = QStringLiteral("BYBLOCK");
  else if (const OdDbLinetypeTableRecord* linetype = db.openLinetype(entity.linetype);
           linetype && entity.linetype != db.getLinetypeByLayerId())
    names.linetype = toQString(linetype->getName());
  else
    names.linetype = QStringLiteral("BYLAYER");
  return names;
}

/** The skeleton of a new entity's record: its type and the parts the format wants, values to come. */
QByteArray skeletonOf(const DrawingEntity& e, bool subclasses)
{
  const char* type = nullptr;
  QList<QByteArray> classes;
  switch (e.kind)
  {
  case EntityKind::Line: type = "LINE"; classes = {"AcDbLine"}; break;
  case EntityKind::Circle: type = "CIRCLE"; classes = {"AcDbCircle"}; break;
  case EntityKind::Arc: type = "ARC"; classes = {"AcDbCircle", "AcDbArc"}; break;
  case EntityKind::Point: type = "POINT"; classes = {"AcDbPoint"}; break;
  case EntityKind::Solid: type = "SOLID"; classes = {"AcDbTrace"}; break;
  case EntityKind::Trace: type = "TRACE"; classes = {"AcDbTrace"}; break;
  case EntityKind::Ellipse: type = subclasses ? "ELLIPSE" : nullptr; classes = {"AcDbEllipse"}; break;
  case EntityKind::Polyline: type = subclasses ? "LWPOLYLINE" : nullptr; classes = {"AcDbPolyline"}; break;
  case EntityKind::Spline: type = subclasses ? "SPLINE" : nullptr; classes = {"AcDbSpline"}; break;
  case EntityKind::Text: type = "TEXT"; classes = {"AcDbText"}; break;
  case EntityKind::MText: type = subclasses ? "MTEXT" : nullptr; classes = {"AcDbMText"}; break;
  case EntityKind::Insert: type = e.detail && !e.details().attributes.empty() ? nullptr : "INSERT"; classes = {"AcDbBlockReference"}; break;
  default: break;
  }
  if (!type)
    return QByteArray();
  QByteArray record = QByteArray("  0\n") + type + "\n  5\n" + QByteArray::number(e.handle, 16).toUpper() + "\n";
  if (subclasses)
    record += "100\nAcDbEntity\n";
  record += "  8\n0\n";
  if (subclasses)
    for (const QByteArray& name : classes)
      record += "100\n" + name + "\n";
  if (subclasses && e.kind == EntityKind::Text)
    record += "100\nAcDbText\n";
  return record;
}

} // namespace

DxfSourceWriter::DxfSourceWriter(const DrawingDocument& document) : m_document(document) {}

QByteArray DxfSourceWriter::recordOf(const DrawingEntity& entity, QStringList* unkept) const
{
  const DrawingSource& source = m_document.source();
  if (entity.recordSize == 0)
    return newRecord(entity, unkept);
  if (!entity.edited)
    return source.bytes.mid(int(entity.recordBegin), int(entity.recordSize));
  DxfRecordNames originalNames;
  const DrawingEntity original =
      decoded(source.bytes, int(entity.recordBegin), int(entity.recordSize), originalNames);
  DxfRecordPatcher patcher(source.bytes, int(entity.recordBegin), int(entity.recordSize), source.version);
  patcher.apply(original, originalNames, entity, namesOf(m_document, entity));
  if (unkept)
    *unkept << patcher.unkept();
  return patcher.record();
}

QByteArray DxfSourceWriter::newRecord(const DrawingEntity& entity, QStringList* unkept) const
{
  const DrawingSource& source = m_document.source();
  // R12 files have no subclass markers, and know no light polylines, ellipses, splines or multi-line texts
  const bool subclasses = source.version >= "AC1012";
  QByteArray skeleton = skeletonOf(entity, subclasses);
  if (skeleton.isEmpty())
  {
    if (unkept)
      *unkept << QStringLiteral("new entity");
    return QByteArray();
  }
  if (source.lineEnd != "\n")
    skeleton.replace("\n", source.lineEnd);
  DxfRecordNames names;
  const DrawingEntity original = decoded(skeleton, 0, int(skeleton.size()), names);
  DxfRecordPatcher patcher(skeleton, 0, int(skeleton.size()), source.version);
  patcher.apply(original, names, entity, namesOf(m_document, entity));
  if (unkept)
    *unkept << patcher.unkept();
  return patcher.record();
}

QByteArray DxfSourceWriter::handleSeedPatched(const QByteArray& head) const
{
  // entities added since the file was read have handles from the seed on; the next free one moves past them
  quint64 highest = 0;
  for (const DrawingEntity& e : m_document.entities())
    if (e.recordSize == 0)
      highest = std::max(highest, e.handle);
  if (highest == 0)
    return head;
  const int variable = head.indexOf("$HANDSEED");
  if (variable < 0)
    return head;
  DxfGroupScanner scanner(head, variable - 1 > 0 ? head.lastIndexOf('\n', variable - 1) + 1 : 0, int(head.size()));
  DxfGroup g;
  if (!scanner.next(g) || !scanner.next(g) || g.code != 5 || DxfEntityDecoder::handleOf(g.value) > highest)
    return head;
  const int valueBegin = int(g.value.data() - head.constData());
  QByteArray patched = head;
  patched.replace(valueBegin, int(g.value.size()), QByteArray::number(highest + 1, 16).toUpper());
  return patched;
}

bool DxfSourceWriter::write(QIODevice& device) const
{
  const DrawingSource& source = m_document.source();
  const QByteArray& bytes = source.bytes;
  const bool hasSection = source.entitiesBegin >= 0;
  const int begin = hasSection ? source.entitiesBegin : std::max(0, source.entitiesPlace);
  const int end = hasSection ? source.entitiesEnd : begin;
  const QByteArray head = handleSeedPatched(bytes.left(begin));
  bool ok = device.write(head) == head.size();
  const auto line = [&](const char* text) { return QByteArray(text) + source.lineEnd; };
  const std::vector<DrawingEntity>& entities = m_document.entities();
  if (!hasSection && !entities.empty())
    ok = ok && device.write(line("  0") + line("SECTION") + line("  2") + line("ENTITIES")) > 0;
  // unedited records that follow each other in the file go out in one piece
  int runBegin = -1;
  int runEnd = -1;
  const auto flush = [&]() {
    if (runBegin >= 0)
      ok = ok && device.write(bytes.constData() + runBegin, runEnd - runBegin) == runEnd - runBegin;
    runBegin = runEnd = -1;
  };
  for (const DrawingEntity& e : entities)
  {
    if (e.recordSize != 0 && !e.edited)
    {
      if (int(e.recordBegin) != runEnd)
      {
        flush();
        runBegin = int(e.recordBegin);
      }
      runEnd = int(e.recordBegin + e.recordSize);
      continue;
    }
    flush();
    const QByteArray record = recordOf(e);
    ok = ok && device.write(record) == record.size();
  }
  flush();
  if (!hasSection && !entities.empty())
    ok = ok && device.write(line("  0") + line("ENDSEC")) > 0;
  ok = ok && device.write(bytes.constData() + end, bytes.size() - end) == bytes.size() - end;
  return ok;
}

DxfSaveReport DxfSourceWriter::report() const
{
  std::map<QString, int> counts;
  for (const DrawingEntity& e : m_document.entities())
    if (e.edited || e.recordSize == 0)
    {
      QStringList unkept;
      recordOf(e, &unkept);
      unkept.removeDuplicates();
      for (const QString& what : unkept)
        ++counts[what];
    }
  DxfSaveReport report;
  const QString version = QString::fromLatin1(m_document.source().version);
  const QString release = version == QLatin1String("AC1009") || version.isEmpty() ? QStringLiteral("R12")
                          : version < QLatin1String("AC1015")                       ? QStringLiteral("R13/R14")
                          : version < QLatin1String("AC1018")                       ? QStringLiteral("2000")
                                                                                    : version;
  for (const auto& [what, count] : counts)
  {
    QString sentence;
    if (what == QLatin1String("lineweight"))
      sentence = DxfWriterTexts::tr("The lineweights of %n entities cannot be kept: %1 files have none.", nullptr, count).arg(release);
    else if (what == QLatin1String("true colour"))
      sentence = DxfWriterTexts::tr("The true colours of %n entities cannot be kept: %1 files have palette colours only; the nearest is written.", nullptr, count).arg(release);
    else if (what == QLatin1String("new entity"))
      sentence = DxfWriterTexts::tr("%n new entities cannot be written in a %1 file and are left out.", nullptr, count).arg(release);
    else if (what == QLatin1String("vertex count"))
      sentence = DxfWriterTexts::tr("%n polylines keep their old vertices: their count changed, which the file's polylines cannot take.", nullptr, count);
    else if (what == QLatin1String("hatch boundary"))
      sentence = DxfWriterTexts::tr("%n hatches keep their old boundaries.", nullptr, count);
    else if (what == QLatin1String("attribute count"))
      sentence = DxfWriterTexts::tr("%n inserts keep their old attributes: their count changed.", nullptr, count);
    else if (what == QLatin1String("image file"))
      sentence = DxfWriterTexts::tr("%n images keep the file they showed.", nullptr, count);
    else if (what == QLatin1String("dimension type"))
      sentence = DxfWriterTexts::tr("%n dimensions keep their type.", nullptr, count);
    else
      sentence = DxfWriterTexts::tr("%n entities keep their kind.", nullptr, count);
    report.losses << sentence;
  }
  return report;
}

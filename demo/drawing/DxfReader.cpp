#include "DxfReader.h"

#include "DrawingDocument.h"
#include "DxfEntityDecoder.h"
#include "DxfGroupScanner.h"
#include "DxfStrings.h"
#include "OdDbDatabase.h"
#include "OdDbLayerTableRecord.h"
#include "OdDbLinetypeTableRecord.h"
#include "OdStringQt.h"
#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string>
#include <unordered_map>
#if defined(__linux__)
#include <sys/mman.h>
#endif

// The file is read here group by group, not through dxflib: dxflib hands
// over what it understood of an entity but not where its record is, so a save
// could not write back what it did not understand; and fed a group at a time
// through a stream, it took ten seconds where this takes one for a drawing of
// a million entities. dxflib still writes the drawings made in code.

namespace
{

// lupdate reads the texts of a class that declares its context, and not those of a free function
struct DxfReaderTexts
{
  Q_DECLARE_TR_FUNCTIONS(DxfReader)
};

// Far beyond any real drawing, and well within what a QByteArray holds.
constexpr qint64 kLargestFile = qint64(512) << 20;
// A canvas works out everything it draws when it opens a drawing, an
// insert's block as often as it is inserted. A drawing may be as large as it
// likes; what inserts nested in inserts multiply it to is bounded: a few
// kilobytes can ask for billions.
constexpr quint64 kMostDrawnByInserts = 1000000;
constexpr quint64 kDrawnPerStoredEntity = 16;

/**
 * Asks for the memory of a large buffer in large pages. A drawing of a
 * million entities fills half a gigabyte at once; page by page, the first
 * touches of it took longer than reading the file (virtual machines most).
 */
void adviseLargePages(const void* data, std::size_t size)
{
#if defined(__linux__) && defined(MADV_HUGEPAGE)
  constexpr std::uintptr_t page = 4096;
  const std::uintptr_t begin = (reinterpret_cast<std::uintptr_t>(data) + page - 1) & ~(page - 1);
  const std::uintptr_t end = (reinterpret_cast<std::uintptr_t>(data) + size) & ~(page - 1);
  if (size >= (std::size_t(8) << 20) && end > begin)
    madvise(reinterpret_cast<void*>(begin), end - begin, MADV_HUGEPAGE);
#else
  Q_UNUSED(data)
  Q_UNUSED(size)
#endif
}

/** The records of a file: each a group 0 and the groups up to the next group 0. */
class RecordReader
{
public:
  explicit RecordReader(DxfGroupScanner& scanner) : m_scanner(scanner) { m_have = m_scanner.next(m_next); }

  /** The next record into @p record (cleared first); false at the end. */
  bool next(std::vector<DxfGroup>& record)
  {
    record.clear();
    return append(record);
  }
  /** The next record, added to @p record. */
  bool append(std::vector<DxfGroup>& record)
  {
    if (!m_have)
      return false;
    do
    {
      record.push_back(m_next);
      m_have = m_scanner.next(m_next);
    } while (m_have && m_next.code != 0);
    return true;
  }
  /** Whether the next record is of @p type. */
  bool nextIs(std::string_view type) const { return m_have && m_next.code == 0 && m_next.value == type; }

private:
  DxfGroupScanner& m_scanner;
  DxfGroup m_next;
  bool m_have = false;
};

std::string_view trimmedName(std::string_view name)
{
  while (!name.empty() && (name.back() == ' ' || name.back() == '\t'))
    name.remove_suffix(1);
  while (!name.empty() && (name.front() == ' ' || name.front() == '\t'))
    name.remove_prefix(1);
  return name;
}

/** The value of the first group of @p code in @p record, or @p fallback. */
const DxfGroup* groupOf(const std::vector<DxfGroup>& record, int code)
{
  for (std::size_t i = 1; i < record.size() && record[i].code != 0; ++i)
    if (record[i].code == code)
      return &record[i];
  return nullptr;
}

class DocumentBuilder
{
public:
  explicit DocumentBuilder(DrawingDocument& document, const QByteArray& data)
      : m_document(document), m_database(document.database()), m_data(data)
  {
  }

  bool sawSection = false;
  bool sawEnd = false;
  /** The line of a second section of entities, which no drawing has; 0 when there is none. */
  int secondEntitiesLine = 0;
  int skipped = 0;

  void read(DxfGroupScanner& scanner)
  {
    DrawingSource source;
    source.bytes = m_data;
    const int firstEnd = m_data.indexOf('\n');
    source.lineEnd = firstEnd > 0 && m_data[firstEnd - 1] == '\r' ? QByteArray("\r\n") : QByteArray("\n");
    // a record of a drawing takes a hundred bytes and more: room for them all at once, as a move of
    // a million entities to a larger vector, page by page, took longer than reading them
    m_modelSpace.reserve(std::size_t(m_data.size() / 128));
    adviseLargePages(m_modelSpace.data(), m_modelSpace.capacity() * sizeof(DrawingEntity));
    RecordReader records(scanner);
    std::vector<DxfGroup> record;
    std::string_view section;
    DrawingBlock* block = nullptr;
    bool skippingBlock = false;
    while (records.next(record))
    {
      // a copy: completing a record appends to it, which may move its groups
      const DxfGroup head = record.front();
      if (head.code != 0)
        continue; // comments before the first section
      if (head.value == "SECTION")
      {
        sawSection = true;
        const DxfGroup* name = groupOf(record, 2);
        section = name ? trimmedName(name->value) : std::string_view();
        if (section == "HEADER")
          readHeader(record, source);
        else if (section == "ENTITIES")
        {
          // a save writes the model space back in one place, where the file had it
          if (source.entitiesBegin >= 0)
          {
            secondEntitiesLine = head.line;
            break;
          }
          source.entitiesBegin = source.entitiesEnd = record.back().end;
        }
        else if (section == "OBJECTS" && source.entitiesPlace < 0)
          source.entitiesPlace = head.begin;
        continue;
      }
      if (head.value == "ENDSEC")
      {
        if (section == "ENTITIES")
          source.entitiesEnd = head.begin;
        section = std::string_view();
        block = nullptr;
        skippingBlock = false;
        continue;
      }
      if (head.value == "EOF")
      {
        sawEnd = true;
        if (source.entitiesPlace < 0)
          source.entitiesPlace = head.begin;
        break;
      }
      if (section == "TABLES")
        readTableRecord(record);
      else if (section == "OBJECTS")
      {
        if (head.value == "IMAGEDEF")
          if (const DxfGroup* handle = groupOf(record, 5))
            if (const DxfGroup* file = groupOf(record, 1))
              m_imageFiles[std::string(handle->value)] = fromDxfString(std::string(file->value));
      }
      else if (section == "BLOCKS")
      {
        if (head.value == "BLOCK")
        {
          block = startBlock(record);
          skippingBlock = block == nullptr;
        }
        else if (head.value == "ENDBLK")
        {
          block = nullptr;
          skippingBlock = false;
        }
        else
        {
          completeRecord(records, record);
          if (!skippingBlock && block)
            decode(record, block->entities.emplace_back());
        }
      }
      else if (section == "ENTITIES")
      {
        completeRecord(records, record);
        DrawingEntity& entity = m_modelSpace.emplace_back();
        decode(record, entity);
        entity.recordBegin = quint32(head.begin);
        entity.recordSize = quint32(record.back().end - head.begin);
        source.entitiesEnd = record.back().end;
        if (entity.paperSpace || entity.kind == EntityKind::Other)
          ++skipped;
      }
    }
    if (source.entitiesBegin >= 0 && !m_modelSpace.empty())
      source.entitiesBegin = int(m_modelSpace.front().recordBegin);
    m_source = std::move(source);
  }

  /** Gives the document what was read. */
  void finish()
  {
    nameImages(m_modelSpace);
    for (auto& [name, block] : m_blocks)
      nameImages(block.entities);
    // Layers the table does not list (layer 0 included) are plain.
    for (const OdDbObjectId& id : m_database.getLayerIds())
      if (OdDbLayerTableRecord* layer = m_database.openLayer(id); layer && layer->linetypeObjectId().isNull())
        layer->setLinetypeObjectId(m_database.getLinetypeContinuousId());
    for (auto& [name, block] : m_blocks)
      m_document.block(name) = std::move(block);
    m_document.addEntities(std::move(m_modelSpace));
    if (m_handleSeed > 1 && DrawingDocument::keepsHandle(m_handleSeed))
      m_document.reserveHandlesUpTo(m_handleSeed - 1);
    m_document.setSource(std::move(m_source));
  }

private:
  /** A polyline's vertices, an insert's attributes: the records that belong to the one just read. */
  void completeRecord(RecordReader& records, std::vector<DxfGroup>& record)
  {
    const std::string_view type = record.front().value;
    const char* part = nullptr;
    if (type == "POLYLINE")
      part = "VERTEX";
    else if (type == "INSERT")
    {
      const DxfGroup* follows = groupOf(record, 66);
      if (follows && follows->integer() != 0)
        part = "ATTRIB";
    }
    if (!part)
      return;
    while (records.nextIs(part))
      records.append(record);
    if (records.nextIs("SEQEND"))
      records.append(record);
  }

  void decode(const std::vector<DxfGroup>& record, DrawingEntity& e)
  {
    DxfEntityNames names;
    m_decoder.decode(record, e, names);
    e.layer = layerNamed(names.layer);
    e.linetype = linetypeNamed(names.linetype);
    if (!names.imageDefinition.empty())
      e.editDetails().imageFile = QString::fromLatin1(names.imageDefinition.data(), int(names.imageDefinition.size()));
    for (DrawingEntity& attribute : e.detail ? e.editDetails().attributes : m_noAttributes)
    {
      attribute.layer = e.layer;
      attribute.linetype = m_database.getLinetypeByLayerId();
    }
  }

  /** An image names its file through an object that follows the entities: the handle is swapped for the name. */
  void nameImages(std::vector<DrawingEntity>& entities)
  {
    for (DrawingEntity& e : entities)
      if (e.kind == EntityKind::Image && e.detail)
      {
        const auto found = m_imageFiles.find(e.details().imageFile.toStdString());
        e.editDetails().imageFile = found == m_imageFiles.end() ? QString() : found->second;
      }
  }

  void readHeader(const std::vector<DxfGroup>& record, DrawingSource& source)
  {
    QString variable;
    int index = 0;
    for (const DxfGroup& g : record)
    {
      if (g.code == 9)
      {
        variable = QString::fromLatin1(g.value.data(), int(g.value.size())).trimmed();
        index = 0;
        continue;
      }
      if (variable.isEmpty())
        continue;
      if (variable == QLatin1String("$ACADVER") && g.code == 1)
        source.version = QByteArray(g.value.data(), int(g.value.size())).trimmed();
      if (variable == QLatin1String("$HANDSEED") && g.code == 5)
        m_handleSeed = DxfEntityDecoder::handleOf(g.value);
      if (DxfGroupScanner::holdsNumber(g.code))
      {
        // a point's further coordinates under the variable's name and their code: "$EXTMIN/20"
        m_document.setHeaderReal(index == 0 ? variable : variable + QLatin1Char('/') + QString::number(g.code),
                                 g.number);
        ++index;
      }
    }
  }

  void readTableRecord(const std::vector<DxfGroup>& record)
  {
    const std::string_view type = record.front().value;
    if (type == "LAYER")
      readLayer(record);
    else if (type == "LTYPE")
      readLinetype(record);
    else if (type == "STYLE")
      readStyle(record);
  }

  void readLayer(const std::vector<DxfGroup>& record)
  {
    const DxfGroup* name = groupOf(record, 2);
    if (!name)
      return;
    const OdDbObjectId id = layerNamed(name->value);
    OdDbLayerTableRecord* layer = m_database.openLayer(id);
    if (!layer)
      return;
    const DxfGroup* aciGroup = groupOf(record, 62);
    const DxfGroup* trueColor = groupOf(record, 420);
    const DxfGroup* flags = groupOf(record, 70);
    const DxfGroup* linetype = groupOf(record, 6);
    const DxfGroup* weight = groupOf(record, 370);
    const int aci = aciGroup ? aciGroup->integer() : 7;
    OdCmColor color;
    if (trueColor && trueColor->integer() >= 0)
      color = DxfEntityDecoder::colorOf(-1, trueColor->integer());
    else
      color.setColorIndex(OdInt16(aci == 0 || std::abs(aci) > 255 ? 7 : std::abs(aci)));
    layer->setColor(color);
    layer->setIsOff(aci < 0);
    layer->setIsFrozen(flags && (flags->integer() & 1));
    layer->setIsLocked(flags && (flags->integer() & 4));
    OdDbObjectId linetypeId = linetypeNamed(linetype ? linetype->value : std::string_view("CONTINUOUS"));
    if (linetypeId == m_database.getLinetypeByLayerId() || linetypeId == m_database.getLinetypeByBlockId())
      linetypeId = m_database.getLinetypeContinuousId();
    layer->setLinetypeObjectId(linetypeId);
    if (weight && OdDb::isLineWeight(weight->integer()))
      layer->setLineWeight(OdDb::LineWeight(weight->integer()));
  }

  void readLinetype(const std::vector<DxfGroup>& record)
  {
    const DxfGroup* name = groupOf(record, 2);
    if (!name)
      return;
    OdDoubleArray dashes;
    for (const DxfGroup& g : record)
      if (g.code == 49)
        dashes.push_back(g.number);
    const DxfGroup* description = groupOf(record, 3);
    if (OdDbLinetypeTableRecord* linetype = m_database.openLinetype(linetypeNamed(name->value)))
    {
      linetype->setComments(description ? toOdString(fromDxfString(std::string(description->value))) : OdString());
      linetype->setDashes(dashes);
    }
  }

  void readStyle(const std::vector<DxfGroup>& record)
  {
    const DxfGroup* name = groupOf(record, 2);
    // a shape file's record has no name a text can give
    if (!name || trimmedName(name->value).empty())
      return;
    DrawingTextStyle& style = m_document.textStyle(fromDxfString(std::string(trimmedName(name->value))));
    for (std::size_t i = 1; i < record.size(); ++i)
    {
      const DxfGroup& g = record[i];
      if (g.code == 3)
        style.font = fromDxfString(std::string(g.value));
      else if (g.code == 40)
        style.height = g.number;
      else if (g.code == 41)
        style.widthFactor = g.number;
      else if (g.code == 50)
        style.oblique = g.number;
    }
  }

  DrawingBlock* startBlock(const std::vector<DxfGroup>& record)
  {
    const DxfGroup* nameGroup = groupOf(record, 2);
    const QString name = nameGroup ? fromDxfString(std::string(nameGroup->value)) : QString();
    // Model and paper space are where the entities section puts things, not blocks to insert.
    if (name.startsWith(QLatin1String("*Model_Space"), Qt::CaseInsensitive)
        || name.startsWith(QLatin1String("*Paper_Space"), Qt::CaseInsensitive) || name.isEmpty())
      return nullptr;
    if (m_database.getBlockId(toOdString(name)).isNull())
      m_database.addBlock(toOdString(name));
    DrawingBlock* block = &m_blocks[name];
    block->entities.clear();
    for (const DxfGroup& g : record)
    {
      if (g.code == 10)
        block->basePoint.x = g.number;
      else if (g.code == 20)
        block->basePoint.y = g.number;
      else if (g.code == 30)
        block->basePoint.z = g.number;
    }
    return block;
  }

  OdDbObjectId layerNamed(std::string_view rawName)
  {
    const std::string_view name = trimmedName(rawName);
    if (!m_lastLayer.empty() && name == m_lastLayer)
      return m_lastLayerId;
    OdDbObjectId& id = m_layers[std::string(name)];
    if (id.isNull())
    {
      const OdString odName = toOdString(fromDxfString(std::string(name)));
      id = m_database.getLayerId(odName);
      if (id.isNull())
        id = m_database.addLayer(odName);
      if (id.isNull())
        id = m_database.getLayerZeroId();
    }
    m_lastLayer = std::string(name);
    m_lastLayerId = id;
    return id;
  }

  OdDbObjectId linetypeNamed(std::string_view rawName)
  {
    const std::string_view name = trimmedName(rawName);
    OdDbObjectId& id = m_linetypes[std::string(name)];
    if (id.isNull())
    {
      const OdString odName = toOdString(fromDxfString(std::string(name)));
      id = m_database.getLinetypeId(odName);
      if (id.isNull())
        id = m_database.addLinetype(odName, OdString(), OdDoubleArray());
      if (id.isNull())
        id = m_database.getLinetypeContinuousId();
    }
    return id;
  }

  DrawingDocument& m_document;
  OdDbDatabase& m_database;
  const QByteArray& m_data;
  DxfEntityDecoder m_decoder;
  DrawingSource m_source;
  std::vector<DrawingEntity> m_modelSpace;
  std::map<QString, DrawingBlock> m_blocks;
  std::unordered_map<std::string, OdDbObjectId> m_layers;
  std::unordered_map<std::string, OdDbObjectId> m_linetypes;
  std::string m_lastLayer;
  OdDbObjectId m_lastLayerId;
  std::map<std::string, QString> m_imageFiles;
  std::vector<DrawingEntity> m_noAttributes;
  quint64 m_handleSeed = 0;
};

bool fail(QString* error, const QString& message)
{
  if (error)
    *error = message;
  return false;
}

/**
 * Gives the entities of blocks without a handle the document keeps a handle
 * above every other: a save would write them with numbers it hands out as it
 * goes, and a second save of what the first one wrote would number its tables
 * differently.
 */
void numberBlockEntities(DrawingDocument& document)
{
  quint64 last = 0;
  for (const DrawingEntity& entity : document.entities())
    last = std::max(last, entity.handle);
  for (const auto& block : document.blocks())
    for (const DrawingEntity& entity : block.second.entities)
      if (DrawingDocument::keepsHandle(entity.handle))
        last = std::max(last, entity.handle);
  for (const auto& block : document.blocks())
    for (DrawingEntity& entity : document.block(block.first).entities)
      if (!DrawingDocument::keepsHandle(entity.handle))
        entity.handle = ++last;
}

bool read(const QByteArray& data, const QString& shown, const QString& path, DrawingDocument& document,
          QString* error, int* skipped)
{
  if (data.startsWith("AutoCAD Binary DXF"))
    return fail(error, DxfReaderTexts::tr("%1 is a binary DXF file; only text DXF files can be opened.").arg(shown));

  // read aside, so that a file that turns out bad leaves the open drawing as it was
  DrawingDocument read;
  DxfGroupScanner scanner(data);
  DocumentBuilder builder(read, data);
  builder.read(scanner);
  if (!scanner.fault().isEmpty())
  {
    // a file that fails at its first group was never a drawing
    if (scanner.line() <= 2)
      return fail(error, DxfReaderTexts::tr("%1 is not a DXF drawing.").arg(shown));
    return fail(error,
                DxfReaderTexts::tr("%1 is damaged at line %2: %3.").arg(shown, QString::number(scanner.line()), scanner.fault()));
  }
  if (builder.secondEntitiesLine > 0)
    return fail(error, DxfReaderTexts::tr("%1 is damaged at line %2: a second section of entities.")
                           .arg(shown, QString::number(builder.secondEntitiesLine)));
  if (!builder.sawSection)
    return fail(error, DxfReaderTexts::tr("%1 is not a DXF drawing.").arg(shown));
  if (!builder.sawEnd)
    return fail(error, DxfReaderTexts::tr("%1 ends early: the file is incomplete.").arg(shown));
  builder.finish();
  numberBlockEntities(read);
  quint64 stored = read.entities().size();
  for (const auto& [name, block] : read.blocks())
    stored += block.entities.size();
  const quint64 most = kMostDrawnByInserts + kDrawnPerStoredEntity * stored;
  if (read.drawnEntityCount(most + 1) > most)
    return fail(error, DxfReaderTexts::tr("%1 takes more than %2 entities to draw, each block counted as often as it is inserted.")
                           .arg(shown, QLocale().toString(most)));
  read.setFileName(path);
  if (skipped)
    *skipped = builder.skipped;
  document.takeContents(read);
  return true;
}

} // namespace

bool readDxfData(const QByteArray& data, const QString& shownName, DrawingDocument& document, QString* error,
                 int* skipped)
{
  return read(data, shownName, QString(), document, error, skipped);
}

bool readDxf(const QString& path, DrawingDocument& document, QString* error, int* skipped)
{
  const QString shown = QFileInfo(path).fileName();
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly))
    return fail(error, DxfReaderTexts::tr("Cannot open %1: %2").arg(shown, file.errorString()));
  // the file is read whole, into memory that must hold it
  if (file.size() > kLargestFile)
    return fail(error, DxfReaderTexts::tr("%1 is larger than %2 MB, more than this editor opens.")
                           .arg(shown, QString::number(kLargestFile >> 20)));
  QByteArray data(int(file.size()), Qt::Uninitialized);
  adviseLargePages(data.constData(), std::size_t(data.size()));
  if (file.read(data.data(), data.size()) != data.size() || file.error() != QFileDevice::NoError)
    return fail(error, DxfReaderTexts::tr("Cannot read %1: %2").arg(shown, file.errorString()));
  return read(data, shown, path, document, error, skipped);
}

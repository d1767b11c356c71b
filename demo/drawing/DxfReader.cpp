#include "DxfReader.h"

#include "DrawingDocument.h"
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
#include <QRegularExpression>
#include <algorithm>
#include <cmath>
#include <dl_creationadapter.h>
#include <dl_dxf.h>
#include <exception>
#include <optional>
#include <sstream>

namespace
{

QString tr(const char* text)
{
  return QCoreApplication::translate("DxfReader", text);
}

// Far beyond any real drawing, and well within what a QByteArray holds.
constexpr qint64 kLargestFile = qint64(512) << 20;
// A canvas works out everything it draws when it opens a drawing, an
// insert's block as often as it is inserted. A drawing may be as large as it
// likes; what inserts nested in inserts multiply it to is bounded: a few
// kilobytes can ask for billions.
constexpr quint64 kMostDrawnByInserts = 1000000;
constexpr quint64 kDrawnPerStoredEntity = 16;

/**
 * The group values that dxflib does not hand over (visibility, the full
 * handle, lineweights as the file gives them), collected per entity. dxflib
 * reports an entity only when the next one starts, so the values of the
 * finished entity wait in a second set.
 */
struct CommonGroups
{
  std::optional<std::string> handle;
  std::optional<std::string> layer;
  std::optional<std::string> linetype;
  std::optional<int> color;
  std::optional<int> trueColor;
  std::optional<int> lineWeight;
  std::optional<double> linetypeScale;
  std::optional<int> flags;
  bool invisible = false;
  bool paperSpace = false;

  void take(unsigned int code, const std::string& value)
  {
    // most groups are geometry that dxflib reads itself; only these are worth a copy
    static const unsigned int wanted[] = {5, 6, 8, 48, 60, 62, 67, 70, 370, 420};
    if (std::find(std::begin(wanted), std::end(wanted), code) == std::end(wanted))
      return;
    const QByteArray raw = QByteArray::fromStdString(value).trimmed();
    bool ok = false;
    switch (code)
    {
    case 5:
      handle = raw.toStdString();
      break;
    case 8:
      if (!layer)
        layer = value;
      break;
    case 6:
      linetype = value;
      break;
    case 62:
      if (const int v = raw.toInt(&ok); ok)
        color = v;
      break;
    case 420:
      if (const int v = raw.toInt(&ok); ok)
        trueColor = v;
      break;
    case 370:
      if (const int v = raw.toInt(&ok); ok)
        lineWeight = v;
      break;
    case 48:
      if (const double v = raw.toDouble(&ok); ok && std::isfinite(v) && v > 0)
        linetypeScale = v;
      break;
    case 60:
      invisible = raw.toInt() != 0;
      break;
    case 67:
      paperSpace = raw.toInt() != 0;
      break;
    case 70:
      if (const int v = raw.toInt(&ok); ok)
        flags = v;
      break;
    default:
      break;
    }
  }
};

// Angles that went through radians on their way to the file come back off by
// an ulp; the tenth decimal is far finer than any drawing needs.
double snappedDegrees(double degrees)
{
  return std::round(degrees * 1e10) / 1e10;
}

double radiansToDegrees(double radians)
{
  return snappedDegrees(radians * 180.0 / M_PI);
}

OdCmColor colorOf(const CommonGroups& groups)
{
  OdCmColor color(OdCmEntityColor::kByLayer);
  if (groups.trueColor && *groups.trueColor >= 0)
  {
    const int rgb = *groups.trueColor;
    color.setRGB(OdUInt8((rgb >> 16) & 0xFF), OdUInt8((rgb >> 8) & 0xFF), OdUInt8(rgb & 0xFF));
  }
  else if (groups.color)
  {
    const int index = std::abs(*groups.color);
    if (index == 0)
      color.setColorMethod(OdCmEntityColor::kByBlock);
    else if (index < 256)
      color.setColorIndex(OdInt16(index));
  }
  return color;
}

class DocumentBuilder : public DL_CreationAdapter
{
public:
  explicit DocumentBuilder(OdDbDatabase& database) : m_database(database) {}
  using DL_CreationAdapter::addMTextChunk;
  using DL_CreationAdapter::processCodeValuePair;

  std::vector<DrawingEntity> modelSpace;
  std::map<QString, DrawingBlock> blocks;
  int skipped = 0;
  bool sawSection = false;
  bool sawEnd = false;

  void processCodeValuePair(unsigned int code, const std::string& value) override
  {
    if (code == 0)
    {
      m_finished = std::move(m_current);
      m_current = CommonGroups();
      if (value == "SECTION")
      {
        sawSection = true;
        m_sectionNamePending = true;
      }
      else if (value == "ENDSEC")
      {
        m_inEntities = false;
        m_sectionEnding = true;
      }
      else if (value == "EOF")
        sawEnd = true;
      else if (m_inEntities || m_block)
        countUnknown(value);
      return;
    }
    if (code == 2 && m_sectionNamePending)
    {
      m_inEntities = value == "ENTITIES";
      m_sectionNamePending = false;
    }
    m_current.take(code, value);
  }

  // dxflib calls this after each object it made, the one before the end of a section too
  void endSection() override
  {
    if (!m_sectionEnding)
      return;
    // a block that never ended ends with its section, before it takes the model space's entities
    m_sectionEnding = false;
    m_block = nullptr;
    m_skippingBlock = false;
    m_polylineOpen = false;
  }

  void addLayer(const DL_LayerData& data) override
  {
    const OdString name = toOdString(fromDxfString(data.name));
    OdDbObjectId id = m_database.getLayerId(name);
    if (id.isNull())
      id = m_database.addLayer(name);
    OdDbLayerTableRecord* layer = m_database.openLayer(id);
    if (!layer)
      return;
    const int aci = m_finished.color.value_or(7);
    OdCmColor color;
    if (m_finished.trueColor && *m_finished.trueColor >= 0)
      color = colorOf(m_finished);
    else
      color.setColorIndex(OdInt16(aci == 0 || std::abs(aci) > 255 ? 7 : std::abs(aci)));
    layer->setColor(color);
    layer->setIsOff(aci < 0);
    layer->setIsFrozen(data.flags & 1);
    layer->setIsLocked(data.flags & 4);
    OdDbObjectId linetype = linetypeNamed(m_finished.linetype.value_or("CONTINUOUS"), true);
    if (linetype == m_database.getLinetypeByLayerId() || linetype == m_database.getLinetypeByBlockId())
      linetype = m_database.getLinetypeContinuousId();
    layer->setLinetypeObjectId(linetype);
    if (m_finished.lineWeight && OdDb::isLineWeight(*m_finished.lineWeight))
      layer->setLineWeight(OdDb::LineWeight(*m_finished.lineWeight));
  }

  void addLinetype(const DL_LinetypeData& data) override
  {
    // dxflib hands over a linetype's dashes as it reads them, before the linetype itself
    const OdDbObjectId id = linetypeNamed(data.name, true);
    if (OdDbLinetypeTableRecord* record = m_database.openLinetype(id))
    {
      record->setComments(toOdString(fromDxfString(data.description)));
      record->setDashes(m_dashes);
    }
    m_dashes = OdDoubleArray();
  }

  void addLinetypeDash(double length) override
  {
    if (std::isfinite(length))
      m_dashes.push_back(length);
  }

  void addBlock(const DL_BlockData& data) override
  {
    const QString name = fromDxfString(data.name);
    m_polylineOpen = false;
    // Model and paper space are where the entities section puts things, not blocks to insert.
    if (name.startsWith(QLatin1String("*Model_Space"), Qt::CaseInsensitive)
        || name.startsWith(QLatin1String("*Paper_Space"), Qt::CaseInsensitive) || name.isEmpty())
    {
      m_block = nullptr;
      m_skippingBlock = true;
      return;
    }
    if (m_database.getBlockId(toOdString(name)).isNull())
      m_database.addBlock(toOdString(name));
    m_block = &blocks[name];
    m_block->basePoint = DrawingPoint{data.bpx, data.bpy, data.bpz};
  }

  void endBlock() override
  {
    m_block = nullptr;
    m_skippingBlock = false;
    m_polylineOpen = false;
  }

  void addLine(const DL_LineData& data) override
  {
    DrawingEntity e = entityOf(EntityKind::Line);
    e.points = {{data.x1, data.y1, data.z1}, {data.x2, data.y2, data.z2}};
    add(std::move(e));
  }

  void addCircle(const DL_CircleData& data) override
  {
    DrawingEntity e = entityOf(EntityKind::Circle);
    e.points = {{data.cx, data.cy, data.cz}};
    e.radius = data.radius;
    add(std::move(e));
  }

  void addArc(const DL_ArcData& data) override
  {
    DrawingEntity e = entityOf(EntityKind::Arc);
    e.points = {{data.cx, data.cy, data.cz}};
    e.radius = data.radius;
    e.startAngle = data.angle1;
    e.endAngle = data.angle2;
    add(std::move(e));
  }

  void addPolyline(const DL_PolylineData& data) override
  {
    // Meshes and polyface meshes are surfaces, not outlines.
    if (data.flags & (16 | 64))
    {
      ++skipped;
      m_polylineOpen = false;
      return;
    }
    DrawingEntity e = entityOf(EntityKind::Polyline);
    e.closed = data.flags & 1;
    m_polylineOpen = add(std::move(e));
  }

  void addVertex(const DL_VertexData& data) override
  {
    if (!m_polylineOpen)
      return;
    std::vector<DrawingEntity>& target = m_block ? m_block->entities : modelSpace;
    DrawingEntity& polyline = target.back();
    polyline.points.push_back({data.x, data.y, data.z});
    polyline.bulges.push_back(std::isfinite(data.bulge) ? data.bulge : 0.0);
  }

  void endSequence() override { m_polylineOpen = false; }

  void addText(const DL_TextData& data) override
  {
    DrawingEntity e = entityOf(EntityKind::Text);
    e.points = {{data.ipx, data.ipy, data.ipz}};
    e.height = data.height;
    e.rotation = radiansToDegrees(data.angle);
    e.text = fromDxfString(data.text);
    add(std::move(e));
  }

  void addMTextChunk(const std::string& text) override { m_mtextChunks += text; }

  void addMText(const DL_MTextData& data) override
  {
    DrawingEntity e = entityOf(EntityKind::MText);
    e.points = {{data.ipx, data.ipy, data.ipz}};
    e.height = data.height;
    e.width = data.width;
    e.attachment = data.attachmentPoint >= 1 && data.attachmentPoint <= 9 ? data.attachmentPoint : 1;
    e.rotation = radiansToDegrees(data.angle);
    e.text = fromDxfString(m_mtextChunks + data.text);
    m_mtextChunks.clear();
    add(std::move(e));
  }

  void addInsert(const DL_InsertData& data) override
  {
    DrawingEntity e = entityOf(EntityKind::Insert);
    e.points = {{data.ipx, data.ipy, data.ipz}};
    // some writers put a zero Z scale in flat drawings; dxflib leaves a plain one out
    e.scale = DrawingPoint{data.sx, data.sy, data.sz == 0 ? 1.0 : data.sz};
    e.rotation = data.angle;
    e.blockName = fromDxfString(data.name);
    add(std::move(e));
  }

  void addDimLinear(const DL_DimensionData& data, const DL_DimLinearData& edata) override
  {
    DrawingEntity e = dimensionOf(data, {edata.dpx1, edata.dpy1, edata.dpz1}, {edata.dpx2, edata.dpy2, edata.dpz2});
    // unlike the texts' angles, dxflib reads this one in degrees and writes it from radians
    e.rotation = snappedDegrees(edata.angle);
    add(std::move(e));
  }

  void addDimAlign(const DL_DimensionData& data, const DL_DimAlignedData& edata) override
  {
    add(dimensionOf(data, {edata.epx1, edata.epy1, edata.epz1}, {edata.epx2, edata.epy2, edata.epz2}));
  }

  void addDimRadial(const DL_DimensionData& data, const DL_DimRadialData& edata) override
  {
    DrawingEntity e = dimensionOf(data, {data.dpx, data.dpy, data.dpz}, {edata.dpx, edata.dpy, edata.dpz});
    e.radius = edata.leader;
    add(std::move(e));
  }

  void addDimDiametric(const DL_DimensionData& data, const DL_DimDiametricData& edata) override
  {
    DrawingEntity e = dimensionOf(data, {data.dpx, data.dpy, data.dpz}, {edata.dpx, edata.dpy, edata.dpz});
    e.radius = edata.leader;
    add(std::move(e));
  }

  void addDimAngular(const DL_DimensionData& data, const DL_DimAngular2LData& edata) override
  {
    DrawingEntity e = dimensionOf(data, {edata.dpx1, edata.dpy1, edata.dpz1}, {edata.dpx2, edata.dpy2, edata.dpz2});
    e.points.push_back({edata.dpx3, edata.dpy3, edata.dpz3});
    e.points.push_back({edata.dpx4, edata.dpy4, edata.dpz4});
    add(std::move(e));
  }

  void addDimAngular3P(const DL_DimensionData& data, const DL_DimAngular3PData& edata) override
  {
    DrawingEntity e = dimensionOf(data, {edata.dpx1, edata.dpy1, edata.dpz1}, {edata.dpx2, edata.dpy2, edata.dpz2});
    e.points.push_back({edata.dpx3, edata.dpy3, edata.dpz3});
    add(std::move(e));
  }

  void addDimOrdinate(const DL_DimensionData& data, const DL_DimOrdinateData& edata) override
  {
    DrawingEntity e = dimensionOf(data, {edata.dpx1, edata.dpy1, edata.dpz1}, {edata.dpx2, edata.dpy2, edata.dpz2});
    e.dimensionType = 6 | (edata.xtype ? 64 : 0);
    add(std::move(e));
  }

private:
  void countUnknown(const std::string& type)
  {
    static const char* const known[] = {"LINE", "CIRCLE", "ARC", "LWPOLYLINE", "POLYLINE", "VERTEX", "SEQEND",
                                        "TEXT", "MTEXT", "INSERT", "DIMENSION", "ENDBLK", "BLOCK", "ENDSEC"};
    for (const char* k : known)
      if (type == k)
        return;
    if (!m_skippingBlock)
      ++skipped;
  }

  OdDbObjectId linetypeNamed(const std::string& name, bool create)
  {
    const OdString odName = toOdString(fromDxfString(name));
    OdDbObjectId id = m_database.getLinetypeId(odName);
    if (id.isNull() && create)
      id = m_database.addLinetype(odName, OdString(), OdDoubleArray());
    return id.isNull() ? m_database.getLinetypeContinuousId() : id;
  }

  OdDbObjectId layerNamed(const std::string& name)
  {
    const OdString odName = toOdString(fromDxfString(name));
    OdDbObjectId id = m_database.getLayerId(odName);
    if (id.isNull())
      id = m_database.addLayer(odName);
    return id.isNull() ? m_database.getLayerZeroId() : id;
  }

  DrawingEntity entityOf(EntityKind kind)
  {
    DrawingEntity e;
    e.kind = kind;
    if (m_finished.handle)
      e.handle = QByteArray::fromStdString(*m_finished.handle).toULongLong(nullptr, 16);
    e.layer = layerNamed(m_finished.layer.value_or("0"));
    e.color = colorOf(m_finished);
    e.linetype = linetypeNamed(m_finished.linetype.value_or("BYLAYER"), true);
    const int weight = m_finished.lineWeight.value_or(OdDb::kLnWtByLayer);
    e.lineWeight = OdDb::isLineWeight(weight) ? OdDb::LineWeight(weight) : OdDb::kLnWtByLayer;
    e.linetypeScale = m_finished.linetypeScale.value_or(1.0);
    e.visible = !m_finished.invisible;
    return e;
  }

  DrawingEntity dimensionOf(const DL_DimensionData& data, const DrawingPoint& first, const DrawingPoint& second)
  {
    DrawingEntity e = entityOf(EntityKind::Dimension);
    e.points = {first, second, {data.dpx, data.dpy, data.dpz}, {data.mpx, data.mpy, data.mpz}};
    e.dimensionType = data.type & 0x0F;
    e.text = fromDxfString(data.text);
    return e;
  }

  /** False when the entity is not kept (paper space, or inside a layout block). */
  bool add(DrawingEntity e)
  {
    // vertices after another entity belong to no polyline
    m_polylineOpen = false;
    if (m_skippingBlock || (!m_block && m_finished.paperSpace))
    {
      ++skipped;
      return false;
    }
    (m_block ? m_block->entities : modelSpace).push_back(std::move(e));
    return true;
  }

  OdDbDatabase& m_database;
  CommonGroups m_current;
  CommonGroups m_finished;
  OdDoubleArray m_dashes;
  DrawingBlock* m_block = nullptr;
  std::string m_mtextChunks;
  bool m_skippingBlock = false;
  bool m_polylineOpen = false;
  bool m_inEntities = false;
  bool m_sectionNamePending = false;
  bool m_sectionEnding = false;
};

bool fail(QString* error, const QString& message)
{
  if (error)
    *error = message;
  return false;
}

/** Hands one group to dxflib, through the stream reader that reads a group at a time. */
void feed(DL_Dxf& dxf, DocumentBuilder& builder, int code, const std::string& value)
{
  std::istringstream pair(std::to_string(code) + '\n' + value + '\n');
  dxf.readDxfGroups(pair, &builder);
}

/**
 * Whether dxflib may see the comment: it reads a version of its own from
 * "dxflib 1.2.3.4", and throws or reads memory it never set on anything
 * shorter; comments mean nothing else to it or to a drawing.
 */
bool isLibraryVersion(const std::string& comment)
{
  static const QRegularExpression version(QStringLiteral("^dxflib \\d{1,3}\\.\\d{1,3}\\.\\d{1,3}\\.\\d{1,3}$"));
  return version.match(QString::fromStdString(comment)).hasMatch();
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
    return fail(error, tr("%1 is a binary DXF file; only text DXF files can be opened.").arg(shown));

  // read aside, so that a file that turns out bad leaves the open drawing as it was
  DrawingDocument read;
  DocumentBuilder builder(read.database());
  DxfGroupScanner scanner(data);
  try
  {
    DL_Dxf dxf;
    // dxflib sets up its state only when asked to read a whole stream; this one is empty
    std::istringstream nothing;
    dxf.in(nothing, &builder);
    // Files of other programs carry no version of dxflib, which it then reads from memory it never
    // set; this one is its own, so that it reads them all alike.
    feed(dxf, builder, 999, "dxflib " DL_VERSION);
    // dxflib reads a file by lines and tells what it read only by the entities it makes; group by
    // group, the builder sees the groups as dxflib does and a fault has its line.
    DxfGroup group;
    while (scanner.next(group))
    {
      builder.processCodeValuePair(unsigned(group.code), group.value);
      if (group.code != 999 || isLibraryVersion(group.value))
        feed(dxf, builder, group.code, group.value);
    }
  }
  catch (const std::exception&)
  {
    return fail(error, tr("%1 is damaged at line %2 and cannot be read.").arg(shown, QString::number(scanner.line())));
  }
  if (!scanner.fault().isEmpty())
  {
    // a file that fails at its first group was never a drawing
    if (scanner.line() == 1)
      return fail(error, tr("%1 is not a DXF drawing.").arg(shown));
    return fail(error,
                tr("%1 is damaged at line %2: %3.").arg(shown, QString::number(scanner.line()), scanner.fault()));
  }
  if (!builder.sawSection)
    return fail(error, tr("%1 is not a DXF drawing.").arg(shown));
  if (!builder.sawEnd)
    return fail(error, tr("%1 ends early: the file is incomplete.").arg(shown));

  // Layers the table does not list (layer 0 included) are plain, as a save writes them.
  OdDbDatabase& database = read.database();
  for (const OdDbObjectId& id : database.getLayerIds())
    if (OdDbLayerTableRecord* layer = database.openLayer(id); layer && layer->linetypeObjectId().isNull())
      layer->setLinetypeObjectId(database.getLinetypeContinuousId());
  for (auto& [name, block] : builder.blocks)
    read.block(name) = std::move(block);
  for (DrawingEntity& entity : builder.modelSpace)
    read.addEntity(std::move(entity));
  numberBlockEntities(read);
  quint64 stored = read.entities().size();
  for (const auto& [name, block] : read.blocks())
    stored += block.entities.size();
  const quint64 most = kMostDrawnByInserts + kDrawnPerStoredEntity * stored;
  if (read.drawnEntityCount(most + 1) > most)
    return fail(error, tr("%1 takes more than %2 entities to draw, each block counted as often as it is inserted.")
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
    return fail(error, tr("Cannot open %1: %2").arg(shown, file.errorString()));
  // the file is read whole, into memory that must hold it
  if (file.size() > kLargestFile)
    return fail(error, tr("%1 is larger than %2 MB, more than this editor opens.")
                           .arg(shown, QString::number(kLargestFile >> 20)));
  const QByteArray data = file.readAll();
  if (file.error() != QFileDevice::NoError)
    return fail(error, tr("Cannot read %1: %2").arg(shown, file.errorString()));
  return read(data, shown, path, document, error, skipped);
}

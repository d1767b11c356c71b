#include "DxfWriter.h"

#include "DrawingDocument.h"
#include "DxfSourceWriter.h"
#include "DxfStrings.h"
#include "OdDbDatabase.h"
#include "OdDbLayerTableRecord.h"
#include "OdDbLinetypeTableRecord.h"
#include "OdStringQt.h"
#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <cmath>
#include <dl_dxf.h>
#include <dl_writer_ascii.h>
#include <exception>

namespace
{

// lupdate reads the texts of a class that declares its context, and not those of a free function
struct DxfWriterTexts
{
  Q_DECLARE_TR_FUNCTIONS(DxfWriter)
};

/**
 * dxflib numbers the entities it writes itself; this writer puts the
 * entity's own handle in that place instead, and its visibility after it,
 * which dxflib's attributes do not carry. It also writes numbers in their
 * shortest exact form: dxflib's fixed sixteen decimals round 1e-15 to 1e-15
 * give or take, and an opened file would not save as it was read.
 */
class EntityKeepingWriter : public DL_WriterA
{
public:
  EntityKeepingWriter(const char* fileName, unsigned long firstFreeHandle) : DL_WriterA(fileName, DL_VERSION_2000)
  {
    // the numbers dxflib hands out for tables and blocks must not meet an entity's
    m_handle = std::max(m_handle, firstFreeHandle);
  }

  void announce(const DrawingEntity& entity) const
  {
    m_entityHandle = entity.handle;
    m_entityInvisible = !entity.visible;
  }
  /** dxflib leaves out what it cannot write (an insert of no block); its handle must not pass to the next. */
  void forget() const
  {
    m_entityHandle = 0;
    m_entityInvisible = false;
  }

  void dxfHex(int gc, int value) const override
  {
    if (gc != 5 || (m_entityHandle == 0 && !m_entityInvisible))
    {
      DL_WriterA::dxfHex(gc, value);
      return;
    }
    if (m_entityHandle != 0)
      dxfString(5, QByteArray::number(m_entityHandle, 16).toUpper().toStdString());
    else
      DL_WriterA::dxfHex(gc, value);
    if (m_entityInvisible)
      dxfInt(60, 1);
    m_entityHandle = 0;
    m_entityInvisible = false;
  }

  void dxfReal(int gc, double value) const override
  {
    QByteArray text = QByteArray::number(value, 'g', QLocale::FloatingPointShortest);
    if (std::isfinite(value) && !text.contains('.') && !text.contains('e'))
      text += ".0";
    dxfString(gc, text.toStdString());
  }

private:
  mutable quint64 m_entityHandle = 0;
  mutable bool m_entityInvisible = false;
};

class DocumentWriter
{
public:
  DocumentWriter(const DrawingDocument& document, EntityKeepingWriter& writer)
      : m_document(document), m_database(document.database()), m_dw(writer)
  {
  }

  void write()
  {
    m_dxf.writeHeader(m_dw);
    m_dw.sectionEnd();
    writeTables();
    writeBlocks();
    m_dw.sectionEntities();
    for (const DrawingEntity& entity : m_document.entities())
      writeEntity(entity);
    m_dw.sectionEnd();
    m_dxf.writeObjects(m_dw);
    m_dxf.writeObjectsEnd(m_dw);
    m_dw.dxfEOF();
  }

private:
  void writeTables()
  {
    m_dw.sectionTables();
    m_dxf.writeVPort(m_dw);

    const OdDbObjectIdArray linetypes = m_database.getLinetypeIds();
    m_dw.tableLinetypes(int(linetypes.size()));
    for (const OdDbObjectId& id : linetypes)
      if (const OdDbLinetypeTableRecord* linetype = m_database.openLinetype(id))
      {
        std::vector<double> pattern;
        for (int i = 0; i < linetype->numDashes(); ++i)
          pattern.push_back(linetype->dashLengthAt(i));
        m_dxf.writeLinetype(m_dw, DL_LinetypeData(toDxfString(toQString(linetype->getName())),
                                                  toDxfString(toQString(linetype->comments())), 0, int(pattern.size()),
                                                  linetype->patternLength(), pattern.data()));
      }
    m_dw.tableEnd();

    const OdDbObjectIdArray layers = m_database.getLayerIds();
    m_dw.tableLayers(int(layers.size()));
    for (const OdDbObjectId& id : layers)
      if (const OdDbLayerTableRecord* layer = m_database.openLayer(id))
      {
        const int flags = (layer->isFrozen() ? 1 : 0) | (layer->isLocked() ? 4 : 0);
        DL_Attributes attributes = colorAttributes(layer->color());
        attributes.setWidth(layer->lineWeight());
        // a layer cannot defer its linetype to itself or a block
        const OdDbObjectId linetype = layer->linetypeObjectId();
        const bool deferring = linetype.isNull() || linetype == m_database.getLinetypeByLayerId()
                               || linetype == m_database.getLinetypeByBlockId();
        attributes.setLinetype(linetypeName(deferring ? m_database.getLinetypeContinuousId() : linetype));
        m_dxf.writeLayer(m_dw, DL_LayerData(toDxfString(toQString(layer->getName())), flags, layer->isOff()),
                         attributes);
      }
    m_dw.tableEnd();

    m_dw.tableStyle(1);
    m_dxf.writeStyle(m_dw, DL_StyleData("Standard", 0, 0.0, 1.0, 0.0, 0, 2.5, "txt", ""));
    m_dw.tableEnd();
    m_dxf.writeView(m_dw);
    m_dxf.writeUcs(m_dw);
    m_dw.tableAppid(1);
    m_dxf.writeAppid(m_dw, "ACAD");
    m_dw.tableEnd();
    m_dxf.writeDimStyle(m_dw, 2.5, 1.25, 0.625, 0.625, 2.5);
    m_dxf.writeBlockRecord(m_dw);
    for (const auto& block : m_document.blocks())
      m_dxf.writeBlockRecord(m_dw, toDxfString(block.first));
    m_dw.tableEnd();
    m_dw.sectionEnd();
  }

  void writeBlocks()
  {
    m_dw.sectionBlocks();
    for (const char* layout : {"*Model_Space", "*Paper_Space", "*Paper_Space0"})
    {
      m_dxf.writeBlock(m_dw, DL_BlockData(layout, 0, 0.0, 0.0, 0.0));
      m_dxf.writeEndBlock(m_dw, layout);
    }
    for (const auto& [name, block] : m_document.blocks())
    {
      const std::string dxfName = toDxfString(name);
      const int anonymous = name.startsWith(QLatin1Char('*')) ? 1 : 0;
      m_dxf.writeBlock(m_dw, DL_BlockData(dxfName, anonymous, block.basePoint.x, block.basePoint.y,
                                          block.basePoint.z));
      for (const DrawingEntity& entity : block.entities)
        writeEntity(entity);
      m_dxf.writeEndBlock(m_dw, dxfName);
    }
    m_dw.sectionEnd();
  }

  static DL_Attributes colorAttributes(const OdCmColor& color)
  {
    DL_Attributes attributes;
    if (color.isByLayer())
      attributes.setColor(256);
    else if (color.isByBlock())
      attributes.setColor(0);
    else if (color.isByACI())
      attributes.setColor(color.colorIndex());
    else
    {
      // older readers take the nearest palette colour, newer ones the true colour
      attributes.setColor(OdCmEntityColor::lookUpACI(color.red(), color.green(), color.blue()));
      attributes.setColor24((color.red() << 16) | (color.green() << 8) | color.blue());
    }
    return attributes;
  }

  std::string linetypeName(const OdDbObjectId& id) const
  {
    if (id == m_database.getLinetypeByLayerId())
      return "BYLAYER";
    if (id == m_database.getLinetypeByBlockId())
      return "BYBLOCK";
    const OdDbLinetypeTableRecord* linetype = m_database.openLinetype(id);
    return linetype ? toDxfString(toQString(linetype->getName())) : std::string("BYLAYER");
  }

  DL_Attributes attributesOf(const DrawingEntity& entity) const
  {
    DL_Attributes attributes = colorAttributes(entity.color);
    const OdDbLayerTableRecord* layer = m_database.openLayer(entity.layer);
    attributes.setLayer(layer ? toDxfString(toQString(layer->getName())) : std::string("0"));
    attributes.setWidth(entity.lineWeight);
    attributes.setLinetype(linetypeName(entity.linetype));
    attributes.setLinetypeScale(entity.linetypeScale);
    return attributes;
  }

  static DrawingPoint pointAt(const DrawingEntity& entity, std::size_t index)
  {
    return index < entity.points.size() ? entity.points[index] : DrawingPoint();
  }

  void writeEntity(const DrawingEntity& e)
  {
    const DL_Attributes attributes = attributesOf(e);
    const DrawingPoint p0 = pointAt(e, 0);
    const double radians = e.rotation * M_PI / 180.0;
    m_dw.announce(e);
    switch (e.kind)
    {
    case EntityKind::Line:
    {
      const DrawingPoint p1 = pointAt(e, 1);
      m_dxf.writeLine(m_dw, DL_LineData(p0.x, p0.y, p0.z, p1.x, p1.y, p1.z), attributes);
      break;
    }
    case EntityKind::Circle:
      m_dxf.writeCircle(m_dw, DL_CircleData(p0.x, p0.y, p0.z, e.radius), attributes);
      break;
    case EntityKind::Arc:
      m_dxf.writeArc(m_dw, DL_ArcData(p0.x, p0.y, p0.z, e.radius, e.startAngle, e.endAngle), attributes);
      break;
    case EntityKind::Polyline:
      m_dxf.writePolyline(m_dw, DL_PolylineData(int(e.points.size()), 0, 0, e.closed ? 1 : 0, p0.z), attributes);
      for (std::size_t i = 0; i < e.points.size(); ++i)
      {
        const double bulge = i < e.bulges.size() ? e.bulges[i] : 0.0;
        m_dxf.writeVertex(m_dw, DL_VertexData(e.points[i].x, e.points[i].y, e.points[i].z, bulge));
      }
      m_dxf.writePolylineEnd(m_dw);
      break;
    case EntityKind::Text:
    {
      const DrawingPoint p1 = e.points.size() > 1 ? e.points[1] : p0;
      m_dxf.writeText(m_dw, DL_TextData(p0.x, p0.y, p0.z, p1.x, p1.y, p1.z, e.height, e.widthFactor, 0,
                                        e.horizontalAlignment, e.verticalAlignment, toDxfString(e.text),
                                        styleName(e.style), radians),
                      attributes);
      break;
    }
    case EntityKind::MText:
      m_dxf.writeMText(m_dw, DL_MTextData(p0.x, p0.y, p0.z, std::cos(radians), std::sin(radians), 0.0, e.height,
                                          e.width, e.attachment, 1, 1, 1.0, toDxfString(e.text), styleName(e.style),
                                          radians),
                       attributes);
      break;
    case EntityKind::Point:
      m_dxf.writePoint(m_dw, DL_PointData(p0.x, p0.y, p0.z), attributes);
      break;
    case EntityKind::Solid:
    case EntityKind::Trace:
    {
      const DrawingPoint p1 = pointAt(e, 1);
      const DrawingPoint p2 = pointAt(e, 2);
      const DrawingPoint p3 = pointAt(e, 3);
      const DL_TraceData corners(p0.x, p0.y, p0.z, p1.x, p1.y, p1.z, p2.x, p2.y, p2.z, p3.x, p3.y, p3.z);
      if (e.kind == EntityKind::Solid)
        m_dxf.writeSolid(m_dw, corners, attributes);
      else
        m_dxf.writeTrace(m_dw, corners, attributes);
      break;
    }
    case EntityKind::Ellipse:
    {
      const DrawingPoint major = pointAt(e, 1);
      m_dxf.writeEllipse(m_dw, DL_EllipseData(p0.x, p0.y, p0.z, major.x, major.y, major.z, e.ratio,
                                              e.startAngle * M_PI / 180.0, e.endAngle * M_PI / 180.0),
                         attributes);
      break;
    }
    case EntityKind::Spline:
      writeSpline(e, attributes);
      break;
    case EntityKind::Hatch:
      writeHatch(e, attributes);
      break;
    case EntityKind::Image:
    case EntityKind::Other:
      // dxflib writes an image only with the object it refers to, and knows nothing of the others
      break;
    case EntityKind::Insert:
      m_dxf.writeInsert(m_dw, DL_InsertData(toDxfString(e.blockName), p0.x, p0.y, p0.z, e.scale.x, e.scale.y,
                                            e.scale.z, e.rotation, 1, 1, 0.0, 0.0),
                        attributes);
      break;
    case EntityKind::Dimension:
      writeDimension(e, attributes);
      break;
    }
    m_dw.forget();
  }

  static std::string styleName(const QString& style)
  {
    return style.isEmpty() ? std::string("Standard") : toDxfString(style);
  }

  void writeSpline(const DrawingEntity& e, const DL_Attributes& attributes)
  {
    const DrawingEntityDetail& d = e.details();
    m_dxf.writeSpline(m_dw,
                      DL_SplineData(d.degree, int(d.knots.size()), int(e.points.size()), int(d.fitPoints.size()),
                                    e.closed ? 1 | 8 : 8),
                      attributes);
    for (double knot : d.knots)
      m_dxf.writeKnot(m_dw, DL_KnotData(knot));
    for (std::size_t i = 0; i < e.points.size(); ++i)
      m_dxf.writeControlPoint(m_dw, DL_ControlPointData(e.points[i].x, e.points[i].y, e.points[i].z,
                                                        i < d.weights.size() ? d.weights[i] : 1.0));
    for (const DrawingPoint& p : d.fitPoints)
      m_dxf.writeFitPoint(m_dw, DL_FitPointData(p.x, p.y, p.z));
  }

  /** A hatch's loops as edges: a straight one per segment, an arc where the segment bulges. */
  void writeHatch(const DrawingEntity& e, const DL_Attributes& attributes)
  {
    const DrawingEntityDetail& d = e.details();
    const std::string pattern = d.solidFill ? std::string("SOLID")
                                            : toDxfString(d.pattern.isEmpty() ? QStringLiteral("ANSI31") : d.pattern);
    DL_HatchData data(int(d.loops.size()), d.solidFill, d.patternScale, d.patternAngle, pattern);
    m_dxf.writeHatch1(m_dw, data, attributes);
    for (const DrawingHatchLoop& loop : d.loops)
    {
      const std::size_t n = loop.points.size();
      m_dxf.writeHatchLoop1(m_dw, DL_HatchLoopData(int(n)));
      for (std::size_t i = 0; i < n; ++i)
      {
        const DrawingPoint& a = loop.points[i];
        const DrawingPoint& b = loop.points[(i + 1) % n];
        const double bulge = i < loop.bulges.size() ? loop.bulges[i] : 0.0;
        const double chord = std::hypot(b.x - a.x, b.y - a.y);
        if (bulge == 0.0 || chord == 0.0)
        {
          m_dxf.writeHatchEdge(m_dw, DL_HatchEdgeData(a.x, a.y, b.x, b.y));
          continue;
        }
        // the arc through a and b whose sagitta is bulge * chord / 2
        const double angle = 4.0 * std::atan(bulge);
        const double radius = chord / (2.0 * std::sin(std::abs(angle) / 2.0));
        const double toCentre = std::atan2(b.y - a.y, b.x - a.x) + (M_PI - angle) / 2.0;
        const double cx = a.x + radius * std::cos(toCentre);
        const double cy = a.y + radius * std::sin(toCentre);
        double start = std::atan2(a.y - cy, a.x - cx);
        double end = std::atan2(b.y - cy, b.x - cx);
        if (bulge < 0)
        {
          // a clockwise edge is coded with its angles mirrored
          start = -start;
          end = -end;
        }
        m_dxf.writeHatchEdge(m_dw, DL_HatchEdgeData(cx, cy, std::abs(radius), start, end, bulge > 0));
      }
      m_dxf.writeHatchLoop2(m_dw, DL_HatchLoopData(int(n)));
    }
    m_dxf.writeHatch2(m_dw, data, attributes);
  }

  void writeDimension(const DrawingEntity& e, const DL_Attributes& attributes)
  {
    const DrawingPoint p0 = pointAt(e, 0);
    const DrawingPoint p1 = pointAt(e, 1);
    const DrawingPoint line = pointAt(e, 2);
    const DrawingPoint text = pointAt(e, 3);
    const DrawingPoint p4 = pointAt(e, 4);
    const DrawingPoint p5 = pointAt(e, 5);
    const double radians = e.rotation * M_PI / 180.0;
    const int type = e.dimensionType & 0x0F;
    DL_DimensionData data(line.x, line.y, line.z, text.x, text.y, text.z, type, 5, 1, 1.0, toDxfString(e.text),
                          "Standard", 0.0);
    // dxflib's constructor leaves these out, and writes whatever the memory held
    data.arrow1Flipped = false;
    data.arrow2Flipped = false;
    switch (type)
    {
    case 0:
      m_dxf.writeDimLinear(m_dw, data,
                           DL_DimLinearData(p0.x, p0.y, p0.z, p1.x, p1.y, p1.z, radians, 0.0), attributes);
      break;
    case 1:
      m_dxf.writeDimAligned(m_dw, data, DL_DimAlignedData(p0.x, p0.y, p0.z, p1.x, p1.y, p1.z), attributes);
      break;
    case 2:
      m_dxf.writeDimAngular2L(
          m_dw, data,
          DL_DimAngular2LData(p0.x, p0.y, p0.z, p1.x, p1.y, p1.z, p4.x, p4.y, p4.z, p5.x, p5.y, p5.z), attributes);
      break;
    case 3:
      m_dxf.writeDimDiametric(m_dw, data, DL_DimDiametricData(p1.x, p1.y, p1.z, e.radius), attributes);
      break;
    case 4:
      m_dxf.writeDimRadial(m_dw, data, DL_DimRadialData(p1.x, p1.y, p1.z, e.radius), attributes);
      break;
    case 5:
      m_dxf.writeDimAngular3P(m_dw, data,
                              DL_DimAngular3PData(p0.x, p0.y, p0.z, p1.x, p1.y, p1.z, p4.x, p4.y, p4.z), attributes);
      break;
    default:
      m_dxf.writeDimOrdinate(m_dw, data,
                             DL_DimOrdinateData(p0.x, p0.y, p0.z, p1.x, p1.y, p1.z, (e.dimensionType & 64) != 0),
                             attributes);
      break;
    }
  }

  const DrawingDocument& m_document;
  const OdDbDatabase& m_database;
  EntityKeepingWriter& m_dw;
  DL_Dxf m_dxf;
};

quint64 highestHandle(const DrawingDocument& document)
{
  quint64 highest = 0;
  for (const DrawingEntity& entity : document.entities())
    highest = std::max(highest, entity.handle);
  for (const auto& block : document.blocks())
    for (const DrawingEntity& entity : block.second.entities)
      highest = std::max(highest, entity.handle);
  return highest;
}

} // namespace

bool writeDxf(const QString& path, const DrawingDocument& document, QString* error)
{
  const QString shown = QFileInfo(path).fileName();
  // The drawing is written beside its place and moved there whole, so a
  // failed save never leaves half a file where the good one was.
  const QString partial = path + QStringLiteral(".part");
  bool written = false;
  if (!document.source().isEmpty())
  {
    // a drawing read from a file is written in that file's form
    QFile file(partial);
    written = file.open(QIODevice::WriteOnly) && DxfSourceWriter(document).write(file) && file.flush();
    file.close();
  }
  else
    try
  {
    EntityKeepingWriter writer(QFile::encodeName(partial).constData(), (unsigned long)(highestHandle(document) + 1));
    if (!writer.openFailed())
    {
      DocumentWriter(document, writer).write();
      writer.close();
      written = true;
    }
  }
  catch (const std::exception&)
  {
    written = false;
  }
  if (!written || (document.source().isEmpty() && QFileInfo(partial).size() == 0))
  {
    QFile::remove(partial);
    if (error)
      *error = DxfWriterTexts::tr("Cannot write %1.").arg(shown);
    return false;
  }
  if (QFile::exists(path) && !QFile::remove(path))
  {
    QFile::remove(partial);
    if (error)
      *error = DxfWriterTexts::tr("Cannot replace %1.").arg(shown);
    return false;
  }
  if (!QFile::rename(partial, path))
  {
    QFile::remove(partial);
    if (error)
      *error = DxfWriterTexts::tr("Cannot write %1.").arg(shown);
    return false;
  }
  return true;
}

DxfSaveReport dxfSaveReport(const DrawingDocument& document)
{
  if (!document.source().isEmpty())
    return DxfSourceWriter(document).report();
  // a drawing made here has no version of its own for the save to differ from
  DxfSaveReport report;
  int others = 0;
  int images = 0;
  int attributed = 0;
  int oblique = 0;
  const auto count = [&](const std::vector<DrawingEntity>& entities) {
    for (const DrawingEntity& e : entities)
    {
      others += e.kind == EntityKind::Other;
      images += e.kind == EntityKind::Image;
      attributed += e.kind == EntityKind::Insert && e.detail && !e.details().attributes.empty();
      oblique += e.kind == EntityKind::Text && e.oblique != 0.0;
    }
  };
  count(document.entities());
  for (const auto& block : document.blocks())
    count(block.second.entities);
  if (others > 0)
    report.losses << DxfWriterTexts::tr("%n entities of kinds this editor does not know cannot be written.", nullptr, others);
  if (images > 0)
    report.losses << DxfWriterTexts::tr("%n images cannot be written.", nullptr, images);
  if (attributed > 0)
    report.losses << DxfWriterTexts::tr("The attributes of %n inserts cannot be written.", nullptr, attributed);
  if (oblique > 0)
    report.losses << DxfWriterTexts::tr("The oblique angle of %n texts cannot be written.", nullptr, oblique);
  return report;
}

#include "SampleDrawing.h"

#include "DrawingDocument.h"
#include "OdDbLayerTableRecord.h"
#include <QCoreApplication>
#include <cmath>

namespace
{

// lupdate reads the texts of a class that declares its context, and not those of a free function
struct SampleDrawingTexts
{
  Q_DECLARE_TR_FUNCTIONS(SampleDrawing)
};

// tan(90° / 4): the bulge of a quarter circle turning counter-clockwise
constexpr double kQuarter = 0.41421356237309503;

class SampleBuilder
{
public:
  explicit SampleBuilder(DrawingDocument& document) : m_document(document), m_database(document.database()) {}

  OdDbObjectId linetype(const wchar_t* name, const wchar_t* comments, std::initializer_list<double> dashes)
  {
    OdDoubleArray pattern;
    for (double d : dashes)
      pattern.push_back(d);
    return m_database.addLinetype(OdString(name), OdString(comments), pattern);
  }

  OdDbObjectId layer(const wchar_t* name, OdInt16 color, const OdDbObjectId& linetype, OdDb::LineWeight weight)
  {
    const OdString odName(name);
    OdDbObjectId id = m_database.getLayerId(odName);
    if (id.isNull())
      id = m_database.addLayer(odName);
    OdDbLayerTableRecord* record = m_database.openLayer(id);
    OdCmColor c;
    c.setColorIndex(color);
    record->setColor(c);
    record->setLinetypeObjectId(linetype);
    record->setLineWeight(weight);
    return id;
  }

  DrawingEntity entity(EntityKind kind, const OdDbObjectId& layer, std::vector<DrawingPoint> points)
  {
    DrawingEntity e;
    e.kind = kind;
    // clear of the numbers a DXF file gives its tables
    e.handle = m_nextHandle++;
    e.layer = layer;
    e.linetype = m_database.getLinetypeByLayerId();
    e.points = std::move(points);
    return e;
  }

  void add(DrawingEntity e) { m_document.addEntity(std::move(e)); }

  void line(const OdDbObjectId& layer, DrawingPoint a, DrawingPoint b) { add(entity(EntityKind::Line, layer, {a, b})); }

  DrawingEntity polyline(const OdDbObjectId& layer, std::vector<DrawingPoint> points, std::vector<double> bulges,
                         bool closed)
  {
    DrawingEntity e = entity(EntityKind::Polyline, layer, std::move(points));
    e.bulges = std::move(bulges);
    e.bulges.resize(e.points.size(), 0.0);
    e.closed = closed;
    return e;
  }

  DrawingEntity text(EntityKind kind, const OdDbObjectId& layer, DrawingPoint at, double height, const QString& s)
  {
    DrawingEntity e = entity(kind, layer, {at});
    e.height = height;
    e.text = s;
    return e;
  }

  DrawingEntity dimension(int type, const OdDbObjectId& layer, std::vector<DrawingPoint> points)
  {
    DrawingEntity e = entity(EntityKind::Dimension, layer, std::move(points));
    e.dimensionType = type;
    return e;
  }

  quint64 nextHandle() { return m_nextHandle++; }

private:
  DrawingDocument& m_document;
  OdDbDatabase& m_database;
  quint64 m_nextHandle = 0x100;
};

} // namespace

void makeSampleDrawing(DrawingDocument& document)
{
  document.clear();
  SampleBuilder b(document);
  OdDbDatabase& db = document.database();

  const OdDbObjectId continuous = db.getLinetypeContinuousId();
  const OdDbObjectId dashed = b.linetype(L"DASHED", L"Dashed __ __ __ __", {5.0, -2.5});
  const OdDbObjectId center = b.linetype(L"CENTER", L"Center ____ _ ____ _", {12.5, -2.5, 2.5, -2.5});

  const OdDbObjectId zero = b.layer(L"0", 7, continuous, OdDb::kLnWtByLwDefault);
  const OdDbObjectId outline = b.layer(L"Outline", 7, continuous, OdDb::kLnWt050);
  const OdDbObjectId hidden = b.layer(L"Hidden", 8, dashed, OdDb::kLnWt025);
  const OdDbObjectId axes = b.layer(L"Center", 1, center, OdDb::kLnWt018);
  const OdDbObjectId dims = b.layer(L"Dimensions", 3, continuous, OdDb::kLnWt018);
  const OdDbObjectId texts = b.layer(L"Text", 30, continuous, OdDb::kLnWt025);
  const OdDbObjectId frame = b.layer(L"Frame", 7, continuous, OdDb::kLnWt035);
  const OdDbObjectId construction = b.layer(L"Construction", 6, dashed, OdDb::kLnWt013);
  const OdDbObjectId notes = b.layer(L"Notes", 4, continuous, OdDb::kLnWt018);
  db.openLayer(frame)->setIsLocked(true);
  db.openLayer(construction)->setIsFrozen(true);
  db.openLayer(notes)->setIsOff(true);

  // A bolt hole with its centre cross, drawn in whatever the insert says.
  const double holeRadius = 4.0;
  db.addBlock(OdString(L"BOLT_HOLE"));
  DrawingBlock& hole = document.block(QStringLiteral("BOLT_HOLE"));
  {
    DrawingEntity circle = b.entity(EntityKind::Circle, zero, {{0, 0, 0}});
    circle.radius = holeRadius;
    circle.color = OdCmColor(OdCmEntityColor::kByBlock);
    circle.lineWeight = OdDb::kLnWtByBlock;
    hole.entities.push_back(circle);
    for (const auto& [a, z] : {std::pair<DrawingPoint, DrawingPoint>{{-6, 0, 0}, {6, 0, 0}}, {{0, -6, 0}, {0, 6, 0}}})
    {
      DrawingEntity cross = b.entity(EntityKind::Line, zero, {a, z});
      OdCmColor red;
      red.setColorIndex(OdCmEntityColor::kACIRed);
      cross.color = red;
      cross.linetype = center;
      cross.linetypeScale = 0.25;
      hole.entities.push_back(cross);
    }
  }

  // The plate in front view: 90 x 60 with rounded corners, centred on (60, 75).
  DrawingEntity plate = b.polyline(outline,
                                   {{23, 45, 0}, {97, 45, 0}, {105, 53, 0}, {105, 97, 0}, {97, 105, 0}, {23, 105, 0},
                                    {15, 97, 0}, {15, 53, 0}},
                                   {0, kQuarter, 0, kQuarter, 0, kQuarter, 0, kQuarter}, true);
  b.add(plate);
  DrawingEntity bore = b.entity(EntityKind::Circle, outline, {{60, 75, 0}});
  bore.radius = 15.0;
  b.add(bore);
  // an obround slot below the bore: two half circles
  b.add(b.polyline(outline, {{50, 52, 0}, {70, 52, 0}, {70, 58, 0}, {50, 58, 0}}, {0, 1, 0, 1}, true));
  // the keyway, hidden behind the face
  b.add(b.polyline(hidden, {{56, 89.5, 0}, {56, 93, 0}, {64, 93, 0}, {64, 89.5, 0}}, {}, false));

  const double boltCircle = 32.0;
  const double scales[] = {1.0, 1.0, 0.75, 1.25};
  const double rotations[] = {0.0, 45.0, 90.0, 30.0};
  for (int i = 0; i < 4; ++i)
  {
    const double angle = (45.0 + 90.0 * i) * M_PI / 180.0;
    DrawingEntity insert = b.entity(EntityKind::Insert, outline,
                                    {{60 + boltCircle * std::cos(angle), 75 + boltCircle * std::sin(angle), 0}});
    insert.blockName = QStringLiteral("BOLT_HOLE");
    insert.scale = DrawingPoint{scales[i], scales[i], 1.0};
    insert.rotation = rotations[i];
    if (i == 3)
      insert.color.setRGB(0x20, 0xB0, 0x90);
    b.add(insert);
  }
  DrawingEntity pitch = b.entity(EntityKind::Arc, axes, {{60, 75, 0}});
  pitch.radius = boltCircle;
  pitch.startAngle = 30.0;
  pitch.endAngle = 150.0;
  b.add(pitch);
  pitch = b.entity(EntityKind::Arc, axes, {{60, 75, 0}});
  pitch.radius = boltCircle;
  pitch.startAngle = 210.0;
  pitch.endAngle = 330.0;
  b.add(pitch);
  DrawingEntity axis = b.entity(EntityKind::Line, axes, {{60, 38, 0}, {60, 112, 0}});
  axis.linetypeScale = 0.5;
  b.add(axis);
  axis.handle = b.nextHandle();
  axis.points = {{8, 75, 0}, {112, 75, 0}};
  b.add(axis);

  // Side view: 12 thick, the bore and keyway hidden, a rounded top edge.
  b.add(b.polyline(outline, {{125, 45, 0}, {125, 105, 0}, {133, 105, 0}, {137, 101, 0}, {137, 45, 0}},
                   {0, 0, -kQuarter, 0, 0}, false));
  b.line(outline, {125, 45, 0}, {137, 45, 0});
  b.line(hidden, {125, 60, 0}, {137, 60, 0});
  b.line(hidden, {125, 90, 0}, {137, 90, 0});
  b.line(hidden, {125, 93, 0}, {137, 93, 0});
  axis.handle = b.nextHandle();
  axis.points = {{121, 75, 0}, {141, 75, 0}};
  b.add(axis);

  // Dimensions.
  b.add(b.dimension(0, dims, {{15, 53, 0}, {105, 53, 0}, {105, 35, 0}, {60, 35, 0}}));
  DrawingEntity height = b.dimension(0, dims, {{15, 53, 0}, {15, 97, 0}, {6, 97, 0}, {6, 75, 0}});
  height.rotation = 90.0;
  b.add(height);
  b.add(b.dimension(1, dims, {{125, 105, 0}, {137, 105, 0}, {137, 112, 0}, {131, 112, 0}}));
  const double c = std::cos(M_PI / 9.0);
  const double s = std::sin(M_PI / 9.0);
  DrawingEntity diameter = b.dimension(3, dims, {{60 - 15 * c, 75 - 15 * s, 0}, {60 + 15 * c, 75 + 15 * s, 0},
                                                 {60 - 15 * c, 75 - 15 * s, 0}, {60 + 35 * c, 75 + 35 * s, 0}});
  diameter.text = QStringLiteral("<> H7");
  diameter.radius = 8.0;
  b.add(diameter);
  DrawingEntity radius = b.dimension(4, dims, {{97, 97, 0}, {97 + 8 / std::sqrt(2.0), 97 + 8 / std::sqrt(2.0), 0},
                                               {97, 97, 0}, {108, 108, 0}});
  radius.radius = 5.0;
  b.add(radius);
  const double h = boltCircle / std::sqrt(2.0);
  b.add(b.dimension(5, dims, {{60 + h, 75 + h, 0}, {60 - h, 75 + h, 0}, {60, 75 + 40, 0}, {60, 75 + 42, 0},
                              {60, 75, 0}}));

  // Notes and the title block.
  DrawingEntity noteText =
      b.text(EntityKind::MText, texts, {10, 26, 0}, 2.5,
             SampleDrawingTexts::tr("NOTES:\\P1. Break all sharp edges 0.5 x 45\u00b0.\\P2. Material S235JR, 12 mm plate."));
  noteText.width = 90.0;
  b.add(noteText);
  b.add(b.polyline(frame, {{5, 5, 0}, {205, 5, 0}, {205, 145, 0}, {5, 145, 0}}, {}, true));
  b.add(b.polyline(frame, {{125, 5, 0}, {205, 5, 0}, {205, 30, 0}, {125, 30, 0}}, {}, true));
  b.line(frame, {125, 17, 0}, {205, 17, 0});
  b.line(frame, {170, 5, 0}, {170, 17, 0});
  DrawingEntity title = b.text(EntityKind::Text, texts, {129, 21, 0}, 5.0, SampleDrawingTexts::tr("FLANGE PLATE"));
  title.color.setRGB(0x33, 0x99, 0xFF);
  b.add(title);
  b.add(b.text(EntityKind::Text, texts, {129, 10, 0}, 2.5, SampleDrawingTexts::tr("PW-0042")));
  b.add(b.text(EntityKind::Text, texts, {174, 10, 0}, 2.5, SampleDrawingTexts::tr("1:1")));
  DrawingEntity sideLabel = b.text(EntityKind::Text, texts, {146, 60, 0}, 3.0, SampleDrawingTexts::tr("SIDE VIEW"));
  sideLabel.rotation = 90.0;
  b.add(sideLabel);

  // What the hidden layers and the invisible flag keep out of sight.
  b.line(construction, {15, 45, 0}, {105, 105, 0});
  b.add(b.text(EntityKind::Text, notes, {30, 120, 0}, 3.0, SampleDrawingTexts::tr("Check the keyway against the shaft.")));
  DrawingEntity invisible = b.entity(EntityKind::Line, outline, {{15, 105, 0}, {105, 45, 0}});
  invisible.visible = false;
  b.add(invisible);
  DrawingEntity heavy = b.entity(EntityKind::Circle, outline, {{131, 75, 0}});
  heavy.radius = 1.0;
  heavy.lineWeight = OdDb::kLnWt070;
  b.add(heavy);
  Q_EMIT document.documentReset();
}

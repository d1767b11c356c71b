#include "DrawingProperty.h"

#include "DrawingDocument.h"
#include "DrawingHatchPatterns.h"
#include "DrawingPropertyBag.h"
#include "DrawingShape.h"
#include "DemoValues.h"
#include "MTextParagraphs.h"
#include "OdDbDatabase.h"
#include "OdStringQt.h"
#include "PropUiGuids.h"
#include "PropVariantConversions.h"
#include <algorithm>
#include <cmath>

namespace
{

const double kPi = 3.14159265358979323846;

unsigned int kindsOf(std::initializer_list<EntityKind> kinds)
{
  unsigned int bits = 0;
  for (EntityKind k : kinds)
    bits |= kindBit(k);
  return bits;
}

const unsigned int kAllKinds = ~0u;

} // namespace

bool toNumber(const PropVariant& value, double& d)
{
  if (value.isArray())
    return false;
  if (value.scalarType() == PropVariant::kDouble)
    d = value.getDouble();
  else if (value.scalarType() == PropVariant::kInt32)
    d = value.getInt32();
  else
    return false;
  return true;
}

namespace
{

double distance(const DrawingPoint& a, const DrawingPoint& b)
{
  return std::sqrt((b.x - a.x) * (b.x - a.x) + (b.y - a.y) * (b.y - a.y) + (b.z - a.z) * (b.z - a.z));
}

/** The length of a polyline segment that may be an arc (bulge = tan of a quarter of its angle). */
double segmentLength(const DrawingPoint& a, const DrawingPoint& b, double bulge)
{
  const double chord = distance(a, b);
  if (bulge == 0.0 || chord == 0.0)
    return chord;
  const double angle = 4.0 * std::atan(std::fabs(bulge));
  return chord / (2.0 * std::sin(angle / 2.0)) * angle;
}

double polylineLength(const DrawingEntity& e)
{
  const std::size_t n = e.points.size();
  double length = 0.0;
  const std::size_t segments = e.closed ? n : (n ? n - 1 : 0);
  for (std::size_t i = 0; i < segments; ++i)
    length += segmentLength(e.points[i], e.points[(i + 1) % n], i < e.bulges.size() ? e.bulges[i] : 0.0);
  return length;
}

double polylineArea(const DrawingEntity& e)
{
  const std::size_t n = e.points.size();
  double twice = 0.0;
  double arcs = 0.0;
  for (std::size_t i = 0; i < n; ++i)
  {
    const DrawingPoint& a = e.points[i];
    const DrawingPoint& b = e.points[(i + 1) % n];
    twice += a.x * b.y - b.x * a.y;
    const double bulge = i < e.bulges.size() ? e.bulges[i] : 0.0;
    const double chord = std::hypot(b.x - a.x, b.y - a.y);
    if (bulge != 0.0 && chord > 0.0)
    {
      // A positive bulge turns left, away from a counter-clockwise outline: its circular segment adds.
      const double angle = 4.0 * std::atan(std::fabs(bulge));
      const double radius = chord / (2.0 * std::sin(angle / 2.0));
      arcs += (bulge > 0 ? 1.0 : -1.0) * radius * radius * (angle - std::sin(angle)) / 2.0;
    }
  }
  return std::fabs(twice / 2.0 + arcs);
}

QString refusePositive(double d, const QString& message)
{
  return d > 0.0 ? QString() : message;
}

} // namespace

namespace
{

bool readString(const PropVariant& v, QString& s)
{
  if (v.scalarType() != PropVariant::kString || v.isArray())
    return false;
  s = toQString(v.getString());
  return true;
}

bool readBool(const PropVariant& v, bool& b)
{
  if (v.scalarType() != PropVariant::kBool || v.isArray())
    return false;
  b = v.getBool();
  return true;
}

/** The horizontal and vertical alignment of a text, as the file codes them, in one number: 10 * horizontal + vertical. */
int alignmentCode(const DrawingEntity& e)
{
  return e.horizontalAlignment * 10 + e.verticalAlignment;
}

std::vector<DrawingChoice> textAlignments()
{
  struct Entry
  {
    const char* name;
    int code;
  };
  static const Entry entries[] = {
    {QT_TRANSLATE_NOOP("DrawingPropertyBag", "Left"), 0},          {QT_TRANSLATE_NOOP("DrawingPropertyBag", "Centre"), 10},
    {QT_TRANSLATE_NOOP("DrawingPropertyBag", "Right"), 20},        {QT_TRANSLATE_NOOP("DrawingPropertyBag", "Aligned"), 30},
    {QT_TRANSLATE_NOOP("DrawingPropertyBag", "Middle"), 40},       {QT_TRANSLATE_NOOP("DrawingPropertyBag", "Fit"), 50},
    {QT_TRANSLATE_NOOP("DrawingPropertyBag", "Top Left"), 3},      {QT_TRANSLATE_NOOP("DrawingPropertyBag", "Top Centre"), 13},
    {QT_TRANSLATE_NOOP("DrawingPropertyBag", "Top Right"), 23},    {QT_TRANSLATE_NOOP("DrawingPropertyBag", "Middle Left"), 2},
    {QT_TRANSLATE_NOOP("DrawingPropertyBag", "Middle Centre"), 12}, {QT_TRANSLATE_NOOP("DrawingPropertyBag", "Middle Right"), 22},
    {QT_TRANSLATE_NOOP("DrawingPropertyBag", "Bottom Left"), 1},   {QT_TRANSLATE_NOOP("DrawingPropertyBag", "Bottom Centre"), 11},
    {QT_TRANSLATE_NOOP("DrawingPropertyBag", "Bottom Right"), 21}};
  std::vector<DrawingChoice> choices;
  for (const Entry& entry : entries)
    choices.push_back({DrawingPropertyBag::tr(entry.name), integer(entry.code)});
  return choices;
}

/** The style a text names; the file leaves Standard's name out. */
QString styleOf(const DrawingEntity& e)
{
  return e.style.isEmpty() ? QStringLiteral("Standard") : e.style;
}

DrawingPoint majorAxis(const DrawingEntity& e)
{
  return e.points.size() > 1 ? e.points[1] : DrawingPoint{};
}

double majorLength(const DrawingEntity& e)
{
  const DrawingPoint axis = majorAxis(e);
  return 2.0 * std::sqrt(axis.x * axis.x + axis.y * axis.y + axis.z * axis.z);
}

} // namespace

std::vector<DrawingProperty> drawingProperties(DrawingDocument* document)
{
  std::vector<DrawingProperty> all;
  // The references add() hands out stay valid while the table is filled.
  all.reserve(64);
  auto add = [&all](const QString& name, const QString& category, const QString& description, const OdGUID& guid,
                    PropertyFormat format, unsigned int kinds,
                    std::function<bool(const DrawingEntity&)> condition = nullptr) -> DrawingProperty& {
    DrawingProperty p;
    p.name = name;
    p.category = category;
    p.description = description;
    p.guid = guid;
    p.format = format;
    p.kinds = kinds;
    p.condition = std::move(condition);
    if (format == PropertyFormat::Choice)
      p.flags |= PropItemFlag::kChoice;
    Q_ASSERT(all.size() < all.capacity());
    all.push_back(std::move(p));
    return all.back();
  };
  auto sameField = [](auto DrawingEntity::*field) {
    return [field](const DrawingEntity* const* entities, std::size_t count, const DrawingEntity& first) {
      const auto& value = first.*field;
      for (std::size_t i = 0; i < count; ++i)
        if (!(entities[i]->*field == value))
          return i;
      return count;
    };
  };
  const QString general = DrawingPropertyBag::tr("General");
  const QString geometry = DrawingPropertyBag::tr("Geometry");
  const QString textCategory = DrawingPropertyBag::tr("Text");
  const QString patternCategory = DrawingPropertyBag::tr("Hatch");

  DrawingProperty& layer = add(DrawingPropertyBag::tr("Layer"), general, DrawingPropertyBag::tr("The layer the objects are on"),
                               PropUiGuidLayer, PropertyFormat::Layer, kAllKinds);
  layer.read = [](const DrawingEntity& e) { return propVariantFromObjectId(e.layer); };
  layer.firstDifferent = sameField(&DrawingEntity::layer);
  layer.write = [document](DrawingEntity& e, const PropVariant& v) {
    OdDbObjectId id;
    if (!propVariantToObjectId(v, id) || !document->database().openLayer(id))
      return false;
    e.layer = id;
    return true;
  };

  DrawingProperty& color = add(DrawingPropertyBag::tr("Colour"), general, DrawingPropertyBag::tr("The colour the objects are drawn in"),
                               PropUiGuidColor, PropertyFormat::Color, kAllKinds);
  color.read = [](const DrawingEntity& e) { return propVariantFromColor(e.color); };
  color.firstDifferent = sameField(&DrawingEntity::color);
  color.write = [](DrawingEntity& e, const PropVariant& v) { return propVariantToColor(v, e.color); };

  DrawingProperty& linetype = add(DrawingPropertyBag::tr("Linetype"), general, DrawingPropertyBag::tr("The dash pattern of the lines"),
                                  PropUiGuidLinetype, PropertyFormat::Linetype, kAllKinds);
  linetype.read = [](const DrawingEntity& e) { return propVariantFromObjectId(e.linetype); };
  linetype.firstDifferent = sameField(&DrawingEntity::linetype);
  linetype.write = [document](DrawingEntity& e, const PropVariant& v) {
    OdDbObjectId id;
    if (!propVariantToObjectId(v, id) || !document->database().openLinetype(id))
      return false;
    e.linetype = id;
    return true;
  };

  DrawingProperty& weight = add(DrawingPropertyBag::tr("Lineweight"), general, DrawingPropertyBag::tr("The printed width of the lines"),
                                PropUiGuidLineweight, PropertyFormat::Lineweight, kAllKinds);
  weight.read = [](const DrawingEntity& e) { return propVariantFromLineweight(e.lineWeight); };
  weight.firstDifferent = sameField(&DrawingEntity::lineWeight);
  weight.write = [](DrawingEntity& e, const PropVariant& v) { return propVariantToLineweight(v, e.lineWeight); };

  auto numberProperty = [&add, sameField](const QString& name, const QString& category, const QString& description, const OdGUID& guid,
                               PropertyFormat format, unsigned int kinds, double DrawingEntity::*field) -> DrawingProperty& {
    DrawingProperty& p = add(name, category, description, guid, format, kinds);
    p.read = [field](const DrawingEntity& e) { return number(e.*field); };
    p.write = [field](DrawingEntity& e, const PropVariant& v) { return toNumber(v, e.*field); };
    p.firstDifferent = sameField(field);
    return p;
  };

  DrawingProperty& ltScale = numberProperty(DrawingPropertyBag::tr("Linetype scale"), general,
                                            DrawingPropertyBag::tr("How long the dashes are, relative to the linetype"),
                                            PropUiGuidDouble, PropertyFormat::Number, kAllKinds, &DrawingEntity::linetypeScale);
  ltScale.refuse = [](double d) { return refusePositive(d, DrawingPropertyBag::tr("The linetype scale must be greater than zero.")); };

  DrawingProperty& visible = add(DrawingPropertyBag::tr("Visible"), general, DrawingPropertyBag::tr("Whether the objects are drawn"),
                                 PropUiGuidBool, PropertyFormat::Bool, kAllKinds);
  visible.read = [](const DrawingEntity& e) { return boolean(e.visible); };
  visible.firstDifferent = sameField(&DrawingEntity::visible);
  visible.write = [](DrawingEntity& e, const PropVariant& v) { return readBool(v, e.visible); };

  auto point = [&add, &geometry](const QString& name, const QString& description, unsigned int kinds, int which) -> DrawingProperty& {
    DrawingProperty& p = add(name, geometry, description, PropUiGuidCoords3d, PropertyFormat::Number, kinds,
                             [which](const DrawingEntity& e) { return int(e.points.size()) > which; });
    p.shape = PropertyShape::Point;
    p.count = [](const DrawingEntity&) { return 3; };
    p.element = [which](const DrawingEntity& e, int i) {
      const DrawingPoint& pt = e.points[std::size_t(which)];
      return i == 0 ? pt.x : i == 1 ? pt.y : pt.z;
    };
    p.setElement = [which](DrawingEntity& e, int i, double d) {
      DrawingPoint& pt = e.points[std::size_t(which)];
      (i == 0 ? pt.x : i == 1 ? pt.y : pt.z) = d;
    };
    return p;
  };
  point(DrawingPropertyBag::tr("Start point"), DrawingPropertyBag::tr("Where the line starts"), kindBit(EntityKind::Line), 0);
  point(DrawingPropertyBag::tr("End point"), DrawingPropertyBag::tr("Where the line ends"), kindBit(EntityKind::Line), 1);
  point(DrawingPropertyBag::tr("Centre"), DrawingPropertyBag::tr("The centre of the circle, arc or ellipse"),
        kindsOf({EntityKind::Circle, EntityKind::Arc, EntityKind::Ellipse}), 0);
  point(DrawingPropertyBag::tr("Position"), DrawingPropertyBag::tr("The insertion point, or where the point is"),
        kindsOf({EntityKind::Text, EntityKind::MText, EntityKind::Insert, EntityKind::Point}), 0);
  point(DrawingPropertyBag::tr("First point"), DrawingPropertyBag::tr("The first point the dimension measures from"),
        kindBit(EntityKind::Dimension), 0);
  point(DrawingPropertyBag::tr("Second point"), DrawingPropertyBag::tr("The second point the dimension measures to"),
        kindBit(EntityKind::Dimension), 1);
  point(DrawingPropertyBag::tr("Dimension line"), DrawingPropertyBag::tr("A point the dimension line passes through"),
        kindBit(EntityKind::Dimension), 2);

  auto vertexList = [&add, &geometry](const QString& name, const QString& description, EntityKind kind) -> DrawingProperty& {
    DrawingProperty& p = add(name, geometry, description, PropUiGuidCoords3d, PropertyFormat::Number, kindBit(kind),
                             [](const DrawingEntity& e) { return !e.points.empty(); });
    p.shape = PropertyShape::Vertices;
    p.count = [](const DrawingEntity& e) { return int(e.points.size()) * 3; };
    p.element = [](const DrawingEntity& e, int i) {
      const DrawingPoint& pt = e.points[std::size_t(i / 3)];
      return i % 3 == 0 ? pt.x : i % 3 == 1 ? pt.y : pt.z;
    };
    return p;
  };
  DrawingProperty& vertices = vertexList(DrawingPropertyBag::tr("Vertices"),
                                         DrawingPropertyBag::tr("The corners of the polyline; pick one by its number"), EntityKind::Polyline);
  vertices.setElement = [](DrawingEntity& e, int i, double d) {
    DrawingPoint& pt = e.points[std::size_t(i / 3)];
    (i % 3 == 0 ? pt.x : i % 3 == 1 ? pt.y : pt.z) = d;
  };
  DrawingProperty& vertexCount = add(DrawingPropertyBag::tr("Number of vertices"), geometry,
                                     DrawingPropertyBag::tr("How many corners the polyline has"), PropUiGuidInteger,
                                     PropertyFormat::Integer, kindBit(EntityKind::Polyline));
  vertexCount.read = [](const DrawingEntity& e) { return integer(int(e.points.size())); };
  // Moving a control point of a spline would need its knots worked out again: they are shown only.
  DrawingProperty& controlPoints = vertexList(DrawingPropertyBag::tr("Control points"),
                                              DrawingPropertyBag::tr("The points that pull the spline into shape; pick one by its number"),
                                              EntityKind::Spline);
  controlPoints.elementCaption = DrawingPropertyBag::tr("Point %1 %2");

  const unsigned int round = kindsOf({EntityKind::Circle, EntityKind::Arc});
  DrawingProperty& radius = numberProperty(DrawingPropertyBag::tr("Radius"), geometry, DrawingPropertyBag::tr("The radius of the circle or arc"),
                                           PropUiGuidDistance, PropertyFormat::Number, round, &DrawingEntity::radius);
  radius.refuse = [](double d) { return refusePositive(d, DrawingPropertyBag::tr("The radius must be greater than zero.")); };

  DrawingProperty& diameter = add(DrawingPropertyBag::tr("Diameter"), geometry, DrawingPropertyBag::tr("Twice the radius"),
                                  PropUiGuidDistance, PropertyFormat::Number, round);
  diameter.read = [](const DrawingEntity& e) { return number(2.0 * e.radius); };
  diameter.write = [](DrawingEntity& e, const PropVariant& v) {
    double d = 0;
    if (!toNumber(v, d))
      return false;
    e.radius = d / 2.0;
    return true;
  };
  diameter.refuse = [](double d) { return refusePositive(d, DrawingPropertyBag::tr("The diameter must be greater than zero.")); };

  const unsigned int ellipse = kindBit(EntityKind::Ellipse);
  auto hasAxis = [](const DrawingEntity& e) { return e.points.size() > 1; };
  DrawingProperty& major = add(DrawingPropertyBag::tr("Major axis"), geometry,
                               DrawingPropertyBag::tr("The length of the ellipse's longer axis, through its centre"),
                               PropUiGuidDistance, PropertyFormat::Number, ellipse, hasAxis);
  major.read = [](const DrawingEntity& e) { return number(majorLength(e)); };
  major.write = [](DrawingEntity& e, const PropVariant& v) {
    double d = 0;
    if (!toNumber(v, d) || e.points.size() < 2)
      return false;
    const double before = majorLength(e);
    DrawingPoint& axis = e.points[1];
    // An axis of no length has no direction to keep: it lies along X.
    if (before == 0.0)
      axis = DrawingPoint{d / 2.0, 0.0, 0.0};
    else
      axis = DrawingPoint{axis.x * d / before, axis.y * d / before, axis.z * d / before};
    return true;
  };
  major.refuse = [](double d) { return refusePositive(d, DrawingPropertyBag::tr("The major axis must be longer than zero.")); };
  major.restoresByValue = false;

  DrawingProperty& minor = add(DrawingPropertyBag::tr("Minor axis"), geometry,
                               DrawingPropertyBag::tr("The length of the ellipse's shorter axis; it sets the ratio"),
                               PropUiGuidDistance, PropertyFormat::Number, ellipse, hasAxis);
  minor.read = [](const DrawingEntity& e) { return number(majorLength(e) * e.ratio); };
  minor.write = [](DrawingEntity& e, const PropVariant& v) {
    double d = 0;
    const double majorAxisLength = majorLength(e);
    if (!toNumber(v, d) || majorAxisLength <= 0.0)
      return false;
    e.ratio = d / majorAxisLength;
    return true;
  };
  minor.refuseFor = [](const DrawingEntity& e, double d) {
    return d > 0.0 && d <= majorLength(e) ? QString()
                                          : DrawingPropertyBag::tr("The minor axis must be longer than zero and no longer than the major axis.");
  };
  minor.restoresByValue = false;

  DrawingProperty& ratio = numberProperty(DrawingPropertyBag::tr("Ratio"), geometry,
                                          DrawingPropertyBag::tr("The minor axis as a share of the major axis"), PropUiGuidDouble,
                                          PropertyFormat::Number, ellipse, &DrawingEntity::ratio);
  ratio.refuse = [](double d) {
    return d > 0.0 && d <= 1.0 ? QString() : DrawingPropertyBag::tr("The ratio must be greater than zero and at most 1.");
  };

  const unsigned int arcs = kindsOf({EntityKind::Arc, EntityKind::Ellipse});
  numberProperty(DrawingPropertyBag::tr("Start angle"), geometry,
                 DrawingPropertyBag::tr("Where the arc starts, counter-clockwise from the X axis; on an ellipse, from its major axis"),
                 PropUiGuidAngle, PropertyFormat::Angle, arcs, &DrawingEntity::startAngle);
  numberProperty(DrawingPropertyBag::tr("End angle"), geometry,
                 DrawingPropertyBag::tr("Where the arc ends, counter-clockwise from the X axis; on an ellipse, from its major axis"),
                 PropUiGuidAngle, PropertyFormat::Angle, arcs, &DrawingEntity::endAngle);

  auto measured = [&add, &geometry](const QString& name, const QString& description, unsigned int kinds,
                                    std::function<bool(const DrawingEntity&)> condition, std::function<double(const DrawingEntity&)> measure) {
    DrawingProperty& p = add(name, geometry, description, PropUiGuidDouble, PropertyFormat::Number, kinds, std::move(condition));
    p.read = [measure](const DrawingEntity& e) { return number(measure(e)); };
  };
  measured(DrawingPropertyBag::tr("Arc length"), DrawingPropertyBag::tr("The length along the arc"), kindBit(EntityKind::Arc), nullptr,
           [](const DrawingEntity& e) {
             double sweep = std::fmod(e.endAngle - e.startAngle, 360.0);
             if (sweep <= 0.0)
               sweep += 360.0;
             return e.radius * sweep * kPi / 180.0;
           });
  measured(DrawingPropertyBag::tr("Circumference"), DrawingPropertyBag::tr("The length around the circle"), kindBit(EntityKind::Circle),
           nullptr, [](const DrawingEntity& e) { return 2.0 * kPi * e.radius; });
  measured(DrawingPropertyBag::tr("Length"), DrawingPropertyBag::tr("The length of the line or polyline"),
           kindsOf({EntityKind::Line, EntityKind::Polyline}), nullptr, [](const DrawingEntity& e) {
             return e.kind == EntityKind::Line ? (e.points.size() > 1 ? distance(e.points[0], e.points[1]) : 0.0) : polylineLength(e);
           });
  measured(DrawingPropertyBag::tr("Area"), DrawingPropertyBag::tr("The area enclosed"), kindsOf({EntityKind::Circle, EntityKind::Polyline}),
           [](const DrawingEntity& e) { return e.kind == EntityKind::Circle || e.closed; },
           [](const DrawingEntity& e) { return e.kind == EntityKind::Circle ? kPi * e.radius * e.radius : polylineArea(e); });

  DrawingProperty& closed = add(DrawingPropertyBag::tr("Closed"), geometry, DrawingPropertyBag::tr("Whether the last vertex joins the first"),
                                PropUiGuidBool, PropertyFormat::Bool, kindsOf({EntityKind::Polyline, EntityKind::Spline}));
  closed.read = [](const DrawingEntity& e) { return boolean(e.closed); };
  closed.write = [](DrawingEntity& e, const PropVariant& v) { return readBool(v, e.closed); };

  DrawingProperty& degree = add(DrawingPropertyBag::tr("Degree"), geometry,
                                DrawingPropertyBag::tr("The degree of the spline's curve; shown only, as another degree would need other knots"),
                                PropUiGuidInteger, PropertyFormat::Integer, kindBit(EntityKind::Spline));
  degree.read = [](const DrawingEntity& e) { return integer(e.details().degree); };

  numberProperty(DrawingPropertyBag::tr("Rotation"), geometry, DrawingPropertyBag::tr("The rotation about the insertion point"),
                 PropUiGuidAngle, PropertyFormat::Angle, kindsOf({EntityKind::Text, EntityKind::MText, EntityKind::Insert}),
                 &DrawingEntity::rotation);

  const unsigned int insert = kindBit(EntityKind::Insert);
  DrawingProperty& scale = add(DrawingPropertyBag::tr("Scale"), geometry, DrawingPropertyBag::tr("The scale of the block in X and Y"),
                               PropUiGuidScale2d, PropertyFormat::Number, insert);
  scale.shape = PropertyShape::Scale;
  scale.count = [](const DrawingEntity&) { return 2; };
  scale.element = [](const DrawingEntity& e, int i) { return i == 0 ? e.scale.x : e.scale.y; };
  scale.setElement = [](DrawingEntity& e, int i, double d) { (i == 0 ? e.scale.x : e.scale.y) = d; };
  // A zero scale folds the block flat and cannot be undone by scaling again.
  scale.refuse = [](double d) { return d != 0.0 ? QString() : DrawingPropertyBag::tr("A scale cannot be zero."); };

  DrawingProperty& block = add(DrawingPropertyBag::tr("Block"), geometry, DrawingPropertyBag::tr("The block the insert shows"),
                               PropUiGuidText, PropertyFormat::Text, insert);
  block.read = [](const DrawingEntity& e) { return text(e.blockName); };

  auto writeText = [](DrawingEntity& e, const PropVariant& v) { return readString(v, e.text); };
  DrawingProperty& contents = add(DrawingPropertyBag::tr("Contents"), textCategory, DrawingPropertyBag::tr("The text shown"),
                                  PropUiGuidText, PropertyFormat::Text, kindBit(EntityKind::Text));
  contents.flags |= PropUiOption::kElided;
  contents.read = [](const DrawingEntity& e) { return text(e.text); };
  contents.write = writeText;

  DrawingProperty& paragraphs = add(DrawingPropertyBag::tr("Contents"), textCategory,
                                    DrawingPropertyBag::tr("The text shown, a line per paragraph; the last line adds a paragraph"),
                                    PropUiGuidText, PropertyFormat::Text, kindBit(EntityKind::MText));
  paragraphs.flags |= PropUiOption::kMultiLine;
  paragraphs.shape = PropertyShape::Texts;
  paragraphs.appendsText = true;
  paragraphs.read = contents.read;
  paragraphs.count = [](const DrawingEntity& e) { return int(mtextParagraphs(e.text).size()) + 1; };
  paragraphs.textElement = [](const DrawingEntity& e, int i) { return mtextParagraphs(e.text).value(i); };
  paragraphs.setTextElement = [](DrawingEntity& e, int i, const QString& s) {
    QStringList lines = mtextParagraphs(e.text);
    if (i >= 0 && i < lines.size())
      lines[i] = s;
    else
      lines.append(s);
    e.text = mtextContents(lines);
  };

  DrawingProperty& attributes = add(DrawingPropertyBag::tr("Attributes"), DrawingPropertyBag::tr("Attributes"),
                                    DrawingPropertyBag::tr("The values the block's attributes hold, by tag"), PropUiGuidText,
                                    PropertyFormat::Text, insert, [](const DrawingEntity& e) { return !e.details().attributes.empty(); });
  attributes.flags |= PropUiOption::kMultiLine;
  attributes.shape = PropertyShape::Texts;
  attributes.read = [](const DrawingEntity& e) {
    QStringList values;
    for (const DrawingEntity& attribute : e.details().attributes)
      values << attribute.text;
    return text(values.join(QStringLiteral(", ")));
  };
  attributes.count = [](const DrawingEntity& e) { return int(e.details().attributes.size()); };
  attributes.elementName = [](const DrawingEntity& e, int i) {
    return i >= 0 && i < int(e.details().attributes.size()) ? e.details().attributes[std::size_t(i)].blockName : QString();
  };
  attributes.textElement = [](const DrawingEntity& e, int i) {
    return i >= 0 && i < int(e.details().attributes.size()) ? e.details().attributes[std::size_t(i)].text : QString();
  };
  attributes.setTextElement = [](DrawingEntity& e, int i, const QString& s) {
    if (i >= 0 && i < int(e.details().attributes.size()))
      e.editDetails().attributes[std::size_t(i)].text = s;
  };

  const unsigned int texts = kindsOf({EntityKind::Text, EntityKind::MText});
  DrawingProperty& style = add(DrawingPropertyBag::tr("Style"), textCategory, DrawingPropertyBag::tr("The text style: font and its settings"),
                               PropUiGuidTextCombo, PropertyFormat::Choice, texts);
  style.read = [](const DrawingEntity& e) { return text(styleOf(e)); };
  style.write = [document](DrawingEntity& e, const PropVariant& v) {
    QString name;
    // Only a style the drawing has, or Standard, which every drawing has even when its file leaves it out.
    if (!readString(v, name) || (name != QLatin1String("Standard") && !document->textStyles().count(name)))
      return false;
    if (name != styleOf(e))
      e.style = name;
    return true;
  };
  // Standard written back to a text whose file left the name out would name it: an undo puts the entity back.
  style.restoresByValue = false;
  style.choices = [document]() {
    std::vector<DrawingChoice> choices;
    bool standard = false;
    for (const auto& entry : document->textStyles())
    {
      choices.push_back({entry.first, text(entry.first)});
      standard = standard || entry.first == QLatin1String("Standard");
    }
    if (!standard)
      choices.insert(choices.begin(), {QStringLiteral("Standard"), text(QStringLiteral("Standard"))});
    return choices;
  };

  const unsigned int singleLine = kindBit(EntityKind::Text);
  DrawingProperty& alignment = add(DrawingPropertyBag::tr("Alignment"), textCategory,
                                   DrawingPropertyBag::tr("Which point of the text its insertion point is"), PropUiGuidTextCombo,
                                   PropertyFormat::Choice, singleLine, [](const DrawingEntity& e) { return !e.points.empty(); });
  alignment.read = [](const DrawingEntity& e) { return integer(alignmentCode(e)); };
  alignment.write = [document](DrawingEntity& e, const PropVariant& v) {
    if (v.scalarType() != PropVariant::kInt32 || v.isArray() || e.points.empty())
      return false;
    const int code = v.getInt32();
    const int horizontal = code / 10;
    const int vertical = code % 10;
    if (code < 0 || horizontal > 5 || vertical > 3 || (horizontal > 2 && vertical != 0))
      return false;
    if (code == alignmentCode(e))
      return true;
    // Left on the baseline has no alignment point: the new one is where that point of the text is now,
    // so that the text stays where it was (aligned and fit get the end of its baseline).
    if (alignmentCode(e) == 0)
    {
      if (e.points.size() < 2)
        e.points.resize(2);
      e.points[1] = DrawingShape::textAlignmentPoint(*document, e, horizontal, vertical);
    }
    e.horizontalAlignment = horizontal;
    e.verticalAlignment = vertical;
    return true;
  };
  alignment.choices = textAlignments;
  alignment.restoresByValue = false;

  DrawingProperty& height = numberProperty(DrawingPropertyBag::tr("Height"), textCategory, DrawingPropertyBag::tr("The height of the letters"),
                                           PropUiGuidDistance, PropertyFormat::Number, texts, &DrawingEntity::height);
  height.refuse = [](double d) { return refusePositive(d, DrawingPropertyBag::tr("The text height must be greater than zero.")); };

  DrawingProperty& widthFactor = numberProperty(DrawingPropertyBag::tr("Width factor"), textCategory,
                                                DrawingPropertyBag::tr("How wide the letters are, relative to the font"),
                                                PropUiGuidDouble, PropertyFormat::Number, singleLine, &DrawingEntity::widthFactor);
  widthFactor.refuse = [](double d) { return refusePositive(d, DrawingPropertyBag::tr("The width factor must be greater than zero.")); };

  DrawingProperty& oblique = numberProperty(DrawingPropertyBag::tr("Oblique angle"), textCategory,
                                            DrawingPropertyBag::tr("How far the letters lean, from upright"), PropUiGuidAngle,
                                            PropertyFormat::Angle, singleLine, &DrawingEntity::oblique);
  // Letters leaning further than this lie almost flat on their baseline: drawings do not take it.
  oblique.refuse = [](double d) {
    return std::fabs(d) <= 85.0 ? QString() : DrawingPropertyBag::tr("The oblique angle must lie between -85° and 85°.");
  };

  const unsigned int dimension = kindBit(EntityKind::Dimension);
  // Only the dimensions that measure a distance between their two points; an
  // angle or an ordinate would read as a length here.
  measured(DrawingPropertyBag::tr("Measurement"), DrawingPropertyBag::tr("The distance the dimension measures"), dimension,
           [](const DrawingEntity& e) {
             const int type = e.dimensionType & 0x0F;
             return e.points.size() > 1 && (type <= 1 || type == 3 || type == 4);
           },
           [](const DrawingEntity& e) {
             if ((e.dimensionType & 0x0F) != 0)
               return distance(e.points[0], e.points[1]);
             // a rotated dimension measures along its own direction
             const double angle = e.rotation * kPi / 180.0;
             return std::abs((e.points[1].x - e.points[0].x) * std::cos(angle) + (e.points[1].y - e.points[0].y) * std::sin(angle));
           });
  DrawingProperty& dimText = add(DrawingPropertyBag::tr("Dimension text"), textCategory,
                                 DrawingPropertyBag::tr("Text shown instead of the measurement; empty shows the measurement"),
                                 PropUiGuidText, PropertyFormat::Text, dimension);
  dimText.read = [](const DrawingEntity& e) { return text(e.text); };
  dimText.write = writeText;

  const unsigned int hatch = kindBit(EntityKind::Hatch);
  // A hatch carries its pattern's lines as drawn: any change of the pattern, its scale or its angle lays them out anew.
  auto layOutPattern = [](DrawingEntity& e) {
    DrawingEntityDetail& detail = e.editDetails();
    detail.patternLines = hatchPatternLines(detail.pattern, detail.patternScale, detail.patternAngle);
  };
  DrawingProperty& pattern = add(DrawingPropertyBag::tr("Pattern"), patternCategory, DrawingPropertyBag::tr("The pattern the hatch is filled with"),
                                 PropUiGuidTextCombo, PropertyFormat::Choice, hatch);
  pattern.read = [](const DrawingEntity& e) { return text(e.details().pattern); };
  pattern.write = [layOutPattern](DrawingEntity& e, const PropVariant& v) {
    QString name;
    if (!readString(v, name) || !hatchPatternNames().contains(name))
      return false;
    if (name == e.details().pattern)
      return true;
    DrawingEntityDetail& detail = e.editDetails();
    detail.pattern = name;
    detail.solidFill = name == QLatin1String("SOLID");
    layOutPattern(e);
    return true;
  };
  pattern.choices = []() {
    std::vector<DrawingChoice> choices;
    for (const QString& name : hatchPatternNames())
      choices.push_back({name, text(name)});
    return choices;
  };
  pattern.restoresByValue = false;

  auto patternNumber = [&add, &patternCategory, layOutPattern](const QString& name, const QString& description, const OdGUID& guid,
                                                             PropertyFormat format, double DrawingEntityDetail::*field) -> DrawingProperty& {
    DrawingProperty& p = add(name, patternCategory, description, guid, format, kindBit(EntityKind::Hatch));
    p.read = [field](const DrawingEntity& e) { return number(e.details().*field); };
    p.write = [field, layOutPattern](DrawingEntity& e, const PropVariant& v) {
      double d = 0.0;
      if (!toNumber(v, d))
        return false;
      if (d == e.details().*field)
        return true;
      e.editDetails().*field = d;
      layOutPattern(e);
      return true;
    };
    p.restoresByValue = false;
    return p;
  };
  DrawingProperty& patternScale = patternNumber(DrawingPropertyBag::tr("Pattern scale"), DrawingPropertyBag::tr("How large the pattern is drawn"),
                                                PropUiGuidDouble, PropertyFormat::Number, &DrawingEntityDetail::patternScale);
  patternScale.refuse = [](double d) { return refusePositive(d, DrawingPropertyBag::tr("The pattern scale must be greater than zero.")); };
  patternNumber(DrawingPropertyBag::tr("Pattern angle"), DrawingPropertyBag::tr("How far the pattern is turned"), PropUiGuidAngle,
                PropertyFormat::Angle, &DrawingEntityDetail::patternAngle);
  DrawingProperty& solid = add(DrawingPropertyBag::tr("Solid fill"), patternCategory,
                               DrawingPropertyBag::tr("Whether the hatch is filled solid; the SOLID pattern fills it, any other pattern does not"),
                               PropUiGuidBool, PropertyFormat::Bool, hatch);
  solid.read = [](const DrawingEntity& e) { return boolean(e.details().solidFill); };
  return all;
}

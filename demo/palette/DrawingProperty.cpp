#include "DrawingProperty.h"

#include "DrawingDocument.h"
#include "DrawingPropertyBag.h"
#include "DemoValues.h"
#include "OdDbDatabase.h"
#include "OdStringQt.h"
#include "PropUiGuids.h"
#include "PropVariantConversions.h"
#include <algorithm>
#include <cmath>

namespace
{

const double kPi = 3.14159265358979323846;

bool isKind(const DrawingEntity& e, std::initializer_list<EntityKind> kinds)
{
  for (EntityKind k : kinds)
    if (e.kind == k)
      return true;
  return false;
}

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

std::vector<DrawingProperty> drawingProperties(DrawingDocument* document)
{
  std::vector<DrawingProperty> all;
  auto add = [&all](const QString& name, const QString& category, const QString& description, const OdGUID& guid,
                    PropertyFormat format, std::function<bool(const DrawingEntity&)> applies) -> DrawingProperty& {
    DrawingProperty p;
    p.name = name;
    p.category = category;
    p.description = description;
    p.guid = guid;
    p.format = format;
    p.applies = std::move(applies);
    all.push_back(std::move(p));
    return all.back();
  };
  auto any = [](const DrawingEntity&) { return true; };
  const QString general = DrawingPropertyBag::tr("General");
  const QString geometry = DrawingPropertyBag::tr("Geometry");
  const QString textCategory = DrawingPropertyBag::tr("Text");

  DrawingProperty& layer = add(DrawingPropertyBag::tr("Layer"), general, DrawingPropertyBag::tr("The layer the objects are on"),
                               PropUiGuidLayer, PropertyFormat::Layer, any);
  layer.read = [](const DrawingEntity& e) { return propVariantFromObjectId(e.layer); };
  layer.write = [document](DrawingEntity& e, const PropVariant& v) {
    OdDbObjectId id;
    if (!propVariantToObjectId(v, id) || !document->database().openLayer(id))
      return false;
    e.layer = id;
    return true;
  };

  DrawingProperty& color = add(DrawingPropertyBag::tr("Colour"), general, DrawingPropertyBag::tr("The colour the objects are drawn in"),
                               PropUiGuidColor, PropertyFormat::Color, any);
  color.read = [](const DrawingEntity& e) { return propVariantFromColor(e.color); };
  color.write = [](DrawingEntity& e, const PropVariant& v) { return propVariantToColor(v, e.color); };

  DrawingProperty& linetype = add(DrawingPropertyBag::tr("Linetype"), general, DrawingPropertyBag::tr("The dash pattern of the lines"),
                                  PropUiGuidLinetype, PropertyFormat::Linetype, any);
  linetype.read = [](const DrawingEntity& e) { return propVariantFromObjectId(e.linetype); };
  linetype.write = [document](DrawingEntity& e, const PropVariant& v) {
    OdDbObjectId id;
    if (!propVariantToObjectId(v, id) || !document->database().openLinetype(id))
      return false;
    e.linetype = id;
    return true;
  };

  DrawingProperty& weight = add(DrawingPropertyBag::tr("Lineweight"), general, DrawingPropertyBag::tr("The printed width of the lines"),
                                PropUiGuidLineweight, PropertyFormat::Lineweight, any);
  weight.read = [](const DrawingEntity& e) { return propVariantFromLineweight(e.lineWeight); };
  weight.write = [](DrawingEntity& e, const PropVariant& v) { return propVariantToLineweight(v, e.lineWeight); };

  auto numberProperty = [&add](const QString& name, const QString& category, const QString& description, const OdGUID& guid,
                               PropertyFormat format, std::function<bool(const DrawingEntity&)> applies, double DrawingEntity::*field)
    -> DrawingProperty& {
    DrawingProperty& p = add(name, category, description, guid, format, std::move(applies));
    p.read = [field](const DrawingEntity& e) { return number(e.*field); };
    p.write = [field](DrawingEntity& e, const PropVariant& v) { return toNumber(v, e.*field); };
    return p;
  };

  DrawingProperty& ltScale = numberProperty(DrawingPropertyBag::tr("Linetype scale"), general,
                                            DrawingPropertyBag::tr("How long the dashes are, relative to the linetype"),
                                            PropUiGuidDouble, PropertyFormat::Number, any, &DrawingEntity::linetypeScale);
  ltScale.refuse = [](double d) { return refusePositive(d, DrawingPropertyBag::tr("The linetype scale must be greater than zero.")); };

  DrawingProperty& visible = add(DrawingPropertyBag::tr("Visible"), general, DrawingPropertyBag::tr("Whether the objects are drawn"),
                                 PropUiGuidBool, PropertyFormat::Bool, any);
  visible.read = [](const DrawingEntity& e) { return boolean(e.visible); };
  visible.write = [](DrawingEntity& e, const PropVariant& v) {
    if (v.scalarType() != PropVariant::kBool || v.isArray())
      return false;
    e.visible = v.getBool();
    return true;
  };

  auto point = [&add, &geometry](const QString& name, const QString& description, std::initializer_list<EntityKind> kinds, int which)
    -> DrawingProperty& {
    const std::vector<EntityKind> wanted(kinds);
    DrawingProperty& p = add(name, geometry, description, PropUiGuidCoords3d, PropertyFormat::Number, [wanted, which](const DrawingEntity& e) {
      return std::find(wanted.begin(), wanted.end(), e.kind) != wanted.end() && int(e.points.size()) > which;
    });
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
  point(DrawingPropertyBag::tr("Start point"), DrawingPropertyBag::tr("Where the line starts"), {EntityKind::Line}, 0);
  point(DrawingPropertyBag::tr("End point"), DrawingPropertyBag::tr("Where the line ends"), {EntityKind::Line}, 1);
  point(DrawingPropertyBag::tr("Centre"), DrawingPropertyBag::tr("The centre of the circle or arc"), {EntityKind::Circle, EntityKind::Arc}, 0);
  point(DrawingPropertyBag::tr("Position"), DrawingPropertyBag::tr("The insertion point"),
        {EntityKind::Text, EntityKind::MText, EntityKind::Insert}, 0);
  point(DrawingPropertyBag::tr("First point"), DrawingPropertyBag::tr("The first point the dimension measures from"), {EntityKind::Dimension}, 0);
  point(DrawingPropertyBag::tr("Second point"), DrawingPropertyBag::tr("The second point the dimension measures to"), {EntityKind::Dimension}, 1);
  point(DrawingPropertyBag::tr("Dimension line"), DrawingPropertyBag::tr("A point the dimension line passes through"), {EntityKind::Dimension}, 2);

  DrawingProperty& vertices = add(DrawingPropertyBag::tr("Vertices"), geometry, DrawingPropertyBag::tr("The corners of the polyline; pick one by its number"),
                                  PropUiGuidCoords3d, PropertyFormat::Number, [](const DrawingEntity& e) {
                                    return e.kind == EntityKind::Polyline && !e.points.empty();
                                  });
  vertices.shape = PropertyShape::Vertices;
  vertices.count = [](const DrawingEntity& e) { return int(e.points.size()) * 3; };
  vertices.element = [](const DrawingEntity& e, int i) {
    const DrawingPoint& pt = e.points[std::size_t(i / 3)];
    return i % 3 == 0 ? pt.x : i % 3 == 1 ? pt.y : pt.z;
  };
  vertices.setElement = [](DrawingEntity& e, int i, double d) {
    DrawingPoint& pt = e.points[std::size_t(i / 3)];
    (i % 3 == 0 ? pt.x : i % 3 == 1 ? pt.y : pt.z) = d;
  };

  auto round = [](const DrawingEntity& e) { return isKind(e, {EntityKind::Circle, EntityKind::Arc}); };
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

  auto arc = [](const DrawingEntity& e) { return e.kind == EntityKind::Arc; };
  numberProperty(DrawingPropertyBag::tr("Start angle"), geometry, DrawingPropertyBag::tr("Where the arc starts, counter-clockwise from the X axis"),
                 PropUiGuidAngle, PropertyFormat::Angle, arc, &DrawingEntity::startAngle);
  numberProperty(DrawingPropertyBag::tr("End angle"), geometry, DrawingPropertyBag::tr("Where the arc ends, counter-clockwise from the X axis"),
                 PropUiGuidAngle, PropertyFormat::Angle, arc, &DrawingEntity::endAngle);

  auto measured = [&add, &geometry](const QString& name, const QString& description,
                                    std::function<bool(const DrawingEntity&)> applies, std::function<double(const DrawingEntity&)> measure) {
    DrawingProperty& p = add(name, geometry, description, PropUiGuidDouble, PropertyFormat::Number, std::move(applies));
    p.read = [measure](const DrawingEntity& e) { return number(measure(e)); };
  };
  measured(DrawingPropertyBag::tr("Arc length"), DrawingPropertyBag::tr("The length along the arc"), arc, [](const DrawingEntity& e) {
    double sweep = std::fmod(e.endAngle - e.startAngle, 360.0);
    if (sweep <= 0.0)
      sweep += 360.0;
    return e.radius * sweep * kPi / 180.0;
  });
  measured(DrawingPropertyBag::tr("Circumference"), DrawingPropertyBag::tr("The length around the circle"),
           [](const DrawingEntity& e) { return e.kind == EntityKind::Circle; },
           [](const DrawingEntity& e) { return 2.0 * kPi * e.radius; });
  measured(DrawingPropertyBag::tr("Length"), DrawingPropertyBag::tr("The length of the line or polyline"),
           [](const DrawingEntity& e) { return isKind(e, {EntityKind::Line, EntityKind::Polyline}); },
           [](const DrawingEntity& e) {
             return e.kind == EntityKind::Line ? (e.points.size() > 1 ? distance(e.points[0], e.points[1]) : 0.0) : polylineLength(e);
           });
  measured(DrawingPropertyBag::tr("Area"), DrawingPropertyBag::tr("The area enclosed"),
           [](const DrawingEntity& e) { return e.kind == EntityKind::Circle || (e.kind == EntityKind::Polyline && e.closed); },
           [](const DrawingEntity& e) { return e.kind == EntityKind::Circle ? kPi * e.radius * e.radius : polylineArea(e); });

  DrawingProperty& closed = add(DrawingPropertyBag::tr("Closed"), geometry, DrawingPropertyBag::tr("Whether the last vertex joins the first"),
                                PropUiGuidBool, PropertyFormat::Bool, [](const DrawingEntity& e) { return e.kind == EntityKind::Polyline; });
  closed.read = [](const DrawingEntity& e) { return boolean(e.closed); };
  closed.write = [](DrawingEntity& e, const PropVariant& v) {
    if (v.scalarType() != PropVariant::kBool || v.isArray())
      return false;
    e.closed = v.getBool();
    return true;
  };

  numberProperty(DrawingPropertyBag::tr("Rotation"), geometry, DrawingPropertyBag::tr("The rotation about the insertion point"),
                 PropUiGuidAngle, PropertyFormat::Angle,
                 [](const DrawingEntity& e) { return isKind(e, {EntityKind::Text, EntityKind::MText, EntityKind::Insert}); },
                 &DrawingEntity::rotation);

  DrawingProperty& scale = add(DrawingPropertyBag::tr("Scale"), geometry, DrawingPropertyBag::tr("The scale of the block in X and Y"),
                               PropUiGuidScale2d, PropertyFormat::Number, [](const DrawingEntity& e) { return e.kind == EntityKind::Insert; });
  scale.shape = PropertyShape::Scale;
  scale.count = [](const DrawingEntity&) { return 2; };
  scale.element = [](const DrawingEntity& e, int i) { return i == 0 ? e.scale.x : e.scale.y; };
  scale.setElement = [](DrawingEntity& e, int i, double d) { (i == 0 ? e.scale.x : e.scale.y) = d; };
  // A zero scale folds the block flat and cannot be undone by scaling again.
  scale.refuse = [](double d) { return d != 0.0 ? QString() : DrawingPropertyBag::tr("A scale cannot be zero."); };

  DrawingProperty& block = add(DrawingPropertyBag::tr("Block"), geometry, DrawingPropertyBag::tr("The block the insert shows"),
                               PropUiGuidText, PropertyFormat::Text, [](const DrawingEntity& e) { return e.kind == EntityKind::Insert; });
  block.read = [](const DrawingEntity& e) { return text(e.blockName); };

  auto texts = [](const DrawingEntity& e) { return isKind(e, {EntityKind::Text, EntityKind::MText}); };
  DrawingProperty& contents = add(DrawingPropertyBag::tr("Contents"), textCategory, DrawingPropertyBag::tr("The text shown"),
                                  PropUiGuidText, PropertyFormat::Text, texts);
  contents.flags |= PropUiOption::kElided;
  contents.read = [](const DrawingEntity& e) { return text(e.text); };
  contents.write = [](DrawingEntity& e, const PropVariant& v) {
    if (v.scalarType() != PropVariant::kString || v.isArray())
      return false;
    e.text = toQString(v.getString());
    return true;
  };

  DrawingProperty& height = numberProperty(DrawingPropertyBag::tr("Height"), textCategory, DrawingPropertyBag::tr("The height of the letters"),
                                           PropUiGuidDistance, PropertyFormat::Number, texts, &DrawingEntity::height);
  height.refuse = [](double d) { return refusePositive(d, DrawingPropertyBag::tr("The text height must be greater than zero.")); };

  auto dimension = [](const DrawingEntity& e) { return e.kind == EntityKind::Dimension; };
  // Only the dimensions that measure a distance between their two points; an
  // angle or an ordinate would read as a length here.
  measured(DrawingPropertyBag::tr("Measurement"), DrawingPropertyBag::tr("The distance the dimension measures"),
           [](const DrawingEntity& e) {
             const int type = e.dimensionType & 0x0F;
             return e.kind == EntityKind::Dimension && e.points.size() > 1 && (type <= 1 || type == 3 || type == 4);
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
  dimText.read = contents.read;
  dimText.write = contents.write;
  return all;
}

#include "DrawingPropertyBag.h"

#include "DrawingDocument.h"
#include "EntityChangeCommand.h"
#include "OdDbDatabase.h"
#include "OdDbLayerTableRecord.h"
#include "OdDbLinetypeTableRecord.h"
#include "OdStringQt.h"
#include "PropItemType.h"
#include "PropUiGuids.h"
#include "PropUiOptions.h"
#include "PropVariantConversions.h"
#include "QHostLineWeightListModel.h"
#include "hostColors.h"
#include "hostDbPropBagCtx.h"
#include <QLocale>
#include <QUndoStack>
#include <algorithm>
#include <cmath>
#include <functional>

namespace
{

const double kPi = 3.14159265358979323846;

enum class Shape
{
  Scalar,
  /** One point: X, Y, Z. */
  Point,
  /** Every vertex of a polyline: X, Y, Z per vertex, a vertex per group. */
  Vertices,
  /** An insert's X and Y scale. */
  Scale
};

enum class Format
{
  Number,
  Angle,
  Text,
  Bool,
  Layer,
  Color,
  Linetype,
  Lineweight
};

PropVariant number(double d)
{
  PropVariant v;
  v.setDouble(d);
  return v;
}

PropVariant text(const QString& s)
{
  PropVariant v;
  v.setString(toOdString(s));
  return v;
}

PropVariant boolean(bool b)
{
  PropVariant v;
  v.setBool(b);
  return v;
}

bool isKind(const DrawingEntity& e, std::initializer_list<EntityKind> kinds)
{
  for (EntityKind k : kinds)
    if (e.kind == k)
      return true;
  return false;
}

/** A number from a value the controls write: a double, or an integer from a spin box. */
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

} // namespace

/** One property that entities may have, and how to read and write it. */
struct DrawingProperty
{
  QString name;
  QString category;
  QString description;
  OdGUID guid;
  Shape shape = Shape::Scalar;
  Format format = Format::Number;
  unsigned int flags = PropUiOption::kToolTipFilter;
  std::function<bool(const DrawingEntity&)> applies;
  /** Scalar: the entity's value. */
  std::function<PropVariant(const DrawingEntity&)> read;
  /** Scalar: false for a value of the wrong kind. Null for a read-only property. */
  std::function<bool(DrawingEntity&, const PropVariant&)> write;
  /** The refusal of a number the property cannot take, empty when it takes it. */
  std::function<QString(double)> refuse;
  /** Point, Vertices, Scale: the entity's numbers, flat. */
  std::function<int(const DrawingEntity&)> count;
  std::function<double(const DrawingEntity&, int)> element;
  std::function<void(DrawingEntity&, int, double)> setElement;
};

struct DrawingPropertyBag::Item
{
  const DrawingProperty* property = nullptr;
  std::unique_ptr<ItemType> type;
  /** Point, Vertices, Scale: how many numbers every selected entity has. */
  int elementCount = 0;
};

class DrawingPropertyBag::ItemType : public PropItemType
{
public:
  ItemType(int id, const OdGUID& guid) : m_id(id), m_guid(guid) {}
  int typeId() const override { return m_id; }
  OdString typeName() const override { return OdString("drawing"); }
  OdGUID editorGuid() const override { return m_guid; }

private:
  int m_id;
  OdGUID m_guid;
};

/** ByLayer stands for what the selection's layer holds, when the selection shares one. */
class DrawingPropertyBag::Context : public hostDbPropBagCtx
{
public:
  Context(DrawingDocument* document, std::function<OdDbObjectId()> commonLayer)
    : m_document(document), m_commonLayer(std::move(commonLayer))
  {
  }

  // Opening a drawing replaces the document's database: always hand out the current one.
  OdDbDatabase* database() const override { return m_document ? &m_document->database() : nullptr; }

  bool translate(int, const PropVariant& in, PropVariant& out, bool* flag) override
  {
    out = in;
    if (flag)
      *flag = true;
    const OdDbObjectId common = m_commonLayer();
    const OdDbLayerTableRecord* layer = common.isNull() ? nullptr : database()->openLayer(common);
    OdCmColor color;
    OdDb::LineWeight weight;
    OdDbObjectId id;
    if (propVariantToColor(in, color) && color.isByLayer() && layer)
      out = propVariantFromColor(layer->color(database()->activeViewportId()));
    else if (propVariantToLineweight(in, weight) && weight == OdDb::kLnWtByLayer && layer)
      out = propVariantFromLineweight(layer->lineWeight() == OdDb::kLnWtByLwDefault ? database()->getLWDEFAULT()
                                                                                    : layer->lineWeight());
    else if (propVariantToLineweight(in, weight) && weight == OdDb::kLnWtByLwDefault)
      out = propVariantFromLineweight(database()->getLWDEFAULT());
    else if (propVariantToObjectId(in, id) && id == database()->getLinetypeByLayerId() && layer)
      out = propVariantFromObjectId(layer->linetypeObjectId());
    return true;
  }

private:
  DrawingDocument* m_document;
  std::function<OdDbObjectId()> m_commonLayer;
};

namespace
{

QString refusePositive(double d, const QString& message)
{
  return d > 0.0 ? QString() : message;
}

/** Every property the palette knows, in the order it shows them. */
std::vector<DrawingProperty> buildProperties(DrawingDocument* document)
{
  std::vector<DrawingProperty> all;
  auto add = [&all](const QString& name, const QString& category, const QString& description, const OdGUID& guid,
                    Format format, std::function<bool(const DrawingEntity&)> applies) -> DrawingProperty& {
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
                               PropUiGuidLayer, Format::Layer, any);
  layer.read = [](const DrawingEntity& e) { return propVariantFromObjectId(e.layer); };
  layer.write = [document](DrawingEntity& e, const PropVariant& v) {
    OdDbObjectId id;
    if (!propVariantToObjectId(v, id) || !document->database().openLayer(id))
      return false;
    e.layer = id;
    return true;
  };

  DrawingProperty& color = add(DrawingPropertyBag::tr("Colour"), general, DrawingPropertyBag::tr("The colour the objects are drawn in"),
                               PropUiGuidColor, Format::Color, any);
  color.read = [](const DrawingEntity& e) { return propVariantFromColor(e.color); };
  color.write = [](DrawingEntity& e, const PropVariant& v) { return propVariantToColor(v, e.color); };

  DrawingProperty& linetype = add(DrawingPropertyBag::tr("Linetype"), general, DrawingPropertyBag::tr("The dash pattern of the lines"),
                                  PropUiGuidLinetype, Format::Linetype, any);
  linetype.read = [](const DrawingEntity& e) { return propVariantFromObjectId(e.linetype); };
  linetype.write = [document](DrawingEntity& e, const PropVariant& v) {
    OdDbObjectId id;
    if (!propVariantToObjectId(v, id) || !document->database().openLinetype(id))
      return false;
    e.linetype = id;
    return true;
  };

  DrawingProperty& weight = add(DrawingPropertyBag::tr("Lineweight"), general, DrawingPropertyBag::tr("The printed width of the lines"),
                                PropUiGuidLineweight, Format::Lineweight, any);
  weight.read = [](const DrawingEntity& e) { return propVariantFromLineweight(e.lineWeight); };
  weight.write = [](DrawingEntity& e, const PropVariant& v) { return propVariantToLineweight(v, e.lineWeight); };

  auto numberProperty = [&add](const QString& name, const QString& category, const QString& description, const OdGUID& guid,
                               Format format, std::function<bool(const DrawingEntity&)> applies, double DrawingEntity::*field)
    -> DrawingProperty& {
    DrawingProperty& p = add(name, category, description, guid, format, std::move(applies));
    p.read = [field](const DrawingEntity& e) { return number(e.*field); };
    p.write = [field](DrawingEntity& e, const PropVariant& v) { return toNumber(v, e.*field); };
    return p;
  };

  DrawingProperty& ltScale = numberProperty(DrawingPropertyBag::tr("Linetype scale"), general,
                                            DrawingPropertyBag::tr("How long the dashes are, relative to the linetype"),
                                            PropUiGuidDouble, Format::Number, any, &DrawingEntity::linetypeScale);
  ltScale.refuse = [](double d) { return refusePositive(d, DrawingPropertyBag::tr("The linetype scale must be greater than zero.")); };

  DrawingProperty& visible = add(DrawingPropertyBag::tr("Visible"), general, DrawingPropertyBag::tr("Whether the objects are drawn"),
                                 PropUiGuidBool, Format::Bool, any);
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
    DrawingProperty& p = add(name, geometry, description, PropUiGuidCoords3d, Format::Number, [wanted, which](const DrawingEntity& e) {
      return std::find(wanted.begin(), wanted.end(), e.kind) != wanted.end() && int(e.points.size()) > which;
    });
    p.shape = Shape::Point;
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
                                  PropUiGuidCoords3d, Format::Number, [](const DrawingEntity& e) {
                                    return e.kind == EntityKind::Polyline && !e.points.empty();
                                  });
  vertices.shape = Shape::Vertices;
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
                                           PropUiGuidDistance, Format::Number, round, &DrawingEntity::radius);
  radius.refuse = [](double d) { return refusePositive(d, DrawingPropertyBag::tr("The radius must be greater than zero.")); };

  DrawingProperty& diameter = add(DrawingPropertyBag::tr("Diameter"), geometry, DrawingPropertyBag::tr("Twice the radius"),
                                  PropUiGuidDistance, Format::Number, round);
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
                 PropUiGuidAngle, Format::Angle, arc, &DrawingEntity::startAngle);
  numberProperty(DrawingPropertyBag::tr("End angle"), geometry, DrawingPropertyBag::tr("Where the arc ends, counter-clockwise from the X axis"),
                 PropUiGuidAngle, Format::Angle, arc, &DrawingEntity::endAngle);

  auto measured = [&add, &geometry](const QString& name, const QString& description,
                                    std::function<bool(const DrawingEntity&)> applies, std::function<double(const DrawingEntity&)> measure) {
    DrawingProperty& p = add(name, geometry, description, PropUiGuidDouble, Format::Number, std::move(applies));
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
                                PropUiGuidBool, Format::Bool, [](const DrawingEntity& e) { return e.kind == EntityKind::Polyline; });
  closed.read = [](const DrawingEntity& e) { return boolean(e.closed); };
  closed.write = [](DrawingEntity& e, const PropVariant& v) {
    if (v.scalarType() != PropVariant::kBool || v.isArray())
      return false;
    e.closed = v.getBool();
    return true;
  };

  numberProperty(DrawingPropertyBag::tr("Rotation"), geometry, DrawingPropertyBag::tr("The rotation about the insertion point"),
                 PropUiGuidAngle, Format::Angle,
                 [](const DrawingEntity& e) { return isKind(e, {EntityKind::Text, EntityKind::MText, EntityKind::Insert}); },
                 &DrawingEntity::rotation);

  DrawingProperty& scale = add(DrawingPropertyBag::tr("Scale"), geometry, DrawingPropertyBag::tr("The scale of the block in X and Y"),
                               PropUiGuidScale2d, Format::Number, [](const DrawingEntity& e) { return e.kind == EntityKind::Insert; });
  scale.shape = Shape::Scale;
  scale.count = [](const DrawingEntity&) { return 2; };
  scale.element = [](const DrawingEntity& e, int i) { return i == 0 ? e.scale.x : e.scale.y; };
  scale.setElement = [](DrawingEntity& e, int i, double d) { (i == 0 ? e.scale.x : e.scale.y) = d; };
  // A zero scale folds the block flat and cannot be undone by scaling again.
  scale.refuse = [](double d) { return d != 0.0 ? QString() : DrawingPropertyBag::tr("A scale cannot be zero."); };

  DrawingProperty& block = add(DrawingPropertyBag::tr("Block"), geometry, DrawingPropertyBag::tr("The block the insert shows"),
                               PropUiGuidText, Format::Text, [](const DrawingEntity& e) { return e.kind == EntityKind::Insert; });
  block.read = [](const DrawingEntity& e) { return text(e.blockName); };

  auto texts = [](const DrawingEntity& e) { return isKind(e, {EntityKind::Text, EntityKind::MText}); };
  DrawingProperty& contents = add(DrawingPropertyBag::tr("Contents"), textCategory, DrawingPropertyBag::tr("The text shown"),
                                  PropUiGuidText, Format::Text, texts);
  contents.flags |= PropUiOption::kElided;
  contents.read = [](const DrawingEntity& e) { return text(e.text); };
  contents.write = [](DrawingEntity& e, const PropVariant& v) {
    if (v.scalarType() != PropVariant::kString || v.isArray())
      return false;
    e.text = toQString(v.getString());
    return true;
  };

  DrawingProperty& height = numberProperty(DrawingPropertyBag::tr("Height"), textCategory, DrawingPropertyBag::tr("The height of the letters"),
                                           PropUiGuidDistance, Format::Number, texts, &DrawingEntity::height);
  height.refuse = [](double d) { return refusePositive(d, DrawingPropertyBag::tr("The text height must be greater than zero.")); };

  auto dimension = [](const DrawingEntity& e) { return e.kind == EntityKind::Dimension; };
  DrawingProperty& dimText = add(DrawingPropertyBag::tr("Dimension text"), textCategory,
                                 DrawingPropertyBag::tr("Text shown instead of the measurement; empty shows the measurement"),
                                 PropUiGuidText, Format::Text, dimension);
  dimText.read = contents.read;
  dimText.write = contents.write;
  measured(DrawingPropertyBag::tr("Measurement"), DrawingPropertyBag::tr("The distance the dimension measures"),
           [](const DrawingEntity& e) { return e.kind == EntityKind::Dimension && e.points.size() > 1; },
           [](const DrawingEntity& e) { return distance(e.points[0], e.points[1]); });
  return all;
}

} // namespace

DrawingPropertyBag::DrawingPropertyBag(DrawingDocument* document, QUndoStack* undoStack)
  : m_document(document), m_undoStack(undoStack),
    m_context(std::make_unique<Context>(document, [this]() { return commonLayer(); }))
{
  if (!m_document)
    return;
  m_properties = buildProperties(m_document);
  auto changed = [this]() {
    const bool same = reload();
    if (m_listener)
      m_listener(same);
  };
  m_changed = QObject::connect(m_document, &DrawingDocument::entitiesChanged, changed);
  m_reset = QObject::connect(m_document, &DrawingDocument::documentReset, changed);
}

DrawingPropertyBag::~DrawingPropertyBag()
{
  QObject::disconnect(m_changed);
  QObject::disconnect(m_reset);
}

void DrawingPropertyBag::setSelection(const QVector<quint64>& handles)
{
  m_selection.clear();
  m_selection.reserve(handles.size());
  if (m_document)
    for (quint64 handle : handles)
      if (m_document->entity(handle))
        m_selection.append(handle);
  merge();
}

bool DrawingPropertyBag::reload()
{
  std::vector<const DrawingProperty*> before;
  QVector<int> groupsBefore;
  for (const auto& item : m_items)
  {
    before.push_back(item->property);
    groupsBefore.append(item->elementCount);
  }
  // An undo may bring back entities that a reset had dropped; forget those the document lost.
  setSelection(QVector<quint64>(m_selection));
  if (before.size() != m_items.size())
    return false;
  for (std::size_t i = 0; i < m_items.size(); ++i)
    if (before[i] != m_items[i]->property || groupsBefore[int(i)] != m_items[i]->elementCount)
      return false;
  return true;
}

void DrawingPropertyBag::merge()
{
  m_items.clear();
  m_entitiesBase = nullptr;
  if (!resolveEntities())
    return;

  for (const DrawingProperty& property : m_properties)
  {
    bool shared = true;
    for (const DrawingEntity* entity : m_entities)
      if (!property.applies(*entity))
      {
        shared = false;
        break;
      }
    if (!shared)
      continue;
    auto item = std::make_unique<Item>();
    item->property = &property;
    if (property.shape != Shape::Scalar)
    {
      // Polylines with fewer vertices end the list: only the vertices every one has are shared.
      item->elementCount = property.count(*m_entities.front());
      for (const DrawingEntity* entity : m_entities)
        item->elementCount = std::min(item->elementCount, property.count(*entity));
    }
    const bool numeric = property.format == Format::Number || property.format == Format::Angle;
    const OdGUID typeGuid = numeric ? PropUiGuidDouble : property.format == Format::Text ? PropUiGuidText : property.guid;
    item->type = std::make_unique<ItemType>(int(m_items.size()), typeGuid);
    m_items.push_back(std::move(item));
  }
}

bool DrawingPropertyBag::resolveEntities() const
{
  if (!m_document || m_selection.isEmpty())
    return false;
  // Entities added since the last look may have moved the document's storage: find them again.
  const std::vector<DrawingEntity>& all = m_document->entities();
  if (all.data() != m_entitiesBase || all.size() != m_entitiesSize)
  {
    m_entities.clear();
    m_entities.reserve(std::size_t(m_selection.size()));
    for (quint64 handle : qAsConst(m_selection))
      if (const DrawingEntity* entity = m_document->entity(handle))
        m_entities.push_back(entity);
    m_entitiesBase = all.data();
    m_entitiesSize = all.size();
  }
  return !m_entities.empty() && m_entities.size() == std::size_t(m_selection.size());
}

PropVariant DrawingPropertyBag::mergedValue(const Item& item) const
{
  const DrawingProperty& property = *item.property;
  PropVariant value = property.read(*m_entities.front());
  for (std::size_t i = 1; i < m_entities.size(); ++i)
    if (property.read(*m_entities[i]) != value)
    {
      value.setVaries(true);
      break;
    }
  return value;
}

PropVariant DrawingPropertyBag::mergedElement(const Item& item, int element) const
{
  const DrawingProperty& property = *item.property;
  PropVariant value;
  const double first = property.element(*m_entities.front(), element);
  value.setDouble(first);
  for (std::size_t i = 1; i < m_entities.size(); ++i)
    if (property.element(*m_entities[i], element) != first)
    {
      value.setVaries(true);
      break;
    }
  return value;
}

OdDbObjectId DrawingPropertyBag::commonLayer() const
{
  OdDbObjectId id;
  if (!resolveEntities())
    return id;
  for (const auto& item : m_items)
    if (item->property->format == Format::Layer)
    {
      const PropVariant layer = mergedValue(*item);
      if (!layer.isVaries())
        propVariantToObjectId(layer, id);
    }
  return id;
}

DrawingPropertyBag::Item* DrawingPropertyBag::find(int index) const
{
  return index >= 0 && index < int(m_items.size()) ? m_items[std::size_t(index)].get() : nullptr;
}

int DrawingPropertyBag::getItemCount()
{
  return int(m_items.size());
}

int DrawingPropertyBag::findItem(const OdString& name)
{
  const QString wanted = toQString(name);
  for (std::size_t i = 0; i < m_items.size(); ++i)
    if (m_items[i]->property->name == wanted)
      return int(i);
  return -1;
}

PropItemType* DrawingPropertyBag::getItemType(int index)
{
  const Item* item = find(index);
  return item ? item->type.get() : nullptr;
}

bool DrawingPropertyBag::isEditable(int index, unsigned long)
{
  const Item* item = find(index);
  return item && (item->property->write || item->property->setElement);
}

bool DrawingPropertyBag::getName(int index, OdString& name)
{
  const Item* item = find(index);
  if (!item)
    return false;
  name = toOdString(item->property->name);
  return true;
}

bool DrawingPropertyBag::getCategory(int index, OdString& category)
{
  const Item* item = find(index);
  if (!item)
    return false;
  category = toOdString(item->property->category);
  return true;
}

bool DrawingPropertyBag::getDescription(int index, OdString& description)
{
  const Item* item = find(index);
  if (!item)
    return false;
  description = toOdString(item->property->description);
  return true;
}

unsigned int DrawingPropertyBag::getFlags(int index)
{
  const Item* item = find(index);
  return item ? item->property->flags : 0;
}

OdGUID DrawingPropertyBag::getControlGuid(int index)
{
  const Item* item = find(index);
  return item ? item->property->guid : OdGUID();
}

QString DrawingPropertyBag::checkValue(const Item& item, unsigned long, const PropVariant& value) const
{
  const DrawingProperty& property = *item.property;
  if (property.format != Format::Number && property.format != Format::Angle)
    return QString();
  QVector<double> numbers;
  double d = 0.0;
  if (value.isArray() && value.scalarType() == PropVariant::kDouble)
    for (double e : value.getDoubleArray())
      numbers.append(e);
  else if (toNumber(value, d))
    numbers.append(d);
  if (numbers.isEmpty())
    return tr("%1 takes a number.").arg(property.name);
  for (double n : qAsConst(numbers))
  {
    if (!std::isfinite(n))
      return tr("%1 must be a finite number.").arg(property.name);
    const QString refusal = property.refuse ? property.refuse(n) : QString();
    if (!refusal.isEmpty())
      return refusal;
  }
  return QString();
}

bool DrawingPropertyBag::validate(int index, unsigned long element, const PropVariant& value, OdString& message)
{
  const Item* item = find(index);
  if (!item || !isEditable(index, element))
    return false;
  const QString refusal = checkValue(*item, element, value);
  if (refusal.isEmpty())
    return true;
  message = toOdString(refusal);
  return false;
}

bool DrawingPropertyBag::formatValue(int index, unsigned long, const PropVariant& value, OdString& formatted)
{
  const Item* item = find(index);
  if (!item || !m_document || (value.type() & (PropVariant::kNoData | PropVariant::kEmpty)))
    return false;
  const OdDbDatabase& db = m_document->database();
  const QLocale c = QLocale::c();
  auto numberText = [&c, item](double d) {
    const QString digits = c.toString(d, 'f', 4);
    return item->property->format == Format::Angle ? digits + QChar(0x00B0) : digits;
  };
  QString result;
  OdDbObjectId id;
  OdCmColor color;
  OdDb::LineWeight weight;
  switch (item->property->format)
  {
  case Format::Number:
  case Format::Angle:
  {
    double d = 0.0;
    if (value.isArray() && value.scalarType() == PropVariant::kDouble)
    {
      QStringList parts;
      for (double e : value.getDoubleArray())
        parts.append(numberText(e));
      result = parts.join(QStringLiteral(", "));
    }
    else if (toNumber(value, d))
      result = numberText(d);
    break;
  }
  case Format::Text:
    if (value.scalarType() == PropVariant::kString && !value.isArray())
      result = toQString(value.getString());
    break;
  case Format::Bool:
    if (value.scalarType() == PropVariant::kBool && !value.isArray())
      result = value.getBool() ? tr("Yes") : tr("No");
    break;
  case Format::Color:
    if (propVariantToColor(value, color))
      result = hostQtColorName(color);
    break;
  case Format::Lineweight:
    if (propVariantToLineweight(value, weight))
      result = host_qt_ui::QHostLineWeightListModel::weightText(weight);
    break;
  case Format::Layer:
  case Format::Linetype:
    if (propVariantToObjectId(value, id))
      if (const OdDbSymbolTableRecord* record = db.openObject(id))
        result = toQString(record->getName());
    break;
  }
  if (result.isNull())
    return false;
  formatted = toOdString(result);
  return true;
}

bool DrawingPropertyBag::parseValue(int index, unsigned long, const OdString& input, PropVariant& value)
{
  const Item* item = find(index);
  if (!item)
    return false;
  QString s = toQString(input).trimmed();
  switch (item->property->format)
  {
  case Format::Text:
    value.setString(toOdString(s));
    return true;
  case Format::Number:
  case Format::Angle:
  {
    s.remove(QChar(0x00B0));
    bool ok = false;
    double d = QLocale::c().toDouble(s, &ok);
    if (!ok)
      d = QLocale().toDouble(s, &ok);
    if (!ok)
      return false;
    value.setDouble(d);
    return true;
  }
  default:
    return false;
  }
}

bool DrawingPropertyBag::getValue(int index, PropVariant& value)
{
  const Item* item = find(index);
  if (!item || !resolveEntities())
    return false;
  if (item->property->shape == Shape::Scalar)
  {
    value = mergedValue(*item);
    return true;
  }
  OdDoubleArray numbers;
  bool varies = false;
  for (int e = 0; e < item->elementCount; ++e)
  {
    const PropVariant number = mergedElement(*item, e);
    numbers.append(number.getDouble());
    varies = varies || number.isVaries();
  }
  value.setDoubleArray(numbers);
  value.setVaries(varies);
  return true;
}

bool DrawingPropertyBag::setValue(int index, const PropVariant& value)
{
  const Item* item = find(index);
  OdString message;
  if (!item || !validate(index, 0, value, message))
    return false;
  return write(*item, -1, value);
}

unsigned int DrawingPropertyBag::getElements(int index, PropKeyArray& elements, OdStringArray& captions)
{
  const Item* item = find(index);
  if (!item || item->property->shape == Shape::Scalar)
    return 0;
  const QString axes[] = {tr("X"), tr("Y"), tr("Z")};
  for (int e = 0; e < item->elementCount; ++e)
  {
    elements.append(static_cast<unsigned long>(e));
    if (item->property->shape == Shape::Vertices)
      captions.append(toOdString(tr("Vertex %1 %2").arg(e / 3 + 1).arg(axes[e % 3])));
    else
      captions.append(toOdString(axes[e % 3]));
  }
  return elements.size();
}

bool DrawingPropertyBag::getElementValue(int index, unsigned long element, PropVariant& value)
{
  const Item* item = find(index);
  if (!item || element >= static_cast<unsigned long>(item->elementCount) || !resolveEntities())
    return false;
  value = mergedElement(*item, int(element));
  return true;
}

bool DrawingPropertyBag::setElementValue(int index, unsigned long element, const PropVariant& value)
{
  const Item* item = find(index);
  OdString message;
  if (!item || element >= static_cast<unsigned long>(item->elementCount) || !validate(index, element, value, message))
    return false;
  return write(*item, long(element), value);
}

int DrawingPropertyBag::getGroupCount(int index)
{
  const Item* item = find(index);
  // A single point needs no vertex picker: only a polyline's vertices come in groups.
  return item && item->property->shape == Shape::Vertices ? item->elementCount / 3 : 0;
}

PropBagCtx* DrawingPropertyBag::getContext()
{
  return m_context.get();
}

bool DrawingPropertyBag::write(const Item& item, long element, const PropVariant& value)
{
  const DrawingProperty& property = *item.property;
  // Which numbers the value sets: one element, or all of a point or scale at once.
  QVector<int> targets;
  QVector<double> numbers;
  if (property.shape != Shape::Scalar)
  {
    double d = 0.0;
    if (value.isArray() && value.scalarType() == PropVariant::kDouble)
    {
      const OdDoubleArray& all = value.getDoubleArray();
      // The scale control writes both numbers at once when they are locked together, through either element.
      if (property.shape == Shape::Vertices || int(all.size()) != item.elementCount)
        return false;
      for (int e = 0; e < item.elementCount; ++e)
      {
        targets.append(e);
        numbers.append(all[unsigned(e)]);
      }
    }
    else if (element >= 0 && toNumber(value, d))
    {
      targets.append(int(element));
      numbers.append(d);
    }
    else
      return false;
  }
  else if (!property.write)
    return false;

  if (!resolveEntities())
    return false;
  std::vector<DrawingEntity> before;
  std::vector<DrawingEntity> after;
  before.reserve(std::size_t(m_selection.size()));
  after.reserve(std::size_t(m_selection.size()));
  for (quint64 handle : qAsConst(m_selection))
  {
    const DrawingEntity* current = m_document->entity(handle);
    if (!current)
      continue;
    DrawingEntity changed = *current;
    bool differs = false;
    if (property.shape == Shape::Scalar)
    {
      if (!property.write(changed, value))
        return false;
      differs = property.read(changed) != property.read(*current);
    }
    else
    {
      for (int t = 0; t < targets.size(); ++t)
      {
        if (targets[t] >= property.count(changed))
          return false;
        differs = differs || property.element(changed, targets[t]) != numbers[t];
        property.setElement(changed, targets[t], numbers[t]);
      }
    }
    if (!differs)
      continue;
    before.push_back(*current);
    after.push_back(std::move(changed));
  }
  if (after.empty())
    return true;
  const QString text = tr("Change %1").arg(property.name);
  if (m_undoStack)
    m_undoStack->push(new EntityChangeCommand(m_document, text, std::move(before), std::move(after)));
  else
    m_document->replaceEntities(after);
  return true;
}

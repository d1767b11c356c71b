#include "DrawingPropertyBag.h"

#include "DemoItemType.h"

#include "DrawingDocument.h"
#include "DrawingProperty.h"
#include "EntityChangeCommand.h"
#include "EntityKindName.h"
#include "EntityLookup.h"
#include "DemoValues.h"
#include "MTextParagraphs.h"
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
// As large a number as a drawing file may hold outside its header.
constexpr double kLargestNumber = 1e100;
} // namespace

struct DrawingPropertyBag::Item
{
  enum Role
  {
    /** Which kinds the palette shows. */
    Filter,
    /** What the shown entities are. */
    Type,
    Property
  };
  Role role = Property;
  const DrawingProperty* property = nullptr;
  std::unique_ptr<DemoItemType> type;
  /** Point, Vertices, Scale, Texts: how many elements every shown entity has. */
  int elementCount = 0;
  /** The merged value and elements, once read, until the drawing changes. */
  mutable bool merged = false;
  mutable PropVariant value;
  mutable std::vector<PropVariant> elements;
  mutable std::vector<bool> elementMerged;
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

DrawingPropertyBag::DrawingPropertyBag(DrawingDocument* document, QUndoStack* undoStack)
  : m_document(document), m_undoStack(undoStack),
    m_context(std::make_unique<Context>(document, [this]() { return commonLayer(); }))
{
  if (!m_document)
    return;
  // The filter and the type row come first; the table's kinds leave them out of the shared properties.
  DrawingProperty filter;
  filter.name = tr("Show");
  filter.category = tr("General");
  filter.description = tr("Which of the selected objects the palette shows and edits: all of them, or those of one kind");
  filter.guid = PropUiGuidTextCombo;
  filter.format = PropertyFormat::Choice;
  filter.flags |= PropItemFlag::kChoice;
  DrawingProperty type;
  type.name = tr("Type");
  type.category = filter.category;
  type.description = tr("What kind of object it is");
  type.guid = PropUiGuidText;
  type.format = PropertyFormat::Text;
  m_properties.push_back(std::move(filter));
  m_properties.push_back(std::move(type));
  for (DrawingProperty& property : drawingProperties(m_document))
    m_properties.push_back(std::move(property));
  auto changed = [this]() {
    const bool same = reload();
    if (m_listener)
      m_listener(same);
  };
  m_changed = QObject::connect(m_document, &DrawingDocument::entitiesChanged, changed);
  // A new drawing may reuse the old one's handles for other entities: the selection ends with its drawing.
  m_reset = QObject::connect(m_document, &DrawingDocument::documentReset, [this]() {
    setSelection({});
    if (m_listener)
      m_listener(false);
  });
}

DrawingPropertyBag::~DrawingPropertyBag()
{
  QObject::disconnect(m_changed);
  QObject::disconnect(m_reset);
}

namespace
{
// The filter's and the type row's places in m_properties.
constexpr std::size_t kFilterRow = 0;
constexpr std::size_t kTypeRow = 1;
constexpr std::size_t kFirstProperty = 2;
constexpr int kKindCount = int(EntityKind::Other) + 1;

PropVariant textOrVaries(const QString& s, bool varies)
{
  PropVariant v = text(s);
  v.setVaries(varies);
  return v;
}
} // namespace

void DrawingPropertyBag::setSelection(const QVector<quint64>& handles)
{
  select(handles, false);
}

bool DrawingPropertyBag::showKind(EntityKind kind)
{
  const int k = int(kind);
  if (k < 0 || k >= int(m_kindCounts.size()) || m_kindCounts[std::size_t(k)] == 0)
    return false;
  m_kind = k;
  merge();
  return true;
}

void DrawingPropertyBag::showAllKinds()
{
  m_kind = -1;
  merge();
}

bool DrawingPropertyBag::shownKind(EntityKind& kind) const
{
  if (m_kind < 0)
    return false;
  kind = EntityKind(m_kind);
  return true;
}

void DrawingPropertyBag::select(const QVector<quint64>& handles, bool keepKind)
{
  m_selection.clear();
  m_entities.clear();
  m_kindCounts.assign(std::size_t(kKindCount), 0);
  if (m_document)
  {
    m_entities.reserve(std::size_t(handles.size()));
    // One pass, as lookUpEntities() walks, that also counts the kinds: a million entities are touched once.
    const std::vector<DrawingEntity>& all = m_document->entities();
    std::size_t next = 0;
    bool allFound = true;
    for (quint64 handle : handles)
    {
      const DrawingEntity* entity = next < all.size() && all[next].handle == handle ? &all[next] : m_document->entity(handle);
      if (!entity)
      {
        allFound = false;
        continue;
      }
      next = std::size_t(entity - all.data()) + 1;
      m_entities.push_back(entity);
      ++m_kindCounts[std::size_t(entity->kind)];
    }
    // the list shares the caller's when every handle was found, as it mostly is
    if (allFound)
      m_selection = handles;
    else
      for (const DrawingEntity* entity : m_entities)
        m_selection.append(entity->handle);
  }
  m_entitiesBase = m_document ? m_document->entities().data() : nullptr;
  m_entitiesSize = m_document ? m_document->entities().size() : 0;
  if (!keepKind || m_kind < 0 || m_kindCounts[std::size_t(m_kind)] == 0)
    m_kind = -1;
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
  QVector<quint64> handles;
  handles.swap(m_selection);
  select(handles, true);
  if (before.size() != m_items.size())
    return false;
  for (std::size_t i = 0; i < m_items.size(); ++i)
    if (before[i] != m_items[i]->property || groupsBefore[int(i)] != m_items[i]->elementCount)
      return false;
  return true;
}

const EntityPointers& DrawingPropertyBag::shown() const
{
  return m_kind < 0 ? m_entities : m_shownEntities;
}

void DrawingPropertyBag::addItem(std::unique_ptr<Item> item)
{
  const DrawingProperty& property = *item->property;
  const bool numeric = property.format == PropertyFormat::Number || property.format == PropertyFormat::Angle;
  const OdGUID typeGuid = numeric ? PropUiGuidDouble
                          : property.format == PropertyFormat::Integer ? PropUiGuidInteger
                          : property.format == PropertyFormat::Text || property.format == PropertyFormat::Choice ? PropUiGuidText
                                                                                                              : property.guid;
  item->type = std::make_unique<DemoItemType>(int(m_items.size()), OdString("drawing"), typeGuid);
  m_items.push_back(std::move(item));
}

void DrawingPropertyBag::merge()
{
  m_items.clear();
  m_shownEntities.clear();
  if (!resolveEntities())
    return;
  if (m_kind >= 0)
  {
    m_shownEntities.reserve(std::size_t(m_kindCounts[std::size_t(m_kind)]));
    for (const DrawingEntity* entity : m_entities)
      if (int(entity->kind) == m_kind)
        m_shownEntities.push_back(entity);
  }
  const EntityPointers& entities = shown();

  auto row = std::make_unique<Item>();
  row->role = Item::Filter;
  row->property = &m_properties[kFilterRow];
  addItem(std::move(row));
  row = std::make_unique<Item>();
  row->role = Item::Type;
  row->property = &m_properties[kTypeRow];
  addItem(std::move(row));

  unsigned int kinds = 0;
  for (int k = 0; k < kKindCount; ++k)
    if ((m_kind < 0 || m_kind == k) && m_kindCounts[std::size_t(k)] > 0)
      kinds |= kindBit(EntityKind(k));
  for (std::size_t p = kFirstProperty; p < m_properties.size(); ++p)
  {
    const DrawingProperty& property = m_properties[p];
    // The kinds decide most properties at once; only a condition (enough points, say) asks each entity.
    if ((property.kinds & kinds) != kinds)
      continue;
    if (property.condition &&
        !std::all_of(entities.begin(), entities.end(), [&property](const DrawingEntity* e) { return property.condition(*e); }))
      continue;
    auto item = std::make_unique<Item>();
    item->property = &property;
    if (property.shape == PropertyShape::Point || property.shape == PropertyShape::Scale)
      item->elementCount = property.count(*entities.front());
    else if (property.shape != PropertyShape::Scalar)
    {
      // Polylines with fewer vertices end the list: only the vertices every one has are shared.
      item->elementCount = property.count(*entities.front());
      for (const DrawingEntity* entity : entities)
        item->elementCount = std::min(item->elementCount, property.count(*entity));
      // Attributes are shared by their tags, in order: those up to the first that differs.
      if (property.elementName)
        for (const DrawingEntity* entity : entities)
          for (int e = 0; e < item->elementCount; ++e)
            if (property.elementName(*entity, e) != property.elementName(*entities.front(), e))
            {
              item->elementCount = e;
              break;
            }
      if (item->elementCount == 0)
        continue;
    }
    addItem(std::move(item));
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
    m_entities = lookUpEntities(*m_document, m_selection);
    m_entities.erase(std::remove(m_entities.begin(), m_entities.end(), nullptr), m_entities.end());
    m_shownEntities.clear();
    if (m_kind >= 0)
      for (const DrawingEntity* entity : m_entities)
        if (int(entity->kind) == m_kind)
          m_shownEntities.push_back(entity);
    m_entitiesBase = all.data();
    m_entitiesSize = all.size();
  }
  return !m_entities.empty() && m_entities.size() == std::size_t(m_selection.size());
}

std::vector<DrawingChoice> DrawingPropertyBag::kindChoices() const
{
  std::vector<DrawingChoice> choices;
  choices.push_back({tr("All (%1)").arg(m_selection.size()), integer(0)});
  for (int k = 0; k < int(m_kindCounts.size()); ++k)
    if (m_kindCounts[std::size_t(k)] > 0)
      choices.push_back({tr("%1 (%2)").arg(entityKindName(EntityKind(k))).arg(m_kindCounts[std::size_t(k)]), integer(k + 1)});
  return choices;
}

std::vector<DrawingChoice> DrawingPropertyBag::choicesOf(const Item& item) const
{
  if (item.role == Item::Filter)
    return kindChoices();
  if (item.property->choices)
    return item.property->choices();
  return {};
}

PropVariant DrawingPropertyBag::typeValue() const
{
  const EntityPointers& entities = shown();
  const EntityKind kind = entities.front()->kind;
  if (m_kind < 0)
    for (int k = 0; k < int(m_kindCounts.size()); ++k)
      if (k != int(kind) && m_kindCounts[std::size_t(k)] > 0)
        return textOrVaries(entityTypeName(*entities.front()), true);
  // Objects the editor does not know by kind may still differ by the file's name for them.
  if (kind == EntityKind::Other)
    for (const DrawingEntity* entity : entities)
      if (entity->typeName != entities.front()->typeName)
        return textOrVaries(entityTypeName(*entities.front()), true);
  return text(entityTypeName(*entities.front()));
}

PropVariant DrawingPropertyBag::mergedValue(const Item& item) const
{
  if (item.merged)
    return item.value;
  if (item.role == Item::Property && item.property->firstDifferent && item.property->shape == PropertyShape::Scalar)
  {
    mergeComparable();
    return item.value;
  }
  item.merged = true;
  if (item.role == Item::Filter)
    return item.value = integer(m_kind + 1);
  if (item.role == Item::Type)
    return item.value = typeValue();
  const DrawingProperty& property = *item.property;
  const EntityPointers& entities = shown();
  item.value = property.read(*entities.front());
  for (std::size_t i = 1; i < entities.size(); ++i)
    if (property.read(*entities[i]) != item.value)
    {
      item.value.setVaries(true);
      break;
    }
  return item.value;
}

void DrawingPropertyBag::mergeComparable() const
{
  // Every item that compares entities directly is merged in one walk: a palette over a million
  // entities brings each into the cache once, a block at a time, and compares it there per item.
  constexpr std::size_t kBlock = 2048;
  std::vector<Item*> open;
  for (const auto& item : m_items)
    if (!item->merged && item->role == Item::Property && item->property->shape == PropertyShape::Scalar && item->property->firstDifferent)
    {
      item->merged = true;
      item->value = item->property->read(*shown().front());
      open.push_back(item.get());
    }
  const EntityPointers& entities = shown();
  const DrawingEntity& first = *entities.front();
  for (std::size_t from = 1; from < entities.size() && !open.empty(); from += kBlock)
  {
    const std::size_t count = std::min(kBlock, entities.size() - from);
    for (std::size_t o = 0; o < open.size();)
      if (open[o]->property->firstDifferent(entities.data() + from, count, first) < count)
      {
        open[o]->value.setVaries(true);
        open[o] = open.back();
        open.pop_back();
      }
      else
        ++o;
  }
}

PropVariant DrawingPropertyBag::mergedElement(const Item& item, int element) const
{
  if (item.elements.size() != std::size_t(item.elementCount))
  {
    item.elements.assign(std::size_t(item.elementCount), PropVariant());
    item.elementMerged.assign(std::size_t(item.elementCount), false);
  }
  PropVariant& value = item.elements[std::size_t(element)];
  if (item.elementMerged[std::size_t(element)])
    return value;
  item.elementMerged[std::size_t(element)] = true;
  const DrawingProperty& property = *item.property;
  const EntityPointers& entities = shown();
  if (property.shape == PropertyShape::Texts)
  {
    // The last element is where a new paragraph is typed: it starts empty.
    if (property.appendsText && element == item.elementCount - 1)
      return value = text(QString());
    const QString first = property.textElement(*entities.front(), element);
    value = text(first);
    for (std::size_t i = 1; i < entities.size(); ++i)
      if (property.textElement(*entities[i], element) != first)
      {
        value.setVaries(true);
        break;
      }
    return value;
  }
  const double first = property.element(*entities.front(), element);
  value.setDouble(first);
  for (std::size_t i = 1; i < entities.size(); ++i)
    if (property.element(*entities[i], element) != first)
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
    if (item->role == Item::Property && item->property->format == PropertyFormat::Layer)
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
  return item && (item->role == Item::Filter || item->property->isEditable());
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
  if (property.format == PropertyFormat::Choice)
  {
    for (const DrawingChoice& choice : choicesOf(item))
      if (choice.value == value)
        return QString();
    return tr("%1 takes one of the values it lists.").arg(property.name);
  }
  if (property.format != PropertyFormat::Number && property.format != PropertyFormat::Angle)
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
    // The drawing reader's own bound: squares and sums of what a drawing holds (areas, lengths) stay finite.
    if (!std::isfinite(n) || std::fabs(n) > kLargestNumber)
      return tr("%1 must lie between -1e100 and 1e100.").arg(property.name);
    const QString refusal = property.refuse ? property.refuse(n) : QString();
    if (!refusal.isEmpty())
      return refusal;
    if (property.refuseFor && resolveEntities())
      for (const DrawingEntity* entity : shown())
      {
        const QString own = property.refuseFor(*entity, n);
        if (!own.isEmpty())
          return own;
      }
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

bool DrawingPropertyBag::formatValue(int index, unsigned long element, const PropVariant& value, OdString& formatted)
{
  const Item* item = find(index);
  if (!item || !m_document || (value.type() & (PropVariant::kNoData | PropVariant::kEmpty)))
    return false;
  const OdDbDatabase& db = m_document->database();
  const QLocale c = QLocale::c();
  auto numberText = [&c, item](double d) {
    // Four decimals, unless they would show another value than the one held
    // (0.0000001 as 0.0000): then ten significant digits, as much as a typed value carries.
    QString digits = c.toString(d, 'f', 4);
    if (std::fabs(c.toDouble(digits) - d) > 1e-9 * std::fabs(d))
      digits = c.toString(d, 'g', 10);
    return item->property->format == PropertyFormat::Angle ? digits + QChar(0x00B0) : digits;
  };
  QString result;
  OdDbObjectId id;
  OdCmColor color;
  OdDb::LineWeight weight;
  switch (item->property->format)
  {
  case PropertyFormat::Number:
  case PropertyFormat::Angle:
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
  case PropertyFormat::Integer:
    if (value.scalarType() == PropVariant::kInt32 && !value.isArray())
      result = c.toString(value.getInt32());
    break;
  case PropertyFormat::Text:
    if (value.scalarType() == PropVariant::kString && !value.isArray())
    {
      result = toQString(value.getString());
      // The whole of a multi-line text on one line: its paragraphs apart by a pilcrow, never its codes.
      if (item->property->appendsText && element == 0 && value == mergedValue(*item))
        result = mtextParagraphs(result).join(QStringLiteral(" \u00B6 "));
    }
    break;
  case PropertyFormat::Choice:
    for (const DrawingChoice& choice : choicesOf(*item))
      if (choice.value == value)
        result = choice.name;
    // A value the list lacks (an alignment the file combines oddly) shows as what it is.
    if (result.isNull() && value.scalarType() == PropVariant::kString && !value.isArray())
      result = toQString(value.getString());
    else if (result.isNull() && value.scalarType() == PropVariant::kInt32 && !value.isArray())
      result = c.toString(value.getInt32());
    break;
  case PropertyFormat::Bool:
    if (value.scalarType() == PropVariant::kBool && !value.isArray())
      result = value.getBool() ? tr("Yes") : tr("No");
    break;
  case PropertyFormat::Color:
    if (propVariantToColor(value, color))
      result = hostQtColorName(color);
    break;
  case PropertyFormat::Lineweight:
    if (propVariantToLineweight(value, weight))
      result = host_qt_ui::QHostLineWeightListModel::weightText(weight);
    break;
  case PropertyFormat::Layer:
  case PropertyFormat::Linetype:
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
  QString s = toQString(input);
  switch (item->property->format)
  {
  case PropertyFormat::Text:
    // A paragraph keeps its blanks as typed; a one-line field drops those at its ends.
    value.setString(toOdString(item->property->shape == PropertyShape::Texts ? s : s.trimmed()));
    return true;
  case PropertyFormat::Choice:
    for (const DrawingChoice& choice : choicesOf(*item))
      if (choice.name.compare(s.trimmed(), Qt::CaseInsensitive) == 0)
      {
        value = choice.value;
        return true;
      }
    return false;
  case PropertyFormat::Integer:
  {
    bool ok = false;
    const int i = s.trimmed().toInt(&ok);
    if (ok)
      value.setInt32(i);
    return ok;
  }
  case PropertyFormat::Number:
  case PropertyFormat::Angle:
  {
    s = s.trimmed();
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
  if (item->property->shape == PropertyShape::Scalar || item->property->shape == PropertyShape::Texts)
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
  if (item->role == Item::Filter)
    return writeFilter(value);
  // A multi-line text is written a paragraph at a time.
  if (item->property->shape == PropertyShape::Texts)
    return false;
  return write(*item, -1, value);
}

bool DrawingPropertyBag::writeFilter(const PropVariant& value)
{
  if (value.scalarType() != PropVariant::kInt32 || value.isArray())
    return false;
  const int key = value.getInt32();
  if (key == m_kind + 1)
    return true;
  if (key == 0)
    showAllKinds();
  else if (!showKind(EntityKind(key - 1)))
    return false;
  // The filter's own control is in the middle of its commit: the palette builds its rows anew afterwards.
  if (m_listener)
    m_listener(false);
  return true;
}

bool DrawingPropertyBag::getValueList(int index, OdStringArray& names, PropKeyArray& keys)
{
  const Item* item = find(index);
  if (!item || item->property->format != PropertyFormat::Choice)
    return false;
  const std::vector<DrawingChoice> choices = choicesOf(*item);
  for (std::size_t i = 0; i < choices.size(); ++i)
  {
    names.append(toOdString(choices[i].name));
    keys.append(static_cast<unsigned long>(i));
  }
  return !choices.empty();
}

bool DrawingPropertyBag::getListValue(int index, unsigned long id, PropVariant& value)
{
  const Item* item = find(index);
  if (!item || item->property->format != PropertyFormat::Choice)
    return false;
  const std::vector<DrawingChoice> choices = choicesOf(*item);
  if (id >= choices.size())
    return false;
  value = choices[id].value;
  return true;
}

bool DrawingPropertyBag::getListText(int index, const PropVariant& value, OdString& listText)
{
  const Item* item = find(index);
  if (!item || item->property->format != PropertyFormat::Choice)
    return false;
  PropVariant plain = value;
  plain.setVaries(false);
  for (const DrawingChoice& choice : choicesOf(*item))
    if (choice.value == plain)
    {
      listText = toOdString(choice.name);
      return true;
    }
  return false;
}

unsigned int DrawingPropertyBag::getElements(int index, PropKeyArray& elements, OdStringArray& captions)
{
  const Item* item = find(index);
  if (!item || item->property->shape == PropertyShape::Scalar || !resolveEntities())
    return 0;
  const QString axes[] = {tr("X"), tr("Y"), tr("Z")};
  const QString vertex = item->property->elementCaption.isEmpty() ? tr("Vertex %1 %2") : item->property->elementCaption;
  for (int e = 0; e < item->elementCount; ++e)
  {
    elements.append(static_cast<unsigned long>(e));
    if (item->property->shape == PropertyShape::Texts && item->property->elementName)
      captions.append(toOdString(item->property->elementName(*shown().front(), e)));
    else if (item->property->shape == PropertyShape::Texts)
      captions.append(toOdString(item->property->appendsText && e == item->elementCount - 1 ? tr("New paragraph")
                                                                                             : tr("Paragraph %1").arg(e + 1)));
    else if (item->property->shape == PropertyShape::Vertices)
      captions.append(toOdString(vertex.arg(e / 3 + 1).arg(axes[e % 3])));
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
  return item && item->property->shape == PropertyShape::Vertices ? item->elementCount / 3 : 0;
}

PropBagCtx* DrawingPropertyBag::getContext()
{
  return m_context.get();
}

bool DrawingPropertyBag::write(const Item& item, long element, const PropVariant& value)
{
  const DrawingProperty& property = *item.property;
  if (item.role != Item::Property)
    return false;
  // Which numbers the value sets: one element, or all of a point or scale at once.
  QVector<int> targets;
  QVector<double> numbers;
  QString paragraph;
  int paragraphIndex = -1;
  if (property.shape == PropertyShape::Texts)
  {
    if (element < 0 || !property.setTextElement || value.scalarType() != PropVariant::kString || value.isArray())
      return false;
    paragraph = toQString(value.getString());
    // The last element appends a paragraph to each text, however many it has.
    paragraphIndex = property.appendsText && element == item.elementCount - 1 ? -1 : int(element);
  }
  else if (property.shape != PropertyShape::Scalar)
  {
    double d = 0.0;
    if (!property.setElement)
      return false;
    if (value.isArray() && value.scalarType() == PropVariant::kDouble)
    {
      const OdDoubleArray& all = value.getDoubleArray();
      // The scale control writes both numbers at once when they are locked together, through either element.
      if (property.shape == PropertyShape::Vertices || int(all.size()) != item.elementCount)
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
  // The change itself, the same for the first time, as worked out here, and for each redo.
  const DrawingProperty changer = property;
  auto change = [changer, value, targets, numbers, paragraph, paragraphIndex](DrawingEntity& e) {
    if (changer.shape == PropertyShape::Scalar)
      return changer.write(e, value);
    if (changer.shape == PropertyShape::Texts)
    {
      changer.setTextElement(e, paragraphIndex, paragraph);
      return true;
    }
    for (int t = 0; t < targets.size(); ++t)
    {
      if (targets[t] >= changer.count(e))
        return false;
      changer.setElement(e, targets[t], numbers[t]);
    }
    return true;
  };

  // What the undo puts back: the property's old values where writing them back restores the entity, else the entity.
  struct Memo
  {
    std::vector<PropVariant> values;
    std::vector<double> numbers;
    std::vector<QString> texts;
    std::vector<DrawingEntity> entities;
  };
  auto memo = std::make_shared<Memo>();
  const bool byValue = property.restoresByValue;
  QVector<quint64> handles;
  // Which entities the change changes, worked out on a copy that keeps its storage from one entity to the next.
  DrawingEntity scratch;
  for (const DrawingEntity* current : shown())
  {
    scratch = *current;
    if (!change(scratch))
      return false;
    bool differs = false;
    if (property.shape == PropertyShape::Scalar)
    {
      const DrawingEntity* changed = &scratch;
      differs = property.firstDifferent ? property.firstDifferent(&changed, 1, *current) == 0
                                        : property.read(scratch) != property.read(*current);
    }
    else if (property.shape == PropertyShape::Texts)
      differs = paragraphIndex < 0 ? scratch.text != current->text
                                   : property.textElement(scratch, paragraphIndex) != property.textElement(*current, paragraphIndex);
    else
      for (int t = 0; t < targets.size() && !differs; ++t)
        differs = property.element(scratch, targets[t]) != property.element(*current, targets[t]);
    if (!differs)
      continue;
    if (!byValue)
      memo->entities.push_back(*current);
    else if (property.shape == PropertyShape::Scalar)
    {
      // Selections mostly share the old value: one kept stands for all until one differs.
      PropVariant old = property.read(*current);
      if (handles.isEmpty())
        memo->values.push_back(std::move(old));
      else if (memo->values.size() > 1 || old != memo->values.front())
      {
        if (memo->values.size() == 1)
          memo->values.assign(std::size_t(handles.size()), memo->values.front());
        memo->values.push_back(std::move(old));
      }
    }
    else if (property.shape == PropertyShape::Texts)
      memo->texts.push_back(paragraphIndex < 0 ? current->text : property.textElement(*current, paragraphIndex));
    else
      for (int t : qAsConst(targets))
        memo->numbers.push_back(property.element(*current, t));
    handles.append(current->handle);
  }
  if (handles.isEmpty())
    return true;
  const QString stepText = tr("Change %1").arg(property.name);
  if (!m_undoStack)
  {
    m_document->changeEntities(handles, [&change](DrawingEntity& e, int) { change(e); });
    return true;
  }
  const std::size_t targetCount = std::size_t(targets.size());
  auto undo = [changer, memo, byValue, targets, targetCount, paragraphIndex](DrawingEntity& e, std::size_t i) {
    if (!byValue)
      e = memo->entities[i];
    else if (changer.shape == PropertyShape::Scalar)
      changer.write(e, memo->values.size() == 1 ? memo->values.front() : memo->values[i]);
    else if (changer.shape == PropertyShape::Texts && paragraphIndex < 0)
      e.text = memo->texts[i];
    else if (changer.shape == PropertyShape::Texts)
      changer.setTextElement(e, paragraphIndex, memo->texts[i]);
    else
      for (std::size_t t = 0; t < targetCount; ++t)
        changer.setElement(e, targets[int(t)], memo->numbers[i * targetCount + t]);
  };
  auto redo = [change](DrawingEntity& e, std::size_t) { change(e); };
  m_undoStack->push(new EntityChangeCommand(m_document, stepText, std::move(handles), undo, redo));
  return true;
}

#include "DrawingPropertyBag.h"

#include "DemoItemType.h"

#include "DrawingDocument.h"
#include "DrawingProperty.h"
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
// As large a number as a drawing file may hold outside its header.
constexpr double kLargestNumber = 1e100;
} // namespace

struct DrawingPropertyBag::Item
{
  const DrawingProperty* property = nullptr;
  std::unique_ptr<DemoItemType> type;
  /** Point, Vertices, Scale: how many numbers every selected entity has. */
  int elementCount = 0;
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
  m_properties = drawingProperties(m_document);
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
    if (property.shape != PropertyShape::Scalar)
    {
      // Polylines with fewer vertices end the list: only the vertices every one has are shared.
      item->elementCount = property.count(*m_entities.front());
      for (const DrawingEntity* entity : m_entities)
        item->elementCount = std::min(item->elementCount, property.count(*entity));
    }
    const bool numeric = property.format == PropertyFormat::Number || property.format == PropertyFormat::Angle;
    const OdGUID typeGuid = numeric ? PropUiGuidDouble : property.format == PropertyFormat::Text ? PropUiGuidText : property.guid;
    item->type = std::make_unique<DemoItemType>(int(m_items.size()), OdString("drawing"), typeGuid);
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
    if (item->property->format == PropertyFormat::Layer)
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
  case PropertyFormat::Text:
    if (value.scalarType() == PropVariant::kString && !value.isArray())
      result = toQString(value.getString());
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
  QString s = toQString(input).trimmed();
  switch (item->property->format)
  {
  case PropertyFormat::Text:
    value.setString(toOdString(s));
    return true;
  case PropertyFormat::Number:
  case PropertyFormat::Angle:
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
  if (item->property->shape == PropertyShape::Scalar)
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
  if (!item || item->property->shape == PropertyShape::Scalar)
    return 0;
  const QString axes[] = {tr("X"), tr("Y"), tr("Z")};
  for (int e = 0; e < item->elementCount; ++e)
  {
    elements.append(static_cast<unsigned long>(e));
    if (item->property->shape == PropertyShape::Vertices)
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
  return item && item->property->shape == PropertyShape::Vertices ? item->elementCount / 3 : 0;
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
  if (property.shape != PropertyShape::Scalar)
  {
    double d = 0.0;
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
    if (property.shape == PropertyShape::Scalar)
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

#include "DemoBag.h"

#include "DemoItemType.h"
#include "DemoValues.h"

#include "DemoActions.h"
#include "DemoIcons.h"
#include "OdDbBlockTableRecord.h"
#include "OdDbDatabase.h"
#include "OdDbLayerTableRecord.h"
#include "OdDbLinetypeTableRecord.h"
#include "OdStringQt.h"
#include "PropVariantConversions.h"
#include "QHostArrowHeadListModel.h"
#include "QHostLineWeightListModel.h"
#include "hostColors.h"
#include "hostDbPropBagCtx.h"
#include "PropUiGuids.h"
#include "PropUiIcons.h"
#include "PropUiOptions.h"
#include "PropUiQIcon.h"
#include <QDate>
#include <QLocale>
#include <QPainter>
#include <QPixmap>
#include <cmath>
#include <utility>

namespace
{

PropVariant texts(const QStringList& list)
{
  OdStringArray array;
  for (const QString& s : list)
    array.append(toOdString(s));
  PropVariant v;
  v.setStringArray(array);
  return v;
}

PropVariant numbers(std::initializer_list<double> list)
{
  OdDoubleArray array;
  for (double d : list)
    array.append(d);
  PropVariant v;
  v.setDoubleArray(array);
  return v;
}

} // namespace

struct DemoBag::Item
{
  Kind kind = Text;
  QString name;
  QString description;
  QString category;
  OdGUID guid;
  unsigned int flags = PropUiOption::kToolTipFilter;
  PropVariant value;
  int decimals = 3;
  bool hasRange = false;
  int min = 0;
  int max = 0;
  QStringList choiceNames;
  QVector<PropVariant> choiceValues;
  QVector<QIcon> choiceIcons;
  /** An error message for a value the item refuses, empty when it accepts it. */
  std::function<QString(const PropVariant&)> check;
  QVector<OdSharedPtr<PropAction> > actions;
  QVector<double> elements;
  QStringList elementCaptions;
  /** The selection disagrees on the value (or on each element). */
  bool mixed = false;
  QVector<bool> elementMixed;
  /** Elements that are not coordinates: a list's check boxes, a table's shape and labels. */
  QVector<PropVariant> parts;
  std::unique_ptr<DemoItemType> type;
};

/**
 * The demo's drawing context: ByLayer stands for what the object's layer
 * holds, Default for the drawing's default width, and a frozen layer cannot
 * take new objects.
 */
class DemoBag::DrawingContext : public hostDbPropBagCtx
{
public:
  DrawingContext(DemoBag& bag, OdDbDatabase* drawing) : hostDbPropBagCtx(drawing), m_bag(bag) {}

  bool isDisabledValue(int index, const PropVariant& value) override
  {
    OdDbObjectId id;
    const OdDbLayerTableRecord* layer =
      index == m_bag.m_layerItem && propVariantToObjectId(value, id) ? database()->openLayer(id) : nullptr;
    return layer && layer->isFrozen();
  }

  bool translate(int index, const PropVariant& in, PropVariant& out, bool* flag) override
  {
    out = in;
    if (flag)
      *flag = true;
    const OdDbLayerTableRecord* layer = m_bag.objectLayer();
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
    Q_UNUSED(index);
    return true;
  }

private:
  DemoBag& m_bag;
};

DemoBag::DemoBag()
{
  buildDrawing();
  buildItems();
}

void DemoBag::buildDrawing()
{
  m_drawing = std::make_unique<OdDbDatabase>();
  OdDbDatabase& db = *m_drawing;
  const OdDbObjectId dashed = db.addLinetype(OdString(L"Dashed"), OdString(L"__ __ __"), OdDoubleArray{0.5, -0.25});
  const OdDbObjectId hidden = db.addLinetype(OdString(L"Hidden"), OdString(L"_ _ _ _"), OdDoubleArray{0.25, -0.125});
  db.addLinetype(OdString(L"Center"), OdString(L"____ _ ____"), OdDoubleArray{1.25, -0.25, 0.25, -0.25});
  db.addLinetype(OdString(L"Dot"), OdString(L". . . ."), OdDoubleArray{0.0, -0.25});
  auto layer = [&db](const wchar_t* name, int colour, const OdDbObjectId& linetype, OdDb::LineWeight weight) {
    OdDbLayerTableRecord* record = db.openLayer(db.addLayer(OdString(name)));
    OdCmColor c;
    c.setColorIndex(OdInt16(colour));
    record->setColor(c);
    if (!linetype.isNull())
      record->setLinetypeObjectId(linetype);
    record->setLineWeight(weight);
    return record;
  };
  layer(L"Hub outlines", 30, OdDbObjectId(), OdDb::kLnWt050);
  layer(L"Construction", 8, dashed, OdDb::kLnWt013)->setIsFrozen(true);
  layer(L"Dimensions", 4, OdDbObjectId(), OdDb::kLnWt018)->setIsLocked(true);
  layer(L"Hidden edges", 5, hidden, OdDb::kLnWtByLwDefault)->setIsOff(true);
  OdCmColor teal;
  teal.setRGB(0, 128, 128);
  teal.setNames(OdString(L"Teal"));
  hostAddCustomColor(teal);
  m_context = std::make_unique<DrawingContext>(*this, m_drawing.get());
}

OdDbLayerTableRecord* DemoBag::objectLayer() const
{
  const Item* item = find(m_layerItem);
  OdDbObjectId id;
  return item && propVariantToObjectId(item->value, id) ? m_drawing->openLayer(id) : nullptr;
}

PropBagCtx* DemoBag::getContext()
{
  return m_context.get();
}

DemoBag::~DemoBag() = default;

DemoBag::Item& DemoBag::add(Kind kind, const QString& name, const OdGUID& guid, const QString& description)
{
  auto item = std::make_unique<Item>();
  item->kind = kind;
  item->name = name;
  item->guid = guid;
  item->description = description;
  // Editors pick their validators by the type's GUID: numbers are numbers whatever control shows them.
  OdGUID typeGuid = guid;
  if (kind == Number || kind == Vertices || kind == Point || kind == Scale)
    typeGuid = PropUiGuidDouble;
  else if (kind == Integer)
    typeGuid = PropUiGuidInteger;
  else if (kind == Text)
    typeGuid = PropUiGuidText;
  item->type = std::make_unique<DemoItemType>(int(m_items.size()), OdString("demo"), typeGuid);
  m_items.push_back(std::move(item));
  return *m_items.back();
}

void DemoBag::buildItems()
{
  add(Caption, QObject::tr("General"), PropUiGuidLabel, QObject::tr("What the object is called and how it behaves"));

  Item& name = add(Text, QObject::tr("Name"), PropUiGuidText, QObject::tr("The name shown in the object browser"));
  name.value = text(QStringLiteral("Wheel hub, front left"));
  name.flags |= PropUiOption::kElided;
  name.check = [](const PropVariant& v) {
    return toQString(v.getString()).trimmed().isEmpty() ? QObject::tr("A name cannot be empty.") : QString();
  };

  // In the grid the layer's cell carries a lock command as an icon.
  Item& layer = add(Attribute, QObject::tr("Layer"), PropUiGuidLayer, QObject::tr("The layer the object is drawn on"));
  layer.value = propVariantFromObjectId(m_drawing->getLayerId(OdString(L"Hub outlines")));
  layer.flags |= PropItemFlag::kHasActions;
  layer.check = [this](const PropVariant& v) {
    OdDbObjectId id;
    const OdDbLayerTableRecord* target = propVariantToObjectId(v, id) ? m_drawing->openLayer(id) : nullptr;
    return target && target->isLocked() ? QObject::tr("Objects cannot be moved onto a locked layer.") : QString();
  };
  m_layerItem = int(m_items.size()) - 1;
  layer.actions.append(OdSharedPtr<PropAction>(new DemoAction(QObject::tr("Lock the layer"), propUiGetIcon(QStringLiteral("lock")), [this]() {
    if (OdDbLayerTableRecord* current = objectLayer())
      current->setIsLocked(!current->isLocked());
    return true;
  })));

  Item& colour = add(Attribute, QObject::tr("Colour"), PropUiGuidColor, QObject::tr("The colour the object is drawn in"));
  colour.value = propVariantFromColor(OdCmColor(OdCmEntityColor::kByLayer));

  Item& linetype = add(Attribute, QObject::tr("Linetype"), PropUiGuidLinetype, QObject::tr("The dash pattern of the object's lines"));
  linetype.value = propVariantFromObjectId(m_drawing->getLinetypeId(OdString(L"Dashed")));

  Item& lineweight = add(Attribute, QObject::tr("Lineweight"), PropUiGuidLineweight, QObject::tr("The printed width of the object's lines"));
  lineweight.value = propVariantFromLineweight(OdDb::kLnWt035);

  Item& note = add(Text, QObject::tr("Revision note"), PropUiGuidVariant, QObject::tr("Free text kept with the object"));
  note.value = text(QStringLiteral("Bore widened to 42 mm after the fit test of rev. C"));
  note.flags |= PropUiOption::kElided;

  Item& visible = add(Bool, QObject::tr("Visible"), PropUiGuidBool, QObject::tr("Whether the object is drawn"));
  visible.value = boolean(true);

  Item& locked = add(Bool, QObject::tr("Locked"), PropUiGuidBoolText, QObject::tr("A locked object cannot be moved"));
  locked.value = boolean(false);
  locked.choiceNames = QStringList{QObject::tr("Protect from edits")};
  locked.choiceValues = {boolean(true)};

  Item& snap = add(Bool, QObject::tr("Snap to grid"), PropUiGuidSwitch, QObject::tr("Moves snap the object to the grid"));
  snap.value = boolean(true);

  Item& annotative = add(Bool, QObject::tr("Annotative"), PropUiGuidTextSwitch, QObject::tr("Scales with the viewport"));
  annotative.value = boolean(false);
  annotative.choiceNames = QStringList{QObject::tr("Scale with viewport")};
  annotative.choiceValues = {boolean(true)};

  Item& revised = add(Date, QObject::tr("Last revised"), PropUiGuidDate, QObject::tr("Date of the last approved change"));
  revised.value = text(QStringLiteral("05.03.2021"));
  revised.check = [](const PropVariant& v) {
    const QDate date = QDate::fromString(toQString(v.getString()), QStringLiteral("dd.MM.yyyy"));
    return date > QDate(2030, 12, 31) ? QObject::tr("A revision cannot be dated after 2030.") : QString();
  };

  add(Caption, QObject::tr("Geometry"), PropUiGuidLabel, QObject::tr("Size and placement"));

  Item& radius = add(Number, QObject::tr("Radius"), PropUiGuidDouble, QObject::tr("Radius of the hub circle, in mm"));
  radius.value = number(12.5);
  radius.check = [](const PropVariant& v) {
    return v.getDouble() <= 0.0 ? QObject::tr("The radius must be greater than zero.") : QString();
  };

  Item& thickness = add(Distance, QObject::tr("Thickness"), PropUiGuidDistance, QObject::tr("Extrusion thickness, in mm"));
  thickness.value = number(0.75);
  thickness.check = [](const PropVariant& v) {
    return v.getDouble() < 0.0 ? QObject::tr("The thickness cannot be negative.") : QString();
  };

  Item& rotation = add(Angle, QObject::tr("Rotation"), PropUiGuidAngle, QObject::tr("Rotation about the insertion point"));
  rotation.value = number(30.0);

  Item& scale = add(Number, QObject::tr("Scale factor"), PropUiGuidDoubleAlt, QObject::tr("Uniform scale of the object"));
  scale.value = number(1.0);
  scale.flags |= PropItemFlag::kHasActions;
  scale.check = [](const PropVariant& v) {
    return v.getDouble() <= 0.0 ? QObject::tr("The scale factor must be greater than zero.") : QString();
  };
  Item* scaleItem = &scale;
  scale.actions.append(OdSharedPtr<PropAction>(new DemoAction(QObject::tr("Reset to 1"), DemoIcons::resetToOne(), [scaleItem]() {
    scaleItem->value = number(1.0);
    return true;
  })));

  Item& segments = add(Integer, QObject::tr("Segments"), PropUiGuidInteger, QObject::tr("Number of segments of the tessellation"));
  segments.value = integer(24);
  segments.hasRange = true;
  segments.min = 3;
  segments.max = 64;
  segments.check = [](const PropVariant& v) {
    return v.getInt32() % 2 ? QObject::tr("The number of segments must be even.") : QString();
  };

  Item& opacity = add(Integer, QObject::tr("Opacity"), PropUiGuidSlider, QObject::tr("Opacity in percent"));
  opacity.value = integer(80);
  opacity.hasRange = true;
  opacity.min = 0;
  opacity.max = 100;

  Item& vertices = add(Vertices, QObject::tr("Vertices"), PropUiGuidDouble, QObject::tr("Corner points of the outline"));
  vertices.flags |= PropUiOption::kMultiLine; // one row per coordinate
  vertices.elements = {0.0, 0.0, 40.0, 0.0, 40.0, 25.0, 0.0, 25.0};
  vertices.elementCaptions = QStringList{QObject::tr("X"), QObject::tr("Y")};

  Item& start = add(Point, QObject::tr("Start point"), PropUiGuidCoords3d, QObject::tr("Where the centre line starts"));
  start.elements = {0.0, 0.0, 0.0};
  start.elementCaptions = QStringList{QObject::tr("X"), QObject::tr("Y"), QObject::tr("Z")};

  Item& end = add(Point, QObject::tr("End point"), PropUiGuidCoords2d, QObject::tr("Where the centre line ends, in plan"));
  end.elements = {120.0, 45.0};
  end.elementCaptions = QStringList{QObject::tr("X"), QObject::tr("Y")};

  Item& corners = add(Vertices, QObject::tr("3D vertices"), PropUiGuidCoords3d, QObject::tr("Corners of the hub's bounding box"));
  corners.elements = {0.0, 0.0, 0.0, 40.0, 0.0, 0.0, 40.0, 25.0, 0.0, 0.0, 25.0, 12.0};
  corners.elementCaptions = QStringList{QObject::tr("X"), QObject::tr("Y"), QObject::tr("Z")};

  Item& blockScale = add(Scale, QObject::tr("Block scale"), PropUiGuidScale2d, QObject::tr("Scale of the block in X and Y"));
  blockScale.value = numbers({1.0, 1.0});
  blockScale.check = [](const PropVariant& v) {
    const bool positive = !v.isArray() ? v.getDouble() > 0.0
                                       : v.getDoubleArray().size() == 2 && v.getDoubleArray()[0] > 0.0 &&
                                           v.getDoubleArray()[1] > 0.0;
    return positive ? QString() : QObject::tr("A scale must be greater than zero.");
  };

  add(Caption, QObject::tr("Drawing"), PropUiGuidLabel, QObject::tr("The sheets and the title block"));

  Item& layouts = add(List, QObject::tr("Layouts"), PropUiGuidList, QObject::tr("Ticked layouts are plotted; a pinned one opens first"));
  const QStringList sheets{QObject::tr("Model"), QObject::tr("Assembly"), QObject::tr("Details"), QObject::tr("Parts list")};
  layouts.value = texts(sheets);
  layouts.elementCaptions = sheets;
  layouts.parts = {boolean(false), boolean(true), boolean(true), boolean(false)};
  layouts.flags |= PropUiOption::kListCheckBoxes | PropUiOption::kListPins;

  Item& titleBlock = add(Table, QObject::tr("Title block"), PropUiGuidTable, QObject::tr("The fields of the sheet's title block"));
  titleBlock.value = texts({QObject::tr("Title"), QObject::tr("Wheel hub"), QObject::tr("Drawn by"), QStringLiteral("R. Koch"),
                            QObject::tr("Sheet"), QStringLiteral("2 / 4")});
  titleBlock.parts = {integer(3), integer(2), texts({QObject::tr("Field"), QObject::tr("Value")})};

  Item& snaps = add(Flags, QObject::tr("Object snaps"), PropUiGuidMultiTextCombo, QObject::tr("The snaps in force while drawing"));
  const QStringList snapNames{QObject::tr("Endpoint"), QObject::tr("Midpoint"), QObject::tr("Center"), QObject::tr("Intersection")};
  for (int i = 0; i < snapNames.size(); ++i)
  {
    snaps.choiceNames.append(snapNames[i]);
    snaps.choiceValues.append(integer(1 << i));
  }
  snaps.value = integer(1 | 4);

  add(Caption, QObject::tr("Text"), PropUiGuidLabel, QObject::tr("The object's label"));

  Item& height = add(Number, QObject::tr("Text height"), PropUiGuidDouble, QObject::tr("A standard height, or type your own"));
  height.value = number(3.5);
  height.decimals = 2;
  height.flags |= PropUiOption::kTextCombo | PropItemFlag::kEditableList;
  for (double h : {1.8, 2.5, 3.5, 5.0, 7.0})
  {
    height.choiceNames.append(QLocale::c().toString(h, 'f', 2));
    height.choiceValues.append(number(h));
  }
  height.check = [](const PropVariant& v) {
    return v.getDouble() <= 0.0 ? QObject::tr("The text height must be greater than zero.") : QString();
  };

  Item& style = add(Choice, QObject::tr("Text style"), PropUiGuidTextCombo, QObject::tr("The style of the label text"));
  const QStringList styles{QObject::tr("Standard"), QObject::tr("Annotative"), QObject::tr("Title"), QObject::tr("Notes")};
  const QColor styleColors[] = {QColor(0x5a, 0x8d, 0xee), QColor(0x3f, 0xa9, 0x6b), QColor(0xd9, 0x7b, 0x29), QColor(0x9b, 0x6b, 0xd6)};
  for (int i = 0; i < styles.size(); ++i)
  {
    style.choiceNames.append(styles[i]);
    style.choiceValues.append(text(styles[i]));
    style.choiceIcons.append(DemoIcons::letter(styles[i].left(1), styleColors[i]));
  }
  style.value = text(styles[0]);

  Item& arrow = add(Attribute, QObject::tr("Leader arrow"), PropUiGuidArrowhead, QObject::tr("The arrowhead of the label's leader"));
  arrow.value = propVariantFromObjectId(m_drawing->getBlockId(OdString(L"_ArchTick")));

  Item& justify = add(Choice, QObject::tr("Justification"), PropUiGuidButtons3x3, QObject::tr("Where the text sits on its insertion point"));
  const QStringList cells{QObject::tr("Top left"), QObject::tr("Top centre"), QObject::tr("Top right"),
                          QObject::tr("Middle left"), QObject::tr("Middle centre"), QObject::tr("Middle right"),
                          QObject::tr("Bottom left"), QObject::tr("Bottom centre"), QObject::tr("Bottom right")};
  for (int i = 0; i < cells.size(); ++i)
  {
    justify.choiceNames.append(cells[i]);
    justify.choiceValues.append(integer(i + 1));
    justify.choiceIcons.append(DemoIcons::cell(i));
  }
  justify.value = integer(5);

  Item& align = add(Choice, QObject::tr("Alignment"), PropUiGuidPushButtons, QObject::tr("Alignment of the text lines"));
  align.flags |= PropUiOption::kAlignLeft;
  for (const QString& a : {QObject::tr("Left"), QObject::tr("Centre"), QObject::tr("Right")})
  {
    align.choiceNames.append(a);
    align.choiceValues.append(text(a));
  }
  align.value = text(QObject::tr("Left"));

  Item& units = add(Choice, QObject::tr("Units"), PropUiGuidRadioButtons, QObject::tr("Units of the dimension text"));
  units.flags |= PropUiOption::kAlignLeft;
  for (const QString& u : {QStringLiteral("mm"), QStringLiteral("cm"), QStringLiteral("m")})
  {
    units.choiceNames.append(u);
    units.choiceValues.append(text(u));
  }
  units.value = text(QStringLiteral("mm"));

  Item& frame = add(Choice, QObject::tr("Frame"), PropUiGuidToolButtons, QObject::tr("The frame drawn around the text"));
  frame.flags |= PropUiOption::kAlignLeft;
  const QStringList frames{QObject::tr("None"), QObject::tr("Box"), QObject::tr("Round")};
  for (int i = 0; i < frames.size(); ++i)
  {
    frame.choiceNames.append(frames[i]);
    frame.choiceValues.append(integer(i));
    frame.choiceIcons.append(DemoIcons::letter(frames[i].left(1), QColor(0x6b, 0x72, 0x7d)));
  }
  frame.value = integer(1);

  add(Caption, QObject::tr("Commands"), PropUiGuidLabel, QObject::tr("What can be done with the selection"));

  Item& tools = add(Commands, QObject::tr("Quick tools"), PropUiGuidActionToolButtons, QObject::tr("Commands for the selection"));
  tools.flags |= PropUiOption::kAlignLeft;
  const std::pair<QString, QIcon> toolCommands[] = {{QObject::tr("Zoom to"), DemoIcons::zoomTo()},
                                                    {QObject::tr("Select similar"), DemoIcons::selectSimilar()},
                                                    {QObject::tr("Isolate"), DemoIcons::isolate()}};
  for (const auto& c : toolCommands)
    tools.actions.append(OdSharedPtr<PropAction>(new DemoAction(c.first, c.second, []() { return true; })));

  Item& commands = add(Commands, QObject::tr("Match"), PropUiGuidActionPushButtons, QObject::tr("Copy properties between objects"));
  commands.flags |= PropUiOption::kAlignLeft | PropUiOption::kIconsOnly; // captions go to the tool tips
  const std::pair<QString, QIcon> matchCommands[] = {{QObject::tr("Match properties"), DemoIcons::matchProperties()},
                                                     {QObject::tr("Reset all"), DemoIcons::resetAll()}};
  for (const auto& c : matchCommands)
    commands.actions.append(OdSharedPtr<PropAction>(new DemoAction(c.first, c.second, []() { return true; })));
}

void DemoBag::setMixed(bool mixed)
{
  for (auto& item : m_items)
  {
    item->mixed = mixed;
    item->elementMixed = QVector<bool>(item->elements.size(), mixed);
    // The selected lines share their start's X, not its Y or Z.
    if (item->kind == Point && mixed && !item->elementMixed.isEmpty())
      item->elementMixed[0] = false;
  }
}

bool DemoBag::isMixed() const
{
  for (const auto& item : m_items)
    if (item->mixed)
      return true;
  return false;
}

DemoBag::Item* DemoBag::find(int index) const
{
  return index >= 0 && index < int(m_items.size()) ? m_items[std::size_t(index)].get() : nullptr;
}

DemoBag::Kind DemoBag::kindOf(int index) const
{
  const Item* item = find(index);
  return item ? item->kind : Caption;
}

void DemoBag::log(const Item& item, const QString& what, bool accepted)
{
  if (m_log)
    m_log(item.name + QStringLiteral(": ") + what, accepted);
}

int DemoBag::findItem(const OdString& name)
{
  const QString wanted = toQString(name);
  for (std::size_t i = 0; i < m_items.size(); ++i)
    if (m_items[i]->name == wanted)
      return int(i);
  return -1;
}

int DemoBag::getItemCount()
{
  return int(m_items.size());
}

PropItemType* DemoBag::getItemType(int index)
{
  const Item* item = find(index);
  return item ? item->type.get() : nullptr;
}

bool DemoBag::isEditable(int index, unsigned long)
{
  const Item* item = find(index);
  return item && item->kind != Caption;
}

bool DemoBag::getName(int index, OdString& name)
{
  const Item* item = find(index);
  if (!item)
    return false;
  name = toOdString(item->name);
  return true;
}

bool DemoBag::getCategory(int index, OdString& category)
{
  const Item* item = find(index);
  if (!item)
    return false;
  category = toOdString(item->category);
  return true;
}

bool DemoBag::getDescription(int index, OdString& description)
{
  const Item* item = find(index);
  if (!item || item->description.isEmpty())
    return false;
  description = toOdString(item->description);
  return true;
}

unsigned int DemoBag::getFlags(int index)
{
  const Item* item = find(index);
  return item ? item->flags : 0;
}

OdGUID DemoBag::getControlGuid(int index)
{
  const Item* item = find(index);
  return item ? item->guid : OdGUID();
}

bool DemoBag::validate(int index, unsigned long element, const PropVariant& value, OdString& message)
{
  const Item* item = find(index);
  if (!item)
    return false;
  const QString refusal = item->check ? item->check(value) : QString();
  if (refusal.isEmpty())
    return true;
  message = toOdString(refusal);
  log(*item, QObject::tr("%1 refused: %2").arg(textOf(*item, value), refusal), false);
  Q_UNUSED(element);
  return false;
}

bool DemoBag::getRange(int index, unsigned long, PropVariant& min, PropVariant& max)
{
  const Item* item = find(index);
  if (!item || !item->hasRange)
    return false;
  min.setInt32(item->min);
  max.setInt32(item->max);
  return true;
}

QString DemoBag::textOf(const Item& item, const PropVariant& value) const
{
  if (item.kind == Attribute)
  {
    OdCmColor color;
    OdDb::LineWeight weight;
    OdDbObjectId id;
    if (item.guid == PropUiGuidColor && propVariantToColor(value, color))
      return hostQtColorName(color);
    if (item.guid == PropUiGuidLineweight && propVariantToLineweight(value, weight))
      return host_qt_ui::QHostLineWeightListModel::weightText(weight);
    if (!propVariantToObjectId(value, id))
      return QString();
    if (item.guid == PropUiGuidArrowhead)
    {
      const OdDbBlockTableRecord* block = m_drawing->openBlock(id);
      return id.isNull() || block ? host_qt_ui::QHostArrowHeadListModel::arrowText(block ? toQString(block->getName()) : QString())
                                  : QString();
    }
    const OdDbSymbolTableRecord* record = m_drawing->openObject(id);
    return record ? toQString(record->getName()) : QString();
  }
  const QLocale c = QLocale::c();
  const unsigned int kind = value.scalarType();
  if (value.isArray())
  {
    QStringList entries;
    for (const OdString& s : value.getStringArray())
      entries << toQString(s);
    for (double d : value.getDoubleArray())
      entries << c.toString(d, 'f', item.decimals);
    return entries.join(QStringLiteral(", "));
  }
  if (kind & PropVariant::kString)
    return toQString(value.getString());
  if (kind & PropVariant::kBool)
    return value.getBool() ? QObject::tr("Yes") : QObject::tr("No");
  if (kind & PropVariant::kInt32)
    return QString::number(value.getInt32());
  if (kind & PropVariant::kDouble)
  {
    if (item.kind == Angle)
      return c.toString(value.getDouble(), 'f', 1) + QChar(0x00B0);
    if (item.kind == Distance)
      return c.toString(value.getDouble(), 'f', 3) + QStringLiteral(" mm");
    return c.toString(value.getDouble(), 'f', item.decimals);
  }
  return QString();
}

bool DemoBag::formatValue(int index, unsigned long, const PropVariant& value, OdString& formatted)
{
  const Item* item = find(index);
  if (!item || (value.type() & (PropVariant::kNoData | PropVariant::kEmpty)))
    return false;
  const QString result = textOf(*item, value);
  if (result.isNull())
    return false;
  formatted = toOdString(result);
  return true;
}

bool DemoBag::parseValue(int index, unsigned long, const OdString& input, PropVariant& value)
{
  const Item* item = find(index);
  if (!item)
    return false;
  QString s = toQString(input).trimmed();
  switch (item->kind)
  {
  case Text:
  case Date:
  case Table:
  case Choice:
    if (item->kind != Choice || (item->value.type() & PropVariant::kString))
    {
      value.setString(toOdString(s));
      return true;
    }
    break;
  default:
    break;
  }
  s.remove(QChar(0x00B0));
  if (s.endsWith(QStringLiteral("mm")))
    s.chop(2);
  // Plain numbers only: the number fields work out arithmetic themselves and hand over the result.
  bool ok = false;
  const double d = QLocale::c().toDouble(s, &ok);
  if (!ok)
    return false;
  if (item->kind == Integer || (item->value.type() & PropVariant::kInt32))
  {
    if (std::fabs(d - std::round(d)) > 1e-9 || std::fabs(d) > 2147483647.0)
      return false;
    value.setInt32(int(std::lround(d)));
  }
  else
  {
    value.setDouble(d);
  }
  return true;
}

bool DemoBag::getValue(int index, PropVariant& value)
{
  const Item* item = find(index);
  if (!item || item->kind == Commands || item->kind == Vertices || item->kind == Point)
    return false;
  value = item->value;
  if (item->kind == Caption)
    value.setString(toOdString(item->name));
  else if (item->mixed)
    value.setVaries(true);
  return true;
}

bool DemoBag::setValue(int index, const PropVariant& value)
{
  Item* item = find(index);
  if (!item || item->kind == Caption || item->kind == Commands || item->kind == Vertices || item->kind == Point)
    return false;
  item->value = value;
  item->mixed = false; // every selected object now holds the written value
  log(*item, QObject::tr("set to %1").arg(textOf(*item, value)), true);
  return true;
}

unsigned int DemoBag::getActions(int index, unsigned long, PropActionArray& actions)
{
  actions.clear();
  const Item* item = find(index);
  if (!item)
    return 0;
  for (const auto& action : item->actions)
    actions.append(action);
  return actions.size();
}

bool DemoBag::executeAction(int index, PropAction* action)
{
  const Item* item = find(index);
  if (!item || !action)
    return false;
  PropVariant in, out;
  const bool ran = action->execute(in, out);
  log(*item, QObject::tr("ran \"%1\"").arg(toQString(action->name())), ran);
  return ran;
}

bool DemoBag::getValueList(int index, OdStringArray& names, PropKeyArray& keys)
{
  const Item* item = find(index);
  if (!item || item->choiceNames.isEmpty())
    return false;
  for (int i = 0; i < item->choiceNames.size(); ++i)
  {
    names.append(toOdString(item->choiceNames[i]));
    keys.append(static_cast<unsigned long>(i));
  }
  return true;
}

bool DemoBag::getListValue(int index, unsigned long id, PropVariant& value)
{
  const Item* item = find(index);
  if (!item || id >= static_cast<unsigned long>(item->choiceValues.size()))
    return false;
  value = item->choiceValues[int(id)];
  return true;
}

bool DemoBag::getIcon(int index, unsigned long value, OdSharedPtr<PropIcon>& icon)
{
  const Item* item = find(index);
  if (!item || value >= static_cast<unsigned long>(item->choiceIcons.size()))
    return false;
  icon = OdSharedPtr<PropIcon>(new PropUiQIcon(item->choiceIcons[int(value)]));
  return true;
}

bool DemoBag::getListText(int index, const PropVariant& value, OdString& listText)
{
  const Item* item = find(index);
  if (!item)
    return false;
  for (int i = 0; i < item->choiceValues.size(); ++i)
  {
    if (item->choiceValues[i].getDouble() == value.getDouble() &&
        item->choiceValues[i].getString() == value.getString() && item->choiceNames.size() > i)
    {
      listText = toOdString(item->choiceNames[i]);
      return true;
    }
  }
  return false;
}

unsigned int DemoBag::getElements(int index, PropKeyArray& elements, OdStringArray& captions)
{
  const Item* item = find(index);
  if (!item || item->elementCaptions.isEmpty())
    return 0;
  for (int i = 0; i < item->elementCaptions.size(); ++i)
  {
    elements.append(static_cast<unsigned long>(i));
    captions.append(toOdString(item->elementCaptions[i]));
  }
  return elements.size();
}

bool DemoBag::getElementValue(int index, unsigned long element, PropVariant& value)
{
  const Item* item = find(index);
  if (!item)
    return false;
  if (item->kind == List || item->kind == Table)
  {
    if (element >= static_cast<unsigned long>(item->parts.size()))
      return false;
    value = item->parts[int(element)];
    return true;
  }
  if (item->kind == Scale)
  {
    if (element > 1 || !item->value.isArray() || item->value.getDoubleArray().size() != 2)
      return false;
    value.setDouble(item->value.getDoubleArray()[element]);
    if (item->mixed)
      value.setVaries(true);
    return true;
  }
  if (element >= static_cast<unsigned long>(item->elements.size()))
    return false;
  value.setDouble(item->elements[int(element)]);
  if (item->elementMixed.value(int(element)))
    value.setVaries(true);
  return true;
}

bool DemoBag::setElementValue(int index, unsigned long element, const PropVariant& value)
{
  Item* item = find(index);
  if (!item)
    return false;
  if (item->kind == List)
  {
    if (element >= static_cast<unsigned long>(item->parts.size()))
      return false;
    item->parts[int(element)] = value;
    log(*item, QObject::tr("%1 %2").arg(item->elementCaptions.value(int(element)),
                                       value.getBool() ? QObject::tr("ticked") : QObject::tr("cleared")),
        true);
    return true;
  }
  if (item->kind == Scale)
  {
    if (element > 1 || !item->value.isArray() || item->value.getDoubleArray().size() != 2)
      return false;
    OdDoubleArray both = item->value.getDoubleArray();
    both[element] = value.getDouble();
    item->value.setDoubleArray(both);
    item->mixed = false;
    log(*item, QObject::tr("%1 set to %2").arg(element ? QObject::tr("Y") : QObject::tr("X"), textOf(*item, value)), true);
    return true;
  }
  if (item->kind == Table || element >= static_cast<unsigned long>(item->elements.size()))
    return false;
  item->elements[int(element)] = value.getDouble();
  if (int(element) < item->elementMixed.size())
    item->elementMixed[int(element)] = false;
  const int perGroup = std::max(1, int(item->elementCaptions.size()));
  log(*item, QObject::tr("vertex %1 %2 set to %3")
               .arg(int(element) / perGroup + 1)
               .arg(item->elementCaptions.value(int(element) % perGroup))
               .arg(QLocale::c().toString(value.getDouble(), 'f', 3)),
      true);
  return true;
}

int DemoBag::getElementCount(int index)
{
  const Item* item = find(index);
  return item && item->kind == List ? item->parts.size() : -1;
}

int DemoBag::getGroupCount(int index)
{
  const Item* item = find(index);
  if (!item || item->elementCaptions.isEmpty() || item->kind == Point)
    return 0;
  // A list's check boxes are one group of elements.
  if (item->kind == List)
    return 1;
  return item->elements.size() / item->elementCaptions.size();
}

#include "PropUiDrawingLook_p.h"

#include "OdDbDatabase.h"
#include "OdDbLayerTableRecord.h"
#include "OdDbLinetypeTableRecord.h"
#include "OdStringQt.h"
#include "PropBag.h"
#include "PropUiCadSupport_p.h"
#include "PropUiGuids.h"
#include "PropUiQLayerCtrl.h"
#include "PropVariantConversions.h"
#include "QHostLineTypeListModel.h"
#include "QHostLineWeightListModel.h"
#include "QHostUiColorComboBox.h"
#include "hostColors.h"
#include "hostDbPropBagCtx.h"
#include "hostQtPicture.h"
#include <QtMath>
#include <cmath>

namespace
{

void drawSwatch(QPainter& p, const QRectF& box, const QColor& fill, const QColor& ink)
{
  const QRectF swatch = box.adjusted(2.5, 2.5, -2.5, -2.5);
  p.fillRect(swatch, fill.isValid() ? fill : QColor(Qt::white));
  p.setPen(QPen(ink, 1.0));
  p.drawRect(swatch);
}

// A bulb: lit yellow when the layer is on, an empty outline when it is off.
void drawBulb(QPainter& p, const QRectF& box, bool on, const QColor& ink)
{
  const QRectF glass(box.center().x() - 4, box.top() + 2, 8, 8);
  p.setPen(QPen(ink, 1.0));
  p.setBrush(on ? QColor(0xF5, 0xC5, 0x18) : QColor(Qt::transparent));
  p.drawEllipse(glass);
  p.setBrush(Qt::NoBrush);
  p.drawLine(QPointF(glass.center().x() - 2, box.top() + 12), QPointF(glass.center().x() + 2, box.top() + 12));
  p.drawLine(QPointF(glass.center().x() - 1.5, box.top() + 14), QPointF(glass.center().x() + 1.5, box.top() + 14));
}

// A snowflake when frozen, a sun when thawed.
void drawFrozen(QPainter& p, const QRectF& box, bool frozen, const QColor& ink)
{
  const QPointF c = box.center();
  if (frozen)
  {
    p.setPen(QPen(QColor(0x4A, 0x9B, 0xE8), 1.4, Qt::SolidLine, Qt::RoundCap));
    for (int i = 0; i < 3; ++i)
    {
      const double a = qDegreesToRadians(90.0 + 60.0 * i);
      const QPointF d(5.5 * std::cos(a), 5.5 * std::sin(a));
      p.drawLine(c - d, c + d);
    }
    return;
  }
  p.setPen(QPen(QColor(0xE8, 0xA3, 0x17), 1.2, Qt::SolidLine, Qt::RoundCap));
  p.setBrush(QColor(0xE8, 0xA3, 0x17));
  p.drawEllipse(c, 2.5, 2.5);
  for (int i = 0; i < 8; ++i)
  {
    const double a = qDegreesToRadians(45.0 * i);
    p.drawLine(c + QPointF(4.2 * std::cos(a), 4.2 * std::sin(a)), c + QPointF(6 * std::cos(a), 6 * std::sin(a)));
  }
  p.setBrush(Qt::NoBrush);
  Q_UNUSED(ink);
}

// A padlock, its shackle open when the layer is unlocked.
void drawLock(QPainter& p, const QRectF& box, bool locked, const QColor& ink)
{
  const QRectF body(box.center().x() - 4.5, box.top() + 7.5, 9, 6.5);
  p.setPen(QPen(ink, 1.2));
  p.setBrush(locked ? ink : QColor(Qt::transparent));
  p.drawRect(body);
  p.setBrush(Qt::NoBrush);
  const QRectF shackle(body.left() + 1.5, body.top() - 5 - (locked ? 0 : 1.5), 6, 9);
  p.drawArc(shackle, locked ? 0 : 30 * 16, locked ? 180 * 16 : 150 * 16);
}


/** What the bag's context makes of the value; false when it cannot say, or the host says not to show it. */
bool resolved(PropBag* bag, int item, const PropVariant& value, PropVariant& out)
{
  hostDbPropBagCtx* context = propui::databaseContextOf(bag);
  bool shown = false;
  return context && context->translate(item, value, out, &shown) && shown;
}

/** A value the picker does not list: the bag's own text, as the control's extra entry shows it, and no picture. */
PropUiDrawingLook unlisted(PropBag* bag, int item, const PropVariant& value)
{
  OdString text;
  if (bag && bag->formatValue(item, 0, value, text))
    return {toQString(text), QIcon()};
  return {};
}

} // namespace

namespace propui
{

bool isDrawingAttribute(const OdGUID& guid)
{
  return guid == PropUiGuidColor || guid == PropUiGuidLineweight || guid == PropUiGuidLinetype ||
         guid == PropUiGuidLayer;
}

OdCmColor byLayerColor(PropBag* bag, int item)
{
  PropVariant out;
  OdCmColor color(OdCmEntityColor::kByLayer);
  if (resolved(bag, item, propVariantFromColor(color), out))
    propVariantToColor(out, color);
  return color;
}

OdDb::LineWeight byLayerLineweight(PropBag* bag, int item)
{
  PropVariant out;
  OdDb::LineWeight weight = OdDb::kLnWtByLayer;
  if (resolved(bag, item, propVariantFromLineweight(weight), out))
    propVariantToLineweight(out, weight);
  // A layer of the default width is drawn with what Default stands for.
  return weight == OdDb::kLnWtByLwDefault ? defaultLineweight(bag, item) : weight;
}

OdDb::LineWeight defaultLineweight(PropBag* bag, int item)
{
  hostDbPropBagCtx* context = databaseContextOf(bag);
  OdDbDatabase* database = context ? context->database() : nullptr;
  OdDb::LineWeight weight = database ? database->getLWDEFAULT() : OdDb::kLnWt025;
  PropVariant out;
  OdDb::LineWeight translated = OdDb::kLnWtByLwDefault;
  // Default is the drawing's own setting: the host's word on showing it is not asked. A context
  // that hands Default back as it came (as the base one does) leaves it to the drawing.
  bool unused = false;
  if (context && context->translate(item, propVariantFromLineweight(OdDb::kLnWtByLwDefault), out, &unused) &&
      propVariantToLineweight(out, translated) && translated >= 0)
    weight = translated;
  return weight;
}

OdDbObjectId byLayerLinetype(PropBag* bag, int item)
{
  OdDbDatabase* database = databaseOf(bag);
  PropVariant out;
  OdDbObjectId id;
  if (!database || !resolved(bag, item, propVariantFromObjectId(database->getLinetypeByLayerId()), out) ||
      !propVariantToObjectId(out, id))
    return OdDbObjectId::kNull;
  return id;
}

QIcon layerPicture(const OdDbLayerTableRecord& layer, const OdDbObjectId& viewport)
{
  const QColor fill = hostQtColor(layer.color(viewport));
  const bool off = layer.isOff(), frozen = layer.isFrozen(), locked = layer.isLocked();
  const QColor ink = hostQtPictureInk();
  // A panel rebuilt for every selection lists every layer in every layer control, and painting
  // the pictures was nearly all of a set-up: a picture depends only on what the key holds.
  QByteArray key("layer");
  const QRgb rgba = fill.isValid() ? fill.rgba() : 0;
  key.append(reinterpret_cast<const char*>(&rgba), sizeof rgba)
    .append(char(fill.isValid()))
    .append(char(off))
    .append(char(frozen))
    .append(char(locked));
  return hostQtKeptPicture(key, PropUiQLayerCtrl::pictureSize(), ink, [=](QPainter& p, const QRectF& area) {
    const double cell = area.height();
    drawSwatch(p, QRectF(0, 0, cell, cell), fill, ink);
    drawBulb(p, QRectF(cell + 1, 0, cell, cell), !off, ink);
    drawFrozen(p, QRectF(2 * cell + 1, 0, cell, cell), frozen, ink);
    drawLock(p, QRectF(3 * cell + 1, 0, cell, cell), locked, ink);
  });
}

PropUiDrawingLook colorLook(PropBag* bag, int item, const PropVariant& value)
{
  OdCmColor color;
  propVariantToColor(value, color);
  const OdCmColor drawn = color.isByLayer() ? byLayerColor(bag, item) : color;
  return {hostQtColorName(color), host_qt_ui::QHostUiColorComboBox::colorPicture(drawn)};
}

PropUiDrawingLook lineweightLook(PropBag* bag, int item, const PropVariant& value)
{
  OdDb::LineWeight weight;
  if (!propVariantToLineweight(value, weight))
    return unlisted(bag, item, value);
  OdDb::LineWeight drawn = weight;
  if (weight == OdDb::kLnWtByLayer)
    drawn = byLayerLineweight(bag, item);
  else if (weight == OdDb::kLnWtByLwDefault)
    drawn = defaultLineweight(bag, item);
  return {host_qt_ui::QHostLineWeightListModel::weightText(weight),
          host_qt_ui::QHostLineWeightListModel::weightPicture(drawn)};
}

PropUiDrawingLook linetypeLook(PropBag* bag, int item, const PropVariant& value)
{
  OdDbDatabase* database = databaseOf(bag);
  OdDbObjectId id;
  const OdDbLinetypeTableRecord* linetype =
    database && propVariantToObjectId(value, id) && !id.isNull() ? database->openLinetype(id) : nullptr;
  if (!linetype)
    return unlisted(bag, item, value);
  // ByLayer and ByBlock are drawn with what they stand for, never with a pattern of their own.
  const OdDbLinetypeTableRecord* drawn = linetype;
  if (id == database->getLinetypeByLayerId())
    drawn = database->openLinetype(byLayerLinetype(bag, item));
  else if (id == database->getLinetypeByBlockId())
    drawn = nullptr;
  return {toQString(linetype->getName()), host_qt_ui::QHostLineTypeListModel::linetypePicture(drawn)};
}

PropUiDrawingLook layerLook(PropBag* bag, int item, const PropVariant& value)
{
  OdDbDatabase* database = databaseOf(bag);
  OdDbObjectId id;
  const OdDbLayerTableRecord* layer =
    database && propVariantToObjectId(value, id) && !id.isNull() ? database->openLayer(id) : nullptr;
  if (!layer)
    return unlisted(bag, item, value);
  return {toQString(layer->getName()), layerPicture(*layer, database->activeViewportId())};
}

} // namespace propui

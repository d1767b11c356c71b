#include "PropUiQLayerCtrl.h"

#include "OdDbDatabase.h"
#include "OdDbLayerTableRecord.h"
#include "OdStringQt.h"
#include "PropBag.h"
#include "PropUiActionToolButtonsCtrl.h"
#include "PropUiCadSupport.h"
#include "PropVariantConversions.h"
#include "QHostComboBrowseFilter.h"
#include "hostColors.h"
#include "hostDbPropBagCtx.h"
#include "hostQtPicture.h"
#include <QHBoxLayout>
#include <QHash>
#include <QPair>
#include <QStandardItemModel>
#include <QtMath>

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

QIcon layerPicture(const OdDbLayerTableRecord& layer, const OdDbObjectId& viewport)
{
  const QColor fill = hostQtColor(layer.color(viewport));
  const bool off = layer.isOff(), frozen = layer.isFrozen(), locked = layer.isLocked();
  const QColor ink = hostQtPictureInk();
  // A panel rebuilt for every selection lists every layer in every layer control, and painting
  // the pictures was nearly all of a set-up: a picture depends only on what the key holds.
  // Bounded, as a drawing can hold any number of true colours.
  static QHash<QPair<quint64, QRgb>, QIcon> painted;
  const QPair<quint64, QRgb> key(quint64(fill.isValid() ? fill.rgba() : 0) << 3 | quint64(off) << 2 |
                                   quint64(frozen) << 1 | quint64(locked) | quint64(fill.isValid()) << 35,
                                 ink.rgba());
  const auto known = painted.constFind(key);
  if (known != painted.constEnd())
    return known.value();
  if (painted.size() >= 1024)
    painted.clear();
  const QIcon picture = hostQtPicture(PropUiQLayerCtrl::pictureSize(), [=](QPainter& p, const QRectF& area) {
    const double cell = area.height();
    drawSwatch(p, QRectF(0, 0, cell, cell), fill, ink);
    drawBulb(p, QRectF(cell + 1, 0, cell, cell), !off, ink);
    drawFrozen(p, QRectF(2 * cell + 1, 0, cell, cell), frozen, ink);
    drawLock(p, QRectF(3 * cell + 1, 0, cell, cell), locked, ink);
  });
  painted.insert(key, picture);
  return picture;
}

} // namespace

PropUiQLayerCtrl::PropUiQLayerCtrl(QWidget* parent) : PropUiQComboBox(parent) {}

bool PropUiQLayerCtrl::setupUi()
{
  PropUiQControl::setupUi();
  if (!m_bag)
    return false;
  auto* layout = adoptLayout(new QHBoxLayout);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  m_combo = new host_qt_ui_core::QHostComboBox(this);
  m_combo->setObjectName(QStringLiteral("combo"));
  host_qt_ui_core::QHostComboBrowseFilter::install(m_combo);
  m_combo->disableMouseWheel(true);
  m_combo->setMaxVisibleItems(30);
  m_combo->setIconSize(pictureSize());
  propui::nameAfterItem(m_combo, m_bag, m_index);
  useFocusReactor(m_combo);
  useFocusRedirect(m_combo, nullptr);
  connect(m_combo.data(), QOverload<int>::of(&QComboBox::activated), this, &PropUiQLayerCtrl::onActivated);
  connect(m_combo.data(), QOverload<int>::of(&QComboBox::activated), this, &PropUiQControl::onUpdateDisplay);
  addItems();
  m_combo->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  layout->addWidget(m_combo, 1);
  if (PropUiActionToolButtonsCtrl* toolbar = createActionsToolBar())
    layout->addWidget(toolbar, 0);
  return true;
}

void PropUiQLayerCtrl::addItems()
{
  hostDbPropBagCtx* context = propui::databaseContextOf(m_bag);
  OdDbDatabase* database = context ? context->database() : nullptr;
  if (!m_combo || !database)
    return;
  auto* model = qobject_cast<QStandardItemModel*>(m_combo->model());
  const OdDbObjectId viewport = database->activeViewportId();
  for (const OdDbObjectId& id : database->getLayerIds())
  {
    const OdDbLayerTableRecord* layer = database->openLayer(id);
    if (!layer)
      continue;
    m_combo->addItem(layerPicture(*layer, viewport), toQString(layer->getName()),
                     QVariant::fromValue<qulonglong>(id.getHandle()));
    // Greyed in the list and skipped by the keys; a pick that still reaches onActivated is refused there.
    if (model && context->isDisabledValue(m_index, propVariantFromObjectId(id)))
      model->item(m_combo->count() - 1)->setEnabled(false);
  }
}

int PropUiQLayerCtrl::addTempItem(const PropVariant& value)
{
  if (!m_bag || !m_combo || value.isVaries())
    return -1;
  OdDbObjectId id;
  if (propVariantToObjectId(value, id) && !id.isNull())
  {
    const int listed = m_combo->findKeyFast(id.getHandle());
    if (listed >= 0)
      return listed;
  }
  return PropUiQComboBox::addTempItem(value);
}

void PropUiQLayerCtrl::onActivated(int index)
{
  if (!m_bag || !m_combo || index < 0 || index >= m_combo->count())
    return;
  const bool wasVaries = isVaries();
  if (wasVaries)
    setVaries(false);
  const QVariant key = m_combo->itemData(index, Qt::UserRole);
  if (key.userType() != QMetaType::ULongLong)
  {
    revertChoice(wasVaries);
    return; // the entry that shows the bag's own text stands for the value already there
  }
  const PropVariant value = propVariantFromObjectId(OdDbObjectId(key.toULongLong()));
  hostDbPropBagCtx* context = propui::databaseContextOf(m_bag);
  if (context && context->isDisabledValue(m_index, value))
  {
    revertChoice(wasVaries);
    return;
  }
  if (commitValue(value, CommitTarget::WholeItem, RefusalMessage::Error) != CommitResult::Written)
  {
    revertChoice(wasVaries);
    return;
  }
  dropStaleTempItem();
  m_lastIndex = m_combo->currentIndex();
}

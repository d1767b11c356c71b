#include "QHostArrowHeadListModel.h"

#include "OdDbBlockTableRecord.h"
#include "OdDbDatabase.h"
#include "OdStringQt.h"
#include "hostQtPicture.h"
#include <QCoreApplication>
#include <QPainterPath>

namespace host_qt_ui
{

namespace
{

struct Standard
{
  const char* block;
  const char* text;
};

// The standard arrowheads in the order users know them; closed filled has no block.
const Standard kStandard[] = {
  {"", QT_TRANSLATE_NOOP("host_qt_ui", "Closed filled")},
  {"_ClosedBlank", QT_TRANSLATE_NOOP("host_qt_ui", "Closed blank")},
  {"_Closed", QT_TRANSLATE_NOOP("host_qt_ui", "Closed")},
  {"_Dot", QT_TRANSLATE_NOOP("host_qt_ui", "Dot")},
  {"_ArchTick", QT_TRANSLATE_NOOP("host_qt_ui", "Architectural tick")},
  {"_Oblique", QT_TRANSLATE_NOOP("host_qt_ui", "Oblique")},
  {"_Open", QT_TRANSLATE_NOOP("host_qt_ui", "Open")},
  {"_Origin", QT_TRANSLATE_NOOP("host_qt_ui", "Origin indicator")},
  {"_Origin2", QT_TRANSLATE_NOOP("host_qt_ui", "Origin indicator 2")},
  {"_Open90", QT_TRANSLATE_NOOP("host_qt_ui", "Right angle")},
  {"_Open30", QT_TRANSLATE_NOOP("host_qt_ui", "Open 30")},
  {"_DotSmall", QT_TRANSLATE_NOOP("host_qt_ui", "Dot small")},
  {"_DotBlank", QT_TRANSLATE_NOOP("host_qt_ui", "Dot blank")},
  {"_Small", QT_TRANSLATE_NOOP("host_qt_ui", "Dot small blank")},
  {"_BoxBlank", QT_TRANSLATE_NOOP("host_qt_ui", "Box")},
  {"_BoxFilled", QT_TRANSLATE_NOOP("host_qt_ui", "Box filled")},
  {"_DatumBlank", QT_TRANSLATE_NOOP("host_qt_ui", "Datum triangle")},
  {"_DatumFilled", QT_TRANSLATE_NOOP("host_qt_ui", "Datum triangle filled")},
  {"_Integral", QT_TRANSLATE_NOOP("host_qt_ui", "Integral")},
  {"_None", QT_TRANSLATE_NOOP("host_qt_ui", "None")},
};

const Standard* standardOf(const QString& blockName)
{
  for (const Standard& s : kStandard)
    if (blockName.compare(QLatin1String(s.block), Qt::CaseInsensitive) == 0)
      return &s;
  return nullptr;
}

} // namespace

QHostArrowHeadListModel::QHostArrowHeadListModel(QObject* parent) : QHostPictureListModel(parent) {}

void QHostArrowHeadListModel::setCurrentDatabase(OdDbDatabase* database)
{
  m_database = database;
}

QHostPictureListModel::Entry QHostArrowHeadListModel::entryOf(const OdDbObjectId& id) const
{
  const OdDbBlockTableRecord* block = m_database ? m_database->openBlock(id) : nullptr;
  const QString name = block ? toQString(block->getName()) : QString();
  return {arrowText(name), arrowPicture(name), QVariant::fromValue<qulonglong>(id.getHandle()), {}};
}

void QHostArrowHeadListModel::init(int options)
{
  m_added.clear();
  QVector<Entry> entries;
  entries.append(entryOf(OdDbObjectId::kNull));
  if (m_database)
  {
    // One walk over the drawing's blocks: looking each standard name up searched them all every time.
    const int standardCount = int(sizeof kStandard / sizeof kStandard[0]);
    QVector<OdDbObjectId> standard(standardCount);
    QVector<OdDbObjectId> own;
    for (const OdDbObjectId& id : m_database->getBlockIds())
    {
      const OdDbBlockTableRecord* block = m_database->openBlock(id);
      if (!block)
        continue;
      const QString name = toQString(block->getName());
      if (const Standard* s = standardOf(name))
      {
        // The first block of a name is the one the drawing means by it.
        OdDbObjectId& slot = standard[int(s - kStandard)];
        if (*s->block && slot.isNull())
          slot = id;
      }
      // Anonymous and layout blocks are nothing a user draws as an arrow.
      else if ((options & ArrowDrawingBlocks) && !block->isLayout() && !name.startsWith(QLatin1Char('*')))
        own.append(id);
    }
    for (const OdDbObjectId& id : standard)
      if (!id.isNull())
        entries.append(entryOf(id));
    for (const OdDbObjectId& id : own)
      entries.append(entryOf(id));
  }
  setEntries(entries);
}

int QHostArrowHeadListModel::findId(const OdDbObjectId& id) const
{
  return rowOfKey(QVariant::fromValue<qulonglong>(id.getHandle()));
}

OdDbObjectId QHostArrowHeadListModel::idAt(int row) const
{
  if (row < 0 || row >= entries().size())
    return OdDbObjectId::kNull;
  return OdDbObjectId(entries()[row].key.toULongLong());
}

int QHostArrowHeadListModel::addBlock(const OdDbObjectId& id)
{
  const int known = findId(id);
  if (known >= 0)
    return known;
  if (!m_database || !m_database->openBlock(id))
    return -1;
  QVector<Entry> grown = entries();
  grown.append(entryOf(id));
  setEntries(grown);
  return grown.size() - 1;
}

QString QHostArrowHeadListModel::arrowText(const QString& blockName)
{
  if (const Standard* s = standardOf(blockName))
    return QCoreApplication::translate("host_qt_ui", s->text);
  return blockName;
}

QIcon QHostArrowHeadListModel::arrowPicture(const QString& blockName)
{
  const Standard* standard = standardOf(blockName);
  const QString kind = standard ? QLatin1String(standard->block) : QStringLiteral("user");
  const QColor ink = hostQtPictureInk();
  return hostQtKeptPicture("arrow" + kind.toLatin1(), pictureSize(), ink, [kind, ink](QPainter& p, const QRectF& area) {
    // The arrow points left at the tip; the dimension line runs off to the right.
    const double h = area.height();
    const double cy = area.center().y();
    const QPointF tip(area.left() + 3, cy);
    const double len = h * 0.8;
    const double half = h * 0.25;
    const QPen pen(ink, 1.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    p.setPen(pen);
    p.setBrush(Qt::NoBrush);
    double lineFrom = tip.x();
    const QPolygonF triangle({tip, QPointF(tip.x() + len, cy - half), QPointF(tip.x() + len, cy + half)});
    const QRectF dot(tip.x(), cy - half, 2 * half, 2 * half);
    const QRectF smallDot(tip.x(), cy - half / 2, half, half);
    if (kind.isEmpty() || kind == QLatin1String("_DatumFilled"))
    {
      p.setBrush(ink);
      p.drawPolygon(triangle);
      lineFrom = tip.x() + len;
    }
    else if (kind == QLatin1String("_ClosedBlank") || kind == QLatin1String("_DatumBlank"))
    {
      p.drawPolygon(triangle);
      lineFrom = tip.x() + len;
    }
    else if (kind == QLatin1String("_Closed"))
    {
      p.drawPolygon(triangle);
    }
    else if (kind == QLatin1String("_Dot") || kind == QLatin1String("_DotSmall"))
    {
      p.setBrush(ink);
      p.drawEllipse(kind == QLatin1String("_Dot") ? dot : smallDot);
    }
    else if (kind == QLatin1String("_DotBlank") || kind == QLatin1String("_Small") || kind == QLatin1String("_Origin"))
    {
      p.drawEllipse(kind == QLatin1String("_Small") ? smallDot : dot);
      lineFrom = (kind == QLatin1String("_Small") ? smallDot : dot).right();
    }
    else if (kind == QLatin1String("_Origin2"))
    {
      p.drawEllipse(dot);
      p.drawEllipse(dot.adjusted(half / 2, half / 2, -half / 2, -half / 2));
      lineFrom = dot.right();
    }
    else if (kind == QLatin1String("_ArchTick") || kind == QLatin1String("_Oblique"))
    {
      if (kind == QLatin1String("_ArchTick"))
        p.setPen(QPen(ink, 2.5, Qt::SolidLine, Qt::FlatCap));
      p.drawLine(QPointF(tip.x() + 4 - half, cy + half), QPointF(tip.x() + 4 + half, cy - half));
      p.setPen(pen);
    }
    else if (kind == QLatin1String("_Open") || kind == QLatin1String("_Open30") || kind == QLatin1String("_Open90"))
    {
      const double spread = kind == QLatin1String("_Open30") ? half * 0.55 : kind == QLatin1String("_Open90") ? len / 2 : half;
      const double reach = kind == QLatin1String("_Open90") ? len / 2 : len;
      p.drawPolyline(QPolygonF({QPointF(tip.x() + reach, cy - spread), tip, QPointF(tip.x() + reach, cy + spread)}));
    }
    else if (kind == QLatin1String("_BoxBlank") || kind == QLatin1String("_BoxFilled"))
    {
      if (kind == QLatin1String("_BoxFilled"))
        p.setBrush(ink);
      p.drawRect(dot);
      lineFrom = dot.right();
    }
    else if (kind == QLatin1String("_Integral"))
    {
      QPainterPath s;
      s.moveTo(tip.x(), cy + half);
      s.cubicTo(tip.x() + half * 2, cy + half * 2, tip.x(), cy - half * 2, tip.x() + half * 2, cy - half);
      p.drawPath(s);
    }
    else if (kind == QLatin1String("user"))
    {
      p.drawRect(QRectF(tip.x(), cy - half, len, 2 * half));
      p.drawLine(QPointF(tip.x(), cy - half), QPointF(tip.x() + len, cy + half));
      lineFrom = tip.x() + len;
    }
    // "_None" draws the dimension line alone.
    p.setBrush(Qt::NoBrush);
    p.drawLine(QPointF(lineFrom, cy), QPointF(area.right() - 2, cy));
  });
}

} // namespace host_qt_ui

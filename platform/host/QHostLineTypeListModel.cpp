#include "QHostLineTypeListModel.h"

#include "OdDbDatabase.h"
#include "OdDbLinetypeTableRecord.h"
#include "OdStringQt.h"
#include "hostQtPicture.h"
#include <cmath>

namespace host_qt_ui
{

QHostLineTypeListModel::QHostLineTypeListModel(QObject* parent) : QHostPictureListModel(parent) {}

void QHostLineTypeListModel::init(int options, OdDbDatabase* database)
{
  m_database = database;
  QVector<Entry> entries;
  if (database)
  {
    const OdDbObjectId byLayer = database->getLinetypeByLayerId();
    const OdDbObjectId byBlock = database->getLinetypeByBlockId();
    auto add = [&](const OdDbObjectId& id) {
      const OdDbLinetypeTableRecord* linetype = database->openLinetype(id);
      if (!linetype)
        return;
      const bool deferring = id == byLayer || id == byBlock;
      entries.append({toQString(linetype->getName()), linetypePicture(deferring ? nullptr : linetype),
                      QVariant::fromValue<qulonglong>(id.getHandle()), toQString(linetype->comments())});
    };
    if (options & LineTypeByLayer)
      add(byLayer);
    if (options & LineTypeByBlock)
      add(byBlock);
    for (const OdDbObjectId& id : database->getLinetypeIds())
      if (id != byLayer && id != byBlock)
        add(id);
  }
  setEntries(entries);
}

int QHostLineTypeListModel::findRow(const OdDbObjectId& id) const
{
  return rowOfKey(QVariant::fromValue<qulonglong>(id.getHandle()));
}

OdDbObjectId QHostLineTypeListModel::idAt(int row) const
{
  if (row < 0 || row >= entries().size())
    return OdDbObjectId::kNull;
  return OdDbObjectId(entries()[row].key.toULongLong());
}

void QHostLineTypeListModel::setByLayerLinetype(const OdDbObjectId& id)
{
  if (!m_database)
    return;
  setPicture(findRow(m_database->getLinetypeByLayerId()), linetypePicture(m_database->openLinetype(id)));
}

QIcon QHostLineTypeListModel::linetypePicture(const OdDbLinetypeTableRecord* linetype)
{
  const QColor ink = hostQtPictureInk();
  // Copied out, so that the picture does not depend on the record living on.
  QVector<double> dashes;
  double pattern = 0.0;
  if (linetype)
  {
    for (int i = 0; i < linetype->numDashes(); ++i)
      dashes.append(linetype->dashLengthAt(i));
    pattern = linetype->patternLength();
  }
  QByteArray key("linetype");
  key.append(reinterpret_cast<const char*>(&pattern), sizeof pattern)
    .append(reinterpret_cast<const char*>(dashes.constData()), int(dashes.size() * sizeof(double)));
  return hostQtKeptPicture(key, pictureSize(), ink, [=](QPainter& p, const QRectF& area) {
    const double y = std::floor(area.center().y()) + 0.5;
    const double left = area.left() + 2;
    const double right = area.right() - 2;
    p.setPen(QPen(ink, 1.0, Qt::SolidLine, Qt::FlatCap));
    if (dashes.isEmpty() || pattern <= 0.0)
    {
      p.drawLine(QPointF(left, y), QPointF(right, y));
      return;
    }
    // Two repetitions fill the picture, whatever the pattern's units.
    const double scale = (right - left) / (2.0 * pattern);
    double x = left;
    for (int guard = 0; x < right && guard < 1000; ++guard)
    {
      const double length = dashes[guard % dashes.size()] * scale;
      if (length > 0)
        p.drawLine(QPointF(x, y), QPointF(std::min(x + length, right), y));
      else if (length == 0)
        p.drawPoint(QPointF(x, y));
      x += std::max(std::fabs(length), 1.0);
    }
  });
}

} // namespace host_qt_ui

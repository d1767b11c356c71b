#include "QHostLineWeightListModel.h"

#include "OdDbDatabase.h"
#include "hostQtPicture.h"
#include <QCoreApplication>

namespace host_qt_ui
{

QHostLineWeightListModel::QHostLineWeightListModel(QObject* parent) : QHostPictureListModel(parent) {}

void QHostLineWeightListModel::setDatabase(OdDbDatabase* database)
{
  m_database = database;
}

void QHostLineWeightListModel::init(int options)
{
  QVector<Entry> entries;
  if (options & LineWeightByLayer)
    entries.append({weightText(OdDb::kLnWtByLayer), weightPicture(OdDb::kLnWtByLayer), int(OdDb::kLnWtByLayer), {}});
  if (options & LineWeightByBlock)
    entries.append({weightText(OdDb::kLnWtByBlock), weightPicture(OdDb::kLnWtByBlock), int(OdDb::kLnWtByBlock), {}});
  if (options & LineWeightDefault)
  {
    const OdDb::LineWeight standsFor = m_database ? m_database->getLWDEFAULT() : OdDb::kLnWt025;
    entries.append({weightText(OdDb::kLnWtByLwDefault), weightPicture(standsFor), int(OdDb::kLnWtByLwDefault),
                    weightText(standsFor)});
  }
  for (OdDb::LineWeight weight : OdDb::kStandardLineWeights)
    entries.append({weightText(weight), weightPicture(weight), int(weight), {}});
  setEntries(entries);
}

int QHostLineWeightListModel::findRow(OdDb::LineWeight weight) const
{
  return rowOfKey(int(weight));
}

OdDb::LineWeight QHostLineWeightListModel::weightAt(int row) const
{
  if (row < 0 || row >= entries().size())
    return OdDb::kLnWtByLayer;
  return OdDb::LineWeight(entries()[row].key.toInt());
}

void QHostLineWeightListModel::setByLayerWeight(OdDb::LineWeight weight)
{
  setPicture(findRow(OdDb::kLnWtByLayer), weightPicture(weight));
}

void QHostLineWeightListModel::setDefaultWeight(OdDb::LineWeight weight)
{
  setPicture(findRow(OdDb::kLnWtByLwDefault), weightPicture(weight));
}

QString QHostLineWeightListModel::weightText(OdDb::LineWeight weight)
{
  switch (weight)
  {
  case OdDb::kLnWtByLayer: return QCoreApplication::translate("host_qt_ui", "ByLayer");
  case OdDb::kLnWtByBlock: return QCoreApplication::translate("host_qt_ui", "ByBlock");
  case OdDb::kLnWtByLwDefault: return QCoreApplication::translate("host_qt_ui", "Default");
  default: return QCoreApplication::translate("host_qt_ui", "%1 mm").arg(weight / 100.0, 0, 'f', 2);
  }
}

QIcon QHostLineWeightListModel::weightPicture(OdDb::LineWeight weight)
{
  // The entries that defer to something else are drawn empty, whatever the ink.
  const QColor ink = weight < 0 ? QColor(Qt::transparent) : hostQtPictureInk();
  QByteArray key("lineweight");
  const qint32 width = weight < 0 ? -1 : qint32(weight);
  key.append(reinterpret_cast<const char*>(&width), sizeof width);
  if (weight < 0)
    return hostQtKeptPicture(key, pictureSize(), ink, [](QPainter&, const QRectF&) {});
  return hostQtKeptPicture(key, pictureSize(), ink, [weight, ink](QPainter& p, const QRectF& area) {
    // The widest standard weight, 2.11 mm, gets half the picture's height.
    const double height = std::max(1.0, weight / 211.0 * area.height() / 2.0);
    const QRectF line(area.left() + 2, area.center().y() - height / 2, area.width() - 4, height);
    p.fillRect(line, ink);
  });
}

} // namespace host_qt_ui

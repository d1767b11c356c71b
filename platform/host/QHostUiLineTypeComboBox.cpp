#include "QHostUiLineTypeComboBox.h"

#include "OdDbDatabase.h"
#include "OdDbLinetypeTableRecord.h"
#include "OdStringQt.h"
#include "QHostComboBrowseFilter.h"
#include "QHostUiChoosers.h"
#include "hostQtPicture.h"
#include <QCoreApplication>
#include <QPointer>
#include <QTimer>

namespace host_qt_ui
{

namespace
{

// The chooser entry carries a key too, so that nobody takes it for an entry without one.
QVariant chooserKey()
{
  return QVariant(QStringLiteral("other-linetype"));
}

QVariant keyOf(const OdDbObjectId& id)
{
  return QVariant::fromValue<qulonglong>(id.getHandle());
}

} // namespace

QHostUiLineTypeComboBox::QHostUiLineTypeComboBox(QWidget* parent)
  : QHostComboBox(parent), m_list(new QHostLineTypeListModel(this))
{
  setIconSize(QHostPictureListModel::pictureSize());
  // Connected first, so the chooser entry is handled before anyone else hears of it.
  connect(this, QOverload<int>::of(&QComboBox::activated), this, &QHostUiLineTypeComboBox::onOwnActivated);
  connect(this, QOverload<int>::of(&QComboBox::currentIndexChanged), this, [this](int index) {
    if (index >= 0 && index != chooserIndex())
      m_previous = index;
  });
  // Arrowing over "Other..." must not open the chooser.
  host_qt_ui_core::QHostComboBrowseFilter::install(this)->setChooserEntry(
    [this](int index) { return index >= 0 && index == chooserIndex(); });
  rebuild();
}

void QHostUiLineTypeComboBox::setLineTypeOption(LineTypeOptions options)
{
  // A control hands on all its options; only these decide the entries.
  const LineTypeOptions listed = LineTypeByLayer | LineTypeByBlock | LineTypeOther;
  const bool sameEntries = (options & listed) == (m_options & listed);
  m_options = options;
  if (!sameEntries)
    rebuild();
}

void QHostUiLineTypeComboBox::setDatabase(OdDbDatabase* database)
{
  m_database = database;
  rebuild();
}

int QHostUiLineTypeComboBox::chooserIndex() const
{
  const int last = count() - 1;
  return last >= 0 && itemData(last, Qt::UserRole) == chooserKey() ? last : -1;
}

void QHostUiLineTypeComboBox::rebuild()
{
  const OdDbObjectId current = selectedLineType();
  const QSignalBlocker quiet(this);
  clear();
  m_byLayerPicture = 0;
  m_list->init(int(m_options), m_database);
  m_list->appendTo(this);
  if (m_options & LineTypeOther)
    addItem(QCoreApplication::translate("host_qt_ui", "Other..."), chooserKey());
  setCurrentIndex(current.isNull() ? -1 : findLinetype(current));
  m_previous = currentIndex();
}

int QHostUiLineTypeComboBox::findLinetype(const OdDbObjectId& id) const
{
  return findKeyFast(id.getHandle());
}

void QHostUiLineTypeComboBox::setLinetypeByLayer(const OdDbObjectId& id, bool resolved)
{
  if (!m_database)
    return;
  const int row = findLinetype(m_database->getLinetypeByLayerId());
  if (row < 0)
    return;
  // Every refresh of the control lands here, and nearly always finds the picture already shown.
  const OdDbLinetypeTableRecord* linetype = resolved ? m_database->openLinetype(id) : nullptr;
  if (byLayerShows(linetype, row))
    return;
  const QIcon picture = QHostLineTypeListModel::linetypePicture(linetype);
  if (itemIcon(row).cacheKey() != picture.cacheKey())
    setItemIcon(row, picture);
  m_byLayerInk = hostQtPictureInk().rgba();
  m_byLayerPicture = picture.cacheKey();
  m_byLayerPattern = linetype ? linetype->patternLength() : 0.0;
  m_byLayerDashes.clear();
  for (int i = 0; linetype && i < linetype->numDashes(); ++i)
    m_byLayerDashes.append(linetype->dashLengthAt(i));
}

bool QHostUiLineTypeComboBox::byLayerShows(const OdDbLinetypeTableRecord* linetype, int row) const
{
  // The picture is drawn from the dashes alone, so equal dashes show the same picture.
  const int dashes = linetype ? linetype->numDashes() : 0;
  const double pattern = linetype ? linetype->patternLength() : 0.0;
  if (m_byLayerPicture == 0 || dashes != m_byLayerDashes.size() || pattern != m_byLayerPattern ||
      hostQtPictureInk().rgba() != m_byLayerInk || itemIcon(row).cacheKey() != m_byLayerPicture)
    return false;
  for (int i = 0; i < dashes; ++i)
    if (linetype->dashLengthAt(i) != m_byLayerDashes[i])
      return false;
  return true;
}

int QHostUiLineTypeComboBox::setSelectedLineType(const OdDbObjectId& id)
{
  int index = id.isNull() ? -1 : findLinetype(id);
  if (index < 0 && m_database && m_database->openLinetype(id))
  {
    // A linetype the list leaves out (ByBlock without its option): shown all the same.
    const int at = chooserIndex() >= 0 ? chooserIndex() : count();
    const OdDbLinetypeTableRecord* linetype = m_database->openLinetype(id);
    insertItem(at, QHostLineTypeListModel::linetypePicture(linetype), toQString(linetype->getName()), keyOf(id));
    index = at;
  }
  setCurrentIndex(index);
  return index;
}

OdDbObjectId QHostUiLineTypeComboBox::selectedLineType() const
{
  const QVariant key = currentIndex() >= 0 ? itemData(currentIndex(), Qt::UserRole) : QVariant();
  if (key.userType() != QMetaType::ULongLong)
    return OdDbObjectId::kNull;
  return OdDbObjectId(key.toULongLong());
}

void QHostUiLineTypeComboBox::onOwnActivated(int index)
{
  if (index < 0 || index != chooserIndex())
    return;
  // "Other..." is never what the picker shows.
  setCurrentIndex(m_previous);
  QTimer::singleShot(0, this, [this]() {
    OdDbObjectId id = selectedLineType();
    const QPointer<QHostUiLineTypeComboBox> self(this);
    const bool picked = QHostUiChoosers::chooseLineType(this, m_database, id);
    // The picker may have been deleted while its chooser was open.
    if (!self || !picked)
      return;
    const int shown = setSelectedLineType(id);
    if (shown >= 0)
      Q_EMIT activated(shown);
  });
}

} // namespace host_qt_ui

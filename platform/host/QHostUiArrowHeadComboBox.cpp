#include "QHostUiArrowHeadComboBox.h"

#include "QHostComboBrowseFilter.h"
#include "QHostUiChoosers.h"
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
  return QVariant(QStringLiteral("user-arrow"));
}

} // namespace

QHostUiArrowHeadComboBox::QHostUiArrowHeadComboBox(QWidget* parent)
  : QHostComboBox(parent), m_list(new QHostArrowHeadListModel(this))
{
  setIconSize(QHostPictureListModel::pictureSize());
  // Connected first, so the chooser entry is handled before anyone else hears of it.
  connect(this, QOverload<int>::of(&QComboBox::activated), this, &QHostUiArrowHeadComboBox::onOwnActivated);
  connect(this, QOverload<int>::of(&QComboBox::currentIndexChanged), this, [this](int index) {
    if (index >= 0 && index != chooserIndex())
      m_previous = index;
  });
  // Arrowing over "User Arrow..." must not open the chooser.
  host_qt_ui_core::QHostComboBrowseFilter::install(this)->setChooserEntry(
    [this](int index) { return index >= 0 && index == chooserIndex(); });
  rebuild();
}

void QHostUiArrowHeadComboBox::setArrowOptions(ArrowOptions options)
{
  // A control hands on all its options; only these decide the entries.
  const ArrowOptions listed = ArrowUserArrow | ArrowDrawingBlocks;
  const bool sameEntries = (options & listed) == (m_options & listed);
  m_options = options;
  if (!sameEntries)
    rebuild();
}

void QHostUiArrowHeadComboBox::setCurrentDatabase(OdDbDatabase* database)
{
  m_list->setCurrentDatabase(database);
  rebuild();
}

int QHostUiArrowHeadComboBox::chooserIndex() const
{
  const int last = count() - 1;
  return last >= 0 && itemData(last, Qt::UserRole) == chooserKey() ? last : -1;
}

void QHostUiArrowHeadComboBox::rebuild()
{
  OdDbObjectId current;
  const bool hadCurrent = getSelected(current);
  const QSignalBlocker quiet(this);
  clear();
  m_list->init(int(m_options));
  m_list->appendTo(this);
  if (m_options & ArrowUserArrow)
    addItem(QCoreApplication::translate("host_qt_ui", "User Arrow..."), chooserKey());
  setCurrentIndex(hadCurrent ? m_list->findId(current) : -1);
  m_previous = currentIndex();
}

int QHostUiArrowHeadComboBox::setSelected(const OdDbObjectId& id)
{
  int index = m_list->findId(id);
  if (index < 0)
  {
    const int row = m_list->addBlock(id);
    if (row >= 0)
    {
      const QModelIndex added = m_list->index(row, 0);
      index = chooserIndex() >= 0 ? chooserIndex() : count();
      insertItem(index, m_list->data(added, Qt::DecorationRole).value<QIcon>(), m_list->data(added).toString(),
                 m_list->data(added, Qt::UserRole));
    }
  }
  setCurrentIndex(index);
  return index;
}

bool QHostUiArrowHeadComboBox::getSelected(OdDbObjectId& id) const
{
  const QVariant key = currentIndex() >= 0 ? itemData(currentIndex(), Qt::UserRole) : QVariant();
  if (key.userType() != QMetaType::ULongLong)
    return false;
  id = OdDbObjectId(key.toULongLong());
  return true;
}

void QHostUiArrowHeadComboBox::onOwnActivated(int index)
{
  if (index < 0 || index != chooserIndex())
    return;
  // Left current until the chooser closes, so that nobody takes it for an arrowhead meanwhile.
  QTimer::singleShot(0, this, [this]() {
    const int before = m_previous;
    OdDbObjectId id;
    const QPointer<QHostUiArrowHeadComboBox> self(this);
    const bool chosen = QHostUiChoosers::chooseArrowBlock(this, m_list->currentDatabase(), id);
    // The picker may have been deleted while its chooser was open.
    if (!self)
      return;
    if (!chosen)
    {
      setCurrentIndex(before);
      return;
    }
    const int picked = setSelected(id);
    if (picked >= 0)
      Q_EMIT activated(picked);
    else
      setCurrentIndex(before);
  });
}

} // namespace host_qt_ui

#include "QHostUiColorComboBox.h"

#include "QHostComboBrowseFilter.h"
#include "QHostUiChoosers.h"
#include "hostColors.h"
#include "hostQtPicture.h"
#include <QCoreApplication>
#include <QPointer>
#include <QVector>
#include <QTimer>

namespace host_qt_ui
{

namespace
{

const int kSwatch = 16;

QVariant keyOf(const OdCmColor& color)
{
  return QVariant::fromValue<qulonglong>(color.color());
}

// The chooser entry carries a key too, so that nobody takes it for an entry without one.
QVariant chooserKey()
{
  return QVariant(QStringLiteral("select-colour"));
}

/**
 * Postpones the deferred deletion of a widget and of everything that would
 * take it down (its ancestors) until the hold ends, when it is asked for again.
 */
class DeferredDeleteHold : public QObject
{
public:
  explicit DeferredDeleteHold(QWidget* widget) : m_widget(widget)
  {
    QCoreApplication::instance()->installEventFilter(this);
  }

  ~DeferredDeleteHold() override
  {
    for (const QPointer<QObject>& held : qAsConst(m_held))
      if (held)
        held->deleteLater();
  }

  DeferredDeleteHold(const DeferredDeleteHold&) = delete;
  DeferredDeleteHold& operator=(const DeferredDeleteHold&) = delete;

protected:
  bool eventFilter(QObject* watched, QEvent* event) override
  {
    if (event->type() != QEvent::DeferredDelete || !m_widget)
      return false;
    for (QObject* doomed = m_widget; doomed; doomed = doomed->parent())
      if (doomed == watched)
      {
        m_held.append(watched);
        return true;
      }
    return false;
  }

private:
  QPointer<QWidget> m_widget;
  QVector<QPointer<QObject> > m_held;
};

} // namespace

QHostUiColorComboBox::QHostUiColorComboBox(QWidget* parent, OtherAddingMode mode) : QHostComboBox(parent), m_mode(mode)
{
  // Setting an icon size builds the popup's view at once, a good part of a picker's cost; the
  // style's small icon size is usually the swatch's already.
  if (iconSize() != QSize(kSwatch, kSwatch))
    setIconSize(QSize(kSwatch, kSwatch));
  // Connected first, so the chooser has run before anyone else hears of the activation.
  connect(this, QOverload<int>::of(&QComboBox::activated), this, &QHostUiColorComboBox::onOwnActivated);
  connect(this, QOverload<int>::of(&QComboBox::currentIndexChanged), this, [this](int index) {
    if (index >= 0 && index != chooserIndex())
      m_previous = index;
  });
  // Arrowing over "Select Colour..." must not open the chooser.
  host_qt_ui_core::QHostComboBrowseFilter::install(this)->setChooserEntry([this](int index) { return index == chooserIndex(); });
  rebuild();
}

void QHostUiColorComboBox::setColorOptions(ColorOptions options)
{
  const ColorOptions listed = ColorByLayer | ColorByBlock;
  const bool sameEntries = (options & listed) == (m_options & listed);
  m_options = options;
  // The other options change how a pick arrives, not what is listed.
  if (!sameEntries)
    rebuild();
}

void QHostUiColorComboBox::setDatabase(OdDbDatabase* database)
{
  m_database = database;
}

void QHostUiColorComboBox::rebuild()
{
  const OdCmColor current = getSelectedColor();
  const QSignalBlocker quiet(this);
  clear();
  m_byLayerPicture = 0;
  if (m_options & ColorByLayer)
    addItem(colorPicture(m_byLayerResolved ? m_byLayerShows : OdCmColor()),
            hostQtColorName(OdCmColor(OdCmEntityColor::kByLayer)), keyOf(OdCmColor(OdCmEntityColor::kByLayer)));
  if (m_options & ColorByBlock)
  {
    const OdCmColor byBlock(OdCmEntityColor::kByBlock);
    addItem(colorPicture(byBlock), hostQtColorName(byBlock), keyOf(byBlock));
  }
  for (OdInt16 index = OdCmEntityColor::kACIRed; index <= OdCmEntityColor::kACIforeground; ++index)
  {
    OdCmColor standard;
    standard.setColorIndex(index);
    addItem(colorPicture(standard), hostQtColorName(standard), keyOf(standard));
  }
  for (const OdCmColor& color : m_added)
    if (findColor(color) < 0)
      addItem(colorPicture(color), hostQtColorName(color), keyOf(color));
  addItem(QCoreApplication::translate("host_qt_ui", "Select Colour..."), chooserKey());
  setCurrentIndex(findColor(current));
  m_previous = currentIndex() != chooserIndex() ? currentIndex() : -1;
}

QIcon QHostUiColorComboBox::colorPicture(const OdCmColor& color)
{
  return hostQtGetColorIcon(color, kSwatch, kSwatch);
}

int QHostUiColorComboBox::findColor(const OdCmColor& color) const
{
  return findKeyFast(color.color());
}

int QHostUiColorComboBox::insertColor(const OdCmColor& color)
{
  const int at = chooserIndex();
  insertItem(at, colorPicture(color), hostQtColorName(color), keyOf(color));
  return at;
}

int QHostUiColorComboBox::addColor(const OdCmColor& color)
{
  const int known = findColor(color);
  if (known >= 0)
    return known;
  if (m_mode == ReplaceOther && !m_added.empty())
  {
    const int slot = findColor(m_added.back());
    m_added.back() = color;
    if (slot >= 0)
    {
      setItemIcon(slot, colorPicture(color));
      setItemText(slot, hostQtColorName(color));
      setItemData(slot, keyOf(color), Qt::UserRole);
      return slot;
    }
    return insertColor(color);
  }
  m_added.push_back(color);
  return insertColor(color);
}

int QHostUiColorComboBox::setSelectedColor(const OdCmColor& color)
{
  // ByLayer or ByBlock that this picker does not offer stays unlisted.
  if ((color.isByLayer() && !(m_options & ColorByLayer)) || (color.isByBlock() && !(m_options & ColorByBlock)))
  {
    setCurrentIndex(-1);
    return -1;
  }
  const int index = addColor(color);
  setCurrentIndex(index);
  return index;
}

OdCmColor QHostUiColorComboBox::getSelectedColor() const
{
  OdCmColor color;
  const QVariant key = currentIndex() >= 0 ? itemData(currentIndex(), Qt::UserRole) : QVariant();
  if (key.userType() == QMetaType::ULongLong)
    color.setColor(OdUInt32(key.toULongLong()));
  return color;
}

void QHostUiColorComboBox::setColorByLayer(const OdCmColor& layerColor, bool resolved)
{
  const bool sameColour = resolved == m_byLayerResolved && (!resolved || layerColor == m_byLayerShows);
  m_byLayerShows = layerColor;
  m_byLayerResolved = resolved;
  // Offered, ByLayer is the first entry; otherwise it is listed only when it was added as a colour.
  const int byLayer = (m_options & ColorByLayer) ? 0 : findColor(OdCmColor(OdCmEntityColor::kByLayer));
  if (byLayer < 0)
    return;
  // Every refresh of the control lands here, and nearly always with the picture already shown.
  const QRgb ink = hostQtPictureInk().rgba();
  if (sameColour && ink == m_byLayerInk && itemIcon(byLayer).cacheKey() == m_byLayerPicture)
    return;
  const QIcon picture = colorPicture(resolved ? layerColor : OdCmColor());
  if (itemIcon(byLayer).cacheKey() != picture.cacheKey())
    setItemIcon(byLayer, picture);
  m_byLayerInk = ink;
  m_byLayerPicture = picture.cacheKey();
}

void QHostUiColorComboBox::onOwnActivated(int index)
{
  if (index != chooserIndex())
    return;
  if (!(m_options & ColorAnnouncePicked))
  {
    runChooser(false);
    return;
  }
  // The chooser entry is never what the picker shows.
  setCurrentIndex(m_previous);
  QTimer::singleShot(0, this, [this]() { runChooser(true); });
}

void QHostUiColorComboBox::runChooser(bool announce)
{
  const int before = m_previous;
  OdCmColor color = getSelectedColor();
  const QPointer<QHostUiColorComboBox> self(this);
  bool picked = false;
  if (announce)
  {
    picked = QHostUiChoosers::chooseColor(this, color);
  }
  else
  {
    // Inside the activation, QComboBox goes on with itself once its receivers
    // are done: the picker must outlive the chooser's event loop.
    const DeferredDeleteHold hold(this);
    picked = QHostUiChoosers::chooseColor(this, color);
  }
  // A deletion the host asked for before the chooser opened has happened in its event loop.
  if (!self)
    return;
  if (!picked)
  {
    setCurrentIndex(before);
    return;
  }
  const int index = setSelectedColor(color);
  if (announce && index >= 0)
    Q_EMIT activated(index);
}

} // namespace host_qt_ui

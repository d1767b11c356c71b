#include "QHostUiChoosers.h"

#include "OdDbBlockTableRecord.h"
#include "OdDbDatabase.h"
#include "OdDbLinetypeTableRecord.h"
#include "OdStringQt.h"
#include "hostColors.h"
#include <QAccessible>
#include <QAccessibleWidget>
#include <QColorDialog>
#include <QCoreApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QHash>
#include <QInputDialog>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QPushButton>
#include <QRegion>
#include <QVBoxLayout>

namespace host_qt_ui
{

namespace
{

QHostUiChoosers::ColorChooser& colorHook()
{
  static QHostUiChoosers::ColorChooser hook;
  return hook;
}

QHostUiChoosers::ObjectChooser& lineTypeHook()
{
  static QHostUiChoosers::ObjectChooser hook;
  return hook;
}

QHostUiChoosers::ObjectChooser& arrowHook()
{
  static QHostUiChoosers::ObjectChooser hook;
  return hook;
}

QString tr(const char* text)
{
  return QCoreApplication::translate("host_qt_ui", text);
}

// Inside a widget, tr is QObject's, which would file the palette's texts
// under "QWidget" rather than with the host's other texts.
QString colourText(const char* text)
{
  return QCoreApplication::translate("host_qt_ui", text);
}

/** The 255 palette colours as a grid of cells; a click, or Enter on the current cell, picks one. */
class AciPalette : public QWidget
{
public:
  static constexpr int kColumns = 24;
  static constexpr int kCell = 14;
  static constexpr int kColours = 255;

  explicit AciPalette(QWidget* parent) : QWidget(parent)
  {
    setObjectName(QStringLiteral("palette"));
    setFixedSize(kColumns * kCell + 1, rows() * kCell + 1);
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(colourText("Palette colours"));
  }

  std::function<void(int)> picked;

  /** The current colour's number; 0 while none is current. */
  int current() const { return m_current; }
  void setCurrent(int index)
  {
    if (index == m_current || index < 0 || index > kColours)
      return;
    m_current = index;
    update();
    if (index > 0 && hasFocus() && QAccessible::isActive())
    {
      QAccessibleEvent moved(this, QAccessible::Focus);
      moved.setChild(index - 1);
      QAccessible::updateAccessibility(&moved);
    }
  }

  static QRect cellOf(int index)
  {
    const int i = index - 1;
    return QRect((i % kColumns) * kCell, (i / kColumns) * kCell, kCell, kCell);
  }

  /** The number under a point of the palette; 0 between and outside the cells. */
  static int indexAt(const QPoint& point)
  {
    if (point.x() < 0 || point.y() < 0 || point.x() >= kColumns * kCell)
      return 0;
    const int index = point.y() / kCell * kColumns + point.x() / kCell + 1;
    return index <= kColours ? index : 0;
  }

  /** What assistive technology reads for a cell. */
  static QString nameOf(int index)
  {
    OdCmColor colour;
    colour.setColorIndex(OdInt16(index));
    // The standard colours have names of their own; the rest go by their number alone.
    if (index <= 7)
      return colourText("Colour %1 (%2)").arg(index).arg(hostQtColorName(colour));
    return hostQtColorName(colour);
  }

protected:
  void paintEvent(QPaintEvent*) override
  {
    QPainter p(this);
    p.setPen(palette().color(QPalette::Mid));
    for (int index = 1; index <= kColours; ++index)
    {
      const QRect cell = cellOf(index);
      const OdUInt32 rgb = OdCmEntityColor::lookUpRGB(OdUInt8(index));
      p.fillRect(cell, QColor(int(rgb >> 16) & 0xFF, int(rgb >> 8) & 0xFF, int(rgb) & 0xFF));
      p.drawRect(cell.adjusted(0, 0, -1, -1));
    }
    if (m_current < 1)
      return;
    const QRect cell = cellOf(m_current).adjusted(0, 0, 1, 1);
    if (!hasFocus())
    {
      fillRing(p, cell, 1, palette().color(QPalette::Highlight));
      return;
    }
    // A dark and a light ring read on every colour of the palette. Filled in
    // whole logical pixels rather than stroked, they cover whole device
    // pixels at any integer ratio and stay sharp.
    fillRing(p, cell, 2, palette().color(QPalette::Text));
    fillRing(p, cell.adjusted(2, 2, -2, -2), 1, palette().color(QPalette::Base));
  }

  void keyPressEvent(QKeyEvent* event) override
  {
    int to = m_current;
    switch (event->key())
    {
    case Qt::Key_Left: to -= 1; break;
    case Qt::Key_Right: to += 1; break;
    case Qt::Key_Up: to -= kColumns; break;
    case Qt::Key_Down: to += kColumns; break;
    case Qt::Key_Home: to = 1; break;
    case Qt::Key_End: to = kColours; break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
      if (m_current < 1)
      {
        event->ignore();
        return;
      }
      pick(m_current);
      return;
    default:
      // Escape goes on to the dialog, which cancels.
      QWidget::keyPressEvent(event);
      return;
    }
    // With no palette colour to start from, the first key lands on the first colour.
    if (m_current < 1)
      to = 1;
    if (to >= 1 && to <= kColours)
      setCurrent(to);
  }

  void mouseReleaseEvent(QMouseEvent* event) override
  {
    const int index = indexAt(event->pos());
    if (index > 0)
    {
      setCurrent(index);
      pick(index);
    }
  }

private:
  static int rows() { return (kColours + kColumns - 1) / kColumns; }

  static void fillRing(QPainter& p, const QRect& outer, int width, const QColor& colour)
  {
    const QRegion ring = QRegion(outer).subtracted(QRegion(outer.adjusted(width, width, -width, -width)));
    for (const QRect& part : ring)
      p.fillRect(part, colour);
  }

  void pick(int index)
  {
    if (picked)
      picked(index);
  }

  int m_current = 0;
};

/** A cell of the palette, as assistive technology sees it. */
class AccessibleAciCell : public QAccessibleInterface
{
public:
  AccessibleAciCell(AciPalette* palette, int index) : m_palette(palette), m_index(index) {}

  bool isValid() const override { return !m_palette.isNull(); }
  QObject* object() const override { return nullptr; }
  QWindow* window() const override { return m_palette ? m_palette->window()->windowHandle() : nullptr; }
  QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(m_palette.data()); }
  QAccessibleInterface* child(int) const override { return nullptr; }
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface*) const override { return -1; }
  QAccessibleInterface* childAt(int, int) const override { return nullptr; }
  QString text(QAccessible::Text type) const override
  {
    return type == QAccessible::Name ? AciPalette::nameOf(m_index) : QString();
  }
  void setText(QAccessible::Text, const QString&) override {}
  QRect rect() const override
  {
    if (!m_palette)
      return QRect();
    const QRect cell = AciPalette::cellOf(m_index);
    return QRect(m_palette->mapToGlobal(cell.topLeft()), cell.size());
  }
  QAccessible::Role role() const override { return QAccessible::ListItem; }
  QAccessible::State state() const override
  {
    QAccessible::State state;
    state.focusable = true;
    state.selectable = true;
    if (m_palette && m_palette->current() == m_index)
    {
      state.selected = true;
      state.focused = m_palette->hasFocus();
    }
    return state;
  }

  int index() const { return m_index; }

private:
  QPointer<AciPalette> m_palette;
  int m_index;
};

/** The palette as a list of its cells, the current one its focus. */
class AccessibleAciPalette : public QAccessibleWidget
{
public:
  explicit AccessibleAciPalette(AciPalette* palette) : QAccessibleWidget(palette, QAccessible::List) {}
  ~AccessibleAciPalette() override
  {
    for (QAccessible::Id id : qAsConst(m_cells))
      QAccessible::deleteAccessibleInterface(id);
  }
  AccessibleAciPalette(const AccessibleAciPalette&) = delete;
  AccessibleAciPalette& operator=(const AccessibleAciPalette&) = delete;

  static QAccessibleInterface* create(const QString& className, QObject* object)
  {
    // The palette has no meta-object of its own.
    if (className != QLatin1String("QWidget"))
      return nullptr;
    auto* palette = dynamic_cast<AciPalette*>(object);
    return palette ? new AccessibleAciPalette(palette) : nullptr;
  }

  int childCount() const override { return AciPalette::kColours; }
  QAccessibleInterface* child(int index) const override
  {
    if (index < 0 || index >= AciPalette::kColours)
      return nullptr;
    // Made when first asked for, and kept: assistive technology tells cells apart by their interface.
    const auto known = m_cells.constFind(index);
    if (known != m_cells.constEnd())
      return QAccessible::accessibleInterface(known.value());
    auto* cell = new AccessibleAciCell(palette(), index + 1);
    m_cells.insert(index, QAccessible::registerAccessibleInterface(cell));
    return cell;
  }
  int indexOfChild(const QAccessibleInterface* child) const override
  {
    const auto* cell = dynamic_cast<const AccessibleAciCell*>(child);
    return cell && cell->parent() == this ? cell->index() - 1 : -1;
  }
  QAccessibleInterface* childAt(int x, int y) const override
  {
    const int index = AciPalette::indexAt(palette()->mapFromGlobal(QPoint(x, y)));
    return index > 0 ? child(index - 1) : nullptr;
  }
  QAccessibleInterface* focusChild() const override
  {
    const int current = palette()->current();
    return current > 0 ? child(current - 1) : nullptr;
  }

private:
  AciPalette* palette() const { return static_cast<AciPalette*>(widget()); }

  mutable QHash<int, QAccessible::Id> m_cells;
};

// The dialogs live on the heap and are watched: a parent deleted while
// their event loop runs (a host rebuilding its panel, a deferred deletion)
// takes them with it, which would free a dialog on the stack a second time.
bool modalColorChooser(QWidget* parent, OdCmColor& color)
{
  const QPointer<QDialog> dialog = new QDialog(parent);
  dialog->setWindowTitle(tr("Select Colour"));
  auto* layout = new QVBoxLayout(dialog);
  static const bool accessible = (QAccessible::installFactory(&AccessibleAciPalette::create), true);
  Q_UNUSED(accessible)
  auto* palette = new AciPalette(dialog);
  palette->setCurrent(color.isByACI() ? color.colorIndex() : 0);
  layout->addWidget(palette);
  // The palette is where the keys go first: it starts on the colour there is now.
  palette->setFocus();
  auto* trueColor = new QPushButton(tr("True Colour..."), dialog);
  trueColor->setAccessibleName(tr("True Colour"));
  // Enter picks from the palette; it must never open a second chooser instead.
  trueColor->setAutoDefault(false);
  layout->addWidget(trueColor);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, dialog);
  layout->addWidget(buttons);
  OdCmColor chosen = color;
  QObject::connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::reject);
  palette->picked = [&chosen, dialog](int index) {
    chosen.setColorIndex(OdInt16(index));
    dialog->accept();
  };
  const OdCmColor start = color;
  QObject::connect(trueColor, &QPushButton::clicked, dialog, [&chosen, dialog, start]() {
    const QPointer<QColorDialog> trueColors = new QColorDialog(dialog);
    trueColors->setWindowTitle(tr("True Colour"));
    trueColors->setCurrentColor(hostQtColor(start).isValid() ? hostQtColor(start) : QColor(Qt::white));
    const bool picked = trueColors->exec() == QDialog::Accepted;
    if (!trueColors)
      return;
    const QColor rgb = trueColors->selectedColor();
    delete trueColors;
    if (!picked || !rgb.isValid() || !dialog)
      return;
    chosen.setRGB(OdUInt8(rgb.red()), OdUInt8(rgb.green()), OdUInt8(rgb.blue()));
    dialog->accept();
  });
  const bool accepted = dialog->exec() == QDialog::Accepted;
  if (!dialog)
    return false;
  delete dialog;
  if (!accepted)
    return false;
  color = chosen;
  return true;
}

/** A name from a list; the ids in the same order. */
bool modalNameChooser(QWidget* parent, const QString& title, const QStringList& names,
                      const OdDbObjectIdArray& ids, OdDbObjectId& id)
{
  if (names.isEmpty())
    return false;
  bool ok = false;
  const QString name = QInputDialog::getItem(parent, title, title, names, 0, false, &ok);
  const int row = names.indexOf(name);
  if (!ok || row < 0)
    return false;
  id = ids[unsigned(row)];
  return true;
}

bool modalLineTypeChooser(QWidget* parent, OdDbDatabase* database, OdDbObjectId& id)
{
  if (!database)
    return false;
  QStringList names;
  OdDbObjectIdArray ids;
  for (const OdDbObjectId& each : database->getLinetypeIds())
    if (OdDbLinetypeTableRecord* linetype = database->openLinetype(each))
    {
      names << toQString(linetype->getName());
      ids.append(each);
    }
  return modalNameChooser(parent, tr("Linetype"), names, ids, id);
}

bool modalArrowChooser(QWidget* parent, OdDbDatabase* database, OdDbObjectId& id)
{
  if (!database)
    return false;
  QStringList names;
  OdDbObjectIdArray ids;
  for (const OdDbObjectId& each : database->getBlockIds())
  {
    OdDbBlockTableRecord* block = database->openBlock(each);
    if (block && !block->isLayout())
    {
      names << toQString(block->getName());
      ids.append(each);
    }
  }
  return modalNameChooser(parent, tr("User Arrow"), names, ids, id);
}

} // namespace

bool QHostUiChoosers::chooseColor(QWidget* parent, OdCmColor& color)
{
  return colorHook() ? colorHook()(parent, color) : modalColorChooser(parent, color);
}

bool QHostUiChoosers::chooseLineType(QWidget* parent, OdDbDatabase* database, OdDbObjectId& id)
{
  return lineTypeHook() ? lineTypeHook()(parent, database, id) : modalLineTypeChooser(parent, database, id);
}

bool QHostUiChoosers::chooseArrowBlock(QWidget* parent, OdDbDatabase* database, OdDbObjectId& id)
{
  return arrowHook() ? arrowHook()(parent, database, id) : modalArrowChooser(parent, database, id);
}

void QHostUiChoosers::setColorChooser(const ColorChooser& chooser)
{
  colorHook() = chooser;
}

void QHostUiChoosers::setLineTypeChooser(const ObjectChooser& chooser)
{
  lineTypeHook() = chooser;
}

void QHostUiChoosers::setArrowBlockChooser(const ObjectChooser& chooser)
{
  arrowHook() = chooser;
}

} // namespace host_qt_ui

#include "QHostUiChoosers.h"

#include "OdDbBlockTableRecord.h"
#include "OdDbDatabase.h"
#include "OdDbLinetypeTableRecord.h"
#include "OdStringQt.h"
#include "hostColors.h"
#include <QColorDialog>
#include <QCoreApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QInputDialog>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QPushButton>
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

/** The 255 palette colours as a grid of cells; a click picks one. */
class AciPalette : public QWidget
{
public:
  static constexpr int kColumns = 24;
  static constexpr int kCell = 14;

  explicit AciPalette(QWidget* parent) : QWidget(parent)
  {
    setFixedSize(kColumns * kCell + 1, rows() * kCell + 1);
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(tr("Palette colours"));
  }

  std::function<void(int)> picked;
  int current = 0;

protected:
  void paintEvent(QPaintEvent*) override
  {
    QPainter p(this);
    for (int index = 1; index <= 255; ++index)
    {
      const QRect cell = cellOf(index);
      const OdUInt32 rgb = OdCmEntityColor::lookUpRGB(OdUInt8(index));
      p.fillRect(cell, QColor(int(rgb >> 16) & 0xFF, int(rgb >> 8) & 0xFF, int(rgb) & 0xFF));
      p.setPen(index == current ? palette().color(QPalette::Highlight) : palette().color(QPalette::Mid));
      p.drawRect(cell.adjusted(0, 0, -1, -1));
    }
  }

  void mouseReleaseEvent(QMouseEvent* event) override
  {
    for (int index = 1; index <= 255; ++index)
      if (cellOf(index).contains(event->pos()))
      {
        current = index;
        update();
        if (picked)
          picked(index);
        return;
      }
  }

private:
  static int rows() { return (255 + kColumns - 1) / kColumns; }
  static QRect cellOf(int index)
  {
    const int i = index - 1;
    return QRect((i % kColumns) * kCell, (i / kColumns) * kCell, kCell, kCell);
  }
};

// The dialogs live on the heap and are watched: a parent deleted while
// their event loop runs (a host rebuilding its panel, a deferred deletion)
// takes them with it, which would free a dialog on the stack a second time.
bool modalColorChooser(QWidget* parent, OdCmColor& color)
{
  const QPointer<QDialog> dialog = new QDialog(parent);
  dialog->setWindowTitle(tr("Select Colour"));
  auto* layout = new QVBoxLayout(dialog);
  auto* palette = new AciPalette(dialog);
  palette->current = color.isByACI() ? color.colorIndex() : 0;
  layout->addWidget(palette);
  auto* trueColor = new QPushButton(tr("True Colour..."), dialog);
  trueColor->setAccessibleName(tr("True Colour"));
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

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

bool modalColorChooser(QWidget* parent, OdCmColor& color)
{
  QDialog dialog(parent);
  dialog.setWindowTitle(tr("Select Colour"));
  auto* layout = new QVBoxLayout(&dialog);
  auto* palette = new AciPalette(&dialog);
  palette->current = color.isByACI() ? color.colorIndex() : 0;
  layout->addWidget(palette);
  auto* trueColor = new QPushButton(tr("True Colour..."), &dialog);
  trueColor->setAccessibleName(tr("True Colour"));
  layout->addWidget(trueColor);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, &dialog);
  layout->addWidget(buttons);
  OdCmColor chosen = color;
  QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
  palette->picked = [&](int index) {
    chosen.setColorIndex(OdInt16(index));
    dialog.accept();
  };
  QObject::connect(trueColor, &QPushButton::clicked, &dialog, [&]() {
    const QColor start = hostQtColor(color).isValid() ? hostQtColor(color) : QColor(Qt::white);
    const QColor picked = QColorDialog::getColor(start, &dialog, tr("True Colour"));
    if (!picked.isValid())
      return;
    chosen.setRGB(OdUInt8(picked.red()), OdUInt8(picked.green()), OdUInt8(picked.blue()));
    dialog.accept();
  });
  if (dialog.exec() != QDialog::Accepted)
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

#include "PropUiBoolBox_p.h"

#include "OdStringQt.h"
#include "PropBag.h"
#include "PropUiOptions.h"
#include "PropUiQControl.h"
#include "PropUiTextCaption_p.h"
#include "QHostCheckBox.h"
#include <QApplication>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPointer>
#include <QStyle>

namespace
{

/**
 * The height of a text editor in this application, so that rows of a panel
 * line up. Measured on a real editor once, then again only when the style,
 * the font or the style sheet that decide it change: a panel sets up
 * thousands of boxes.
 */
int textEditorHeight()
{
  static QPointer<QStyle> style;
  static QFont font;
  static QString styleSheet;
  static int height = -1;
  const QFont editorFont = QApplication::font("QLineEdit");
  const QString sheet = qApp->styleSheet();
  if (height < 0 || style != QApplication::style() || font != editorFont || styleSheet != sheet)
  {
    height = QLineEdit().sizeHint().height();
    style = QApplication::style();
    font = editorFont;
    styleSheet = sheet;
  }
  return height;
}

} // namespace

namespace propui
{

host_qt_ui_core::QHostCheckBox* buildCheckBox(PropUiQControl* control, bool switchMode)
{
  auto* layout = control->setupRow(2);
  if (switchMode && (control->getOptions() & PropUiOption::kAlignRight))
    layout->addSpacerItem(new QSpacerItem(0, 0, QSizePolicy::Expanding, QSizePolicy::Minimum));
  auto* box = new host_qt_ui_core::QHostCheckBox(control);
  box->setObjectName(QStringLiteral("checkBox"));
  if (switchMode)
  {
    box->enableSwitchMode(true);
    box->setTristate(false);
  }
  box->setMinimumHeight(textEditorHeight());
  control->useFocusReactor(box);
  control->useFocusRedirect(box, nullptr);
  layout->addWidget(box);
  if (switchMode && (control->getOptions() & PropUiOption::kAlignLeft))
    layout->addSpacerItem(new QSpacerItem(0, 0, QSizePolicy::Expanding, QSizePolicy::Minimum));
  control->addActionsToolBar(layout);
  return box;
}

BoolRead readBoolItem(PropUiQControl* control, QAbstractButton* box, bool& value)
{
  PropBag* bag = control->propBag();
  if (!bag || !box)
    return BoolRead::Unreadable;
  const int index = control->itemIndex();
  if (bag->getFlags(index) & PropItemFlag::kCaptionOnCheckBox)
  {
    OdString name;
    if (bag->getName(index, name) && !showsText(box->text(), name))
      box->setText(toQString(name));
  }
  PropVariant read;
  if (!control->readValue(read))
    return BoolRead::Unreadable;
  if (read.isVaries())
    return BoolRead::Varies;
  if (!(read.type() & PropVariant::kBool) || read.hasNoData())
    return BoolRead::OtherType;
  value = read.getBool();
  return BoolRead::Value;
}

bool showBoolItem(PropUiQControl* control, QCheckBox* box, bool& value)
{
  switch (readBoolItem(control, box, value))
  {
  case BoolRead::Varies:
    control->setVaries(true);
    return false;
  case BoolRead::Value:
  {
    // Set only when it differs: unchecking a box makes Qt search its
    // siblings for an exclusive partner.
    const Qt::CheckState state = value ? Qt::Checked : Qt::Unchecked;
    const bool shown = !control->isVaries() && box->checkState() == state;
    control->setVaries(false);
    if (!shown)
      box->setCheckState(state);
    return true;
  }
  default:
    return false; // unreadable or not a boolean: the box stays as it is
  }
}

bool commitClickedState(PropUiQControl* control, QCheckBox* box, bool wasVaries, Qt::CheckState last)
{
  if (!box)
    return false;
  if (wasVaries)
    control->setVaries(false);
  PropVariant value;
  value.setBool(box->checkState() == Qt::Checked);
  if (control->commitValue(value) == PropUiQControl::CommitResult::Written)
    return true;
  if (wasVaries)
    control->setVaries(true); // the selection still disagrees
  else
    box->setCheckState(last);
  return false;
}

} // namespace propui

#include "PropUiBoolBox.h"

#include "OdStringQt.h"
#include "PropBag.h"
#include "PropUiOptions.h"
#include "PropUiActionToolButtonsCtrl.h"
#include "PropUiQControl.h"
#include "QHostCheckBox.h"
#include <QHBoxLayout>
#include <QLineEdit>

namespace propui
{

host_qt_ui_core::QHostCheckBox* buildCheckBox(PropUiQControl* control, bool switchMode)
{
  auto* layout = new QHBoxLayout(control);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(2);
  if (switchMode && (control->getOptions() & PropUiOption::kAlignRight))
    layout->addSpacerItem(new QSpacerItem(0, 0, QSizePolicy::Expanding, QSizePolicy::Minimum));
  auto* box = new host_qt_ui_core::QHostCheckBox(control);
  box->setObjectName(QStringLiteral("checkBox"));
  if (switchMode)
  {
    box->enableSwitchMode(true);
    box->setTristate(false);
  }
  // As tall as a text editor, so that rows of a panel line up.
  box->setMinimumHeight(QLineEdit().sizeHint().height());
  control->useFocusReactor(box);
  control->useFocusRedirect(box, nullptr);
  layout->addWidget(box);
  if (switchMode && (control->getOptions() & PropUiOption::kAlignLeft))
    layout->addSpacerItem(new QSpacerItem(0, 0, QSizePolicy::Expanding, QSizePolicy::Minimum));
  if (PropUiActionToolButtonsCtrl* toolbar = control->createActionsToolBar())
    layout->addWidget(toolbar);
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
    if (bag->getName(index, name))
      box->setText(toQString(name));
  }
  PropVariant read;
  const bool ok = control->isPropertyElement() ? bag->getElementValue(index, control->element(), read)
                                               : bag->getValue(index, read);
  if (!ok)
    return BoolRead::Unreadable;
  if (read.isVaries())
    return BoolRead::Varies;
  if (!(read.type() & PropVariant::kBool) || read.hasNoData())
    return BoolRead::OtherType;
  value = read.getBool();
  return BoolRead::Value;
}

} // namespace propui

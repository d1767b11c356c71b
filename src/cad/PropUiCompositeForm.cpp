#include "PropUiCompositeForm_p.h"

#include "OdStringQt.h"
#include "PropBag.h"
#include "PropUiQLabel.h"
#include "PropUiQLineEdit.h"
#include "QHostSpinBox.h"
#include <QFormLayout>

QFormLayout* PropUiCompositeForm::makeForm()
{
  auto* form = new QFormLayout;
  form->setLabelAlignment(Qt::AlignRight | Qt::AlignHCenter | Qt::AlignVCenter);
  form->setContentsMargins(0, 0, 0, 0);
  form->setHorizontalSpacing(4);
  form->setVerticalSpacing(2);
  return form;
}

host_qt_ui_core::QHostSpinBox* PropUiCompositeForm::addGroupRow(QFormLayout* form, QWidget* owner, PropBag* bag,
                                                                 int index, const QString& itemName)
{
  const int groups = bag->getGroupCount(index);
  if (groups < 1)
    return nullptr;
  auto* caption = new PropUiQLabel(owner);
  caption->setPropBagItem(bag, index);
  caption->setupUi();
  auto* spinBox = new host_qt_ui_core::QHostSpinBox(owner);
  spinBox->setObjectName(QStringLiteral("groupSpinBox"));
  spinBox->disableMouseWheel(true);
  spinBox->setWrapping(true);
  spinBox->setRange(1, groups);
  spinBox->setValue(1);
  spinBox->setAccessibleName(itemName);
  form->addRow(caption, spinBox);
  return spinBox;
}

void PropUiCompositeForm::addElementRow(QFormLayout* form, QWidget* owner, PropBag* bag, int index,
                                        unsigned long element, const QString& caption, PropUiQControl* child)
{
  // Set up before it is bound, the caption builds without reading the item's
  // name, which the element's caption replaces at once.
  auto* label = new PropUiQLabel(owner);
  label->setupUi();
  label->setPropBagItem(bag, index, element);
  label->setText(caption);
  // Qt takes a parent's children down in their stacking order. The caption
  // goes before its editor, so that the editor's end does not make Qt untie
  // the caption from it first (a disconnect by signature, per axis).
  label->stackUnder(child);
  child->setPropBagItem(bag, index, element);
  child->setupUi();
  if (auto* edit = qobject_cast<PropUiQLineEdit*>(child); edit && edit->lineEdit())
    edit->lineEdit()->setAccessibleName(caption);
  form->addRow(label, child);
}

QString PropUiCompositeForm::itemName(PropBag* bag, int index)
{
  OdString name;
  if (bag && bag->getName(index, name))
    return toQString(name);
  return QString();
}

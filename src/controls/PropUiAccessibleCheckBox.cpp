#include "PropUiAccessibleCheckBox_p.h"

#include "QHostCheckBox.h"
#include <QCheckBox>

PropUiAccessibleCheckBox::PropUiAccessibleCheckBox(QCheckBox* box) : QAccessibleWidget(box, QAccessible::CheckBox) {}

void PropUiAccessibleCheckBox::install()
{
  static const bool installed = (QAccessible::installFactory(&PropUiAccessibleCheckBox::create), true);
  Q_UNUSED(installed)
}

QAccessibleInterface* PropUiAccessibleCheckBox::create(const QString& className, QObject* object)
{
  // Asked once per class up the object's hierarchy: answer for the host box only.
  if (className != QLatin1String(host_qt_ui_core::QHostCheckBox::staticMetaObject.className()))
    return nullptr;
  auto* box = qobject_cast<host_qt_ui_core::QHostCheckBox*>(object);
  return box ? new PropUiAccessibleCheckBox(box) : nullptr;
}

QCheckBox* PropUiAccessibleCheckBox::box() const
{
  return static_cast<QCheckBox*>(widget());
}

void* PropUiAccessibleCheckBox::interface_cast(QAccessible::InterfaceType type)
{
  if (type == QAccessible::ValueInterface)
    return static_cast<QAccessibleValueInterface*>(this);
  return QAccessibleWidget::interface_cast(type);
}

QAccessible::State PropUiAccessibleCheckBox::state() const
{
  QAccessible::State state = QAccessibleWidget::state();
  state.checkable = true;
  state.checked = box()->checkState() == Qt::Checked;
  state.checkStateMixed = box()->checkState() == Qt::PartiallyChecked;
  return state;
}

QString PropUiAccessibleCheckBox::text(QAccessible::Text type) const
{
  const QString shown = QString(box()->text()).remove(QLatin1Char('&'));
  switch (type)
  {
  case QAccessible::Name:
  {
    const QString name = box()->accessibleName();
    return name.isEmpty() ? shown : name;
  }
  case QAccessible::Value:
    if (!box()->accessibleName().isEmpty() && !shown.isEmpty())
      return shown;
    switch (box()->checkState())
    {
    case Qt::Checked:
      return tr("on");
    case Qt::PartiallyChecked:
      return tr("partly on");
    default:
      return tr("off");
    }
  default:
    return QAccessibleWidget::text(type);
  }
}

QVariant PropUiAccessibleCheckBox::currentValue() const
{
  return stateValue();
}

int PropUiAccessibleCheckBox::stateValue() const
{
  if (box()->isTristate())
    return box()->checkState() == Qt::PartiallyChecked ? 1 : box()->checkState() == Qt::Checked ? 2 : 0;
  return box()->isChecked() ? 1 : 0;
}

void PropUiAccessibleCheckBox::setCurrentValue(const QVariant& value)
{
  bool isNumber = false;
  const int wanted = value.toInt(&isNumber);
  if (!isNumber || wanted < 0 || wanted > maximumValue().toInt() || !box()->isEnabled())
    return;
  // A click moves through the states in the box's own order, writing each as the user would.
  for (int clicks = 0; clicks < 3 && stateValue() != wanted; ++clicks)
    box()->click();
}

QVariant PropUiAccessibleCheckBox::maximumValue() const
{
  return box()->isTristate() ? 2 : 1;
}

QVariant PropUiAccessibleCheckBox::minimumValue() const
{
  return 0;
}

QVariant PropUiAccessibleCheckBox::minimumStepSize() const
{
  return 1;
}

QStringList PropUiAccessibleCheckBox::actionNames() const
{
  QStringList names;
  if (box()->isEnabled())
    names << toggleAction();
  return names + QAccessibleWidget::actionNames();
}

void PropUiAccessibleCheckBox::doAction(const QString& actionName)
{
  if (actionName == toggleAction() || actionName == pressAction())
  {
    if (box()->isEnabled())
      box()->click();
    return;
  }
  QAccessibleWidget::doAction(actionName);
}

QStringList PropUiAccessibleCheckBox::keyBindingsForAction(const QString& actionName) const
{
  if (actionName == toggleAction())
    return {QStringLiteral("Space")};
  return QAccessibleWidget::keyBindingsForAction(actionName);
}

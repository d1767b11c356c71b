#include "PropUiAccessibleComboBox_p.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QLineEdit>

PropUiAccessibleComboBox::PropUiAccessibleComboBox(QComboBox* combo) : QAccessibleWidget(combo, QAccessible::ComboBox) {}

void PropUiAccessibleComboBox::install()
{
  static const bool installed = (QAccessible::installFactory(&PropUiAccessibleComboBox::create), true);
  Q_UNUSED(installed)
}

QAccessibleInterface* PropUiAccessibleComboBox::create(const QString& className, QObject* object)
{
  if (className != QLatin1String("QComboBox"))
    return nullptr;
  auto* combo = qobject_cast<QComboBox*>(object);
  if (!combo)
    return nullptr;
  // Boxes of the host's own dialogs keep Qt's interface. Asked by name, so
  // that what names the controls' widgets does not depend on the controls.
  for (QObject* up = combo->parent(); up; up = up->parent())
    if (up->inherits("PropUiQControl"))
      return new PropUiAccessibleComboBox(combo);
  return nullptr;
}

QComboBox* PropUiAccessibleComboBox::combo() const
{
  return static_cast<QComboBox*>(widget());
}

QString PropUiAccessibleComboBox::text(QAccessible::Text type) const
{
  const QString current = combo()->isEditable() && combo()->lineEdit() ? combo()->lineEdit()->text()
                                                                       : combo()->currentText();
  switch (type)
  {
  case QAccessible::Name:
  {
    const QString name = combo()->accessibleName();
    return name.isEmpty() ? current : name;
  }
  case QAccessible::Value:
    return current;
  default:
    return QAccessibleWidget::text(type);
  }
}

int PropUiAccessibleComboBox::childCount() const
{
  return combo()->isEditable() && combo()->lineEdit() ? 2 : 1;
}

QAccessibleInterface* PropUiAccessibleComboBox::child(int index) const
{
  if (index == 0)
    return QAccessible::queryAccessibleInterface(combo()->view());
  if (index == 1 && combo()->isEditable())
    return QAccessible::queryAccessibleInterface(combo()->lineEdit());
  return nullptr;
}

int PropUiAccessibleComboBox::indexOfChild(const QAccessibleInterface* child) const
{
  if (!child)
    return -1;
  if (child->object() == combo()->view())
    return 0;
  if (combo()->isEditable() && child->object() == combo()->lineEdit())
    return 1;
  return -1;
}

QAccessibleInterface* PropUiAccessibleComboBox::childAt(int, int) const
{
  // The list is a popup of its own; inside the box there is nothing to point at.
  return nullptr;
}

QStringList PropUiAccessibleComboBox::actionNames() const
{
  QStringList names;
  if (combo()->isEnabled())
    names << showMenuAction() << pressAction();
  return names + QAccessibleWidget::actionNames();
}

void PropUiAccessibleComboBox::doAction(const QString& actionName)
{
  if (actionName == showMenuAction() || actionName == pressAction())
  {
    if (!combo()->isEnabled())
      return;
    if (combo()->view()->isVisible())
      combo()->hidePopup();
    else
      combo()->showPopup();
    return;
  }
  QAccessibleWidget::doAction(actionName);
}

QStringList PropUiAccessibleComboBox::keyBindingsForAction(const QString& actionName) const
{
  if (actionName == showMenuAction())
    return {QStringLiteral("Alt+Down")};
  return QAccessibleWidget::keyBindingsForAction(actionName);
}

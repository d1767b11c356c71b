#pragma once

// The host check box as assistive technology sees it; not API.

#include <QAccessibleWidget>
#include <QCoreApplication>

class QCheckBox;
class QObject;

/**
 * The host's check box, also in switch mode: Qt's own interface for check
 * boxes answers no value, and its name is the box's text, which for the
 * listed-caption kinds is the value itself. This one reports the state as a
 * value (0 off and 1 on; 0, 1 partly and 2 on for a tristate box) and as text, and the box's
 * text as the value's text once the box has a name of its own.
 */
class PropUiAccessibleCheckBox : public QAccessibleWidget, public QAccessibleValueInterface
{
  Q_DECLARE_TR_FUNCTIONS(PropUiAccessibleCheckBox)

public:
  explicit PropUiAccessibleCheckBox(QCheckBox* box);

  /** Installs the factory once; later calls change nothing. */
  static void install();

  void* interface_cast(QAccessible::InterfaceType type) override;
  QAccessible::State state() const override;
  QString text(QAccessible::Text type) const override;

  QVariant currentValue() const override;
  /** Toggles the box as a click does, so a control commits as it would for the user. */
  void setCurrentValue(const QVariant& value) override;
  QVariant maximumValue() const override;
  QVariant minimumValue() const override;
  QVariant minimumStepSize() const override;

  QStringList actionNames() const override;
  void doAction(const QString& actionName) override;
  QStringList keyBindingsForAction(const QString& actionName) const override;

private:
  QCheckBox* box() const;
  int stateValue() const;
  static QAccessibleInterface* create(const QString& className, QObject* object);
};

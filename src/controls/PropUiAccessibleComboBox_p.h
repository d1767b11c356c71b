#pragma once

// A control's combo box as assistive technology sees it; not API.

#include <QAccessibleWidget>

class QComboBox;
class QObject;

/**
 * A combo box inside a control. On X11 Qt's own interface answers the
 * current entry as the box's name and leaves the name to a label sibling,
 * which a control's box does not have; this one answers the name the control
 * gave it and keeps the entry as the value, with the entries' list and the
 * edit as children as Qt's does.
 */
class PropUiAccessibleComboBox : public QAccessibleWidget
{
public:
  explicit PropUiAccessibleComboBox(QComboBox* combo);

  /** Installs the factory once; later calls change nothing. */
  static void install();

  QString text(QAccessible::Text type) const override;
  int childCount() const override;
  QAccessibleInterface* child(int index) const override;
  int indexOfChild(const QAccessibleInterface* child) const override;
  QAccessibleInterface* childAt(int x, int y) const override;

  QStringList actionNames() const override;
  void doAction(const QString& actionName) override;
  QStringList keyBindingsForAction(const QString& actionName) const override;

private:
  QComboBox* combo() const;
  static QAccessibleInterface* create(const QString& className, QObject* object);
};

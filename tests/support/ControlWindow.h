#pragma once

#include "PropUiQWidget.h"
#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>
#include <QWidget>

/**
 * A shown, active window holding one control and a plain line edit that
 * focus can move to, as in a panel of the host.
 */
class ControlWindow : public QWidget
{
public:
  explicit ControlWindow(PropUiQWidget* control)
  {
    auto* layout = new QVBoxLayout(this);
    control->setParent(this);
    layout->addWidget(control);
    other = new QLineEdit(this);
    other->setObjectName(QStringLiteral("other"));
    layout->addWidget(other);
    resize(320, 120);
  }

  /** Shows and activates the window; false when the platform would not. */
  bool showActive()
  {
    show();
    activateWindow();
    return QTest::qWaitForWindowActive(this);
  }

  QLineEdit* other = nullptr;
};

#pragma once

#include "HostExport.h"
#include <QSpinBox>

namespace host_qt_ui_core
{

/** The host's integer spin box; in a scrolling panel the wheel can be left to the panel. */
class HOST_EXPORT QHostSpinBox : public QSpinBox
{
  Q_OBJECT

public:
  explicit QHostSpinBox(QWidget* parent = nullptr);

  void disableMouseWheel(bool disable);
  bool isMouseWheelDisabled() const { return m_wheelDisabled; }

protected:
  void wheelEvent(QWheelEvent* event) override;

private:
  bool m_wheelDisabled = false;
};

} // namespace host_qt_ui_core

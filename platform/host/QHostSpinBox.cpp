#include "QHostSpinBox.h"

#include <QWheelEvent>

namespace host_qt_ui_core
{

QHostSpinBox::QHostSpinBox(QWidget* parent) : QSpinBox(parent) {}

void QHostSpinBox::disableMouseWheel(bool disable)
{
  m_wheelDisabled = disable;
  // A wheel left to the panel must not take the focus on its way past either.
  if (disable && focusPolicy() == Qt::WheelFocus)
    setFocusPolicy(Qt::StrongFocus);
}

void QHostSpinBox::wheelEvent(QWheelEvent* event)
{
  if (m_wheelDisabled)
  {
    event->ignore(); // goes on to the parent, which scrolls
    return;
  }
  QSpinBox::wheelEvent(event);
}

} // namespace host_qt_ui_core

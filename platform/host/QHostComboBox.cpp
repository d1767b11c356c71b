#include "QHostComboBox.h"

#include <QCompleter>
#include <QWheelEvent>

namespace host_qt_ui_core
{

QHostComboBox::QHostComboBox(QWidget* parent) : QComboBox(parent) {}

void QHostComboBox::disableMouseWheel(bool disable)
{
  m_wheelDisabled = disable;
}

void QHostComboBox::setEditableWithCompleter(bool on)
{
  setEditable(on);
  if (!on)
    return;
  setInsertPolicy(QComboBox::NoInsert);
  auto* completer = new QCompleter(model(), this);
  completer->setCaseSensitivity(Qt::CaseInsensitive);
  completer->setCompletionMode(QCompleter::PopupCompletion);
  setCompleter(completer);
}

void QHostComboBox::wheelEvent(QWheelEvent* event)
{
  if (m_wheelDisabled)
  {
    event->ignore(); // goes on to the parent, which scrolls
    return;
  }
  QComboBox::wheelEvent(event);
}

} // namespace host_qt_ui_core

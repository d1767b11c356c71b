#include "QHostComboBox.h"

#include <QCompleter>
#include <QStyleOptionComboBox>
#include <QStylePainter>
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

// QComboBox of Qt 5.15 draws a blank field for a non-editable box without a
// current entry, whatever its placeholder text.
void QHostComboBox::paintEvent(QPaintEvent* event)
{
  if (isEditable() || currentIndex() >= 0 || placeholderText().isEmpty())
  {
    QComboBox::paintEvent(event);
    return;
  }
  QStylePainter painter(this);
  painter.setPen(palette().color(QPalette::Text));
  QStyleOptionComboBox option;
  initStyleOption(&option);
  painter.drawComplexControl(QStyle::CC_ComboBox, option);
  const QRect field = style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this);
  option.currentIcon = QIcon();
  option.currentText = fontMetrics().elidedText(placeholderText(), Qt::ElideRight, field.width());
  option.palette.setColor(QPalette::ButtonText, option.palette.color(QPalette::PlaceholderText));
  painter.drawControl(QStyle::CE_ComboBoxLabel, option);
}

} // namespace host_qt_ui_core

#include "QHostLineEdit.h"

#include <QEvent>
#include <QMouseEvent>

namespace host_qt_ui_core
{

QHostLineEdit::QHostLineEdit(QWidget* parent) : QLineEdit(parent) {}

void QHostLineEdit::setAutoChangePlaceholderTextColor(bool on)
{
  m_autoPlaceholderColor = on;
  if (on)
    applyPlaceholderColor();
}

void QHostLineEdit::enableSelectOnDClick(bool on)
{
  m_selectOnDClick = on;
}

void QHostLineEdit::applyPlaceholderColor()
{
  QPalette p = palette();
  QColor placeholder = p.color(QPalette::Text);
  placeholder.setAlpha(128);
  if (p.color(QPalette::PlaceholderText) == placeholder)
    return;
  p.setColor(QPalette::PlaceholderText, placeholder);
  m_applyingPalette = true; // setPalette sends PaletteChange back to us
  setPalette(p);
  m_applyingPalette = false;
}

void QHostLineEdit::changeEvent(QEvent* event)
{
  QLineEdit::changeEvent(event);
  if (m_autoPlaceholderColor && !m_applyingPalette &&
      (event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange))
    applyPlaceholderColor();
}

void QHostLineEdit::mouseDoubleClickEvent(QMouseEvent* event)
{
  if (m_selectOnDClick && event->button() == Qt::LeftButton)
  {
    selectAll();
    event->accept();
    return;
  }
  QLineEdit::mouseDoubleClickEvent(event);
}

} // namespace host_qt_ui_core

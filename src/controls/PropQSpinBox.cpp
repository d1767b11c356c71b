#include "PropQSpinBox.h"

#include "PropUiTexts_p.h"
#include "PropUiThemeColors_p.h"

#include <QEvent>
#include <QFocusEvent>
#include <QLineEdit>

PropQSpinBox::PropQSpinBox(QWidget* parent) : QHostSpinBox(parent) {}

void PropQSpinBox::setVariesFlag(bool varies)
{
  if (m_varies == varies)
    return;
  m_varies = varies;
  applyVariesLook();
}

void PropQSpinBox::applyVariesLook()
{
  propui::dimTextAsPlaceholder(lineEdit(), m_varies);
}

void PropQSpinBox::stepBy(int steps)
{
  const bool outer = !m_stepping;
  m_stepping = true;
  QHostSpinBox::stepBy(steps);
  if (outer)
    m_stepping = false;
}

void PropQSpinBox::changeEvent(QEvent* event)
{
  QHostSpinBox::changeEvent(event);
  // A new theme brings a new placeholder colour.
  if (m_varies && (event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange))
    applyVariesLook();
}

void PropQSpinBox::focusOutEvent(QFocusEvent* event)
{
  QHostSpinBox::focusOutEvent(event);
  if (event->reason() != Qt::PopupFocusReason && lineEdit())
    lineEdit()->deselect();
}

// Qt drops a key that leaves no number within the range: 100 typed into 3 to
// 64 would quietly stay 10, and 10*2 would be 102. Every key is kept, the
// text as not yet acceptable, for the control to read, or refuse with a
// message, when the edit ends.
// Qt also reads "3,5" as 35 where "," groups thousands: a group separator
// leaves the text unfinished too, for the control to refuse.
QValidator::State PropQSpinBox::validate(QString& input, int& pos) const
{
  const QValidator::State state = QSpinBox::validate(input, pos);
  if (state == QValidator::Invalid || (state == QValidator::Acceptable && input.contains(locale().groupSeparator())))
    return QValidator::Intermediate;
  return state;
}

int PropQSpinBox::valueFromText(const QString& text) const
{
  if (m_varies && text.trimmed() == PropUiTexts::varies())
    return value();
  return QSpinBox::valueFromText(text);
}

QString PropQSpinBox::textFromValue(int value) const
{
  return m_varies ? PropUiTexts::varies() : QSpinBox::textFromValue(value);
}

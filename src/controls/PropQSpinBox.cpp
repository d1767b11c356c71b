#include "PropQSpinBox.h"

#include "PropUiInputFlash.h"
#include "PropUiTexts.h"
#include "PropUiThemeColors.h"

#include <QEvent>
#include <QFocusEvent>
#include <QLineEdit>
#include <algorithm>
#include <limits>

PropQSpinBox::PropQSpinBox(QWidget* parent) : QHostSpinBox(parent)
{
  PropUiInputFlash::flashOnRejectedInput(this, lineEdit());
}

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

bool PropQSpinBox::parseWholeNumber(QString text, qlonglong& number) const
{
  if (!prefix().isEmpty() && text.startsWith(prefix()))
    text.remove(0, prefix().size());
  if (!suffix().isEmpty() && text.endsWith(suffix()))
    text.chop(suffix().size());
  text = text.trimmed();
  if (text.isEmpty())
    return false;
  bool ok = false;
  number = locale().toLongLong(text, &ok);
  if (!ok)
  {
    // Digits beyond what a long long holds are still a number the user typed.
    const bool negative = text.startsWith(QLatin1Char('-'));
    if (negative || text.startsWith(QLatin1Char('+')))
      text.remove(0, 1);
    ok = !text.isEmpty() && std::all_of(text.cbegin(), text.cend(), [](QChar c) { return c.isDigit(); });
    number = negative ? std::numeric_limits<qlonglong>::min() : std::numeric_limits<qlonglong>::max();
  }
  return ok;
}

bool PropQSpinBox::isTypedOutOfRange() const
{
  if (!lineEdit())
    return false;
  qlonglong number = 0;
  return parseWholeNumber(lineEdit()->text(), number) && (number < minimum() || number > maximum());
}

// Qt drops the key that takes a number out of the range, so 100 typed into
// 3 to 64 would quietly stay 10. It is kept, as not yet acceptable, for the
// control to refuse with a message when the edit ends.
QValidator::State PropQSpinBox::validate(QString& input, int& pos) const
{
  const QValidator::State state = QSpinBox::validate(input, pos);
  qlonglong number = 0;
  if (state == QValidator::Invalid && parseWholeNumber(input, number))
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

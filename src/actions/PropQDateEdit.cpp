#include "PropQDateEdit.h"

#include "PropUiTexts_p.h"
#include "PropUiThemeColors_p.h"

#include <QCoreApplication>
#include <QEvent>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QWheelEvent>
#include <algorithm>

namespace
{

bool isTypedChar(QChar c)
{
  return c.isDigit() || c.isSpace() || c.isPunct();
}

// Keys that edit the typed text as in any line edit, once typing has begun.
bool isEditingKey(const QKeyEvent* event)
{
  switch (event->key())
  {
  case Qt::Key_Backspace:
  case Qt::Key_Delete:
  case Qt::Key_Left:
  case Qt::Key_Right:
  case Qt::Key_Home:
  case Qt::Key_End:
    return true;
  default:
    return false;
  }
}

bool isTextKey(const QKeyEvent* event)
{
  const Qt::KeyboardModifiers chord = event->modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier);
  return chord == Qt::NoModifier && !event->text().isEmpty() && event->text().at(0).isPrint();
}

} // namespace

PropQDateEdit::PropQDateEdit(QWidget* parent) : QDateEdit(parent)
{
  // Not WheelFocus: a wheel turned over a panel must not pick the edit up.
  setFocusPolicy(Qt::StrongFocus);
}

void PropQDateEdit::wheelEvent(QWheelEvent* event)
{
  event->ignore(); // goes on to the parent, which scrolls
}

void PropQDateEdit::setVariesFlag(bool varies)
{
  if (m_varies == varies)
    return;
  m_varies = varies;
  m_typing = false;
  applyVariesLook();
}

void PropQDateEdit::applyVariesLook()
{
  propui::dimTextAsPlaceholder(lineEdit(), m_varies);
}

void PropQDateEdit::changeEvent(QEvent* event)
{
  QDateEdit::changeEvent(event);
  if (m_varies && (event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange))
    applyVariesLook();
}

void PropQDateEdit::focusOutEvent(QFocusEvent* event)
{
  if (m_typing && event->reason() != Qt::PopupFocusReason)
    finishTyping();
  QDateEdit::focusOutEvent(event);
  if (event->reason() != Qt::PopupFocusReason && lineEdit())
    lineEdit()->deselect();
}

void PropQDateEdit::focusInEvent(QFocusEvent* event)
{
  QDateEdit::focusInEvent(event);
  if (event->reason() == Qt::PopupFocusReason)
    Q_EMIT returnedFromPopup();
}

// The sections of a date edit take a date only in its display format, one
// field at a time, and put back their last value as soon as the cursor
// leaves a field they cannot read. A typed date is therefore kept away from
// them as plain text, and read as a whole when the edit ends.
void PropQDateEdit::keyPressEvent(QKeyEvent* event)
{
  QLineEdit* edit = lineEdit();
  if (!m_varies && edit && !isReadOnly() && (isTextKey(event) || (m_typing && isEditingKey(event))))
  {
    const QSignalBlocker quiet(edit);
    if (!m_typing)
    {
      m_typing = true;
      edit->clear();
    }
    QCoreApplication::sendEvent(edit, event);
    event->accept();
    return;
  }
  if (m_typing && (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter))
    finishTyping();
  if (m_typing && event->key() == Qt::Key_Escape)
  {
    m_typing = false;
    setDate(date()); // shows the date again in place of the typing
  }
  QDateEdit::keyPressEvent(event);
}

void PropQDateEdit::finishTyping()
{
  if (!m_typing)
    return;
  const QString typed = lineEdit() ? lineEdit()->text().trimmed() : QString();
  m_typing = false;
  const QDate typedDate = dateFromTyped(typed);
  if (typedDate.isValid())
  {
    setDate(typedDate);
    return;
  }
  setDate(date());
  if (!typed.isEmpty())
    Q_EMIT typedDateRefused(typed);
}

QDate PropQDateEdit::dateFromTyped(const QString& text) const
{
  const QString typed = text.trimmed();
  if (typed.isEmpty())
    return QDate();
  QDate found = QDate::fromString(typed, Qt::ISODate);
  if (!found.isValid())
    found = QDate::fromString(typed, QStringLiteral("yyyy-M-d"));
  const QString shortFormat = locale().dateFormat(QLocale::ShortFormat);
  QString relaxed = shortFormat;
  relaxed.replace(QStringLiteral("dd"), QStringLiteral("d")).replace(QStringLiteral("MM"), QStringLiteral("M"));
  const bool twoDigitYear = !shortFormat.contains(QStringLiteral("yyyy"));
  for (const QString& format : {shortFormat, relaxed, displayFormat()})
  {
    if (found.isValid())
      break;
    found = locale().toDate(typed, format);
    // A two-digit year is one of this century, not of 1900's.
    if (found.isValid() && twoDigitYear && format.contains(QStringLiteral("yy")) && !format.contains(QStringLiteral("yyyy")))
      found = found.addYears(100);
    if (!found.isValid() && twoDigitYear)
    {
      QString fourDigits = format;
      fourDigits.replace(QStringLiteral("yy"), QStringLiteral("yyyy"));
      found = locale().toDate(typed, fourDigits);
    }
  }
  if (!found.isValid() || found < minimumDate() || found > maximumDate())
    return QDate();
  return found;
}

QValidator::State PropQDateEdit::validate(QString& input, int& pos) const
{
  if (m_varies)
    return QValidator::Invalid;
  if (!m_typing)
    return QDateEdit::validate(input, pos);
  // Anything that can still become a date stays; an impossible one is told
  // about when the edit ends, rather than dropped key by key.
  // Letters only where the short form spells the month out.
  const bool monthNames = locale().dateFormat(QLocale::ShortFormat).contains(QStringLiteral("MMM")) ||
                          displayFormat().contains(QStringLiteral("MMM"));
  const auto typedChar = [monthNames](QChar c) { return isTypedChar(c) || (monthNames && c.isLetter()); };
  if (input.size() > 40 || !std::all_of(input.cbegin(), input.cend(), typedChar))
    return QValidator::Invalid;
  return dateFromTyped(input).isValid() ? QValidator::Acceptable : QValidator::Intermediate;
}

QDateTime PropQDateEdit::dateTimeFromText(const QString& text) const
{
  return m_varies ? dateTime() : QDateEdit::dateTimeFromText(text);
}

QString PropQDateEdit::textFromDateTime(const QDateTime& dateTime) const
{
  return m_varies ? PropUiTexts::varies() : QDateEdit::textFromDateTime(dateTime);
}

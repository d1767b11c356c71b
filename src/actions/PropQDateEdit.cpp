#include "PropQDateEdit.h"

#include "PropUiTexts.h"

#include <QFocusEvent>
#include <QLineEdit>

PropQDateEdit::PropQDateEdit(QWidget* parent) : QDateEdit(parent) {}

void PropQDateEdit::focusOutEvent(QFocusEvent* event)
{
  QDateEdit::focusOutEvent(event);
  if (event->reason() != Qt::PopupFocusReason && lineEdit())
    lineEdit()->deselect();
}

QValidator::State PropQDateEdit::validate(QString& input, int& pos) const
{
  return m_varies ? QValidator::Invalid : QDateEdit::validate(input, pos);
}

QDateTime PropQDateEdit::dateTimeFromText(const QString& text) const
{
  return m_varies ? dateTime() : QDateEdit::dateTimeFromText(text);
}

QString PropQDateEdit::textFromDateTime(const QDateTime& dateTime) const
{
  return m_varies ? PropUiTexts::varies() : QDateEdit::textFromDateTime(dateTime);
}

#include "PropQSpinBox.h"

#include "PropUiTexts.h"

#include <QFocusEvent>
#include <QLineEdit>

PropQSpinBox::PropQSpinBox(QWidget* parent) : QHostSpinBox(parent) {}

void PropQSpinBox::focusOutEvent(QFocusEvent* event)
{
  QHostSpinBox::focusOutEvent(event);
  if (event->reason() != Qt::PopupFocusReason && lineEdit())
    lineEdit()->deselect();
}

QValidator::State PropQSpinBox::validate(QString& input, int& pos) const
{
  return QSpinBox::validate(input, pos);
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

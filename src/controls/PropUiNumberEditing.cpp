#include "PropUiNumberEditing_p.h"

#include "PropMathValidator.h"
#include "PropUiQLineEdit.h"
#include "QHostLineEdit.h"
#include <QDoubleValidator>
#include <QIntValidator>

namespace propui
{

void setupNumberEditing(PropUiQLineEdit* control, bool rejectGroupSeparators)
{
  QLineEdit* edit = control->lineEdit();
  if (!edit)
    return;
  if (auto* hostEdit = qobject_cast<host_qt_ui_core::QHostLineEdit*>(edit))
    hostEdit->enableSelectOnDClick();
  auto* numbers = new QDoubleValidator;
  QLocale c(QLocale::C, QLocale::AnyCountry);
  if (rejectGroupSeparators)
    c.setNumberOptions(c.numberOptions() | QLocale::OmitGroupSeparator | QLocale::RejectGroupSeparator);
  numbers->setLocale(c);
  auto* validator = new PropMathValidator(edit);
  validator->setNumberValidator(numbers);
  validator->setPropBagItem(control->propBag(), control->itemIndex(), control->element());
  edit->setValidator(validator);
}

const PropMathValidator* numberValidatorOf(const QLineEdit* edit)
{
  const auto* validator = edit ? qobject_cast<const PropMathValidator*>(edit->validator()) : nullptr;
  return validator && validator->numberValidator() ? validator : nullptr;
}

PropUiTypedNumber::Kind numberKindOf(const PropMathValidator* validator)
{
  return validator && qobject_cast<const QIntValidator*>(validator->numberValidator()) ? PropUiTypedNumber::Kind::Whole
                                                                                        : PropUiTypedNumber::Kind::Real;
}

} // namespace propui

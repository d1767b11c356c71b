#pragma once

// Shared set-up of the number editors; not part of the library's API.

#include "PropUiTypedNumber_p.h"

class PropMathValidator;
class PropUiQLineEdit;
class QLineEdit;

namespace propui
{

/**
 * Double-click selects all, and a validator for numbers in the C locale
 * ("." as the decimal point whatever the user's locale). With
 * rejectGroupSeparators, "1,000" is not a finished number. No key is
 * dropped: the text is read when the edit ends.
 */
void setupNumberEditing(PropUiQLineEdit* control, bool rejectGroupSeparators);

/** The edit's number validator, or null when the edit takes any text. */
const PropMathValidator* numberValidatorOf(const QLineEdit* edit);

/** Whole numbers for an integer validator, real numbers otherwise. */
PropUiTypedNumber::Kind numberKindOf(const PropMathValidator* validator);

} // namespace propui

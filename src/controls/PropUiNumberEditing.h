#pragma once

// Shared set-up of the real-number editors; not part of the library's API.

class PropUiQLineEdit;

namespace propui
{

/**
 * Double-click selects all, and a validator for numbers in the C locale
 * ("." as the decimal point whatever the user's locale). With
 * rejectGroupSeparators, "1,000" is not a number. A key the validator
 * drops makes the field flash.
 */
void setupNumberEditing(PropUiQLineEdit* control, bool rejectGroupSeparators);

} // namespace propui

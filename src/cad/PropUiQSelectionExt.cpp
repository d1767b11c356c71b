#include "PropUiQSelectionExt.h"

PropUiQSelectionExt::~PropUiQSelectionExt() = default;

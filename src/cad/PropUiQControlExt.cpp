#include "PropUiQControlExt.h"

PropUiQControlExt::~PropUiQControlExt() = default;

#include "PropUiQtMVCGroup.h"

PropUiQtMVCGroup::PropUiQtMVCGroup() = default;

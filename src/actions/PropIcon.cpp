#include "PropIcon.h"

PropIcon::~PropIcon() = default;

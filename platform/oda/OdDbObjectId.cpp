#include "OdDbObjectId.h"

const OdDbObjectId OdDbObjectId::kNull;

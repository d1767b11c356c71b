#include "PropUiPlaceholder.h"

#include "PropUiQIcon.h"

bool PropUiPlaceholder::execute(const PropVariant&, PropVariant&)
{
  return false;
}

OdString PropUiPlaceholder::name()
{
  return OdString();
}

// An empty icon that is present, so the button stays blank instead of
// showing the fallback picture.
OdSharedPtr<PropIcon> PropUiPlaceholder::icon()
{
  return OdSharedPtr<PropIcon>(new PropUiQIcon(QIcon()));
}

bool PropUiPlaceholder::enabled()
{
  return false;
}

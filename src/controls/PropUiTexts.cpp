#include "PropUiTexts.h"

QString PropUiTexts::varies()
{
  return tr("*varies*");
}

#include "PropUiTexts_p.h"

QString PropUiTexts::varies()
{
  return tr("*varies*");
}

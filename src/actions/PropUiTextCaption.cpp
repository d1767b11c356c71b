#include "PropUiTextCaption.h"

#include "OdStringQt.h"
#include "PropBag.h"
#include <QAbstractButton>

namespace propui
{

void showListedCaption(PropBag* bag, int index, QAbstractButton* box)
{
  if (!bag || !box)
    return;
  OdStringArray texts;
  PropKeyArray keys;
  if (bag->getValueList(index, texts, keys) && texts.size() == 1)
    box->setText(toQString(texts[0]));
}

} // namespace propui

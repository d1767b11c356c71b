#include "PropUiTextCaption_p.h"

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
  if (bag->getValueList(index, texts, keys) && texts.size() == 1 && !showsText(box->text(), texts[0]))
    box->setText(toQString(texts[0]));
}

bool showsText(const QString& shown, const OdString& text)
{
  const int length = text.getLength();
  const OdChar* wide = text.c_str();
  // A character beyond 16 bits takes two places in a QString, so only a longer one can match.
  if (shown.size() != length)
    return shown.size() > length && shown == QString::fromWCharArray(wide, length);
  const QChar* narrow = shown.constData();
  for (int i = 0; i < length; ++i)
    if (uint(wide[i]) != narrow[i].unicode())
      return false;
  return true;
}

} // namespace propui

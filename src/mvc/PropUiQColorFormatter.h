#pragma once

#include "PropUiQDefaultFormatter.h"

/**
 * A colour's name and swatch as the colour control shows them, whatever the
 * bag's own texts: ByLayer with the colour it stands for on the item, a value
 * that is no colour as the default colour.
 */
class PROPWIDGETS_EXPORT PropUiQColorFormatter : public PropUiQDefaultFormatter
{
  Q_OBJECT

public:
  explicit PropUiQColorFormatter(QObject* parent);

  QString getText(int item, const PropVariant& value) override;
  QString getChoiceText(int item, const PropVariant& value, OdUInt64 sub) override;
  QVariant getIcon(int item, const PropVariant& value) override;
  QVariant getChoiceIcon(int item, const PropVariant& value, OdUInt64 sub) override;
  /** Each key is taken as a colour's number. */
  QVariantList getValueListIcons(int item, const PropVariant& value, const OdStringArray& names,
                                 const OdUInt64Array& values) override;
};

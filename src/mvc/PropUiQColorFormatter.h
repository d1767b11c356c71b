#pragma once

#include "PropUiQDefaultFormatter.h"

/** The bag's texts; a colour's swatch as its icon, and none for a value that is no colour. */
class PROPWIDGETS_EXPORT PropUiQColorFormatter : public PropUiQDefaultFormatter
{
  Q_OBJECT

public:
  explicit PropUiQColorFormatter(QObject* parent);

  QVariant getIcon(int item, const PropVariant& value) override;
  QVariant getChoiceIcon(int item, const PropVariant& value, OdUInt64 sub) override;
  /** Each key is taken as a colour's number. */
  QVariantList getValueListIcons(int item, const PropVariant& value, const OdStringArray& names,
                                 const OdUInt64Array& values) override;
};

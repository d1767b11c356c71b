#pragma once

#include "PropUiQFormatter.h"

/** Texts from the bag's formatValue and the list names; icons from the bag's getIcon. */
class PROPWIDGETS_EXPORT PropUiQDefaultFormatter : public PropUiQFormatter
{
  Q_OBJECT

public:
  explicit PropUiQDefaultFormatter(QObject* parent);

  void setPropBag(PropBag* bag) override;
  QString getText(int item, const PropVariant& value) override;
  QString getChoiceText(int item, const PropVariant& value, OdUInt64 sub) override;
  QString getElementText(int item, const PropVariant& value, OdUInt64 sub) override;
  QStringList getValueListTexts(int item, const PropVariant& value, const OdStringArray& names,
                                const OdUInt64Array& values) override;
  QStringList getNameListTexts(int item, const PropVariant& value, const OdStringArray& names) override;
  QVariant getIcon(int item, const PropVariant& value) override;
  QVariant getChoiceIcon(int item, const PropVariant& value, OdUInt64 sub) override;
  QVariant getElementIcon(int item, const PropVariant& value, OdUInt64 sub) override;
  QVariantList getValueListIcons(int item, const PropVariant& value, const OdStringArray& names,
                                 const OdUInt64Array& values) override;
  QVariantList getNameListIcons(int item, const PropVariant& value, const OdStringArray& names) override;

private:
  QString formatted(int item, unsigned long sub, const PropVariant& value) const;
};

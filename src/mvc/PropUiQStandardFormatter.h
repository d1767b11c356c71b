#pragma once

#include "OdGUID.h"
#include "PropUiGuidLookupCache.h"
#include "PropUiQFormatter.h"
#include <QPointer>
#include <map>
#include <string>

/**
 * Passes every call to the formatter registered for the item's type GUID,
 * or to the one under the null GUID when the type has none of its own.
 */
class PROPWIDGETS_EXPORT PropUiQStandardFormatter : public PropUiQFormatter
{
  Q_OBJECT

public:
  explicit PropUiQStandardFormatter(QObject* parent);

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

  /** Takes the formatter as a Qt child; a formatter already held under the GUID is deleted. */
  void registerFormatter(const OdGUID& typeGuid, PropUiQFormatter* formatter);
  /** The formatter for the key text of a GUID, else the null GUID's, else null. */
  PropUiQFormatter* formatterFor(const OdString& keyText) const;
  /** The formatter for an item of the bound bag, by its type's GUID, or by its control's when it has no type. */
  PropUiQFormatter* formatterForItem(int item) const;

private:
  std::map<std::wstring, QPointer<PropUiQFormatter> > m_formatters;
  mutable PropUiGuidLookupCache<PropUiQFormatter> m_resolved;
};

/** The usual set: a standard formatter holding the default formatter and one for each drawing attribute. */
PROPWIDGETS_EXPORT PropUiQStandardFormatter* propUiCreateStandardFormatter(QObject* parent);

#pragma once

#include "OdArray.h"
#include "PropVariant.h"
#include "PropWidgetsExport.h"
#include <QObject>
#include <QStringList>
#include <QVariant>

class PropBag;

/**
 * Turns an item's value into what a cell or a control shows: a text, an icon
 * (a QVariant holding a QIcon, invalid for none), or the texts and icons of an
 * item's choices. The base answers nothing; derived formatters fill it in.
 */
class PROPWIDGETS_EXPORT PropUiQFormatter : public QObject
{
  Q_OBJECT

public:
  explicit PropUiQFormatter(QObject* parent);

  virtual void setPropBag(PropBag* bag);
  virtual QString getText(int item, const PropVariant& value);
  virtual QString getChoiceText(int item, const PropVariant& value, OdUInt64 sub);
  virtual QString getElementText(int item, const PropVariant& value, OdUInt64 sub);
  virtual QStringList getValueListTexts(int item, const PropVariant& value, const OdStringArray& names,
                                        const OdUInt64Array& values);
  virtual QStringList getNameListTexts(int item, const PropVariant& value, const OdStringArray& names);
  virtual QVariant getIcon(int item, const PropVariant& value);
  virtual QVariant getChoiceIcon(int item, const PropVariant& value, OdUInt64 sub);
  virtual QVariant getElementIcon(int item, const PropVariant& value, OdUInt64 sub);
  virtual QVariantList getValueListIcons(int item, const PropVariant& value, const OdStringArray& names,
                                         const OdUInt64Array& values);
  virtual QVariantList getNameListIcons(int item, const PropVariant& value, const OdStringArray& names);

  PropBag* propBag() const { return m_bag; }

protected:
  PropBag* m_bag = nullptr;
};

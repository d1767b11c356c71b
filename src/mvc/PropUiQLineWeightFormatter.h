#pragma once

#include "QHostLineWeightListModel.h"
#include "PropUiQDefaultFormatter.h"
#include <QPointer>

/**
 * A lineweight's name and sample as the lineweight control shows them, ByLayer
 * and Default drawn with the width they stand for on the item. A value that is
 * no lineweight shows the bag's text and no icon. The list of lineweights,
 * filled when a bag with a drawing context is set, is there for a host's own use.
 */
class PROPWIDGETS_EXPORT PropUiQLineWeightFormatter : public PropUiQDefaultFormatter
{
  Q_OBJECT

public:
  /** Makes its own list, as its Qt child. */
  explicit PropUiQLineWeightFormatter(QObject* parent);

  void setPropBag(PropBag* bag) override;
  QString getText(int item, const PropVariant& value) override;
  QString getChoiceText(int item, const PropVariant& value, OdUInt64 sub) override;
  QVariant getIcon(int item, const PropVariant& value) override;
  QVariant getChoiceIcon(int item, const PropVariant& value, OdUInt64 sub) override;
  /** Each key is taken as a width. */
  QVariantList getValueListIcons(int item, const PropVariant& value, const OdStringArray& names,
                                 const OdUInt64Array& values) override;

  host_qt_ui::QHostLineWeightListModel* listModel() const { return m_list; }

private:
  QPointer<host_qt_ui::QHostLineWeightListModel> m_list;
};

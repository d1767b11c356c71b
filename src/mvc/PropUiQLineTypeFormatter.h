#pragma once

#include "QHostLineTypeListModel.h"
#include "PropUiQDefaultFormatter.h"
#include <QPointer>

/**
 * A linetype's name and dash pattern as the linetype control shows them,
 * ByLayer drawn with the linetype it stands for on the item. A linetype the
 * drawing does not hold, or any without a drawing context, shows the bag's
 * text and no icon. The list of the bag's drawing's linetypes, filled when a
 * bag with a drawing context is set, is there for a host's own use.
 */
class PROPWIDGETS_EXPORT PropUiQLineTypeFormatter : public PropUiQDefaultFormatter
{
  Q_OBJECT

public:
  /** Makes its own list, as its Qt child. */
  explicit PropUiQLineTypeFormatter(QObject* parent);

  void setPropBag(PropBag* bag) override;
  QString getText(int item, const PropVariant& value) override;
  QString getChoiceText(int item, const PropVariant& value, OdUInt64 sub) override;
  QVariant getIcon(int item, const PropVariant& value) override;
  QVariant getChoiceIcon(int item, const PropVariant& value, OdUInt64 sub) override;
  /** Each key is taken as a linetype's handle. */
  QVariantList getValueListIcons(int item, const PropVariant& value, const OdStringArray& names,
                                 const OdUInt64Array& values) override;

  host_qt_ui::QHostLineTypeListModel* listModel() const { return m_list; }

private:
  QPointer<host_qt_ui::QHostLineTypeListModel> m_list;
};

#pragma once

#include "QHostLineTypeListModel.h"
#include "PropUiQDefaultFormatter.h"
#include <QPointer>

/**
 * The bag's texts; the line type's picture from the host's list of them as the
 * icon. The list is the bag's drawing's, filled when a bag with a drawing
 * context is set; without one there is no icon.
 */
class PROPWIDGETS_EXPORT PropUiQLineTypeFormatter : public PropUiQDefaultFormatter
{
  Q_OBJECT

public:
  /** Makes its own list, as its Qt child. */
  explicit PropUiQLineTypeFormatter(QObject* parent);

  void setPropBag(PropBag* bag) override;
  QVariant getIcon(int item, const PropVariant& value) override;
  QVariant getChoiceIcon(int item, const PropVariant& value, OdUInt64 sub) override;
  /** Each key is taken as a linetype's handle. */
  QVariantList getValueListIcons(int item, const PropVariant& value, const OdStringArray& names,
                                 const OdUInt64Array& values) override;

  host_qt_ui::QHostLineTypeListModel* listModel() const { return m_list; }

private:
  QPointer<host_qt_ui::QHostLineTypeListModel> m_list;
};

#pragma once

#include "QHostLineWeightListModel.h"
#include "PropUiQDefaultFormatter.h"
#include <QPointer>

/**
 * The bag's texts; the lineweight's picture from the host's list of them as the
 * icon. The list is the bag's drawing's, filled when a bag with a drawing
 * context is set; without one there is no icon.
 */
class PROPWIDGETS_EXPORT PropUiQLineWeightFormatter : public PropUiQDefaultFormatter
{
  Q_OBJECT

public:
  /** Makes its own list, as its Qt child. */
  explicit PropUiQLineWeightFormatter(QObject* parent);

  void setPropBag(PropBag* bag) override;
  QVariant getIcon(int item, const PropVariant& value) override;
  QVariant getChoiceIcon(int item, const PropVariant& value, OdUInt64 sub) override;
  /** Each key is taken as a width. */
  QVariantList getValueListIcons(int item, const PropVariant& value, const OdStringArray& names,
                                 const OdUInt64Array& values) override;

  host_qt_ui::QHostLineWeightListModel* listModel() const { return m_list; }

private:
  QPointer<host_qt_ui::QHostLineWeightListModel> m_list;
};

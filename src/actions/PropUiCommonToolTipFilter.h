#pragma once

#include "PropUiQEventFilter.h"
#include "OdString.h"
#include <QString>

class QWidget;

/** Shows the item's description as the tool tip of every widget it watches. */
class PROPWIDGETS_EXPORT PropUiCommonToolTipFilter : public PropUiQEventFilter
{
  Q_OBJECT

public:
  /** Installs itself on the control. */
  explicit PropUiCommonToolTipFilter(QWidget* control);

  /** Re-reads the description; a bag that has none keeps the last one. */
  void update() override;
  /** Shows this description from now on, as read by the caller. */
  void setDescription(const OdString& description);
  QString toolTip() const { return m_toolTip; }

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  QString m_toolTip;
};

#pragma once

#include "PropIcon.h"
#include <QIcon>

/** The Qt form of a PropIcon: one QIcon held by value. */
class PROPWIDGETS_EXPORT PropUiQIcon : public PropIcon
{
public:
  explicit PropUiQIcon(const QIcon& icon);
  ~PropUiQIcon() override;
  virtual QIcon& getIcon();

private:
  QIcon m_icon;
};

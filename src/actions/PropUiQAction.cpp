#include "PropUiQAction.h"

#include "OdStringQt.h"
#include "PropAction.h"
#include "PropUiIcons.h"
#include "PropUiQIcon.h"

PropUiQAction::PropUiQAction(QObject* parent) : QAction(parent) {}

void PropUiQAction::setPropAction(PropAction* action)
{
  m_action = action;
  if (!action)
  {
    setIconText(QString());
    setIcon(QIcon());
    setCheckable(false);
    setChecked(false);
    setEnabled(true);
    return;
  }
  setIconText(toQString(action->name()));
  OdSharedPtr<PropIcon> icon = action->icon();
  auto* qicon = dynamic_cast<PropUiQIcon*>(icon.get());
  // Every refresh lands here; QAction announces a new icon to its buttons even when it is the same one.
  const QIcon picture = qicon ? qicon->getIcon() : propUiGetIcon(QStringLiteral("default_button"));
  if (picture.cacheKey() != QAction::icon().cacheKey())
    setIcon(picture);
  setCheckable(action->checkable());
  setChecked(action->checked());
  setEnabled(action->enabled());
}

PropAction* PropUiQAction::getPropAction() const
{
  return m_action;
}

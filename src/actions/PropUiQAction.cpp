#include "PropUiQAction.h"

#include "OdStringQt.h"
#include "PropAction.h"
#include "PropUiActionButtonWidth_p.h"
#include "PropUiQIcon.h"
#include "PropUiTextCaption_p.h"

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
  // Every refresh lands here, mostly with what is already shown: compared in
  // place, as QAction announces a new icon to its buttons even when it is the same one.
  const OdString name = action->name();
  if (!propui::showsText(iconText(), name))
    setIconText(toQString(name));
  OdSharedPtr<PropIcon> icon = action->icon();
  auto* qicon = dynamic_cast<PropUiQIcon*>(icon.get());
  const QIcon& picture = qicon ? qicon->getIcon() : propui::stockActionPicture();
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

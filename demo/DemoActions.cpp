#include "DemoActions.h"

#include "OdStringQt.h"
#include "PropUiQIcon.h"

DemoAction::DemoAction(const QString& caption, const QIcon& icon, std::function<bool()> run)
  : m_caption(caption), m_icon(icon), m_run(std::move(run))
{
}

bool DemoAction::execute(const PropVariant&, PropVariant&)
{
  return m_run ? m_run() : false;
}

OdString DemoAction::name()
{
  return toOdString(m_caption);
}

// No picture of its own: the control then shows its default button picture.
OdSharedPtr<PropIcon> DemoAction::icon()
{
  if (m_icon.isNull())
    return OdSharedPtr<PropIcon>();
  return OdSharedPtr<PropIcon>(new PropUiQIcon(m_icon));
}

#include "PropAction.h"

PropAction::~PropAction() = default;

PropAction* PropAction::clone() const
{
  return nullptr;
}

OdString PropAction::name()
{
  return OdString();
}

OdSharedPtr<PropIcon> PropAction::icon()
{
  return OdSharedPtr<PropIcon>();
}

bool PropAction::checkable()
{
  return false;
}

bool PropAction::checked()
{
  return false;
}

bool PropAction::enabled()
{
  return true;
}

bool PropAction::modeless()
{
  return false;
}

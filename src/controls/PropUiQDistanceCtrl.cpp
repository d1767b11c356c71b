#include "PropUiQDistanceCtrl.h"

#include "PropUiNumberEditing_p.h"

PropUiQDistanceCtrl::PropUiQDistanceCtrl(QWidget* parent) : PropUiQLineEdit(parent) {}

bool PropUiQDistanceCtrl::setupUi()
{
  if (!PropUiQLineEdit::setupUi())
    return false;
  propui::setupNumberEditing(this, true);
  return true;
}

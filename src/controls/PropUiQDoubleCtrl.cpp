#include "PropUiQDoubleCtrl.h"

#include "PropUiNumberEditing_p.h"

PropUiQDoubleCtrl::PropUiQDoubleCtrl(QWidget* parent) : PropUiQLineEdit(parent) {}

bool PropUiQDoubleCtrl::setupUi()
{
  if (!PropUiQLineEdit::setupUi())
    return false;
  propui::setupNumberEditing(this, true);
  return true;
}

#include "PropUiQDoubleCtrl.h"

#include "PropUiNumberEditing.h"

PropUiQDoubleCtrl::PropUiQDoubleCtrl(QWidget* parent) : PropUiQLineEdit(parent) {}

bool PropUiQDoubleCtrl::setupUi()
{
  if (!PropUiQLineEdit::setupUi())
    return false;
  propui::setupNumberEditing(this, true);
  return true;
}

#include "PropUiQAngleCtrl.h"

#include "PropUiNumberEditing_p.h"

PropUiQAngleCtrl::PropUiQAngleCtrl(QWidget* parent) : PropUiQLineEdit(parent) {}

bool PropUiQAngleCtrl::setupUi()
{
  if (!PropUiQLineEdit::setupUi())
    return false;
  propui::setupNumberEditing(this, false);
  return true;
}

// The bag's formatting of the entered angle replaces what the user typed, once it is taken.
void PropUiQAngleCtrl::onEditingFinished()
{
  // A window going away commits nothing, so there is nothing to re-read either.
  if (isWindowGoingAway(this))
    return;
  PropUiQLineEdit::onEditingFinished();
  // A refused text stays as typed, for the user to correct.
  if (m_edit && m_edit->text() == m_lastText)
    updateData();
}

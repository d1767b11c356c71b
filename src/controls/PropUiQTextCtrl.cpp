#include "PropUiQTextCtrl.h"

#include "QHostTextEdit.h"

// Text options 0x1 and 0x2: select all on double click, flatten pasted lines.
PropUiQTextCtrl::PropUiQTextCtrl(QWidget* parent) : PropUiQLineEdit(parent)
{
  setOptions(3);
}

bool PropUiQTextCtrl::setupUi()
{
  if (!m_bag)
    return false;
  auto* edit = new host_qt_ui::QHostTextEdit(this);
  edit->setAutoChangePlaceholderTextColor(true);
  if (!setupWithEdit(edit))
    return false;
  edit->setTextOptions(getOptions());
  return true;
}

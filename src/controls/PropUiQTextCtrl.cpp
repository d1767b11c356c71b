#include "PropUiQTextCtrl.h"

#include "QHostTextEdit.h"

// The edit selects all on a double click and flattens pasted lines unless the host says otherwise.
PropUiQTextCtrl::PropUiQTextCtrl(QWidget* parent) : PropUiQLineEdit(parent)
{
  setOptions(PropUiOption::kSelectAllOnDoubleClick | PropUiOption::kFlattenPastedLines);
}

bool PropUiQTextCtrl::setupUi()
{
  return setupWithEdit([this](QWidget* parent) {
    auto* edit = new host_qt_ui::QHostTextEdit(parent);
    edit->setAutoChangePlaceholderTextColor(true);
    edit->setTextOptions(getOptions());
    return edit;
  });
}

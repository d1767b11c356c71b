#pragma once

// The row of buttons the action rows and the choice rows share; not API.

#include <functional>

class PropUiQControl;
class QAbstractButton;
class QButtonGroup;
class QHBoxLayout;
class QIcon;
class QString;
class QWidget;

namespace propui
{

/**
 * Lays out a row of buttons in the control: an outer row with the spacers the
 * options ask for (kAlignRight, kAlignLeft) and, unless kNoFocusButtons is set,
 * the control taking focus only while no button can. Answers the inner row
 * that holds the buttons.
 */
QHBoxLayout* buildButtonRow(PropUiQControl* control);

/** The inner row of a control laid out by buildButtonRow, or null. */
QHBoxLayout* buttonRowOf(const QWidget* control, int options);

/**
 * Makes the row hold `count` buttons: surplus ones at the end are forgotten,
 * taken out of the row and the group, and deleted later; missing ones are made by `create` and put into the group with
 * id -1. Buttons stay in place by position.
 */
void fitButtonRow(PropUiQControl* control, QHBoxLayout* row, QButtonGroup* group, int count,
                  const std::function<QAbstractButton*()>& create,
                  const std::function<void(QAbstractButton*)>& forget);

/**
 * Sets the tool tip only when it differs: every refresh of a row would
 * otherwise tell the button, and each filter on it, that its tip changed.
 */
void setToolTipIfChanged(QWidget* widget, const QString& toolTip);

/** Sets the icon only when it is another one: a new icon makes the row lay itself out again. */
void setIconIfChanged(QAbstractButton* button, const QIcon& icon);

} // namespace propui

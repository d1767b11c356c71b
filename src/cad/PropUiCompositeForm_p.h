#pragma once

// The form that the coordinate and scale controls share; not part of the library's API.

#include <QString>

class PropBag;
class PropUiQControl;
class QFormLayout;
class QWidget;

namespace host_qt_ui_core
{
class QHostSpinBox;
}

/** Builds the captioned rows of a composite control, one child control per number. */
class PropUiCompositeForm
{
public:
  /** A form with captions right-aligned, no margins, 4 pixels between caption and field and 2 between rows. */
  static QFormLayout* makeForm();

  /**
   * When the item has groups, adds the row that selects one: the item's
   * caption, then a spin box from 1 to the group count, wrapping, that leaves
   * the wheel to the panel that scrolls. Null when the item has no groups.
   */
  static host_qt_ui_core::QHostSpinBox* addGroupRow(QFormLayout* form, QWidget* owner, PropBag* bag, int index,
                                                    const QString& itemName);

  /**
   * Adds one row: a caption bound to the element and reading caption, then
   * the child, bound to the same element and set up. The child's editor is
   * named after the caption for assistive tools.
   */
  static void addElementRow(QFormLayout* form, QWidget* owner, PropBag* bag, int index, unsigned long element,
                            const QString& caption, PropUiQControl* child);

  /** The item's name, empty when the bag has none. */
  static QString itemName(PropBag* bag, int index);
};

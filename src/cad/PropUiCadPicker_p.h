#pragma once

// The set-up and the commit that the lineweight, linetype and arrowhead
// controls share; the colour control differs in both and has its own. How
// the drawing-attribute pickers show their item's value.

#include "OdStringQt.h"
#include "PropUiCadSupport_p.h"
#include "PropUiQComboBox.h"
#include "hostDbPropBagCtx.h"
#include <QHBoxLayout>

namespace propui
{

/** Lays out the control and makes the picker, told of the drawing when the bag's context has one. */
template <class Picker>
Picker* buildPicker(PropUiQComboBox* control)
{
  control->setupRow();
  auto* picker = new Picker(control);
  picker->setObjectName(QStringLiteral("combo"));
  picker->disableMouseWheel(true);
  return picker;
}

/** Hands over the drawing, keeps the picker, wires its activation and places the actions toolbar. */
template <class Control, class Picker>
void finishPicker(Control* control, Picker* picker, QPointer<host_qt_ui_core::QHostComboBox>& combo,
                  void (Control::*onActivated)(int))
{
  PropBag* bag = control->propBag();
  if (hostDbPropBagCtx* context = databaseContextOf(bag))
    picker->setDatabase(context->database());
  combo = picker;
  combo->setMaxVisibleItems(30);
  auto* layout = static_cast<QHBoxLayout*>(control->layout());
  if (combo && bag)
  {
    nameAfterItem(picker, bag, control->itemIndex());
    picker->installEventFilter(control);
    QObject::connect(picker, QOverload<int>::of(&QComboBox::activated), control, onActivated);
    layout->addWidget(picker, 1);
    // Second, so that the host redraws after the bag has the new value.
    QObject::connect(picker, QOverload<int>::of(&QComboBox::activated), control, &PropUiQControl::onUpdateDisplay);
  }
  control->addActionsToolBar(layout);
}

/**
 * Validates and writes the whole item; a refusal shows the bag's message as
 * an error and puts the last committed entry back, as does a failed write.
 * True when the bag took the value.
 */
inline bool commitPick(PropUiQComboBox* control, const PropVariant& value,
                       const QPointer<host_qt_ui_core::QHostComboBox>& combo, int& last)
{
  const PropUiQControl::CommitResult result =
    control->commitValue(value, PropUiQControl::CommitTarget::WholeItem, PropUiQControl::RefusalMessage::Error);
  if (result == PropUiQControl::CommitResult::Unbound || !combo)
    return false;
  if (result != PropUiQControl::CommitResult::Written)
  {
    combo->setCurrentIndex(last);
    return false;
  }
  control->removeTempItem(last);
  last = combo->currentIndex();
  return true;
}

/**
 * An entry without a key that shows the bag's text for a value the picker
 * does not list, inserted at `at` (-1: last); an entry with that text already
 * is reused. -1 when the bag has no text for the value.
 */
inline int extraEntry(PropUiQComboBox* control, host_qt_ui_core::QHostComboBox* combo, const PropVariant& value,
                      int at = -1)
{
  OdString text;
  PropBag* bag = control->propBag();
  if (!bag || !combo || !bag->formatValue(control->itemIndex(), control->element(), value, text))
    return -1;
  const QString shown = toQString(text);
  const int known = combo->findTextFast(shown);
  if (known >= 0)
    return known;
  if (at < 0 || at > combo->count())
    at = combo->count();
  combo->insertItem(at, shown);
  return at;
}

/**
 * Shows the item's value by what it is rather than by the bag's text, which a
 * bag need not give: the entry `entryOf` finds (or makes) for the value, or
 * nothing current; the varies look for a varying value. `last` follows what
 * is shown, and an extra entry no longer shown goes.
 */
template <class EntryOf>
void showValue(PropUiQComboBox* control, host_qt_ui_core::QHostComboBox* combo, int& last, EntryOf entryOf)
{
  PropBag* bag = control->propBag();
  PropVariant value;
  if (!bag || !combo || !control->readValue(value, PropUiQControl::CommitTarget::WholeItem))
    return;
  if (value.isVaries())
  {
    control->setVaries(true);
  }
  else
  {
    if (control->isVaries())
      control->setVaries(false);
    combo->setCurrentIndex(entryOf(value));
  }
  if (last != combo->currentIndex())
    control->removeTempItem(last);
  last = combo->currentIndex();
}

} // namespace propui

#pragma once

// What a control keeps behind the fields hosts derive against; not API.

#include "PropUiAccessibility_p.h"
#include <QPointer>
#include <QVector>

class PropUiQControl;
class QWidget;

/**
 * Made the first time a control is bound, set up or asked for a tool tip:
 * a control that is only constructed carries nothing of it.
 */
class PropUiQControlPrivate final : public PropUiAccessibility::Subject
{
public:
  explicit PropUiQControlPrivate(PropUiQControl* control);

  QWidget* widget() const override;
  PropUiAccessibility::Binding binding() const override;
  bool showsVaries() const override;
  bool isCaption() const override;
  bool isControl(const QObject* object) const override;
  const Subject* subjectOf(const QObject* object) const override;

  PropUiQControl* const q;
  /** Widgets asking for the tool tip before the item had a description. */
  QVector<QPointer<QWidget> > toolTipWidgets;
  /** From the start of the control's destruction on: no bag call may follow. */
  bool closing = false;
  bool setUp = false;
  /** A formatter was given, null included: no default one is made any more. */
  bool formatterReplaced = false;
  /** The policy the control had before setTabStop took it out of the Tab order. */
  Qt::FocusPolicy lentFocusPolicy = Qt::NoFocus;
  bool focusWithdrawn = false;
  /** Names and describes the focusable children for assistive technology. */
  PropUiAccessibility accessibility;
};

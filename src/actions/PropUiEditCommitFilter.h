#pragma once

#include "PropWidgetsExport.h"
#include <QObject>
#include <QPointer>
#include <functional>

class PropUiQControl;
class QWidget;

/**
 * The focus and key rules of an editor that commits when the user leaves it.
 *
 * Installed on the control's editor widget. While the editor has the focus
 * the control's messages are shown; from the moment it loses the focus they
 * are not, so a value the bag refuses as the user leaves is put back without
 * a message box. Which of the commit rules apply is the control's choice
 * (Rules); what "changed", "acceptable", "commit" and "restore" mean for its
 * widget is told by the Edit callbacks. The filter consumes only a Return
 * whose commit was refused (CommitOnReturn).
 */
class PROPWIDGETS_EXPORT PropUiEditCommitFilter : public QObject
{
  Q_OBJECT

public:
  enum Rule
  {
    /** Focus in shows the control's messages again; focus out silences them. */
    SilenceWhileLeaving = 0x1,
    /** Leaving other than by Tab or Backtab commits a changed edit, then puts back an unacceptable one. */
    CommitOnLeave = 0x2,
    /** Leaving, other than into a popup, clears the line edit's selection. */
    DeselectOnLeave = 0x4,
    /** A typed Tab commits, then puts back an unacceptable edit (the Tab goes on). */
    CommitOnTab = 0x8,
    /** Escape puts the committed value back. */
    RestoreOnEscape = 0x10,
    /** After a typed Return, an unacceptable edit is put back. */
    RevertAfterReturn = 0x20,
    /** After a typed Return, the focus moves on to the next editor. */
    MoveOnAfterReturn = 0x40,
    /**
     * Return commits a changed edit before the editor sees the key, whatever
     * the editor's own validator thinks. A refused commit keeps the key: the
     * editor stays with the user (a view does not close it), who corrects
     * the text or presses Escape.
     */
    CommitOnReturn = 0x80
  };
  Q_DECLARE_FLAGS(Rules, Rule)

  /** What the rules need to know of the editor; a missing callback counts as "no" or "nothing". */
  struct Edit
  {
    /** The editor shows something other than what was committed. */
    std::function<bool()> changed;
    /** The editor's input could be committed at all. */
    std::function<bool()> acceptable;
    /** Commits the editor's input now. */
    std::function<void()> commit;
    /** Shows the committed value again. */
    std::function<void()> restore;
    /** Moves the focus on to the next editor. */
    std::function<void()> moveOn;
    /** Whether leaving may commit now; unset: always. */
    std::function<bool()> mayCommitOnLeave;
  };

  /** Whether the filter puts itself on the editor, or waits for the control to hand it the editor's events. */
  enum class Placement
  {
    OnEditor,
    HandedEvents
  };

  /** Owned by the editor. */
  PropUiEditCommitFilter(PropUiQControl* control, QWidget* editor, Rules rules, Edit edit,
                         Placement placement = Placement::OnEditor);

  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  void leave(Qt::FocusReason reason);
  void commitThenRevertUnacceptable();
  void afterReturn();
  bool acceptable() const { return !m_edit.acceptable || m_edit.acceptable(); }

  QPointer<PropUiQControl> m_control;
  QPointer<QWidget> m_editor;
  Rules m_rules;
  Edit m_edit;
  bool m_committing = false;
};

Q_DECLARE_OPERATORS_FOR_FLAGS(PropUiEditCommitFilter::Rules)

#include "PropUiEditCommitFilter.h"

#include "PropUiQControl.h"
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTimer>

PropUiEditCommitFilter::PropUiEditCommitFilter(PropUiQControl* control, QWidget* editor, Rules rules, Edit edit,
                                               Placement placement)
  : QObject(editor), m_control(control), m_editor(editor), m_rules(rules), m_edit(std::move(edit))
{
  if (placement == Placement::OnEditor)
    editor->installEventFilter(this);
}

void PropUiEditCommitFilter::commitThenRevertUnacceptable()
{
  if (m_edit.commit)
    m_edit.commit();
  // The commit may have taken the editor away (a bag that rebuilds the panel).
  if (m_editor && !acceptable() && m_edit.restore)
    m_edit.restore();
}

// The key press is still on its way to the editor: act once it has committed.
void PropUiEditCommitFilter::afterReturn()
{
  QPointer<PropUiEditCommitFilter> self(this);
  QTimer::singleShot(0, this, [self]() {
    if (!self || !self->m_editor || !self->m_control)
      return;
    if ((self->m_rules & RevertAfterReturn) && !self->acceptable() && self->m_edit.restore)
      self->m_edit.restore();
    if ((self->m_rules & MoveOnAfterReturn) && self->m_edit.moveOn)
      self->m_edit.moveOn();
  });
}

void PropUiEditCommitFilter::leave(Qt::FocusReason reason)
{
  const bool byTab = reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason;
  if ((m_rules & CommitOnLeave) && !byTab && (!m_edit.mayCommitOnLeave || m_edit.mayCommitOnLeave()))
  {
    if (m_edit.changed && m_edit.changed() && m_edit.commit)
      m_edit.commit();
    if (m_editor && !acceptable() && m_edit.restore)
      m_edit.restore();
  }
  if ((m_rules & DeselectOnLeave) && reason != Qt::PopupFocusReason)
    if (auto* edit = qobject_cast<QLineEdit*>(m_editor.data()))
      edit->deselect();
}

bool PropUiEditCommitFilter::eventFilter(QObject* watched, QEvent* event)
{
  if (watched != m_editor || !m_editor || !m_control)
    return false;
  switch (event->type())
  {
  case QEvent::FocusIn:
    if (m_rules & SilenceWhileLeaving)
      m_control->setMessagesSuppressed(false);
    break;
  case QEvent::FocusOut:
  {
    if (m_rules & SilenceWhileLeaving)
      m_control->setMessagesSuppressed(true);
    const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
    if (!PropUiQControl::isWindowGoingAway(m_editor))
    {
      leave(reason);
    }
    else
    {
      // The window may be on its way to destruction, and the control with
      // it: the edit is committed on the next turn, if anybody is left.
      QPointer<PropUiEditCommitFilter> self(this);
      QTimer::singleShot(0, this, [self, reason]() {
        if (self && self->m_editor && self->m_control)
          self->leave(reason);
      });
    }
    break;
  }
  case QEvent::KeyPress:
  {
    auto* key = static_cast<QKeyEvent*>(event);
    if (key->key() == Qt::Key_Escape)
    {
      if ((m_rules & RestoreOnEscape) && m_edit.restore)
        m_edit.restore();
    }
    else if (key->spontaneous() && key->key() == Qt::Key_Tab)
    {
      if (m_rules & CommitOnTab)
        commitThenRevertUnacceptable();
    }
    else if ((m_rules & CommitOnReturn) && !m_committing &&
             (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) && m_edit.changed && m_edit.changed() &&
             m_edit.commit)
    {
      // A commit may go through the editor's own Return handling, which passes here again.
      const QPointer<PropUiEditCommitFilter> self(this);
      m_committing = true;
      m_edit.commit();
      if (!self)
        return true;
      m_committing = false;
      if (!m_editor)
        return true;
      if (!acceptable())
      {
        if (m_edit.moveOn)
          m_edit.moveOn();
        return true;
      }
      if (key->spontaneous() && (m_rules & (RevertAfterReturn | MoveOnAfterReturn)))
        afterReturn();
    }
    else if (key->spontaneous() && (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter))
    {
      if (m_rules & (RevertAfterReturn | MoveOnAfterReturn))
        afterReturn();
    }
    break;
  }
  default:
    break;
  }
  return false;
}

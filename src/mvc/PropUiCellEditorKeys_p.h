#pragma once

#include <QObject>
#include <QPersistentModelIndex>
#include <QPointer>

class QAbstractItemDelegate;
class QAbstractItemView;
class QKeyEvent;
class QWidget;

/**
 * The keys of a control opened as a view's cell editor.
 *
 * A view gives the editor itself the focus and sends it the keys; the
 * control's own field must receive them. Focus is handed on rather than
 * proxied, so that a control closed while its field has focus is torn down
 * as it is in a panel. The key that opened the editor (a typed character)
 * goes on to the field and replaces the value there, as in a view's own text
 * editor.
 *
 * Tab and Backtab leave a field for the view's next or previous editable
 * value cell, after the field has committed as it does on Return. A commit
 * the field refuses keeps the editor open, with the refusal shown at it, as
 * in a panel; so does a refused Return, which the field keeps from the view.
 */
class PropUiCellEditorKeys : public QObject
{
public:
  /** Owned by the control. */
  PropUiCellEditorKeys(QWidget* control, QAbstractItemDelegate* delegate, const QModelIndex& index);

  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  void takeFocus(QWidget* control, Qt::FocusReason reason);
  bool passOpeningKey(QKeyEvent* key);
  void moveToNeighbour(bool forward);
  bool commitsLikeReturn() const;
  QAbstractItemView* view() const;

  QPointer<QWidget> m_control;
  QPointer<QAbstractItemDelegate> m_delegate;
  QPersistentModelIndex m_index;
  /** The field that took the focus from the control. */
  QPointer<QWidget> m_field;
  /** Set until the turn in which the editor opened is over: a key sent meanwhile opened it. */
  bool m_opening = false;
  /** A Tab is committing the field through a Return, which must not reach the view. */
  bool m_tabbing = false;
  /** That Return came through the field: the field took the commit. */
  bool m_returnPassed = false;
};

#include "PropUiCellEditorKeys_p.h"

#include <QAbstractItemDelegate>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QCoreApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTimer>
#include <QTreeView>

namespace
{

/** The next (or previous) row's cell in the column, in the order the view shows rows. */
QModelIndex neighbourOf(const QAbstractItemView* view, const QModelIndex& index, bool forward)
{
  if (const auto* tree = qobject_cast<const QTreeView*>(view))
  {
    const QModelIndex row = forward ? tree->indexBelow(index) : tree->indexAbove(index);
    return row.isValid() ? row.sibling(row.row(), index.column()) : QModelIndex();
  }
  return index.sibling(index.row() + (forward ? 1 : -1), index.column());
}

void selectAllIn(QWidget* field)
{
  if (auto* edit = qobject_cast<QLineEdit*>(field))
    edit->selectAll();
  else if (auto* spin = qobject_cast<QAbstractSpinBox*>(field))
    spin->selectAll();
}

} // namespace

PropUiCellEditorKeys::PropUiCellEditorKeys(QWidget* control, QAbstractItemDelegate* delegate, const QModelIndex& index)
  : QObject(control), m_control(control), m_delegate(delegate), m_index(index)
{
  control->installEventFilter(this);
}

bool PropUiCellEditorKeys::eventFilter(QObject* watched, QEvent* event)
{
  if (!m_control)
    return false;
  if (watched == m_control)
  {
    switch (event->type())
    {
    case QEvent::FocusIn:
      takeFocus(m_control, static_cast<QFocusEvent*>(event)->reason());
      return false;
    case QEvent::KeyPress:
    {
      auto* key = static_cast<QKeyEvent*>(event);
      if (m_tabbing && (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter))
      {
        m_returnPassed = true;
        return true;
      }
      return m_opening && passOpeningKey(key);
    }
    default:
      return false;
    }
  }
  if (watched == m_field && event->type() == QEvent::KeyPress)
  {
    auto* key = static_cast<QKeyEvent*>(event);
    const Qt::KeyboardModifiers held = key->modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier);
    if ((key->key() == Qt::Key_Tab || key->key() == Qt::Key_Backtab) && held == Qt::NoModifier)
    {
      moveToNeighbour(key->key() == Qt::Key_Tab && !(key->modifiers() & Qt::ShiftModifier));
      return true;
    }
  }
  return false;
}

void PropUiCellEditorKeys::takeFocus(QWidget* control, Qt::FocusReason reason)
{
  const QList<QWidget*> children = control->findChildren<QWidget*>();
  for (QWidget* child : children)
    if ((child->focusPolicy() & Qt::TabFocus) && child->isEnabled())
    {
      child->setFocus(reason);
      if (m_field != child)
      {
        // An editor opens with its text selected, as the line edits of Qt's own views do:
        // a value typed after Tab replaces the next cell's value.
        if (!m_field)
          selectAllIn(child);
        m_field = child;
        child->installEventFilter(this);
      }
      // Ahead of the view's own filter on the editor, which would close it on the Return a Tab commits with.
      control->installEventFilter(this);
      m_opening = true;
      QTimer::singleShot(0, this, [this]() { m_opening = false; });
      break;
    }
}

bool PropUiCellEditorKeys::passOpeningKey(QKeyEvent* key)
{
  m_opening = false;
  const QPointer<QWidget> field = m_field;
  if (!field)
    return false;
  if (!key->text().isEmpty() && key->text().at(0).isPrint())
    selectAllIn(field);
  QCoreApplication::sendEvent(field, key);
  return true;
}

bool PropUiCellEditorKeys::commitsLikeReturn() const
{
  // A multi-line field takes Return as a new line: it commits as it loses the focus.
  return qobject_cast<QLineEdit*>(m_field.data()) || qobject_cast<QAbstractSpinBox*>(m_field.data());
}

void PropUiCellEditorKeys::moveToNeighbour(bool forward)
{
  const QPointer<PropUiCellEditorKeys> self(this);
  if (commitsLikeReturn())
  {
    m_tabbing = true;
    m_returnPassed = false;
    QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QCoreApplication::sendEvent(m_field, &enter);
    if (!self || !m_control)
      return;
    m_tabbing = false;
    if (!m_returnPassed)
      return; // refused: the editor stays, with the refusal shown at it
  }
  QAbstractItemView* owner = view();
  if (!owner || !m_delegate)
    return;
  QModelIndex next = m_index;
  do
    next = neighbourOf(owner, next, forward);
  while (next.isValid() && !(next.flags() & Qt::ItemIsEditable));
  QWidget* control = m_control;
  Q_EMIT m_delegate->commitData(control);
  Q_EMIT m_delegate->closeEditor(control, QAbstractItemDelegate::NoHint);
  if (!next.isValid())
    return;
  owner->setCurrentIndex(next);
  // A view that edits on a change of the current cell has opened the next editor already.
  if (!owner->indexWidget(next))
    owner->edit(next);
}

QAbstractItemView* PropUiCellEditorKeys::view() const
{
  // An editor is a child of the view's viewport.
  QWidget* viewport = m_control ? m_control->parentWidget() : nullptr;
  return viewport ? qobject_cast<QAbstractItemView*>(viewport->parentWidget()) : nullptr;
}

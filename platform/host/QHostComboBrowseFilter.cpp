#include "QHostComboBrowseFilter.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QPointer>
#include <QTimer>
#include <exception>

namespace host_qt_ui_core
{

QHostComboBrowseFilter::QHostComboBrowseFilter(QComboBox* combo) : QObject(combo), m_combo(combo)
{
  combo->installEventFilter(this);
}

QHostComboBrowseFilter* QHostComboBrowseFilter::install(QComboBox* combo)
{
  if (!combo)
    return nullptr;
  if (auto* installed = combo->findChild<QHostComboBrowseFilter*>(QString(), Qt::FindDirectChildrenOnly))
    return installed;
  return new QHostComboBrowseFilter(combo);
}

void QHostComboBrowseFilter::setChooserEntry(std::function<bool(int)> opensChooser)
{
  m_opensChooser = std::move(opensChooser);
}

bool QHostComboBrowseFilter::eventFilter(QObject* watched, QEvent* event)
{
  if (watched != m_combo)
    return false;
  switch (event->type())
  {
  case QEvent::KeyPress:
    return keyPressed(static_cast<QKeyEvent*>(event));
  case QEvent::KeyRelease:
    keyReleased(static_cast<QKeyEvent*>(event));
    break;
  case QEvent::FocusOut:
    // A combo being destroyed loses its focus once only its QWidget part is left: nothing to finish there.
    if (qobject_cast<QComboBox*>(watched))
      focusLeft(static_cast<QFocusEvent*>(event)->reason());
    break;
  default:
    break;
  }
  return false;
}

// The moves are the combo's own, so that a browse lands where the combo
// would have gone; only the announcement waits.
int QHostComboBrowseFilter::target(const QKeyEvent* key) const
{
  // A popup open over the combo (the completer's list) takes the keys it hands on.
  if (QApplication::activePopupWidget())
    return kNotBrowsing;
  const int current = m_combo->currentIndex();
  const bool editable = m_combo->isEditable();
  const Qt::KeyboardModifiers modifiers = key->modifiers();
  switch (key->key())
  {
  case Qt::Key_Up:
    return modifiers & Qt::ControlModifier ? kNotBrowsing : step(current, -1);
  case Qt::Key_PageUp:
    return step(current, -1);
  case Qt::Key_Down:
    return modifiers & (Qt::ControlModifier | Qt::AltModifier) ? kNotBrowsing : step(current, 1);
  case Qt::Key_PageDown:
    return step(current, 1);
  case Qt::Key_Home:
    return editable ? kNotBrowsing : step(-1, 1);
  case Qt::Key_End:
    return editable ? kNotBrowsing : step(m_combo->count(), -1);
  case Qt::Key_Space:
    return kNotBrowsing;
  default:
    break;
  }
  const QString text = key->text();
  if (editable || text.isEmpty() || !text.at(0).isPrint() ||
      (modifiers & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)))
    return kNotBrowsing;
  return searched(text);
}

int QHostComboBrowseFilter::step(int from, int direction) const
{
  const QAbstractItemModel* model = m_combo->model();
  for (int row = from + direction; row >= 0 && row < m_combo->count(); row += direction)
    if (model->index(row, m_combo->modelColumn(), m_combo->rootModelIndex()).flags() & Qt::ItemIsEnabled)
      return row;
  return m_combo->currentIndex();
}

int QHostComboBrowseFilter::searched(const QString& text) const
{
  // The list's own search, as the combo's: it gathers the letters typed in quick succession.
  QAbstractItemView* view = m_combo->view();
  const int current = m_combo->currentIndex();
  view->setCurrentIndex(m_combo->model()->index(current, m_combo->modelColumn(), m_combo->rootModelIndex()));
  view->keyboardSearch(text);
  const int found = view->currentIndex().row();
  return found >= 0 ? found : current;
}

bool QHostComboBrowseFilter::keyPressed(QKeyEvent* key)
{
  if (m_browsing && (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter))
  {
    confirm();
    return true;
  }
  if (m_browsing && key->key() == Qt::Key_Escape)
  {
    cancel();
    return true;
  }
  const int to = target(key);
  if (to == kNotBrowsing)
    return false;
  key->accept();
  if (!m_browsing && to == m_combo->currentIndex())
    return true;
  if (!key->isAutoRepeat())
    m_heldKeys.insert(key->key());
  if (!m_browsing)
  {
    if (!m_pause)
    {
      // Made at the first browse: most combos of a panel are never browsed.
      m_pause = new QTimer(this);
      m_pause->setObjectName(QStringLiteral("browsePause"));
      m_pause->setSingleShot(true);
      connect(m_pause, &QTimer::timeout, this, &QHostComboBrowseFilter::paused);
      // Whatever else shows or picks an entry (a refresh, the open list) ends the browse without a word.
      connect(m_combo, QOverload<int>::of(&QComboBox::currentIndexChanged), this, [this]() {
        if (!m_showing)
          stop();
      });
      connect(m_combo, QOverload<int>::of(&QComboBox::activated), this, [this]() { stop(); });
    }
    m_browsing = true;
    m_from = m_combo->currentIndex();
  }
  m_pause->stop();
  show(to);
  return true;
}

void QHostComboBrowseFilter::keyReleased(const QKeyEvent* key)
{
  // A held key repeats as pairs of press and release: those are not the end.
  if (key->isAutoRepeat() || !m_heldKeys.remove(key->key()))
    return;
  if (m_browsing && m_heldKeys.isEmpty())
    m_pause->start(kPauseMs);
}

void QHostComboBrowseFilter::focusLeft(Qt::FocusReason reason)
{
  // The releases of keys still held go to whoever has the focus now.
  m_heldKeys.clear();
  // The combo's own list opening, and the focus moving inside it, is no leaving.
  if (!m_browsing || reason == Qt::PopupFocusReason || QApplication::activePopupWidget())
    return;
  // Qt moves the focus out of a window in the middle of hiding it, and a
  // window being deleted is hidden first: the browse ends on the next turn,
  // if the combo is still there.
  const QWidget* window = m_combo->window();
  if (window->testAttribute(Qt::WA_WState_Hidden) && window->testAttribute(Qt::WA_WState_Visible))
  {
    m_pause->start(0);
    return;
  }
  finish();
}

void QHostComboBrowseFilter::paused()
{
  // Still held, or the list is open over the combo: the browse goes on.
  if (!m_heldKeys.isEmpty() || QApplication::activePopupWidget())
  {
    m_pause->start(kPauseMs);
    return;
  }
  finish();
}

void QHostComboBrowseFilter::finish()
{
  const int shown = m_combo->currentIndex();
  const int from = stop();
  if (shown == from)
    return;
  if (opensChooser(shown))
    show(from);
  else
    announce(shown);
}

void QHostComboBrowseFilter::confirm()
{
  const int shown = m_combo->currentIndex();
  const int from = stop();
  if (shown == from)
    return;
  // A cancelled chooser shows the entry that was current before it, which
  // must be the one the browse began from, not the one passed on the way.
  if (opensChooser(shown))
  {
    show(from);
    show(shown);
  }
  announce(shown);
}

void QHostComboBrowseFilter::cancel()
{
  show(stop());
}

int QHostComboBrowseFilter::stop()
{
  m_browsing = false;
  m_heldKeys.clear();
  if (m_pause)
    m_pause->stop();
  return m_from;
}

void QHostComboBrowseFilter::show(int index)
{
  m_showing = true;
  m_combo->setCurrentIndex(index);
  m_showing = false;
}

void QHostComboBrowseFilter::announce(int index)
{
  const QPointer<QComboBox> combo(m_combo);
  const QString text = m_combo->itemText(index);
  // Receivers write to the host, which may throw; nothing of theirs may cross Qt's event loop.
  try
  {
    Q_EMIT combo->activated(index);
    // A receiver may have deleted the combo, and this filter with it.
    if (combo)
      Q_EMIT combo->textActivated(text);
  }
  catch (const std::exception& error)
  {
    qWarning("PropHost: a combo's entry could not be taken (%s)", error.what());
  }
  catch (...)
  {
    qWarning("PropHost: a combo's entry could not be taken");
  }
}

} // namespace host_qt_ui_core

#pragma once

#include "HostExport.h"
#include <QObject>
#include <QSet>
#include <functional>

class QComboBox;
class QKeyEvent;
class QTimer;

namespace host_qt_ui_core
{

/**
 * Keys over a closed combo browse its entries. Each key shows the next
 * entry at once, but the combo announces an entry (emits activated) only
 * once the browse ends: on Enter or Return, when the focus leaves, or when
 * the last key held has been let go for kPauseMs. A browse that ends where
 * it began announces nothing, and Escape shows that entry again. The host
 * hears of one entry per browse, and writes once.
 *
 * An entry that opens a chooser is announced by Enter alone; a browse that
 * pauses or leaves on it shows the entry it began from again. A pick from
 * the open list is the combo's own business, announced at once.
 *
 * The keys are the combo's own: Up, Down, PageUp and PageDown, and over a
 * combo that cannot be edited Home, End and typed letters.
 */
class HOST_EXPORT QHostComboBrowseFilter : public QObject
{
  Q_OBJECT

public:
  /**
   * How long, in milliseconds, the keys rest before a browse ends: longer
   * than a person takes between two presses while moving on, shorter than
   * one waits to see what the entry does.
   */
  static constexpr int kPauseMs = 600;

  /** Puts the rule on the combo, once; the filter is a child of the combo. */
  static QHostComboBrowseFilter* install(QComboBox* combo);

  /** Tells the filter which entries open a chooser. */
  void setChooserEntry(std::function<bool(int)> opensChooser);

  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  explicit QHostComboBrowseFilter(QComboBox* combo);

  /** The entry the key moves to; the current one when it moves nowhere, kNotBrowsing when the key is not for browsing. */
  int target(const QKeyEvent* key) const;
  int step(int from, int direction) const;
  int searched(const QString& text) const;
  bool opensChooser(int index) const { return m_opensChooser && m_opensChooser(index); }

  bool keyPressed(QKeyEvent* key);
  void keyReleased(const QKeyEvent* key);
  void focusLeft(Qt::FocusReason reason);
  void paused();
  /** The keys rested or the focus left: a chooser entry is shown no longer. */
  void finish();
  /** Enter: a chooser entry is announced too. */
  void confirm();
  /** Escape: the entry the browse began from is shown again. */
  void cancel();
  /** Ends the browse; answers the entry it began from. */
  int stop();
  void show(int index);
  void announce(int index);

  static constexpr int kNotBrowsing = -2;

  QComboBox* const m_combo;
  QTimer* m_pause = nullptr;
  std::function<bool(int)> m_opensChooser;
  QSet<int> m_heldKeys;
  bool m_browsing = false;
  /** The filter itself is changing the current entry. */
  bool m_showing = false;
  int m_from = -1;
};

} // namespace host_qt_ui_core

#pragma once

#include <QPointer>
#include <QWidget>

class QLineEdit;
class QTimer;

/**
 * A short tint over an editor that has just dropped a key, so the user sees
 * that the letter was not taken rather than wondering whether it was typed.
 * Internal; made on the first dropped key only, then kept by the editor.
 */
class PropUiInputFlash : public QWidget
{
  Q_OBJECT

public:
  /** Tints the editor once; a key dropped while it is tinted only keeps the tint a little longer. */
  static void flash(QWidget* editor);
  /** Tints the editor each time the line edit drops a key. */
  static void flashOnRejectedInput(QWidget* editor, QLineEdit* edit);
  /** Whether the editor is tinted just now. */
  static bool isFlashing(const QWidget* editor);

protected:
  void paintEvent(QPaintEvent* event) override;

private:
  explicit PropUiInputFlash(QWidget* editor);
  QPointer<QTimer> m_timer;
};

#pragma once

#include "PropWidgetsExport.h"
#include <QColor>
#include <QSet>
#include <QSlider>

/**
 * A flat slider that prints its value on itself. Only the handle can be
 * dragged: a click on the groove goes to the parent and never pages. The
 * wheel is left to the panel around it. Keys move the value as usual; a
 * burst of them ends, and is reported by keyboardEditFinished, when the
 * last key held is let go.
 */
class PROPWIDGETS_EXPORT PropQSliderBox : public QSlider
{
  Q_OBJECT

public:
  explicit PropQSliderBox(QWidget* parent = nullptr);

  /** While varying, "*varies*" is painted in place of the number, unless the user is moving the value. */
  bool isVaries() const { return m_varies; }
  void setVaries(bool varies);

  /** The keys have moved the value and are still held. */
  bool isKeyboardEditing() const { return m_keyboardMoved; }

  /**
   * The colours of the flat look: the groove, and the part up to and
   * including the handle, which then takes the slider's full height. Without
   * them a slider keeps its style's look. The number is painted in the text
   * colour wherever that reads at 4.5:1 or better on them, and in black or
   * white where it would not.
   */
  void setColors(const QColor& groove, const QColor& filled, const QColor& text);
  QColor grooveColor() const { return m_groove; }
  QColor filledColor() const { return m_filled; }
  QColor textColor() const { return m_text; }

  /** The contrast ratio of two opaque colours, from 1 to 21. */
  static double contrast(const QColor& a, const QColor& b);
  /** The text colour if it reads at 4.5:1 on the background, else black or white, whichever reads better. */
  static QColor readableOn(const QColor& background, const QColor& text);

Q_SIGNALS:
  /** The keys that moved the value are all released (or the focus left while they were held). */
  void keyboardEditFinished();

protected:
  void mousePressEvent(QMouseEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

private:
  void finishKeyboardEdit();
  /** Flat when horizontal and coloured; a vertical slider keeps its style's look. */
  bool paintsFlat() const;
  QRect styleHandleRect() const;
  /** Where the handle is drawn and where a press grabs it. */
  QRect handleRect() const;

  bool m_varies = false;
  bool m_keyboardMoved = false;
  QSet<int> m_heldKeys;
  QColor m_groove;
  QColor m_filled;
  QColor m_text;
};

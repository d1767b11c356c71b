#pragma once

#include "PropUiQControl.h"
#include <QPointer>

class QLabel;

/**
 * The caption of an item. Narrower than its text, it shows the text elided
 * at the right; its tool tip carries the caption and the item's description.
 */
class PROPWIDGETS_EXPORT PropUiQLabel : public PropUiQControl
{
  Q_OBJECT

public:
  explicit PropUiQLabel(QWidget* parent = nullptr);

  bool setupUi() override;

  /** Shows the text (elided when it does not fit) and rebuilds the tool tip. */
  void setText(const QString& text);
  QString text() const { return m_text; }
  void setupToolTip();
  /** Fixes the caption's width, as a column of captions in a panel does. */
  void setWidth(int width);

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  static Qt::Alignment hostAlignment();
  /** Whether any of the widget is inside its window's visible part. */
  static bool isInSight(const QWidget* widget);
  /** Elides the text to the label's width, or shows it whole when it fits. */
  void fitText();

  QString m_text;
  QPointer<QLabel> m_label;
  /** The width changed while the label was out of sight: its text is fitted when it is painted. */
  bool m_fitPending = false;
};

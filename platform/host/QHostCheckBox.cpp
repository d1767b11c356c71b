#include "QHostCheckBox.h"

#include <QPainter>
#include <QStyleOptionButton>
#include <QStylePainter>

namespace host_qt_ui_core
{

namespace
{

// The switch is as tall as a check box indicator, a little larger, and twice as wide.
int trackHeight(const QWidget* w)
{
  QStyleOptionButton option;
  option.initFrom(w);
  return w->style()->pixelMetric(QStyle::PM_IndicatorHeight, &option, w) + 4;
}

} // namespace

QHostCheckBox::QHostCheckBox(QWidget* parent) : QCheckBox(parent) {}

void QHostCheckBox::enableSwitchMode(bool on)
{
  if (m_switchMode == on)
    return;
  m_switchMode = on;
  updateGeometry();
  update();
}

QRectF QHostCheckBox::trackRect() const
{
  const int h = trackHeight(this);
  return QRectF(1.5, (height() - h) / 2.0 + 0.5, 2.0 * h - 1.0, h - 1.0);
}

QSize QHostCheckBox::sizeHint() const
{
  if (!m_switchMode)
    return QCheckBox::sizeHint();
  const int h = trackHeight(this);
  int width = 2 * h + 2;
  if (!text().isEmpty())
    width += fontMetrics().horizontalAdvance(QLatin1Char(' ')) * 2 + fontMetrics().horizontalAdvance(text());
  return QSize(width, qMax(h + 2, fontMetrics().height() + 2));
}

QSize QHostCheckBox::minimumSizeHint() const
{
  return m_switchMode ? sizeHint() : QCheckBox::minimumSizeHint();
}

bool QHostCheckBox::hitButton(const QPoint& pos) const
{
  return m_switchMode ? rect().contains(pos) : QCheckBox::hitButton(pos);
}

void QHostCheckBox::paintIndicatorFocusRing()
{
  QStyleOptionButton option;
  initStyleOption(&option);
  const QRectF indicator = style()->subElementRect(QStyle::SE_CheckBoxIndicator, &option, this);
  QPainter p(this);
  p.setRenderHint(QPainter::Antialiasing);
  QColor ring = palette().color(QPalette::Highlight);
  p.setPen(QPen(ring, 1.5));
  p.setBrush(Qt::NoBrush);
  p.drawRoundedRect(indicator.adjusted(-1.25, -1.25, 1.25, 1.25), 2.5, 2.5);
}

void QHostCheckBox::setCaptionDimmed(bool dimmed)
{
  if (m_captionDimmed == dimmed)
    return;
  m_captionDimmed = dimmed;
  update();
}

void QHostCheckBox::paintEvent(QPaintEvent* event)
{
  if (!m_switchMode)
  {
    if (!m_captionDimmed)
      QCheckBox::paintEvent(event);
    else
    {
      QStylePainter painter(this);
      QStyleOptionButton option;
      initStyleOption(&option);
      option.palette.setColor(QPalette::WindowText, option.palette.color(QPalette::PlaceholderText));
      painter.drawControl(QStyle::CE_CheckBox, option);
    }
    // Styles draw the focus frame around the caption; without one nothing shows where the focus is.
    if (hasFocus() && text().isEmpty())
      paintIndicatorFocusRing();
    return;
  }
  QPainter p(this);
  p.setRenderHint(QPainter::Antialiasing);
  const QPalette& pal = palette();
  const bool on = checkState() == Qt::Checked;
  // Neither on nor off: the values of a selection differ.
  const bool middle = checkState() == Qt::PartiallyChecked;
  const bool enabled = isEnabled();

  const QRectF track = trackRect();
  const qreal radius = track.height() / 2.0;
  QColor fill = on ? pal.color(QPalette::Highlight) : pal.color(QPalette::Mid);
  // The mid colour of a light palette is too faint for a track; use the text colour, dimmed.
  if (!on)
  {
    fill = pal.color(QPalette::WindowText);
    fill.setAlphaF(0.35);
  }
  if (!enabled)
    fill.setAlphaF(fill.alphaF() * 0.45);
  p.setPen(Qt::NoPen);
  p.setBrush(fill);
  p.drawRoundedRect(track, radius, radius);

  const qreal knob = track.height() - 4.0;
  qreal x = on ? track.right() - 2.0 - knob : track.left() + 2.0;
  if (middle)
    x = track.center().x() - knob / 2.0;
  QColor knobColor(Qt::white);
  if (!enabled)
    knobColor = pal.color(QPalette::Disabled, QPalette::Button);
  else if (middle)
    knobColor.setAlphaF(0.55); // the track shows through: a grey that suits either theme
  p.setBrush(knobColor);
  p.drawEllipse(QRectF(x, track.top() + 2.0, knob, knob));

  if (hasFocus())
  {
    QColor ring = pal.color(QPalette::Highlight);
    ring.setAlphaF(0.6);
    p.setPen(QPen(ring, 1.5));
    p.setBrush(Qt::NoBrush);
    p.drawRoundedRect(track.adjusted(-1.0, -1.0, 1.0, 1.0), radius + 1.0, radius + 1.0);
  }

  if (!text().isEmpty())
  {
    const int gap = fontMetrics().horizontalAdvance(QLatin1Char(' ')) * 2;
    const QRect textRect(int(track.right()) + gap, 0, width() - int(track.right()) - gap, height());
    p.setPen(pal.color(enabled ? QPalette::Active : QPalette::Disabled,
                       m_captionDimmed ? QPalette::PlaceholderText : QPalette::WindowText));
    p.drawText(textRect, Qt::AlignLeft | Qt::AlignVCenter,
               fontMetrics().elidedText(text(), Qt::ElideRight, textRect.width()));
  }
}

} // namespace host_qt_ui_core

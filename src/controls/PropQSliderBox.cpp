#include "PropQSliderBox.h"

#include "PropUiTexts_p.h"
#include <cmath>
#include <QKeyEvent>
#include <QPair>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionSlider>

PropQSliderBox::PropQSliderBox(QWidget* parent) : QSlider(parent)
{
  // Not WheelFocus: a wheel turned over a panel must not pick the slider up.
  setFocusPolicy(Qt::StrongFocus);
}

void PropQSliderBox::setVaries(bool varies)
{
  if (m_varies == varies)
    return;
  m_varies = varies;
  update();
}

void PropQSliderBox::setColors(const QColor& groove, const QColor& filled, const QColor& text)
{
  m_groove = groove;
  m_filled = filled;
  m_text = text;
  update();
}

namespace
{

// Relative luminance as the web's accessibility guidelines define it.
double luminance(const QColor& color)
{
  auto channel = [](double c) { return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4); };
  return 0.2126 * channel(color.redF()) + 0.7152 * channel(color.greenF()) + 0.0722 * channel(color.blueF());
}

} // namespace

double PropQSliderBox::contrast(const QColor& a, const QColor& b)
{
  const double la = luminance(a);
  const double lb = luminance(b);
  return (qMax(la, lb) + 0.05) / (qMin(la, lb) + 0.05);
}

QColor PropQSliderBox::readableOn(const QColor& background, const QColor& text)
{
  if (text.isValid() && contrast(text, background) >= 4.5)
    return text;
  const QColor black(Qt::black);
  const QColor white(Qt::white);
  return contrast(black, background) >= contrast(white, background) ? black : white;
}

bool PropQSliderBox::paintsFlat() const
{
  return orientation() == Qt::Horizontal && m_groove.isValid();
}

QRect PropQSliderBox::styleHandleRect() const
{
  QStyleOptionSlider option;
  initStyleOption(&option);
  return style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, this);
}

QRect PropQSliderBox::handleRect() const
{
  const QRect styled = styleHandleRect();
  return paintsFlat() ? QRect(styled.left(), 0, styled.width(), height()) : styled;
}

void PropQSliderBox::mousePressEvent(QMouseEvent* event)
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
  const QPointF at = event->position();
#else
  const QPointF at = event->localPos();
#endif
  if (!handleRect().contains(at.toPoint()))
  {
    event->ignore();
    return;
  }
  if (!paintsFlat())
  {
    QSlider::mousePressEvent(event);
    return;
  }
  // The style grabs its handle only where it would draw it, a band across the
  // middle; the flat handle is as tall as the slider. Only the position along
  // the slider matters to the drag, so the press is moved into the band.
  const QPointF inBand(at.x(), styleHandleRect().center().y());
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
  // Qt 6 events name their pointing device; the moved press keeps the original's.
  QMouseEvent press(event->type(), inBand, event->scenePosition(), event->globalPosition(), event->button(),
                    event->buttons(), event->modifiers(), event->source(), event->pointingDevice());
#else
  QMouseEvent press(event->type(), inBand, event->windowPos(), event->screenPos(), event->button(),
                    event->buttons(), event->modifiers(), event->source());
#endif
  QSlider::mousePressEvent(&press);
  event->setAccepted(press.isAccepted());
}

void PropQSliderBox::paintEvent(QPaintEvent* event)
{
  const QRect handle = handleRect();
  const bool flat = paintsFlat();
  if (!flat)
    QSlider::paintEvent(event);
  QPainter painter(this);
  // Painted here rather than by a style sheet: a panel holds many sliders,
  // and a sheet is parsed and polished for each one.
  const int split = qBound(0, handle.right() + 1, width());
  if (flat)
  {
    painter.fillRect(rect(), m_groove);
    painter.fillRect(QRect(0, 0, split, height()), m_filled.isValid() ? m_filled : m_groove);
  }
  QFont font = this->font();
  font.setPointSizeF((height() + 1) * 0.5);
  const bool showVaries = m_varies && !isSliderDown() && !m_keyboardMoved;
  font.setItalic(showVaries);
  painter.setFont(font);
  const QString text = showVaries ? PropUiTexts::varies() : QString::number(value());
  const QColor themeText = m_text.isValid() ? m_text : palette().color(QPalette::Text);

  // The filled part ends inside the handle, which has the filled colour:
  // the text changes colour where the groove begins.
  const QRect filled(0, 0, split, height());
  const QRect rest(split, 0, width() - split, height());
  const QColor groove = m_groove.isValid() ? m_groove : palette().color(QPalette::Base);
  const QColor fill = m_filled.isValid() ? m_filled : groove;
  for (const auto& part : {qMakePair(filled, fill), qMakePair(rest, groove)})
  {
    if (part.first.isEmpty())
      continue;
    QColor pen = readableOn(part.second, themeText);
    // "*varies*" is a placeholder, not a value, so it is dimmed; the theme's
    // placeholder colour itself is made for the base colour and would not
    // read on the accent-coloured groove.
    if (showVaries)
      pen.setAlphaF(0.7);
    painter.save();
    painter.setClipRect(part.first);
    painter.setPen(pen);
    painter.drawText(rect(), Qt::AlignCenter, text);
    painter.restore();
  }

  if (hasFocus())
  {
    // The style's focus rectangle is in the highlight colour, the groove's
    // own: a dotted frame that reads on the groove shows where the focus is.
    const int pen = qMax(1, style()->pixelMetric(QStyle::PM_DefaultFrameWidth, nullptr, this));
    painter.setPen(QPen(readableOn(groove, themeText), pen, Qt::DotLine));
    painter.setBrush(Qt::NoBrush);
    const qreal inset = pen / 2.0;
    painter.drawRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset));
  }
}

// The panel scrolls under the wheel, as over every other control.
void PropQSliderBox::wheelEvent(QWheelEvent* event)
{
  event->ignore();
}

void PropQSliderBox::keyPressEvent(QKeyEvent* event)
{
  const int before = value();
  QSlider::keyPressEvent(event);
  if (!event->isAutoRepeat())
    m_heldKeys.insert(event->key());
  if (value() != before)
  {
    m_keyboardMoved = true;
    update();
  }
}

void PropQSliderBox::keyReleaseEvent(QKeyEvent* event)
{
  QSlider::keyReleaseEvent(event);
  // A held key repeats as pairs of press and release: those are not the end.
  if (event->isAutoRepeat())
    return;
  m_heldKeys.remove(event->key());
  if (m_heldKeys.isEmpty())
    finishKeyboardEdit();
}

void PropQSliderBox::focusOutEvent(QFocusEvent* event)
{
  QSlider::focusOutEvent(event);
  // The releases of keys still held go to whoever has the focus now.
  m_heldKeys.clear();
  finishKeyboardEdit();
}

void PropQSliderBox::finishKeyboardEdit()
{
  if (!m_keyboardMoved)
    return;
  m_keyboardMoved = false;
  update();
  Q_EMIT keyboardEditFinished();
}

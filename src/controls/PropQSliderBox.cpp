#include "PropQSliderBox.h"

#include "HostVisualManager.h"
#include "PropUiThemeColors.h"
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionSlider>

PropQSliderBox::PropQSliderBox(QWidget* parent) : QSlider(parent) {}

void PropQSliderBox::mousePressEvent(QMouseEvent* event)
{
  QStyleOptionSlider option;
  initStyleOption(&option);
  const QRect handle = style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, this);
  if (handle.contains(event->localPos().toPoint()))
  {
    QSlider::mousePressEvent(event);
    return;
  }
  event->ignore();
}

void PropQSliderBox::paintEvent(QPaintEvent* event)
{
  QSlider::paintEvent(event);
  QPainter painter(this);
  QFont font = this->font();
  font.setPointSizeF((height() + 1) * 0.5);
  painter.setFont(font);
  painter.setPen(propui::colorFromWord(hostVisualManager()->textColor(0)));
  painter.drawText(rect(), Qt::AlignCenter, QString::number(value()));
}

#include "HostQtStyle.h"

#include <QPainter>
#include <QStyleOption>
#include <QtMath>

namespace
{

double linear(int channel)
{
  const double c = channel / 255.0;
  return c <= 0.03928 ? c / 12.92 : qPow((c + 0.055) / 1.055, 2.4);
}

QColor mixed(const QColor& from, const QColor& to, double amount)
{
  return QColor::fromRgbF(from.redF() + (to.redF() - from.redF()) * amount,
                          from.greenF() + (to.greenF() - from.greenF()) * amount,
                          from.blueF() + (to.blueF() - from.blueF()) * amount);
}

bool isCheckedButton(const QStyleOption* option)
{
  return option && (option->state & QStyle::State_On) && (option->state & QStyle::State_Enabled);
}

} // namespace

HostQtStyle::HostQtStyle(const QString& baseKey) : QProxyStyle(baseKey) {}

double HostQtStyle::relativeLuminance(const QColor& color)
{
  return 0.2126 * linear(color.red()) + 0.7152 * linear(color.green()) + 0.0722 * linear(color.blue());
}

double HostQtStyle::contrastRatio(const QColor& a, const QColor& b)
{
  const double la = relativeLuminance(a), lb = relativeLuminance(b);
  return (qMax(la, lb) + 0.05) / (qMin(la, lb) + 0.05);
}

// The highlight alone is too close to a dark theme's buttons; it is moved
// towards white on dark buttons and towards black on light ones until it
// stands apart. Base styles brighten a button's face a little above the
// palette's colour (Fusion by up to a third on dark buttons, with its gradient), so the face as
// drawn is measured against too.
QColor HostQtStyle::checkedButtonColor(const QPalette& palette)
{
  const QColor button = palette.color(QPalette::Active, QPalette::Button);
  const QColor face = button.lighter(140);
  const QColor highlight = palette.color(QPalette::Active, QPalette::Highlight);
  const QColor away = relativeLuminance(button) < 0.18 ? QColor(Qt::white) : QColor(Qt::black);
  QColor checked = highlight;
  for (int step = 1;
       step <= 20 && qMin(contrastRatio(checked, button), contrastRatio(checked, face)) < kCheckedContrast; ++step)
    checked = mixed(highlight, away, step * 0.05);
  return checked;
}

QColor HostQtStyle::checkedButtonTextColor(const QPalette& palette)
{
  const QColor background = checkedButtonColor(palette);
  QColor best;
  for (QPalette::ColorRole role : {QPalette::HighlightedText, QPalette::ButtonText, QPalette::Button})
  {
    const QColor candidate = palette.color(QPalette::Active, role);
    if (!best.isValid() || contrastRatio(candidate, background) > contrastRatio(best, background))
      best = candidate;
  }
  return best;
}

// Filled here rather than by the base style: Fusion lightens and desaturates
// whatever button colour it is given, and caches a picture per palette.
void HostQtStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                const QWidget* widget) const
{
  if (element == PE_PanelButtonCommand && isCheckedButton(option))
  {
    const QColor fill = checkedButtonColor(option->palette);
    const qreal radius = qMax(1.0, option->fontMetrics.height() / 8.0);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(fill.darker(125));
    painter->setBrush((option->state & State_Sunken) ? fill.darker(110) : fill);
    painter->drawRoundedRect(QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
    painter->restore();
    return;
  }
  QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void HostQtStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                              const QWidget* widget) const
{
  if ((element == CE_PushButtonLabel || element == CE_ToolButtonLabel) && isCheckedButton(option))
  {
    if (auto* button = qstyleoption_cast<const QStyleOptionButton*>(option))
    {
      QStyleOptionButton label(*button);
      label.palette.setColor(QPalette::ButtonText, checkedButtonTextColor(option->palette));
      QProxyStyle::drawControl(element, &label, painter, widget);
      return;
    }
    if (auto* tool = qstyleoption_cast<const QStyleOptionToolButton*>(option))
    {
      QStyleOptionToolButton label(*tool);
      label.palette.setColor(QPalette::ButtonText, checkedButtonTextColor(option->palette));
      QProxyStyle::drawControl(element, &label, painter, widget);
      return;
    }
  }
  QProxyStyle::drawControl(element, option, painter, widget);
}

#include "PropUiQLabel.h"

#include "HostApplication.h"
#include "OdStringQt.h"
#include "PropBag.h"
#include <QHBoxLayout>
#include <QLabel>
#include <QResizeEvent>

PropUiQLabel::PropUiQLabel(QWidget* parent) : PropUiQControl(parent) {}

Qt::Alignment PropUiQLabel::hostAlignment()
{
  return hostApplication()->labelAlignment() == HostApplication::kLabelsLeft ? Qt::AlignLeft | Qt::AlignVCenter
                                                                            : Qt::AlignRight | Qt::AlignVCenter;
}

bool PropUiQLabel::setupUi()
{
  PropUiQControl::setupUi();
  auto* layout = adoptLayout(new QHBoxLayout);
  layout->setContentsMargins(4, 0, 0, 0);
  m_label = new QLabel(this);
  m_label->setObjectName(QStringLiteral("label"));
  m_label->setAlignment(hostAlignment());
  // Let the panel make the caption narrower than its text: it elides then.
  m_label->setMinimumWidth(1);
  layout->addWidget(m_label);
  m_label->installEventFilter(this);
  OdString name;
  if (m_bag && m_bag->getName(m_index, name))
    setText(toQString(name));
  return true;
}

void PropUiQLabel::setText(const QString& text)
{
  m_text = text;
  if (m_label)
  {
    const int width = m_label->width();
    const QFontMetrics metrics(m_label->font());
    // Until the label is laid out on screen, show the whole caption.
    const bool fits = !m_label->isVisible() || metrics.horizontalAdvance(text) <= width;
    m_label->setText(fits ? text : metrics.elidedText(text, Qt::ElideRight, width));
  }
  setupToolTip();
}

void PropUiQLabel::setupToolTip()
{
  OdString description;
  if (m_bag && m_bag->getDescription(m_index, description) && !description.isEmpty())
    setToolTip(QStringLiteral("<h4>%1</h4>%2").arg(m_text, toQString(description)));
  else
    setToolTip(m_text);
}

void PropUiQLabel::setWidth(int width)
{
  setSizePolicy(QSizePolicy::Fixed, sizePolicy().verticalPolicy());
  setFixedWidth(width);
}

// A panel lays out thousands of captions, most of them scrolled out of
// sight: those wait for their first paint to elide.
bool PropUiQLabel::eventFilter(QObject* watched, QEvent* event)
{
  if (watched == m_label)
  {
    if (event->type() == QEvent::Resize)
    {
      auto* resize = static_cast<QResizeEvent*>(event);
      if (resize->size().width() != resize->oldSize().width())
      {
        if (isInSight(m_label))
          fitText();
        else
          m_fitPending = true;
      }
    }
    else if (event->type() == QEvent::Paint && m_fitPending)
    {
      fitText();
    }
  }
  return PropUiQControl::eventFilter(watched, event);
}

void PropUiQLabel::fitText()
{
  m_fitPending = false;
  const int width = m_label->width();
  const QFontMetrics metrics(m_label->font());
  if (metrics.horizontalAdvance(m_text) > width)
  {
    m_label->setText(metrics.elidedText(m_text, Qt::ElideRight, width));
    m_label->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  }
  else if (m_label->text() != m_text)
  {
    // It had been elided: the whole text fits again.
    m_label->setText(m_text);
    m_label->setAlignment(hostAlignment());
  }
}

bool PropUiQLabel::isInSight(const QWidget* widget)
{
  if (!widget->isVisible())
    return false;
  QRect shown = widget->rect();
  for (const QWidget* w = widget; !w->isWindow() && w->parentWidget(); w = w->parentWidget())
  {
    shown = shown.translated(w->pos()) & w->parentWidget()->rect();
    if (shown.isEmpty())
      return false;
  }
  return true;
}

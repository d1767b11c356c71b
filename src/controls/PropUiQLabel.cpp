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
  auto* layout = new QHBoxLayout(this);
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

bool PropUiQLabel::eventFilter(QObject* watched, QEvent* event)
{
  if (watched == m_label && event->type() == QEvent::Resize)
  {
    auto* resize = static_cast<QResizeEvent*>(event);
    const int newWidth = resize->size().width();
    const int oldWidth = resize->oldSize().width();
    if (newWidth != oldWidth)
    {
      const QFontMetrics metrics(m_label->font());
      const int textWidth = metrics.horizontalAdvance(m_text);
      if (textWidth > newWidth)
      {
        m_label->setText(metrics.elidedText(m_text, Qt::ElideRight, newWidth));
        m_label->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
      }
      else if (textWidth > oldWidth && m_label->text() != m_text)
      {
        // It had been elided: the whole text fits again.
        m_label->setText(m_text);
        if (hostApplication()->labelAlignment() != HostApplication::kLabelsLeft)
          m_label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
      }
    }
  }
  return PropUiQControl::eventFilter(watched, event);
}

#include "QHostMessageBalloon.h"

#include <QApplication>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPainterPath>
#include <QScreen>
#include <QStyle>

namespace host_qt_ui
{

namespace
{

QPointer<QHostMessageBalloon>& shown()
{
  static QPointer<QHostMessageBalloon> balloon;
  return balloon;
}

} // namespace

QHostMessageBalloon* QHostMessageBalloon::showAt(QWidget* field, const QString& text, bool error)
{
  if (!field)
    return nullptr;
  if (shown())
    shown()->close();
  auto* balloon = new QHostMessageBalloon(field, text, error);
  shown() = balloon;
  balloon->place();
  balloon->show();
  return balloon;
}

QHostMessageBalloon* QHostMessageBalloon::current() { return shown(); }

// A tool tip window: it never takes the focus from the field, and the
// window manager leaves it where it is put.
QHostMessageBalloon::QHostMessageBalloon(QWidget* field, const QString& text, bool error)
  : QWidget(field->window(), Qt::ToolTip | Qt::FramelessWindowHint), m_field(field)
{
  setObjectName(QStringLiteral("messageBalloon"));
  setAttribute(Qt::WA_DeleteOnClose);
  setAttribute(Qt::WA_ShowWithoutActivating);
  setFocusPolicy(Qt::NoFocus);
  setAccessibleName(error ? tr("Error") : tr("Information"));
  setAccessibleDescription(text);
  setBackgroundRole(QPalette::ToolTipBase);
  setForegroundRole(QPalette::ToolTipText);

  const int margin =
    style()->pixelMetric(QStyle::PM_ToolTipLabelFrameWidth, nullptr, this) + fontMetrics().height() / 3;
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(margin, margin + arrowSize(), margin, margin);
  layout->setSpacing(margin);
  auto* icon = new QLabel(this);
  icon->setObjectName(QStringLiteral("icon"));
  const int iconSize = style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, this);
  icon->setPixmap(
    style()
      ->standardIcon(error ? QStyle::SP_MessageBoxCritical : QStyle::SP_MessageBoxInformation, nullptr, this)
      .pixmap(iconSize, iconSize));
  icon->setAlignment(Qt::AlignTop);
  layout->addWidget(icon);
  m_label = new QLabel(text, this);
  m_label->setObjectName(QStringLiteral("text"));
  m_label->setWordWrap(true);
  m_label->setTextFormat(Qt::PlainText);
  m_label->setMaximumWidth(fontMetrics().averageCharWidth() * 60);
  m_label->setForegroundRole(QPalette::ToolTipText);
  layout->addWidget(m_label, 1);

  qApp->installEventFilter(this);
  // A field deleted under the balloon takes it along.
  connect(field, &QObject::destroyed, this, &QWidget::close);
}

QString QHostMessageBalloon::text() const { return m_label ? m_label->text() : QString(); }

int QHostMessageBalloon::arrowSize() const { return fontMetrics().height() / 2; }

// Below the field, its arrow at the field's left part; above it when the
// screen has no room below.
void QHostMessageBalloon::place()
{
  if (!m_field)
    return;
  adjustSize();
  const QPoint below = m_field->mapToGlobal(QPoint(0, m_field->height()));
  QScreen* screen = m_field->screen();
  const QRect available = screen ? screen->availableGeometry() : QRect(below, size());
  m_below =
    below.y() + height() <= available.bottom() || m_field->mapToGlobal(QPoint(0, 0)).y() - height() < available.top();
  QHBoxLayout* row = qobject_cast<QHBoxLayout*>(layout());
  if (row)
  {
    QMargins margins = row->contentsMargins();
    const int plain = margins.left();
    margins.setTop(m_below ? plain + arrowSize() : plain);
    margins.setBottom(m_below ? plain : plain + arrowSize());
    row->setContentsMargins(margins);
    adjustSize();
  }
  QPoint at = m_below ? below : m_field->mapToGlobal(QPoint(0, -height()));
  at.setX(qBound(available.left(), at.x(), qMax(available.left(), available.right() - width())));
  move(at);
  setMask(QRegion(outline().toFillPolygon().toPolygon()));
}

QPainterPath QHostMessageBalloon::outline() const
{
  const int arrow = arrowSize();
  const QRectF body = QRectF(rect()).adjusted(0, m_below ? arrow : 0, 0, m_below ? 0 : -arrow);
  const qreal radius = arrow / 2.0;
  QPainterPath path;
  path.addRoundedRect(body, radius, radius);
  const qreal tip = qMin(2.0 * arrow, width() / 2.0);
  QPainterPath pointer;
  if (m_below)
    pointer.addPolygon(
      QPolygonF({QPointF(tip - arrow, body.top() + 1), QPointF(tip, 0), QPointF(tip + arrow, body.top() + 1)}));
  else
    pointer.addPolygon(QPolygonF(
      {QPointF(tip - arrow, body.bottom() - 1), QPointF(tip, height()), QPointF(tip + arrow, body.bottom() - 1)}));
  return path.united(pointer);
}

void QHostMessageBalloon::paintEvent(QPaintEvent*)
{
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  QColor border = palette().color(QPalette::ToolTipText);
  border.setAlphaF(0.45);
  painter.setPen(QPen(border, 1.0));
  painter.setBrush(palette().color(QPalette::ToolTipBase));
  painter.drawPath(outline().translated(0.5, 0.5));
}

bool QHostMessageBalloon::eventFilter(QObject* watched, QEvent* event)
{
  switch (event->type())
  {
  case QEvent::KeyPress:
  case QEvent::MouseButtonPress:
  case QEvent::MouseButtonDblClick:
  case QEvent::Wheel:
    // Seen, not taken: the key or click still does what it was meant to.
    close();
    break;
  case QEvent::Move:
  case QEvent::Resize:
  case QEvent::Hide:
  case QEvent::WindowDeactivate:
    if (m_field && watched == m_field->window() && watched != this)
      close();
    break;
  default:
    break;
  }
  return false;
}

} // namespace host_qt_ui

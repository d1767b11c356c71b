#include "QHostItemControlDelegate.h"

#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>

namespace host_qt_ui_core
{

namespace
{
constexpr int kPinSize = 16;
constexpr int kPinMargin = 2;
} // namespace

QHostItemControlDelegate::QHostItemControlDelegate(int features, int pinRole, QObject* parent)
  : QStyledItemDelegate(parent), m_features(features), m_pinRole(pinRole)
{
}

bool QHostItemControlDelegate::hasPin(const QModelIndex& index) const
{
  return (m_features & PinToggle) && index.isValid() && index.data(m_pinRole).userType() == QMetaType::Bool;
}

int QHostItemControlDelegate::pinExtent(const QStyleOptionViewItem&) const
{
  return kPinSize + 2 * kPinMargin;
}

QRect QHostItemControlDelegate::pinRect(const QRect& itemRect) const
{
  const int extent = std::min(itemRect.height(), kPinSize);
  return QRect(itemRect.right() + 1 - extent - kPinMargin, itemRect.top() + (itemRect.height() - extent) / 2, extent, extent);
}

void QHostItemControlDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                                     const QModelIndex& index) const
{
  if (!hasPin(index))
  {
    QStyledItemDelegate::paint(painter, option, index);
    return;
  }
  const QRect pin = pinRect(option.rect);
  QStyleOptionViewItem textOption(option);
  textOption.rect.setRight(pin.left() - kPinMargin);
  QStyledItemDelegate::paint(painter, textOption, index);

  const bool pinned = index.data(m_pinRole).toBool();
  const bool hovered = option.state & QStyle::State_MouseOver;
  if (!pinned && (m_features & PinOnHover) && !hovered)
    return;

  // A drawing-pin: round head and a needle, filled when pinned.
  const QColor ink = option.palette.color(option.state & QStyle::State_Selected ? QPalette::HighlightedText
                                                                                 : QPalette::Text);
  painter->save();
  painter->setRenderHint(QPainter::Antialiasing);
  QColor outline = ink;
  if (!pinned)
    outline.setAlphaF(0.55);
  painter->setPen(QPen(outline, 1.2));
  const QRectF box(pin);
  const QRectF head(box.left() + box.width() * 0.25, box.top() + box.height() * 0.08, box.width() * 0.5,
                    box.height() * 0.5);
  painter->setBrush(pinned ? QBrush(option.palette.color(QPalette::Highlight)) : Qt::NoBrush);
  painter->drawEllipse(head);
  painter->drawLine(QPointF(box.center().x(), head.bottom()), QPointF(box.center().x(), box.bottom() - 1));
  painter->restore();
}

QSize QHostItemControlDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
  QSize size = QStyledItemDelegate::sizeHint(option, index);
  if (hasPin(index))
    size.rwidth() += pinExtent(option);
  return size;
}

bool QHostItemControlDelegate::editorEvent(QEvent* event, QAbstractItemModel* model,
                                           const QStyleOptionViewItem& option, const QModelIndex& index)
{
  const bool press = event->type() == QEvent::MouseButtonPress;
  const bool release = event->type() == QEvent::MouseButtonRelease;
  if ((press || release) && model && hasPin(index))
  {
    auto* mouse = static_cast<QMouseEvent*>(event);
    if (mouse->button() == Qt::LeftButton && pinRect(option.rect).contains(mouse->pos()))
    {
      // The press toggles; its release must not reach the view as a click on the row.
      if (press)
        model->setData(index, !index.data(m_pinRole).toBool(), m_pinRole);
      return true;
    }
  }
  return QStyledItemDelegate::editorEvent(event, model, option, index);
}

} // namespace host_qt_ui_core

#include "QHostActionsItemElement.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOption>
#include <QWidget>

namespace host_qt_ui_core
{

namespace
{
// Room around each icon, so that neighbouring icons and the text do not touch.
constexpr int kSlotMargin = 2;
} // namespace

QHostActionsItemElement::QHostActionsItemElement() : m_iconSize(16, 16) {}

void QHostActionsItemElement::clear()
{
  m_entries.clear();
}

void QHostActionsItemElement::addAction(const QIcon& icon, bool checkable, bool checked)
{
  m_entries.append({icon, checkable, checkable && checked});
}

QSize QHostActionsItemElement::effectiveIconSize(const QSize& decorationSize) const
{
  return decorationSize.isValid() && !decorationSize.isEmpty() ? decorationSize : m_iconSize;
}

int QHostActionsItemElement::slotWidth(const QSize& decorationSize) const
{
  return effectiveIconSize(decorationSize).width() + 2 * kSlotMargin;
}

QRect QHostActionsItemElement::slotRect(int entry, const QRect& rect, const QSize& decorationSize) const
{
  const int width = slotWidth(decorationSize);
  const int height = std::min(rect.height(), effectiveIconSize(decorationSize).height() + 2 * kSlotMargin);
  const int right = rect.right() + 1 - (m_entries.size() - entry - 1) * width;
  return QRect(right - width, rect.top() + (rect.height() - height) / 2, width, height);
}

void QHostActionsItemElement::paint(QPainter* painter, const QRect& rect, const QSize& decorationSize,
                                    const QWidget* widget, QStyle* style) const
{
  if (!painter || m_entries.isEmpty())
    return;
  const QSize icon = effectiveIconSize(decorationSize);
  for (int i = 0; i < m_entries.size(); ++i)
  {
    const Entry& entry = m_entries[i];
    const QRect slot = slotRect(i, rect, decorationSize);
    if (entry.checked && style)
    {
      QStyleOptionButton panel;
      panel.rect = slot;
      panel.state = QStyle::State_Enabled | QStyle::State_On | QStyle::State_Sunken;
      if (widget)
        panel.palette = widget->palette();
      style->drawPrimitive(QStyle::PE_PanelButtonTool, &panel, painter, widget);
    }
    const QRect iconRect(slot.x() + (slot.width() - icon.width()) / 2, slot.y() + (slot.height() - icon.height()) / 2,
                         icon.width(), icon.height());
    entry.icon.paint(painter, iconRect, Qt::AlignCenter, QIcon::Normal, entry.checked ? QIcon::On : QIcon::Off);
  }
}

QRect QHostActionsItemElement::cropRect(const QRect& rect, const QSize& decorationSize) const
{
  if (m_entries.isEmpty())
    return rect;
  QRect cropped = rect;
  cropped.setRight(rect.right() - m_entries.size() * slotWidth(decorationSize));
  return cropped;
}

int QHostActionsItemElement::hitAction(const QRect& rect, const QSize& decorationSize, const QPoint& point) const
{
  for (int i = 0; i < m_entries.size(); ++i)
    if (slotRect(i, rect, decorationSize).contains(point))
      return i;
  return -1;
}

QSize QHostActionsItemElement::sizeHint(const QSize& base) const
{
  if (m_entries.isEmpty())
    return base;
  return QSize(base.width() + m_entries.size() * slotWidth(QSize()),
               std::max(base.height(), m_iconSize.height() + 2 * kSlotMargin));
}

} // namespace host_qt_ui_core

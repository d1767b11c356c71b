#pragma once

#include "HostExport.h"
#include <QIcon>
#include <QRect>
#include <QSize>
#include <QVector>

class QPainter;
class QStyle;
class QWidget;

namespace host_qt_ui_core
{

/**
 * A row of action icons at the right end of an item-view cell: lays them
 * out, paints them and tells which one a point hits. A delegate keeps one
 * and refills it per item.
 */
class HOST_EXPORT QHostActionsItemElement
{
public:
  QHostActionsItemElement();

  void clear();
  void addAction(const QIcon& icon, bool checkable = false, bool checked = false);
  int count() const { return m_entries.size(); }
  bool isEmpty() const { return m_entries.isEmpty(); }

  /** The icon size used when a cell gives no decoration size (and by sizeHint). */
  void setIconSize(const QSize& size) { m_iconSize = size; }
  QSize iconSize() const { return m_iconSize; }

  /** Paints the icons into the right end of the cell; a checked entry sits on a pressed button panel. */
  void paint(QPainter* painter, const QRect& rect, const QSize& decorationSize, const QWidget* widget,
             QStyle* style) const;
  /** What is left of the cell for its text once the icons have their room. */
  QRect cropRect(const QRect& rect, const QSize& decorationSize) const;
  /** The entry under the point, -1 for none. */
  int hitAction(const QRect& rect, const QSize& decorationSize, const QPoint& point) const;
  /** The cell's size hint grown by the icons' room. */
  QSize sizeHint(const QSize& base) const;

private:
  struct Entry
  {
    QIcon icon;
    bool checkable;
    bool checked;
  };

  QSize effectiveIconSize(const QSize& decorationSize) const;
  int slotWidth(const QSize& decorationSize) const;
  QRect slotRect(int entry, const QRect& rect, const QSize& decorationSize) const;

  QVector<Entry> m_entries;
  QSize m_iconSize;
};

} // namespace host_qt_ui_core

#pragma once

#include "PropUiQControlDelegate.h"
#include "QHostActionsItemElement.h"

/**
 * The sub-delegate of items that carry actions in their cell: it paints the
 * item's action icons at the cell's right end, runs an action when its icon
 * is pressed, and greys out values the bag's context marks as disabled.
 */
class PROPWIDGETS_EXPORT PropUiQLayerDelegate : public PropUiQControlDelegate
{
  Q_OBJECT

public:
  explicit PropUiQLayerDelegate(QObject* parent = nullptr);

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

  /** Drops the cached actions unless the notice is about the cached item itself. */
  void itemChanged(int item) override;

  /** The item whose actions are loaded, -1 for none. */
  int cachedItem() const { return m_cachedItem; }

protected:
  bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

private:
  void loadActions(int item, unsigned long sub) const;

  // Painting is const in Qt, yet the loaded actions are a cache of the item last met.
  mutable host_qt_ui_core::QHostActionsItemElement m_actions;
  mutable int m_cachedItem = -1;
};

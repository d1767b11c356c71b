#pragma once

#include "HostExport.h"
#include <QStyledItemDelegate>

namespace host_qt_ui_core
{

/**
 * The host's row delegate for list views: rows whose pin role holds a bool
 * get a pin at their right end that a click toggles through the model.
 */
class HOST_EXPORT QHostItemControlDelegate : public QStyledItemDelegate
{
  Q_OBJECT

public:
  enum Feature
  {
    /** Rows with a pin state show a pin and toggle it on a click. */
    PinToggle = 0x1,
    /** An unpinned row shows its pin only while the mouse is over it (the view needs mouse tracking). */
    PinOnHover = 0x2
  };

  QHostItemControlDelegate(int features, int pinRole, QObject* parent = nullptr);

  int features() const { return m_features; }
  int pinRole() const { return m_pinRole; }

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

  /** Where the pin of a row with this rectangle sits. */
  QRect pinRect(const QRect& itemRect) const;

protected:
  bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

private:
  bool hasPin(const QModelIndex& index) const;
  int pinExtent(const QStyleOptionViewItem& option) const;

  int m_features;
  int m_pinRole;
};

} // namespace host_qt_ui_core

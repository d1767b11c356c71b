#include "PropUiQControlDelegate.h"

#include "PropUiQControl.h"
#include "PropWidgetsLogging_p.h"
#include <QApplication>
#include <QPainter>
#include <algorithm>
#include <cmath>

PropUiQControlDelegate::PropUiQControlDelegate(QObject* parent) : QStyledItemDelegate(parent) {}

void PropUiQControlDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const
{
  const QSize viewIcons = option->decorationSize;
  QStyledItemDelegate::initStyleOption(option, index);
  if (!(option->features & QStyleOptionViewItem::HasDecoration) || option->icon.isNull())
    return;
  // Qt fits a picture into the view's icon size: a dash pattern or a layer's marks would shrink to
  // a speck in a view of square icons. The smallest size held is the picture's own.
  const QList<QSize> held = option->icon.availableSizes();
  if (held.isEmpty())
    return;
  QSize own = *std::min_element(held.begin(), held.end(),
                                [](const QSize& a, const QSize& b) { return a.width() * a.height() < b.width() * b.height(); });
  if (viewIcons.height() > 0 && own.height() > viewIcons.height())
    own = QSize(std::max(1, own.width() * viewIcons.height() / own.height()), viewIcons.height());
  option->decorationSize = own;
}

void PropUiQControlDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
  QStyleOptionViewItem cell(option);
  initStyleOption(&cell, index);
  const QWidget* widget = cell.widget;
  QStyle* style = widget ? widget->style() : QApplication::style();
  const QIcon picture = cell.icon;
  if (!painter || !(cell.features & QStyleOptionViewItem::HasDecoration) || picture.isNull())
  {
    style->drawControl(QStyle::CE_ItemViewItem, &cell, painter, widget);
    return;
  }
  // Qt 5 draws an item's icon at the screen's ratio, so that it is blurred on a denser device (a
  // high-density screen without high-density pixmaps, a picture rendered at twice the size): the
  // style lays the cell out and paints the rest, and the picture is drawn here at the device's ratio.
  const QRect place = style->subElementRect(QStyle::SE_ItemViewItemDecoration, &cell, widget);
  cell.icon = QIcon();
  style->drawControl(QStyle::CE_ItemViewItem, &cell, painter, widget);
  // The device's ratio is part of the painter's transform, also when a widget is rendered
  // into an image of a ratio of its own: the device the painter names is then the widget.
  const QTransform toDevice = painter->deviceTransform();
  const qreal ratio = std::max(1.0, std::hypot(toDevice.m11(), toDevice.m12()));
  QIcon::Mode mode = QIcon::Normal;
  if (!(cell.state & QStyle::State_Enabled))
    mode = QIcon::Disabled;
  else if (cell.state & QStyle::State_Selected)
    mode = QIcon::Selected;
  QPixmap pixmap = picture.pixmap(place.size() * ratio, mode, cell.state & QStyle::State_Open ? QIcon::On : QIcon::Off);
  if (pixmap.isNull())
    return;
  pixmap.setDevicePixelRatio(ratio);
  const QSize logical = (QSizeF(pixmap.size()) / ratio).toSize();
  painter->drawPixmap(QStyle::alignedRect(cell.direction, cell.decorationAlignment, logical, place), pixmap);
}

QWidget* PropUiQControlDelegate::createEditor(QWidget*, const QStyleOptionViewItem&, const QModelIndex&) const
{
  return nullptr;
}

void PropUiQControlDelegate::refreshEditorData(QWidget* editor)
{
  auto* control = qobject_cast<PropUiQControl*>(editor);
  if (!control)
    return;
  // A control may refuse what the bag lists by throwing; that must not reach the view's event loop.
  try
  {
    control->updateData();
  }
  catch (...)
  {
    propui::warnCaught("a cell's editor could not show its item");
  }
}

void PropUiQControlDelegate::placeEditor(QWidget* editor, const QStyleOptionViewItem& option)
{
  if (!editor)
    return;
  if (auto* control = qobject_cast<PropUiQControl*>(editor))
  {
    try
    {
      control->updateUi();
    }
    catch (...)
    {
      propui::warnCaught("a cell's editor could not be set up");
    }
  }
  editor->setGeometry(option.rect);
}

void PropUiQControlDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const
{
  refreshEditorData(editor);
  QStyledItemDelegate::setEditorData(editor, index);
}

void PropUiQControlDelegate::setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const
{
  QStyledItemDelegate::setModelData(editor, model, index);
}

void PropUiQControlDelegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                                  const QModelIndex&) const
{
  placeEditor(editor, option);
}

void PropUiQControlDelegate::setPropBag(PropBag* bag)
{
  m_bag = bag;
}

void PropUiQControlDelegate::setFormatter(PropUiQFormatter* formatter)
{
  m_formatter = formatter;
}

void PropUiQControlDelegate::itemChanged(int) {}

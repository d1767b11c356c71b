#include "PropUiQControlDelegate.h"

#include "PropUiQControl.h"

PropUiQControlDelegate::PropUiQControlDelegate(QObject* parent) : QStyledItemDelegate(parent) {}

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

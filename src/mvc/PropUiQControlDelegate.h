#pragma once

#include "PropUiQtMVCInterface.h"
#include <QStyledItemDelegate>

/**
 * The default sub-delegate of the standard delegate: paints as Qt does and
 * keeps an open editor control in step with its item. Editors are made by
 * the standard delegate, so createEditor gives none.
 */
class PROPWIDGETS_EXPORT PropUiQControlDelegate : public QStyledItemDelegate, public PropUiQtMVCInterface
{
  Q_OBJECT

public:
  explicit PropUiQControlDelegate(QObject* parent = nullptr);

  /** Paints as Qt does, but the cell's picture at the pixel ratio of the device painted on. */
  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  /** A control re-reads its item. */
  void setEditorData(QWidget* editor, const QModelIndex& index) const override;
  /** Nothing passes through the model: the control has written the bag itself. */
  void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;
  void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                            const QModelIndex& index) const override;

  void setPropBag(PropBag* bag) override;
  void setFormatter(PropUiQFormatter* formatter) override;
  void itemChanged(int item) override;

  PropBag* propBag() const { return m_bag; }
  PropUiQFormatter* formatter() const { return m_formatter; }

  /** The editor-side steps every delegate of the layer shares. */
  static void refreshEditorData(QWidget* editor);
  static void placeEditor(QWidget* editor, const QStyleOptionViewItem& option);

protected:
  /** A picture keeps its own width, as in its picker; the view's icon size bounds its height. */
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

  PropBag* m_bag = nullptr;
  PropUiQFormatter* m_formatter = nullptr;
};

#pragma once

#include "OdGUID.h"
#include "PropUiQControlDelegate.h"
#include <QPointer>
#include <map>
#include <string>

class PropUiQStandardFormatter;

/**
 * The delegate a property grid gets: it opens the control registered for the
 * item's GUID as the cell editor, and hands painting, size hints, editor
 * geometry and change notices to the sub-delegate registered for that GUID
 * (the default one under the null GUID).
 */
class PROPWIDGETS_EXPORT PropUiQStandardDelegate : public QStyledItemDelegate, public PropUiQtMVCInterface
{
  Q_OBJECT

public:
  explicit PropUiQStandardDelegate(QObject* parent = nullptr);

  /** Only cells of bag items are painted. */
  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  /** The control for the item's GUID and flags, bound to the item or element and showing its value. */
  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  void setEditorData(QWidget* editor, const QModelIndex& index) const override;
  void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;
  void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                            const QModelIndex& index) const override;

  void setPropBag(PropBag* bag) override;
  /** A standard formatter gives each sub-delegate the formatter of its key; any other is shared by all. */
  void setFormatter(PropUiQFormatter* formatter) override;
  void itemChanged(int item) override;

  /** Takes the sub-delegate as a Qt child, replacing (and deleting) one held under the GUID. */
  void setSubDelegate(const OdGUID& guid, PropUiQControlDelegate* delegate);
  /** The sub-delegate held under exactly this GUID, or null. */
  PropUiQControlDelegate* subDelegate(const OdGUID& guid) const;
  /** The sub-delegate that serves the item: its GUID's, else the null GUID's, else null. */
  PropUiQControlDelegate* subDelegateForItem(int item) const;

private:
  /** The item behind a cell, when a bag is bound and the cell stands for one. */
  bool propertyOf(const QModelIndex& index, int& item, unsigned long& sub, bool& isSubItem) const;
  PropUiQFormatter* formatterForKey(const std::wstring& key) const;

  PropBag* m_bag = nullptr;
  std::map<std::wstring, QPointer<PropUiQControlDelegate> > m_subDelegates;
  PropUiQFormatter* m_formatter = nullptr;
  PropUiQStandardFormatter* m_standardFormatter = nullptr;
};

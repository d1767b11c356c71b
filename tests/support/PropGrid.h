#pragma once

#include "PropUiQStandardDelegate.h"
#include "PropUiQStandardFormatter.h"
#include "PropUiQtMVCFactories.h"
#include "TestMvcGroup.h"
#include <QAbstractItemModelTester>
#include <QLineEdit>
#include <QScopedPointer>
#include <QTest>
#include <QTreeView>

/**
 * A grid as a host builds it: the item model, the standard delegate and the
 * standard formatter over a bag, bound through a group and shown in a tree
 * view, with Qt's model tester on the model.
 */
struct PropGrid
{
  explicit PropGrid(PropBag& bag)
  {
    model = hostCreatePropUiItemModel(&group, &owner);
    delegate = qobject_cast<PropUiQStandardDelegate*>(hostCreatePropUiItemDelegate(&group, &owner));
    formatter = propUiCreateStandardFormatter(&owner);
    formatter->setPropBag(&bag); // the formatter is the host's to bind, as for a control
    group.setFormatter(formatter);
    group.setPropBag(&bag);
    tester.reset(new QAbstractItemModelTester(model, QAbstractItemModelTester::FailureReportingMode::QtTest));
    view.setModel(model);
    view.setItemDelegate(delegate);
    view.resize(400, 300);
  }

  /** Shows the view active; false when the platform would not. */
  bool showActive()
  {
    view.show();
    view.activateWindow();
    return QTest::qWaitForWindowActive(&view);
  }

  /** The open editor's line edit when it has the focus, or null. */
  QLineEdit* focusedEditor() const
  {
    QLineEdit* edit = view.viewport()->findChild<QLineEdit*>();
    return edit && edit->hasFocus() && edit->isVisible() ? edit : nullptr;
  }

  /** Opens the cell's editor as a user would; its line edit once it has the focus, or null. */
  QLineEdit* edit(const QModelIndex& cell)
  {
    if (!showActive())
      return nullptr;
    view.setCurrentIndex(cell);
    if (!view.indexWidget(cell)) // a view that edits the current cell has opened it
      view.edit(cell);
    return QTest::qWaitFor([this] { return focusedEditor() != nullptr; }) ? focusedEditor() : nullptr;
  }

  QObject owner;
  TestMvcGroup group;
  QAbstractItemModel* model = nullptr;
  PropUiQStandardDelegate* delegate = nullptr;
  PropUiQStandardFormatter* formatter = nullptr;
  QTreeView view;
  QScopedPointer<QAbstractItemModelTester> tester; // last, so it is gone before the model
};

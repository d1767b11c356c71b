#include "BagModel.h"
#include "MessageCatcher.h"
#include "PropGrid.h"
#include "PropUiGuids.h"
#include "PropUiQDefaultFormatter.h"
#include "PropUiQDoubleCtrl.h"
#include "PropUiQLayerDelegate.h"
#include "RecordingBag.h"
#include "RunningModule.h"
#include "TestValues.h"
#include "hostDbPropBagCtx.h"
#include <QPainter>
#include <QStandardItemModel>
#include <QtTest>

namespace
{

/** A bag with a real-number item (0), a point with three elements (1) and an item of an unknown kind (2). */
void fill(RecordingBag& bag)
{
  // The standard formatter finds an item's formatter through its type; without one it shows nothing.
  static TestItemType realType(1, PropUiGuidDouble);
  bag.addItem(QStringLiteral("Radius"), realValue(6.5));
  bag.item(0).type = &realType;
  bag.item(0).guid = PropUiGuidDouble;
  const int point = bag.addItem(QStringLiteral("Center"), realValue(0));
  bag.item(point).guid = PropUiGuidDouble;
  bag.item(point).elements = {0, 1, 2};
  bag.item(point).elementCaptions = QStringList{QStringLiteral("X"), QStringLiteral("Y"), QStringLiteral("Z")};
  bag.item(point).elementValues = {{0, realValue(1)}, {1, realValue(2)}, {2, realValue(3)}};
  bag.addItem(QStringLiteral("Unknown"), realValue(1));
  bag.item(2).guid = OdGUID(0x12345678, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10);
}

QStyleOptionViewItem cellOption(const QRect& rect)
{
  QStyleOptionViewItem option;
  option.rect = rect;
  option.decorationSize = QSize(16, 16);
  return option;
}

/** A layer-delegate bag: item 0 has two actions with icons. */
struct ActionBag : RecordingBag
{
  ActionBag()
  {
    addItem(QStringLiteral("Layer"), intValue(1));
    item(0).guid = PropUiGuidLayer;
    for (int i = 0; i < 2; ++i)
    {
      auto* action = new TestAction(QStringLiteral("a%1").arg(i));
      QPixmap pixmap(16, 16);
      pixmap.fill(Qt::red);
      action->iconToGive = QIcon(pixmap);
      actions.append(action);
      item(0).actions.append(OdSharedPtr<PropAction>(action));
    }
    addItem(QStringLiteral("Other"), intValue(2));
  }
  QVector<TestAction*> actions;
};

/** Lets a test press and release on the protected editorEvent. */
class OpenLayerDelegate : public PropUiQLayerDelegate
{
public:
  using PropUiQLayerDelegate::editorEvent;
};

/** A context that disables one list value. */
class DisablingContext : public hostDbPropBagCtx
{
public:
  bool isDisabledValue(int, const PropVariant& value) override
  {
    ++asked;
    return value.getInt32() == 5;
  }
  int asked = 0;
};

} // namespace

class TestItemDelegates : public QObject
{
  Q_OBJECT
  RunningModule module;

private slots:
  // The delegate's editor operations, called as a view would call them.
  void createEditorBindsTheCellsItem_data()
  {
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("parentRow");
    QTest::addColumn<bool>("elementBound");
    QTest::addColumn<QString>("shown");
    QTest::newRow("item") << 0 << -1 << false << "6.5";
    QTest::newRow("element") << 2 << 1 << true << "3";
  }
  void createEditorBindsTheCellsItem()
  {
    QFETCH(int, row);
    QFETCH(int, parentRow);
    QFETCH(bool, elementBound);
    QFETCH(QString, shown);
    RecordingBag bag;
    fill(bag);
    PropGrid grid(bag);
    const QModelIndex parent = parentRow < 0 ? QModelIndex() : grid.model->index(parentRow, 0);
    const QModelIndex cell = grid.model->index(row, 1, parent);
    QWidget host;
    QWidget* editor = grid.delegate->createEditor(&host, cellOption(QRect()), cell);
    auto* control = qobject_cast<PropUiQDoubleCtrl*>(editor);
    QVERIFY(control);
    QCOMPARE(control->parentWidget(), &host);
    QCOMPARE(control->isPropertyElement(), elementBound);
    QCOMPARE(control->lineEdit()->text(), shown);

    bag.item(0).value = realValue(9);
    bag.item(1).elementValues[2] = realValue(4);
    grid.delegate->setEditorData(editor, cell);
    QCOMPARE(control->lineEdit()->text(), elementBound ? QStringLiteral("4") : QStringLiteral("9"));

    grid.delegate->updateEditorGeometry(editor, cellOption(QRect(10, 20, 150, 22)), cell);
    QCOMPARE(editor->geometry(), QRect(10, 20, 150, 22));
  }

  void noEditorForBadInput()
  {
    RecordingBag bag;
    fill(bag);
    PropGrid grid(bag);
    QWidget host;
    const QStyleOptionViewItem option = cellOption(QRect());
    QVERIFY(!grid.delegate->createEditor(&host, option, grid.model->index(2, 1))); // no factory for its GUID
    QVERIFY(!grid.delegate->createEditor(&host, option, QModelIndex()));
    QStandardItemModel other(1, 1);
    QVERIFY(!grid.delegate->createEditor(&host, option, other.index(0, 0))); // not a property index
    grid.group.setPropBag(nullptr);
    QVERIFY(!grid.delegate->createEditor(&host, option, grid.model->index(0, 1)));
  }

  void keysOnEitherCellOfARowOpenItsValue_data()
  {
    QTest::addColumn<int>("column");
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("shown");
    QTest::newRow("F2 on the name") << 0 << int(Qt::Key_F2) << "6.5";
    QTest::newRow("a digit on the name") << 0 << int(Qt::Key_7) << "7";
    QTest::newRow("a digit on the value") << 1 << int(Qt::Key_7) << "7";
  }

  // Whichever cell of a row is current, the keyboard edits the row's value,
  // and a typed character starts the edit.
  void keysOnEitherCellOfARowOpenItsValue()
  {
    QFETCH(int, column);
    QFETCH(int, key);
    QFETCH(QString, shown);
    RecordingBag bag;
    fill(bag);
    PropGrid grid(bag);
    grid.view.setEditTriggers(QAbstractItemView::EditKeyPressed | QAbstractItemView::AnyKeyPressed);
    QVERIFY(grid.showActive());
    grid.view.setCurrentIndex(grid.model->index(0, column));

    QTest::keyClick(&grid.view, Qt::Key(key));

    QLineEdit* edit = grid.view.viewport()->findChild<QLineEdit*>();
    QVERIFY(edit);
    QTRY_VERIFY(edit->hasFocus());
    QCOMPARE(edit->text(), shown);
    QTest::keyClick(edit, Qt::Key_Enter);
    QCOMPARE(bag.count(QStringLiteral("setValue")), shown == QLatin1String("6.5") ? 0 : 1); // the same text is no edit
    QCOMPARE(bag.item(0).value.getDouble(), shown.toDouble());
    QTRY_VERIFY(!grid.focusedEditor());
    QCOMPARE(grid.model->index(0, 1).data().toString(), shown);
  }

  // The grid edited with the keyboard alone: Tab and Backtab walk the value cells, committing each.
  void tabWalksTheValueCellsCommittingEach_data()
  {
    QTest::addColumn<int>("triggers");
    QTest::newRow("opened by keys") << int(QAbstractItemView::EditKeyPressed | QAbstractItemView::AnyKeyPressed);
    QTest::newRow("opened by any trigger, the current cell's change too") << int(QAbstractItemView::AllEditTriggers);
  }
  void tabWalksTheValueCellsCommittingEach()
  {
    QFETCH(int, triggers);
    MessageCatcher messages;
    static TestItemType realType(1, PropUiGuidDouble);
    RecordingBag bag;
    for (const char* name : {"Radius", "Thickness", "Height"})
    {
      const int item = bag.addItem(QString::fromLatin1(name), realValue(1));
      bag.item(item).type = &realType;
      bag.item(item).guid = PropUiGuidDouble;
    }
    bag.item(2).acceptValidate = false;
    bag.item(2).validateMessage = QStringLiteral("Too high");
    PropGrid grid(bag);
    grid.view.setEditTriggers(QAbstractItemView::EditTriggers(triggers));
    QLineEdit* edit = grid.edit(grid.model->index(0, 1));
    QVERIFY(edit);
    auto editorOf = [&grid](int row) { return grid.view.currentIndex().row() == row ? grid.focusedEditor() : nullptr; };

    // WHEN a value is typed over the opened cell and Tab pressed, THEN it is written and the next row's value is being edited
    QTest::keyClicks(edit, QStringLiteral("7"));
    QTest::keyClick(edit, Qt::Key_Tab);
    QCOMPARE(bag.item(0).value.getDouble(), 7.0);
    QTRY_VERIFY((edit = editorOf(1)));
    // ... whose text is selected to be typed over; and Backtab goes back the same way
    QTest::keyClicks(edit, QStringLiteral("8"));
    QTest::keyClick(edit, Qt::Key_Backtab);
    QCOMPARE(bag.item(1).value.getDouble(), 8.0);
    QTRY_VERIFY((edit = editorOf(0)));
    // WHEN Escape is pressed after typing, THEN the editor closes and nothing is written
    QTest::keyClicks(edit, QStringLiteral("9"));
    QTest::keyClick(edit, Qt::Key_Escape);
    QTRY_VERIFY(!editorOf(0));
    QCOMPARE(bag.item(0).value.getDouble(), 7.0);
    // WHEN the bag refuses a value left by Tab, THEN the editor stays, with the refusal and the typed text
    grid.view.setCurrentIndex(grid.model->index(2, 1));
    QTest::keyClick(&grid.view, Qt::Key_F2);
    QTRY_VERIFY((edit = editorOf(2)));
    QTest::keyClicks(edit, QStringLiteral("99"));
    QTest::keyClick(edit, Qt::Key_Tab);
    QTRY_COMPARE(messages.shown.size(), 1);
    QCOMPARE(messages.shown[0].text, QStringLiteral("Too high"));
    QCOMPARE(editorOf(2), edit);
    QCOMPARE(edit->text(), QStringLiteral("99"));
    QCOMPARE(bag.count(QStringLiteral("setValue")), 2);
  }

  void subDelegatesByControlGuid()
  {
    RecordingBag bag;
    fill(bag);
    bag.item(2).guid = PropUiGuidLayer;
    PropGrid grid(bag);
    PropUiQControlDelegate* fallback = grid.delegate->subDelegate(OdGUID::kNull);
    auto* layer = qobject_cast<PropUiQLayerDelegate*>(grid.delegate->subDelegate(PropUiGuidLayer));
    QVERIFY(fallback && layer);
    QCOMPARE(grid.delegate->subDelegateForItem(0), fallback); // no sub-delegate of its own: the default one
    QCOMPARE(grid.delegate->subDelegateForItem(2), static_cast<PropUiQControlDelegate*>(layer));
    QCOMPARE(layer->propBag(), &bag);

    // A standard formatter hands each sub-delegate its key's formatter; any other formatter is shared.
    QCOMPARE(fallback->formatter(), grid.formatter->formatterFor(OdGUID::kNull.toString()));
    QVERIFY(qobject_cast<PropUiQDefaultFormatter*>(fallback->formatter()));
    PropUiQDefaultFormatter plain(nullptr);
    grid.delegate->setFormatter(&plain);
    QCOMPARE(layer->formatter(), &plain);

    // A replaced entry is deleted with its key, and its items go to the new one.
    QPointer<PropUiQControlDelegate> old = layer;
    auto* replacement = new PropUiQLayerDelegate;
    grid.delegate->setSubDelegate(PropUiGuidLayer, replacement);
    QVERIFY(!old);
    QCOMPARE(grid.delegate->subDelegateForItem(2), static_cast<PropUiQControlDelegate*>(replacement));
    // One deleted behind the standard delegate's back leaves its items to the default one.
    delete replacement;
    QCOMPARE(grid.delegate->subDelegateForItem(2), fallback);
  }

  // Running an icon on a click is the tree view test's; here the room the icons take.
  void onlyTheValueCellMakesRoomForIcons()
  {
    ActionBag bag;
    BagModel holder(bag);
    OpenLayerDelegate delegate;
    delegate.setPropBag(&bag);
    const QStyleOptionViewItem option = cellOption(QRect(0, 0, 200, 20));
    const QModelIndex cell = holder.model.index(0, 1);
    QCOMPARE(delegate.sizeHint(option, cell).width(),
             QStyledItemDelegate().sizeHint(option, cell).width() + 2 * 20);

    // The name cell of the same row has no icons: nothing runs there and it needs no room for them.
    const QModelIndex name = holder.model.index(0, 0);
    QMouseEvent press(QEvent::MouseButtonPress, QPointF(190.4, 10), QPointF(190.4, 10), Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    QVERIFY(!delegate.editorEvent(&press, &holder.model, option, name));
    QVERIFY(bag.executed.isEmpty());
    QCOMPARE(delegate.sizeHint(option, name), QStyledItemDelegate().sizeHint(option, name));
  }

  void actionIconClickedInATreeViewRunsOnce()
  {
    ActionBag bag;
    PropGrid grid(bag);
    QTreeView& view = grid.view;
    // Clicks only: a current row's value editor would cover the icons.
    view.setEditTriggers(QAbstractItemView::EditTriggers(QAbstractItemView::AllEditTriggers) &
                         ~QAbstractItemView::EditTriggers(QAbstractItemView::CurrentChanged));
    view.setIconSize(QSize(16, 16));
    view.resize(400, 200);
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));

    // The icons' place, from the same layout the delegate paints them with.
    const QModelIndex cell = view.model()->index(0, 1);
    const QRect cellRect = view.visualRect(cell);
    host_qt_ui_core::QHostActionsItemElement icons;
    icons.addAction(QIcon());
    icons.addAction(QIcon());
    QPoint onFirst;
    for (int x = cellRect.left(); x <= cellRect.right() && onFirst.isNull(); ++x)
      if (icons.hitAction(cellRect, view.iconSize(), QPoint(x, cellRect.center().y())) == 0)
        onFirst = QPoint(x + 2, cellRect.center().y());
    QVERIFY(!onFirst.isNull());

    QTest::mousePress(view.viewport(), Qt::LeftButton, Qt::NoModifier, onFirst);
    QTest::mouseRelease(view.viewport(), Qt::LeftButton, Qt::NoModifier, onFirst);
    QCOMPARE(bag.executed.size(), 1);
    QCOMPARE(bag.executed[0], static_cast<PropAction*>(bag.actions[0]));
    QVERIFY(!view.selectionModel()->isSelected(cell)); // the press was the icon's, not the view's

    // A click beside the icons is the view's as before.
    QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::NoModifier, cellRect.topLeft() + QPoint(4, 4));
    QCOMPARE(bag.executed.size(), 1);
    QVERIFY(view.selectionModel()->isSelected(cell));
  }

  void cacheKeptForItsOwnItemOnly()
  {
    ActionBag bag;
    BagModel holder(bag);
    PropUiQLayerDelegate delegate;
    delegate.setPropBag(&bag);
    QCOMPARE(delegate.cachedItem(), -1);
    delegate.sizeHint(cellOption(QRect(0, 0, 200, 20)), holder.model.index(0, 1));
    QCOMPARE(delegate.cachedItem(), 0);
    bag.clearCalls();
    delegate.itemChanged(0);
    QCOMPARE(delegate.cachedItem(), 0);
    delegate.sizeHint(cellOption(QRect(0, 0, 200, 20)), holder.model.index(0, 1));
    QVERIFY(!bag.called(QStringLiteral("getActions"))); // its own notice does not reload
    delegate.itemChanged(1);
    QCOMPARE(delegate.cachedItem(), -1);
    delegate.sizeHint(cellOption(QRect(0, 0, 200, 20)), holder.model.index(0, 1));
    delegate.itemChanged(-1);
    QCOMPARE(delegate.cachedItem(), -1);
  }

  void disabledValueIsAskedOfTheDatabaseContext()
  {
    ActionBag bag;
    bag.item(0).listValues = {{0, intValue(5)}};
    DisablingContext context;
    bag.context = &context;
    BagModel holder(bag);
    PropUiQLayerDelegate delegate;
    delegate.setPropBag(&bag);
    QImage image(200, 20, QImage::Format_ARGB32);
    QPainter painter(&image);
    delegate.paint(&painter, cellOption(image.rect()), holder.model.index(0, 1));
    QCOMPARE(context.asked, 1);
    bag.context = nullptr;
    delegate.paint(&painter, cellOption(image.rect()), holder.model.index(0, 1));
    QCOMPARE(context.asked, 1);
  }
};

QTEST_MAIN(TestItemDelegates)
#include "tst_ItemDelegates.moc"

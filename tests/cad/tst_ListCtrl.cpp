#include "MessageCatcher.h"
#include "OdStringQt.h"
#include "PropUiOptions.h"
#include "PropUiQListCtrl.h"
#include "RecordingBag.h"
#include "TestValues.h"
#include <QListView>
#include <QStandardItemModel>
#include <QtTest>

namespace
{

/** Hears everything the list tells; focus is recorded by the base. */
class ListReactor : public RecordingReactor
{
public:
  void currentChanged(int typeId, PropVariant& previous, PropVariant& current) override
  {
    heard << QStringLiteral("current %1: %2 -> %3")
               .arg(typeId)
               .arg(RecordingBag::textOf(previous), RecordingBag::textOf(current));
  }
  void selectionChanged(int typeId, PropVariant& selection) override
  {
    QStringList names;
    for (const OdString& name : selection.getStringArray())
      names << toQString(name);
    heard << QStringLiteral("selection %1: %2").arg(typeId).arg(names.join(QLatin1Char(',')));
  }
  void pinnedChanged(int typeId, PropVariant& pinned) override
  {
    heard << QStringLiteral("pinned %1: %2").arg(typeId).arg(RecordingBag::textOf(pinned));
  }
  QStringList heard;
};

/** Layouts of a drawing, one check box each (plotted or not) at elements 10, 11, ... */
int addLayouts(RecordingBag& bag, const QStringList& layouts, const QList<bool>& ticked)
{
  const int item = bag.addItem(QStringLiteral("Layouts"), textsValue(layouts));
  RecordingBag::Item& it = bag.item(item);
  for (int i = 0; i < layouts.size(); ++i)
  {
    it.elements << static_cast<unsigned long>(10 + i);
    it.elementCaptions << layouts[i];
    it.elementValues[static_cast<unsigned long>(10 + i)] = boolValue(ticked.value(i));
  }
  it.elementCount = layouts.size();
  it.groupCount = 1;
  return item;
}

QList<Qt::CheckState> statesOf(PropUiQListCtrl& list)
{
  QList<Qt::CheckState> states;
  for (int r = 0; r < list.model()->rowCount(); ++r)
    states << Qt::CheckState(list.model()->index(r, 0).data(Qt::CheckStateRole).toInt());
  return states;
}

const QStringList kLayouts{QStringLiteral("Model"), QStringLiteral("Layout1"), QStringLiteral("Layout2")};

} // namespace

class TestListCtrl : public QObject
{
  Q_OBJECT

private slots:
  // A refresh changes the rows it already shows in place: each must still end up as a fresh read would make it.
  void aRefreshFollowsTheValueRowByRow()
  {
    RecordingBag bag;
    const int item = addLayouts(bag, kLayouts, {true, false, true});
    RecordingBag::Item& it = bag.item(item);
    QScopedPointer<PropUiQListCtrl> list(boundControl<PropUiQListCtrl>(bag, item, PropUiOption::kListCheckBoxes));
    QStandardItemModel* model = list->model();
    QItemSelectionModel* selection = list->listView()->selectionModel();
    selection->setCurrentIndex(model->index(2, 0), QItemSelectionModel::ClearAndSelect);
    QCOMPARE(list->currentValue().getString(), OdString(L"Layout2"));

    auto texts = [&] {
      QStringList shown;
      for (int r = 0; r < model->rowCount(); ++r)
        shown << model->index(r, 0).data().toString() + QLatin1Char('=') +
                   model->index(r, 0).data(PropUiQListCtrl::kValueRole).toString();
      return shown;
    };
    // One inserted before the current row, one renamed: the current row is found by its value.
    const QStringList grown{QStringLiteral("Model"), QStringLiteral("Sheet"), QStringLiteral("Layout9"),
                            QStringLiteral("Layout2")};
    it.value = textsValue(grown);
    it.elements << 13;
    it.elementValues[11] = boolValue(true);
    it.elementValues[12] = textValue(QStringLiteral("no box"));
    it.elementValues[13] = boolValue(true);
    it.elementCount = 4;
    list->updateData();
    QCOMPARE(texts(), (QStringList{QStringLiteral("Model=Model"), QStringLiteral("Sheet=Sheet"),
                                   QStringLiteral("Layout9=Layout9"), QStringLiteral("Layout2=Layout2")}));
    QCOMPARE(statesOf(*list), (QList<Qt::CheckState>{Qt::Checked, Qt::Checked, Qt::Unchecked, Qt::Checked}));
    QCOMPARE(selection->currentIndex().row(), 3);
    QCOMPARE(list->currentValue().getString(), OdString(L"Layout2"));
    QCOMPARE(int(list->selectedValues().size()), 1);

    // Shrunk past the current row: nothing is current, and no row keeps a stale box or value.
    it.value = textsValue({QStringLiteral("Sheet")});
    it.elementValues[10] = boolValue(false);
    it.elements = {10};
    it.elementCount = 1;
    list->updateData();
    QCOMPARE(texts(), QStringList{QStringLiteral("Sheet=Sheet")});
    QCOMPARE(statesOf(*list), QList<Qt::CheckState>{Qt::Unchecked});
    QVERIFY(!selection->currentIndex().isValid());
    QVERIFY(list->currentValue() == PropVariant());
    QCOMPARE(int(list->selectedValues().size()), 0);

    // A failed read leaves the rows as they were.
    it.value = textsValue(kLayouts);
    it.readable = false;
    list->updateData();
    QCOMPARE(texts(), QStringList{QStringLiteral("Sheet=Sheet")});
    QVERIFY(!bag.called(QStringLiteral("setElementValue")));
  }

  void checkStatesFromTheBag_data()
  {
    QTest::addColumn<QString>("disagreement");
    QTest::addColumn<QList<Qt::CheckState> >("states");
    const QList<Qt::CheckState> mirrored{Qt::Checked, Qt::Unchecked, Qt::Checked};
    const QList<Qt::CheckState> untouched{Qt::Unchecked, Qt::Unchecked, Qt::Unchecked};
    QTest::newRow("matching") << "" << mirrored;
    QTest::newRow("element count differs") << "count" << untouched;
    QTest::newRow("no element list") << "none" << untouched;
    QTest::newRow("several groups") << "groups" << untouched;
    QTest::newRow("value varies") << "varies" << untouched;
    QTest::newRow("an element is no boolean") << "text" << QList<Qt::CheckState>{Qt::Checked, Qt::Unchecked, Qt::Unchecked};
  }

  void checkStatesFromTheBag()
  {
    QFETCH(QString, disagreement);
    QFETCH(QList<Qt::CheckState>, states);
    RecordingBag bag;
    const int item = addLayouts(bag, kLayouts, {true, false, true});
    RecordingBag::Item& it = bag.item(item);
    if (disagreement == QLatin1String("count"))
      it.elementCount = 4;
    else if (disagreement == QLatin1String("none"))
      it.elementCount = -1;
    else if (disagreement == QLatin1String("groups"))
      it.groupCount = 2;
    else if (disagreement == QLatin1String("varies"))
      it.value.setVaries();
    else if (disagreement == QLatin1String("text"))
      it.elementValues[12] = textValue(QStringLiteral("yes"));
    QScopedPointer<PropUiQListCtrl> list(boundControl<PropUiQListCtrl>(bag, item, PropUiOption::kListCheckBoxes));
    if (disagreement == QLatin1String("varies"))
    {
      // A varying list has no rows of its own; the rows of an agreeing read stay unticked.
      it.value.setVaries(false);
      list->updateData();
      it.value.setVaries();
      for (int r = 0; r < 3; ++r)
        list->model()->item(r)->setData(Qt::Unchecked, Qt::CheckStateRole);
      bag.clearCalls();
      list->updateUi();
    }
    QCOMPARE(statesOf(*list), states);
    QVERIFY(!bag.called(QStringLiteral("setElementValue")));
  }

  void tickingWritesTheRowsElement_data()
  {
    QTest::addColumn<QString>("bag");
    QTest::addColumn<QString>("writes");
    QTest::addColumn<Qt::CheckState>("shown");
    QTest::newRow("accepted") << "" << "setElementValue(0,11)" << Qt::Checked;
    QTest::newRow("refused") << "refuse" << "" << Qt::Unchecked;
    QTest::newRow("write fails") << "fail" << "setElementValue(0,11)" << Qt::Unchecked;
    QTest::newRow("element count changed") << "count" << "" << Qt::Unchecked;
    QTest::newRow("elements gone") << "gone" << "" << Qt::Unchecked;
  }

  void tickingWritesTheRowsElement()
  {
    QFETCH(QString, bag);
    QFETCH(QString, writes);
    QFETCH(Qt::CheckState, shown);
    MessageCatcher messages;
    RecordingBag layouts;
    const int item = addLayouts(layouts, kLayouts, {true, false, true});
    QScopedPointer<PropUiQListCtrl> list(boundControl<PropUiQListCtrl>(layouts, item, PropUiOption::kListCheckBoxes));
    RecordingBag::Item& it = layouts.item(item);
    it.acceptValidate = bag != QLatin1String("refuse");
    it.acceptWrite = bag != QLatin1String("fail");
    if (bag == QLatin1String("count"))
      it.elementCount = 2;
    if (bag == QLatin1String("gone"))
      it.elements.clear();
    layouts.clearCalls();
    // As the view does when the user clicks the box.
    list->model()->setData(list->model()->index(1, 0), Qt::Checked, Qt::CheckStateRole);
    QCOMPARE(layouts.calls.filter(QStringLiteral("set")).join(QLatin1Char(' ')), writes);
    QCOMPARE(statesOf(*list).value(1), shown);
    if (writes.isEmpty())
      QVERIFY(!layouts.item(item).elementValues.value(11).getBool());
    // Only the clicked row is asked about.
    QVERIFY(!layouts.called(QStringLiteral("getElementValue(0,10)")));
    QVERIFY(!layouts.called(QStringLiteral("getReactor")));
  }

  void theReactorHears_data()
  {
    QTest::addColumn<int>("reactor");
    QTest::newRow("a listening reactor") << 0;
    QTest::newRow("a reactor with the empty defaults") << 1;
    QTest::newRow("no reactor") << 2;
  }

  void theReactorHears()
  {
    QFETCH(int, reactor);
    const bool listening = reactor == 0;
    ListReactor listener;
    RecordingReactor focusOnly;
    TestItemType type(42);
    RecordingBag bag;
    const int item = addLayouts(bag, kLayouts, {});
    bag.item(item).reactor = reactor == 0 ? static_cast<hostPropEditorReactor*>(&listener)
                             : reactor == 1 ? &focusOnly : nullptr;
    bag.item(item).type = &type;
    QScopedPointer<PropUiQListCtrl> list(boundControl<PropUiQListCtrl>(bag, item, PropUiOption::kListPins));
    QItemSelectionModel* selection = list->listView()->selectionModel();
    QStandardItemModel* model = list->model();
    QVERIFY(!model->index(0, 0).data(Qt::CheckStateRole).isValid()); // no boxes unless asked for
    bag.clearCalls();

    selection->setCurrentIndex(model->index(1, 0), QItemSelectionModel::ClearAndSelect);
    selection->setCurrentIndex(model->index(1, 0), QItemSelectionModel::ClearAndSelect); // the same row again
    selection->select(model->index(2, 0), QItemSelectionModel::Select);
    model->setData(model->index(2, 0), true, PropUiQListCtrl::kPinRole);
    model->setData(model->index(2, 0), false, PropUiQListCtrl::kPinRole); // unpinning is not told

    if (listening)
    {
      QCOMPARE(listener.heard, (QStringList{QStringLiteral("selection 42: Layout1"),
                                            QStringLiteral("current 42:  -> Layout1"),
                                            QStringLiteral("selection 42: Layout1,Layout2"),
                                            QStringLiteral("pinned 42: Layout2")}));
    }
    else
    {
      // Nothing gathered for a reactor that does not listen.
      QVERIFY(!bag.called(QStringLiteral("getItemType")));
    }
    // Told or not, the control keeps what was chosen.
    QCOMPARE(RecordingBag::textOf(list->currentValue()), QStringLiteral("Layout1"));
    QCOMPARE(list->selectedValues().size(), 2u);
    QCOMPARE(RecordingBag::textOf(list->pinnedValue()), QStringLiteral("Layout2"));

    // A rebuild puts the choice back without telling anyone again.
    listener.heard.clear();
    list->updateData();
    QVERIFY(listener.heard.isEmpty());
    QCOMPARE(selection->selectedIndexes().size(), 2);
    QCOMPARE(selection->currentIndex().row(), 1);
    QCOMPARE(model->index(2, 0).data(PropUiQListCtrl::kPinRole), QVariant(true));

    // Rows taken away take their values with them.
    model->removeRows(0, 3);
    QCOMPARE(list->selectedValues().size(), 0u);
    QVERIFY(list->currentValue().isVoid());
  }
};

QTEST_MAIN(TestListCtrl)
#include "tst_ListCtrl.moc"

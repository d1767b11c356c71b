#include "PropUiQLabel.h"
#include "PropUiQMLineEdit.h"
#include "QHostSpinBox.h"
#include "RecordingBag.h"
#include "TestValues.h"
#include <QtTest>

namespace
{

/** A polyline of `groups` vertices with `rows` coordinates each, element e holding e * 10. */
int addPolyline(RecordingBag& bag, int rows, int groups, RecordingReactor* reactor = nullptr)
{
  const int item = bag.addItem(QStringLiteral("Vertices"));
  const QStringList captions{QStringLiteral("X"), QStringLiteral("Y"), QStringLiteral("Z")};
  for (int i = 0; i < rows; ++i)
  {
    bag.item(item).elements.append(static_cast<unsigned long>(i));
    bag.item(item).elementCaptions.append(captions.value(i));
  }
  for (int e = 0; e < rows * qMax(groups, 1); ++e)
    bag.item(item).elementValues.insert(static_cast<unsigned long>(e), realValue(e * 10.0));
  bag.item(item).groupCount = groups;
  bag.item(item).value.setDouble(0.0); // typed texts parse as numbers
  bag.item(item).reactor = reactor;
  return item;
}

} // namespace

class TestMultiLineEdit : public QObject
{
  Q_OBJECT

private slots:
  void rowsPerElementAndAGroupSelector()
  {
    RecordingBag bag;
    const int item = addPolyline(bag, 3, 4);
    PropUiQMLineEdit<PropUiQDoubleCtrl> edit;
    edit.setPropBagItem(&bag, item);
    QVERIFY(edit.setupUi());
    edit.updateData();
    QCOMPARE(edit.rowCount(), 3);
    QVERIFY(edit.groupSpinBox());
    QCOMPARE(edit.groupSpinBox()->maximum(), 4);
    QVERIFY(edit.groupSpinBox()->wrapping());
    QCOMPARE(edit.row(2)->lineEdit()->text(), QStringLiteral("20"));
    const auto captions = edit.findChildren<PropUiQLabel*>();
    QCOMPARE(captions.size(), 4);

    // Group 2 binds the rows to elements 3, 4 and 5.
    bag.clearCalls();
    edit.groupSpinBox()->setValue(2);
    QCOMPARE(bag.calls.filter(QStringLiteral("getElementValue")),
             QStringList({QStringLiteral("getElementValue(0,3)"), QStringLiteral("getElementValue(0,4)"),
                          QStringLiteral("getElementValue(0,5)")}));
    QCOMPARE(edit.row(0)->lineEdit()->text(), QStringLiteral("30"));
    QVERIFY(!bag.called(QStringLiteral("getValue")));

    // Past the last group comes the first again.
    edit.groupSpinBox()->setValue(4);
    edit.groupSpinBox()->stepUp();
    QCOMPARE(edit.groupSpinBox()->value(), 1);
    QCOMPARE(edit.row(1)->element(), 1ul);

    // A row writes its own element only.
    edit.row(1)->lineEdit()->setText(QStringLiteral("7"));
    QVERIFY(edit.row(1)->applyData());
    QCOMPARE(bag.item(item).elementValues.value(1).getDouble(), 7.0);
    QVERIFY(!bag.called(QStringLiteral("setValue")));

    // Without groups a second set-up drops the selector and rebuilds the rows, not adds to them.
    bag.item(item).groupCount = 0;
    QVERIFY(edit.setupUi());
    QVERIFY(!edit.groupSpinBox());
    QCOMPARE(edit.findChildren<PropUiQDoubleCtrl*>().size(), 3);
    QCOMPARE(edit.findChildren<PropUiQLabel*>().size(), 3);
  }

  void reactorHearsTheGroupsFirstElement()
  {
    RecordingBag bag;
    RecordingReactor reactor;
    TestItemType type(9);
    const int item = addPolyline(bag, 3, 3, &reactor);
    bag.item(item).type = &type;
    PropUiQMLineEdit<PropUiQDistanceCtrl> edit;
    edit.setPropBagItem(&bag, item);
    edit.setupUi();
    edit.groupSpinBox()->setValue(3);
    reactor.focus.clear();
    QFocusEvent in(QEvent::FocusIn, Qt::TabFocusReason);
    QFocusEvent out(QEvent::FocusOut, Qt::TabFocusReason);
    QCoreApplication::sendEvent(edit.groupSpinBox(), &in);
    QCoreApplication::sendEvent(edit.groupSpinBox(), &out);
    QCOMPARE(reactor.focus.size(), 2);
    QCOMPARE(reactor.focus[0].element, 6ul);
    QCOMPARE(reactor.focus[0].typeId, 9);
    QVERIFY(reactor.focus[0].focusIn && !reactor.focus[1].focusIn);
  }
};

QTEST_MAIN(TestMultiLineEdit)
#include "tst_MultiLineEdit.moc"

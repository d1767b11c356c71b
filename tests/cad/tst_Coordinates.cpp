#include "PropUiActionToolButtonsCtrl.h"
#include "PropUiOptions.h"
#include "PropUiQCoords2d.h"
#include "PropUiQCoords3d.h"
#include "PropUiQDistanceCtrl.h"
#include "PropUiQLabel.h"
#include "PropUiQMLineEdit.h"
#include "QHostSpinBox.h"
#include "RecordingBag.h"
#include "TestValues.h"
#include <QtTest>

namespace
{

/** A run of `groups` points of `stride` numbers each; element e holds e + 0.5. */
int addPoints(RecordingBag& bag, int stride, int groups)
{
  const int item = bag.addItem(QStringLiteral("Vertex"), realValue(0));
  for (int e = 0; e < stride * qMax(groups, 1); ++e)
    bag.item(item).elementValues.insert(static_cast<unsigned long>(e), realValue(e + 0.5));
  bag.item(item).groupCount = groups;
  return item;
}

/** What a coordinate control of either form shows, axis by axis. */
struct Shown
{
  QList<unsigned long> elements;
  QStringList texts;
};

typedef PropUiQMLineEdit<PropUiQDistanceCtrl> Rows;

PropUiQDistanceCtrl* axisOf(const PropUiQCoords2d& control, int a) { return control.axis(a); }
PropUiQDistanceCtrl* axisOf(const PropUiQCoords3d& control, int a) { return control.axis(a); }
PropUiQDistanceCtrl* axisOf(const Rows& control, int a) { return control.row(a); }

template <class Control>
Shown shownBy(const Control& control, int axes)
{
  Shown shown;
  for (int a = 0; a < axes; ++a)
    if (PropUiQDistanceCtrl* child = axisOf(control, a))
    {
      shown.elements << child->element();
      shown.texts << child->lineEdit()->text();
    }
  return shown;
}

/** Makes the control of the named form, bound to the item and showing it. */
PropUiQControl* makeForm(const QString& form, RecordingBag& bag, int item)
{
  if (form == QLatin1String("rows"))
  {
    // The general form has a row for every element the item lists.
    const QStringList captions{QStringLiteral("X"), QStringLiteral("Y"), QStringLiteral("Z")};
    for (int i = 0; i < 3; ++i)
    {
      bag.item(item).elements.append(static_cast<unsigned long>(i));
      bag.item(item).elementCaptions.append(captions.value(i));
    }
    return boundControl<Rows>(bag, item);
  }
  if (form == QLatin1String("2d"))
    return boundControl<PropUiQCoords2d>(bag, item);
  return boundControl<PropUiQCoords3d>(bag, item, form == QLatin1String("3d two axes") ? PropUiOption::kTwoAxes : 0);
}

Shown shownByForm(const QString& form, PropUiQControl* control)
{
  if (form == QLatin1String("rows"))
    return shownBy(*static_cast<Rows*>(control), static_cast<Rows*>(control)->rowCount());
  if (form == QLatin1String("2d"))
    return shownBy(*static_cast<PropUiQCoords2d*>(control), 2);
  return shownBy(*static_cast<PropUiQCoords3d*>(control), 3);
}

host_qt_ui_core::QHostSpinBox* spinBoxOf(PropUiQControl* control)
{
  return control->findChild<host_qt_ui_core::QHostSpinBox*>(QStringLiteral("groupSpinBox"));
}

} // namespace

class TestCoordinates : public QObject
{
  Q_OBJECT

private slots:
  void groupsBindTheirOwnElements_data()
  {
    QTest::addColumn<QString>("form");
    QTest::addColumn<int>("stride");
    QTest::addColumn<int>("group");
    QTest::addColumn<QList<unsigned long> >("elements");
    QTest::newRow("2d group 1") << "2d" << 2 << 1 << QList<unsigned long>{0, 1};
    QTest::newRow("2d group 3") << "2d" << 2 << 3 << QList<unsigned long>{4, 5};
    QTest::newRow("2d last group") << "2d" << 2 << 5 << QList<unsigned long>{8, 9};
    QTest::newRow("3d group 2") << "3d" << 3 << 2 << QList<unsigned long>{3, 4, 5};
    QTest::newRow("3d last group") << "3d" << 3 << 5 << QList<unsigned long>{12, 13, 14};
    // Points are stored as three numbers even when Z is not shown.
    QTest::newRow("3d two axes group 2") << "3d two axes" << 3 << 2 << QList<unsigned long>{3, 4};
    QTest::newRow("3d two axes group 5") << "3d two axes" << 3 << 5 << QList<unsigned long>{12, 13};
    QTest::newRow("rows group 2") << "rows" << 3 << 2 << QList<unsigned long>{3, 4, 5};
    QTest::newRow("rows last group") << "rows" << 3 << 5 << QList<unsigned long>{12, 13, 14};
  }

  void groupsBindTheirOwnElements()
  {
    QFETCH(QString, form);
    QFETCH(int, stride);
    QFETCH(int, group);
    QFETCH(QList<unsigned long>, elements);
    RecordingBag bag;
    const int item = addPoints(bag, stride, 5);
    QScopedPointer<PropUiQControl> control(makeForm(form, bag, item));
    host_qt_ui_core::QHostSpinBox* spinBox = spinBoxOf(control.data());
    QVERIFY(spinBox);
    QCOMPARE(spinBox->maximum(), 5);

    bag.clearCalls();
    spinBox->setValue(group);
    const Shown shown = shownByForm(form, control.data());
    QCOMPARE(shown.elements, elements);
    QStringList texts;
    for (unsigned long e : elements)
      texts << QString::number(e + 0.5);
    QCOMPARE(shown.texts, texts);
    // A point is read element by element, never as a whole, and nothing is written.
    QVERIFY(!bag.called(QStringLiteral("getValue")));
    QVERIFY(!bag.called(QStringLiteral("setElementValue")) && !bag.called(QStringLiteral("setValue")));

    // Past the last group comes the first again.
    spinBox->setValue(5);
    spinBox->stepUp();
    QCOMPARE(shownByForm(form, control.data()).elements.first(), 0ul);
  }

  void anElementEditWritesItsElementOnly_data()
  {
    QTest::addColumn<QString>("form");
    QTest::addColumn<int>("axes");
    QTest::newRow("2d") << "2d" << 2;
    QTest::newRow("3d") << "3d" << 3;
    QTest::newRow("3d two axes") << "3d two axes" << 2;
    QTest::newRow("rows") << "rows" << 3;
  }

  // Several objects agree on X and not on Y: X shows its number, Y varies,
  // and editing X must leave every object's Y as it was.
  void anElementEditWritesItsElementOnly()
  {
    QFETCH(QString, form);
    QFETCH(int, axes);
    RecordingBag bag;
    const int item = addPoints(bag, 3, 0);
    bag.item(item).elementValues[1] = realValue(7, true);
    QScopedPointer<PropUiQControl> control(makeForm(form, bag, item));
    // Without groups there is no point selector.
    QVERIFY(!spinBoxOf(control.data()));
    const auto edits = control->findChildren<PropUiQDistanceCtrl*>();
    QCOMPARE(edits.size(), axes);
    // Captions name the item and the axis, and so do the editors for assistive tools.
    if (form != QLatin1String("rows"))
    {
      QCOMPARE(edits.first()->lineEdit()->accessibleName(), QStringLiteral("Vertex X"));
      QCOMPARE(edits.last()->lineEdit()->accessibleName(), axes == 3 ? QStringLiteral("Vertex Z") : QStringLiteral("Vertex Y"));
    }
    QCOMPARE(edits[0]->lineEdit()->text(), QStringLiteral("0.5"));
    QVERIFY(edits[1]->isVaries());
    QCOMPARE(edits[1]->lineEdit()->placeholderText(), QStringLiteral("*varies*"));

    bag.clearCalls();
    edits[0]->lineEdit()->setText(QStringLiteral("12"));
    edits[0]->onEditingFinished();
    QCOMPARE(bag.calls.filter(QStringLiteral("set")), QStringList{QStringLiteral("setElementValue(0,0)")});
    QCOMPARE(bag.item(item).elementValues.value(0).getDouble(), 12.0);
    QVERIFY(bag.item(item).elementValues.value(1).isVaries());
  }

  void reactorHearsTheGroupsFirstElement()
  {
    RecordingBag bag;
    RecordingReactor reactor;
    TestItemType type(9);
    const int item = addPoints(bag, 3, 3);
    bag.item(item).reactor = &reactor;
    bag.item(item).type = &type;
    QScopedPointer<PropUiQControl> control(makeForm(QStringLiteral("rows"), bag, item));
    host_qt_ui_core::QHostSpinBox* spinBox = static_cast<Rows*>(control.data())->groupSpinBox();
    QCOMPARE(spinBox, spinBoxOf(control.data()));
    spinBox->setValue(3);
    reactor.focus.clear();
    QFocusEvent in(QEvent::FocusIn, Qt::TabFocusReason);
    QFocusEvent out(QEvent::FocusOut, Qt::TabFocusReason);
    QCoreApplication::sendEvent(spinBox, &in);
    QCoreApplication::sendEvent(spinBox, &out);
    QCOMPARE(reactor.focus.size(), 2);
    QCOMPARE(reactor.focus[0].element, 6ul);
    QCOMPARE(reactor.focus[0].typeId, 9);
    QVERIFY(reactor.focus[0].focusIn && !reactor.focus[1].focusIn);
  }

  void returnInTheGroupBoxMovesOn_data()
  {
    QTest::addColumn<int>("key");
    QTest::addColumn<bool>("movesOn");
    QTest::newRow("Return") << int(Qt::Key_Return) << true;
    QTest::newRow("Enter") << int(Qt::Key_Enter) << true;
    QTest::newRow("Up") << int(Qt::Key_Up) << false;
  }

  // Return in the group box confirms the group and goes on to its first value, as Return does in the values.
  void returnInTheGroupBoxMovesOn()
  {
    QFETCH(int, key);
    QFETCH(bool, movesOn);
    RecordingBag bag;
    const int item = addPoints(bag, 3, 3);
    QScopedPointer<PropUiQControl> control(makeForm(QStringLiteral("rows"), bag, item));
    control->show();
    control->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(control.data()));
    host_qt_ui_core::QHostSpinBox* spinBox = spinBoxOf(control.data());
    spinBox->setFocus();
    QVERIFY(spinBox->hasFocus());
    QTest::keyClick(spinBox, Qt::Key(key));
    if (movesOn)
      QTRY_VERIFY(!spinBox->hasFocus());
    QCoreApplication::processEvents();
    QCOMPARE(spinBox->hasFocus(), !movesOn);
    QVERIFY(control->isAncestorOf(QApplication::focusWidget()));
  }

  // The host's selection changed under a shown control: fewer points, or none.
  void aShrinkingItemWritesNothing()
  {
    RecordingBag bag;
    const int item = addPoints(bag, 3, 5);
    QScopedPointer<PropUiQControl> control(makeForm(QStringLiteral("3d"), bag, item));
    for (unsigned long e = 3; e < 15; ++e)
      bag.item(item).elementValues.remove(e);
    bag.item(item).groupCount = 1;
    bag.clearCalls();
    spinBoxOf(control.data())->setValue(4);
    control->updateData();
    QVERIFY(!bag.called(QStringLiteral("setElementValue")) && !bag.called(QStringLiteral("setValue")));
    QCOMPARE(shownByForm(QStringLiteral("3d"), control.data()).elements, (QList<unsigned long>{9, 10, 11}));
  }

};

QTEST_MAIN(TestCoordinates)
#include "tst_Coordinates.moc"

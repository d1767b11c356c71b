#include "ControlWindow.h"
#include "MessageCatcher.h"
#include "PropUiQIntegerCtrl.h"
#include "PropUiQSliderCtrl.h"
#include "RecordingBag.h"
#include "TestValues.h"
#include <QLineEdit>
#include <QtTest>
#include <limits>

namespace
{

int addSegments(RecordingBag& bag, int value = 24)
{
  const int item = bag.addItem(QStringLiteral("Segments"), intValue(value));
  bag.item(item).hasRange = true;
  bag.item(item).min = intValue(3);
  bag.item(item).max = intValue(64);
  return item;
}

} // namespace

class TestIntegerSlider : public QObject
{
  Q_OBJECT

private slots:
  void rangeComesFromTheBagOrIsTheWholeIntRange()
  {
    RecordingBag bag;
    const int ranged = addSegments(bag);
    const int open = bag.addItem(QStringLiteral("Count"), intValue(-5));
    QScopedPointer<PropUiQIntegerCtrl> a(boundControl<PropUiQIntegerCtrl>(bag, ranged));
    QCOMPARE(a->spinBox()->minimum(), 3);
    QCOMPARE(a->spinBox()->maximum(), 64);
    QCOMPARE(a->spinBox()->value(), 24);
    QScopedPointer<PropUiQIntegerCtrl> b(boundControl<PropUiQIntegerCtrl>(bag, open));
    QCOMPARE(b->spinBox()->minimum(), std::numeric_limits<int>::min());
    QCOMPARE(b->spinBox()->maximum(), std::numeric_limits<int>::max());
    QCOMPARE(b->spinBox()->value(), -5);

    QScopedPointer<PropUiQSliderCtrl> slider(boundControl<PropUiQSliderCtrl>(bag, open));
    QCOMPARE(slider->slider()->minimum(), 0);
    QCOMPARE(slider->slider()->maximum(), 100);
  }

  void typingWritesWhenEditingFinishes()
  {
    MessageCatcher messages;
    RecordingBag bag;
    const int item = addSegments(bag);
    ControlWindow window(boundControl<PropUiQIntegerCtrl>(bag, item));
    auto* control = window.findChild<PropUiQIntegerCtrl*>();
    QVERIFY(window.showActive());
    control->spinBox()->setFocus();
    QLineEdit* edit = control->spinBox()->findChild<QLineEdit*>();
    edit->selectAll();
    QTest::keyClicks(control->spinBox(), QStringLiteral("32"));
    QCOMPARE(control->spinBox()->value(), 32);
    QVERIFY(bag.written.isEmpty());

    QTest::keyClick(control->spinBox(), Qt::Key_Return);
    QCOMPARE(bag.written.size(), 1);
    QCOMPARE(bag.written[0].getInt32(), 32);
    QCOMPARE(bag.written[0].type() & PropVariant::kInt32, unsigned(PropVariant::kInt32));
    QTRY_VERIFY(window.other->hasFocus());

    // Escape brings back the confirmed value; the same value again is no write.
    control->spinBox()->setFocus();
    QTRY_VERIFY(control->spinBox()->hasFocus());
    control->spinBox()->setValue(40);
    QTest::keyClick(control->spinBox(), Qt::Key_Escape);
    QCOMPARE(control->spinBox()->value(), 32);
    QVERIFY(!control->applyData());
    QCOMPARE(bag.written.size(), 1);
  }

  void refusalsRevertAndOnlyValidationSpeaks()
  {
    MessageCatcher messages;
    RecordingBag bag;
    const int item = addSegments(bag);
    QScopedPointer<PropUiQIntegerCtrl> control(boundControl<PropUiQIntegerCtrl>(bag, item));
    bag.item(item).acceptValidate = false;
    bag.item(item).validateMessage = QStringLiteral("Must be even.");
    control->spinBox()->setValue(25);
    QVERIFY(control->applyData());
    QCOMPARE(control->spinBox()->value(), 24);
    QTRY_COMPARE(messages.shown.size(), 1);
    QCOMPARE(messages.shown[0].kind, host_qt_ui::QHostMessageBoxOd::Critical);
    QCOMPARE(messages.shown[0].text, QStringLiteral("Must be even."));

    bag.item(item).acceptValidate = true;
    bag.item(item).acceptWrite = false;
    control->spinBox()->setValue(26);
    control->applyData();
    QCOMPARE(control->spinBox()->value(), 24);
    QCoreApplication::processEvents();
    QCOMPARE(messages.shown.size(), 1);
  }

  void steppingOutOfVariesWritesAtOnce()
  {
    RecordingBag bag;
    PropVariant mixed = intValue(10);
    mixed.setVaries();
    const int item = bag.addItem(QStringLiteral("Count"), mixed);
    QScopedPointer<PropUiQIntegerCtrl> control(boundControl<PropUiQIntegerCtrl>(bag, item));
    QVERIFY(control->isVaries());
    QCOMPARE(control->spinBox()->text(), QStringLiteral("*varies*"));
    QVERIFY(bag.written.isEmpty());

    const int shown = control->spinBox()->value();
    control->spinBox()->stepUp();
    QVERIFY(!control->isVaries());
    QCOMPARE(bag.written.size(), 1);
    QCOMPARE(bag.written[0].getInt32(), shown + 1);
    QCOMPARE(control->spinBox()->text(), QString::number(shown + 1));
  }

  void refreshingAVariesValueWritesNothing()
  {
    // GIVEN a spin box in the varies state
    RecordingBag bag;
    const int item = addSegments(bag);
    bag.item(item).value = intValue(24, true);
    QScopedPointer<PropUiQIntegerCtrl> control(boundControl<PropUiQIntegerCtrl>(bag, item));
    QVERIFY(control->isVaries());
    // WHEN the host narrows the range so that the shown number is clamped
    bag.item(item).min = intValue(40);
    control->updateData();
    // THEN the clamp is not taken for the user stepping out of the varies state
    QCOMPARE(control->spinBox()->minimum(), 40);
    QVERIFY(control->isVaries());
    QVERIFY(bag.written.isEmpty());
  }

  void wrongTypeOrNoDataLeavesTheSpinBox()
  {
    RecordingBag bag;
    const int item = addSegments(bag);
    QScopedPointer<PropUiQIntegerCtrl> control(boundControl<PropUiQIntegerCtrl>(bag, item));
    PropVariant text;
    text.setString(OdString(L"many"));
    bag.item(item).value = text;
    control->updateData();
    QCOMPARE(control->spinBox()->value(), 24);
    PropVariant empty = intValue(50);
    empty.setType(empty.type() | PropVariant::kNoData);
    bag.item(item).value = empty;
    control->updateData();
    QCOMPARE(control->spinBox()->value(), 24);
    bag.item(item).editable = false;
    control->updateUi();
    QVERIFY(!control->spinBox()->isEnabled());

    PropUiQIntegerCtrl unbound;
    QVERIFY(!unbound.setupUi());
    QVERIFY(!unbound.applyData());
  }

  void sliderWritesOnReleaseOnly()
  {
    RecordingBag bag;
    const int item = bag.addItem(QStringLiteral("Opacity"), intValue(20));
    ControlWindow window(boundControl<PropUiQSliderCtrl>(bag, item));
    window.resize(400, 80);
    auto* control = window.findChild<PropUiQSliderCtrl*>();
    QVERIFY(window.showActive());
    PropQSliderBox* slider = control->slider();
    QCOMPARE(slider->value(), 20);

    slider->setSliderDown(true);
    slider->setSliderPosition(60);
    QCOMPARE(slider->toolTip(), QStringLiteral("60"));
    QVERIFY(bag.written.isEmpty());
    slider->setSliderDown(false);
    QCOMPARE(bag.written.size(), 1);
    QCOMPARE(bag.written[0].getInt32(), 60);

    // Released on the same value, it still writes.
    slider->setSliderDown(true);
    slider->setSliderDown(false);
    QCOMPARE(bag.written.size(), 2);

    // A refused value goes back to the last confirmed one.
    bag.item(item).acceptWrite = false;
    slider->setSliderDown(true);
    slider->setSliderPosition(90);
    slider->setSliderDown(false);
    QCOMPARE(slider->value(), 60);
  }

  // The style divides by the span of the range: 2^31 and more must never reach it.
  void sliderPaintsAnyRangeTheBagGives_data()
  {
    QTest::addColumn<int>("min");
    QTest::addColumn<int>("max");
    QTest::newRow("down to the lowest int") << std::numeric_limits<int>::min() << 0;
    QTest::newRow("up to the highest int") << -1 << std::numeric_limits<int>::max();
    QTest::newRow("every int") << std::numeric_limits<int>::min() << std::numeric_limits<int>::max();
  }

  void sliderPaintsAnyRangeTheBagGives()
  {
    QFETCH(int, min);
    QFETCH(int, max);
    RecordingBag bag;
    const int item = bag.addItem(QStringLiteral("Offset"), intValue(max));
    bag.item(item).hasRange = true;
    bag.item(item).min = intValue(min);
    bag.item(item).max = intValue(max);
    QScopedPointer<PropUiQSliderCtrl> control(boundControl<PropUiQSliderCtrl>(bag, item));
    control->resize(300, 30);
    QVERIFY(!control->grab().isNull());
    QCOMPARE(control->slider()->maximum(), max);
    QCOMPARE(control->slider()->value(), max);
  }

  // A bag whose validate moves the focus makes the spin box finish editing
  // again, inside the first commit: that must not commit a second time.
  void aCommitThatMovesTheFocusCommitsOnce()
  {
    RecordingBag bag;
    const int item = addSegments(bag);
    ControlWindow window(boundControl<PropUiQIntegerCtrl>(bag, item));
    auto* control = window.findChild<PropUiQIntegerCtrl*>();
    QVERIFY(window.showActive());
    QLineEdit* edit = control->spinBox()->findChild<QLineEdit*>();
    control->spinBox()->setFocus(Qt::MouseFocusReason);
    edit->selectAll();
    QTest::keyClicks(edit, QStringLiteral("30"));
    bag.duringValidate = [&window]() { window.other->setFocus(Qt::MouseFocusReason); };
    QTest::keyClick(edit, Qt::Key_Return);
    QCOMPARE(bag.count(QStringLiteral("validate")), 1);
    QCOMPARE(bag.count(QStringLiteral("setValue")), 1);
  }

  void grooveClicksDoNotPage()
  {
    RecordingBag bag;
    const int item = bag.addItem(QStringLiteral("Opacity"), intValue(0));
    ControlWindow window(boundControl<PropUiQSliderCtrl>(bag, item));
    window.resize(400, 80);
    auto* control = window.findChild<PropUiQSliderCtrl*>();
    QVERIFY(window.showActive());
    PropQSliderBox* slider = control->slider();
    const QPoint farRight(slider->width() - 3, slider->height() / 2);
    QTest::mouseClick(slider, Qt::LeftButton, Qt::NoModifier, farRight);
    QCOMPARE(slider->value(), 0);
    QVERIFY(bag.written.isEmpty());
  }
};

QTEST_MAIN(TestIntegerSlider)
#include "tst_IntegerSlider.moc"

#include "FocusedControl.h"
#include "HostQtStyleManager.h"
#include "MessageCatcher.h"
#include "PropUiQDoubleCtrl.h"
#include "PropUiQIntegerCtrl.h"
#include "PropUiQSliderCtrl.h"
#include "RecordingBag.h"
#include "TestValues.h"
#include <QLineEdit>
#include <QStyleOptionSlider>
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

int addOpacity(RecordingBag& bag, int value = 20)
{
  return bag.addItem(QStringLiteral("Opacity"), intValue(value));
}

// A key as the window system sends it: spontaneous, and repeating while held.
void sendKey(QWidget* to, QEvent::Type type, Qt::Key key, bool repeat = false)
{
  QKeyEvent event(type, key, Qt::NoModifier, QString(), repeat);
  QSpontaneKeyEvent::setSpontaneous(&event);
  QApplication::sendEvent(to, &event);
}

QRect handleRect(QSlider* slider)
{
  QStyleOptionSlider option;
  option.initFrom(slider);
  option.subControls = QStyle::SC_All;
  option.orientation = slider->orientation();
  option.minimum = slider->minimum();
  option.maximum = slider->maximum();
  option.sliderPosition = slider->sliderPosition();
  option.sliderValue = slider->value();
  option.upsideDown = false;
  option.rect = slider->rect();
  return slider->style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, slider);
}

/** The lowest contrast between the background and the pixel of the text that stands out most on it. */
double textContrast(const QImage& image, const QRect& area, const QColor& background)
{
  // The grab is in device pixels, the area in the widget's own.
  const qreal ratio = image.devicePixelRatio();
  const QRect pixels(QPoint(int(area.left() * ratio), int(area.top() * ratio)),
                     QPoint(int((area.right() + 1) * ratio) - 1, int((area.bottom() + 1) * ratio) - 1));
  double best = 1.0;
  for (int y = pixels.top(); y <= pixels.bottom(); ++y)
    for (int x = pixels.left(); x <= pixels.right(); ++x)
      best = qMax(best, PropQSliderBox::contrast(image.pixelColor(x, y), background));
  return best;
}

} // namespace

class TestIntegerSlider : public QObject
{
  Q_OBJECT

private slots:
  // Without a range from the bag nothing the user types is cut off.
  void withoutARangeAnyIntIsTakenAndTheSliderIsAPercentage()
  {
    RecordingBag bag;
    const int open = bag.addItem(QStringLiteral("Count"), intValue(-5));
    QScopedPointer<PropUiQIntegerCtrl> b(boundControl<PropUiQIntegerCtrl>(bag, open));
    QCOMPARE(b->spinBox()->minimum(), std::numeric_limits<int>::min());
    QCOMPARE(b->spinBox()->maximum(), std::numeric_limits<int>::max());
    QCOMPARE(b->spinBox()->value(), -5);

    QScopedPointer<PropUiQSliderCtrl> slider(boundControl<PropUiQSliderCtrl>(bag, open));
    QCOMPARE(slider->slider()->minimum(), 0);
    QCOMPARE(slider->slider()->maximum(), 100);
  }

  // From a number, typing and Return are the number fields' table; over *varies* the
  // typed number replaces the placeholder text, and the spin box works on as over a number.
  void typingOverVariesWritesWhenEditingFinishes()
  {
    MessageCatcher messages;
    RecordingBag bag;
    const int item = addSegments(bag);
    bag.item(item).value = intValue(24, true);
    FocusedControl<PropUiQIntegerCtrl> window(bag, item);
    auto* control = window.control;
    QVERIFY(window.focus(control->spinBox()));
    QLineEdit* edit = control->spinBox()->findChild<QLineEdit*>();
    edit->selectAll();
    QTest::keyClicks(control->spinBox(), QStringLiteral("32"));
    QCOMPARE(control->spinBox()->value(), 32);
    QVERIFY(!bag.called(QStringLiteral("setValue")));

    QTest::keyClick(control->spinBox(), Qt::Key_Return);
    QCOMPARE(bag.count(QStringLiteral("setValue")), 1);
    QCOMPARE(bag.written[0].getInt32(), 32);
    QCOMPARE(bag.written[0].type() & PropVariant::kInt32, unsigned(PropVariant::kInt32));
    QVERIFY(!control->isVaries());
    QCOMPARE(control->spinBox()->text(), QStringLiteral("32"));
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
    FocusedControl<PropUiQIntegerCtrl> window(bag, item);
    QVERIFY(window.focus(window.control->spinBox()));
    QLineEdit* edit = window.control->spinBox()->findChild<QLineEdit*>();
    edit->selectAll();
    QTest::keyClicks(edit, QStringLiteral("30"));
    bag.duringValidate = [&window]() { window.other->setFocus(Qt::MouseFocusReason); };
    QTest::keyClick(edit, Qt::Key_Return);
    QCOMPARE(bag.count(QStringLiteral("validate")), 1);
    QCOMPARE(bag.count(QStringLiteral("setValue")), 1);
  }

  // Keys as (key, pressed, repeated); a burst ends when the last key held is let go.
  void sliderKeysWriteOncePerBurst_data()
  {
    QTest::addColumn<QVector<int>>("script");
    QTest::addColumn<int>("writes");
    QTest::addColumn<int>("value");
    const int press = 1, release = 0, repeated = 2;
    QTest::newRow("one tap") << QVector<int>{Qt::Key_Right, press, Qt::Key_Right, release} << 1 << 21;
    QTest::newRow("held, repeating") << QVector<int>{Qt::Key_Right, press,
                                                     Qt::Key_Right, repeated | release, Qt::Key_Right, repeated | press,
                                                     Qt::Key_Right, repeated | release, Qt::Key_Right, repeated | press,
                                                     Qt::Key_Right, release}
                                     << 1 << 23;
    QTest::newRow("two keys overlapping") << QVector<int>{Qt::Key_Right, press, Qt::Key_Up, press, Qt::Key_Up, release,
                                                          Qt::Key_Right, release}
                                          << 1 << 22;
    QTest::newRow("two taps") << QVector<int>{Qt::Key_Left, press, Qt::Key_Left, release, Qt::Key_Left, press,
                                              Qt::Key_Left, release}
                              << 2 << 18;
    QTest::newRow("a key that moves nothing") << QVector<int>{Qt::Key_A, press, Qt::Key_A, release} << 0 << 20;
  }

  void sliderKeysWriteOncePerBurst()
  {
    QFETCH(QVector<int>, script);
    QFETCH(int, writes);
    QFETCH(int, value);
    // GIVEN a focused slider at 20
    RecordingBag bag;
    const int item = addOpacity(bag);
    FocusedControl<PropUiQSliderCtrl> window(bag, item);
    auto* control = window.control;
    QVERIFY(window.focus(control->slider()));
    // WHEN the keys are pressed and let go
    int beforeLastKey = 0;
    for (int i = 0; i + 1 < script.size(); i += 2)
    {
      beforeLastKey = bag.count(QStringLiteral("setValue"));
      const int how = script[i + 1];
      sendKey(control->slider(), (how & 1) ? QEvent::KeyPress : QEvent::KeyRelease, Qt::Key(script[i]), how & 2);
    }
    // THEN one write per burst, through validate, of the value reached, and none before the burst ends
    QCOMPARE(bag.count(QStringLiteral("setValue")), writes);
    QCOMPARE(beforeLastKey, qMax(0, writes - 1));
    QCOMPARE(bag.count(QStringLiteral("validate")), writes);
    QCOMPARE(control->slider()->value(), value);
    if (writes)
      QCOMPARE(bag.written.last().getInt32(), value);
  }

  // A drag is written once, on release, even on the value it had; a refused value,
  // from the keys or by the write, goes back to what the bag last confirmed.
  void sliderShowsOnlyWhatTheBagConfirmed()
  {
    MessageCatcher messages;
    // GIVEN a slider whose values vary
    RecordingBag bag;
    const int item = addOpacity(bag);
    bag.item(item).value = intValue(20, true);
    FocusedControl<PropUiQSliderCtrl> window(bag, item);
    auto* control = window.control;
    PropQSliderBox* slider = control->slider();
    QVERIFY(control->isVaries());
    const int shown = slider->value();
    QVERIFY(window.focus(slider));

    // WHEN a key moves it and the bag refuses the value
    bag.item(item).acceptValidate = false;
    bag.item(item).validateMessage = QStringLiteral("Locked.");
    sendKey(slider, QEvent::KeyPress, Qt::Key_Right);
    QVERIFY(slider->isKeyboardEditing());
    sendKey(slider, QEvent::KeyRelease, Qt::Key_Right);
    // THEN the value and the varies look come back, and the bag said why
    QCOMPARE(slider->value(), shown);
    QVERIFY(control->isVaries());
    QTRY_COMPARE(messages.shown.size(), 1);

    // WHEN a drag is taken, THEN it is written on release and the number shows instead of "*varies*"
    bag.item(item).acceptValidate = true;
    slider->setSliderDown(true);
    slider->setSliderPosition(60);
    QCOMPARE(slider->toolTip(), QStringLiteral("60"));
    QVERIFY(bag.written.isEmpty());
    slider->setSliderDown(false);
    QCOMPARE(bag.written.size(), 1);
    QCOMPARE(bag.written[0].getInt32(), 60);
    QVERIFY(!control->isVaries());
    slider->setSliderDown(true);
    slider->setSliderDown(false);
    QCOMPARE(bag.written.size(), 2);

    bag.item(item).acceptWrite = false;
    slider->setSliderDown(true);
    slider->setSliderPosition(90);
    slider->setSliderDown(false);
    QCOMPARE(slider->value(), 60);
  }

  void sliderNumberReadsInBothThemes_data()
  {
    QTest::addColumn<int>("theme");
    QTest::addColumn<int>("value");
    QTest::newRow("dark, low") << int(HostQtStyleManager::Dark) << 10;
    QTest::newRow("dark, middle") << int(HostQtStyleManager::Dark) << 50;
    QTest::newRow("light, low") << int(HostQtStyleManager::Light) << 10;
    QTest::newRow("light, high") << int(HostQtStyleManager::Light) << 90;
  }

  void sliderNumberReadsInBothThemes()
  {
    QFETCH(int, theme);
    QFETCH(int, value);
    hostGetQtStyleManager()->setTheme(theme);
    RecordingBag bag;
    const int item = addOpacity(bag, value);
    QScopedPointer<PropUiQSliderCtrl> control(boundControl<PropUiQSliderCtrl>(bag, item));
    control->resize(300, 28);
    PropQSliderBox* slider = control->slider();
    control->show();
    const QImage image = slider->grab().toImage();
    const QRect handle = handleRect(slider);
    QVERIFY(handle.width() >= QApplication::style()->pixelMetric(QStyle::PM_SliderLength));

    // The number's box, split where the groove begins.
    QFont font = slider->font();
    font.setPointSizeF((slider->height() + 1) * 0.5);
    QRect box = QFontMetrics(font).boundingRect(slider->rect(), Qt::AlignCenter, QString::number(value));
    box &= slider->rect().adjusted(2, 2, -2, -2);
    const int split = handle.right() + 1;
    const QRect onFilled = box & QRect(0, 0, split, slider->height());
    const QRect onGroove = box & QRect(split, 0, slider->width() - split, slider->height());
    QVERIFY(!onFilled.isEmpty() || !onGroove.isEmpty());
    if (!onFilled.isEmpty())
      QVERIFY2(textContrast(image, onFilled, slider->filledColor()) >= 4.5, "number on the filled part");
    if (!onGroove.isEmpty())
      QVERIFY2(textContrast(image, onGroove, slider->grooveColor()) >= 4.5, "number on the groove");
    hostGetQtStyleManager()->setTheme(HostQtStyleManager::Light);
  }

  void outOfRangeIsRefusedWithTheRange_data()
  {
    QTest::addColumn<QString>("typed");
    QTest::addColumn<int>("endKey");
    QTest::newRow("above, Enter") << QStringLiteral("100") << int(Qt::Key_Return);
    QTest::newRow("above, Tab") << QStringLiteral("100") << int(Qt::Key_Tab);
    QTest::newRow("below, Enter") << QStringLiteral("2") << int(Qt::Key_Return);
    QTest::newRow("beyond any int") << QStringLiteral("99999999999") << int(Qt::Key_Return);
  }

  void outOfRangeIsRefusedWithTheRange()
  {
    QFETCH(QString, typed);
    QFETCH(int, endKey);
    MessageCatcher messages;
    // GIVEN a count limited to 3..64, showing 24
    RecordingBag bag;
    const int item = addSegments(bag);
    FocusedControl<PropUiQIntegerCtrl> window(bag, item);
    PropQSpinBox* spin = window.control->spinBox();
    QVERIFY(window.focus(spin));
    QLineEdit* edit = spin->findChild<QLineEdit*>();
    edit->selectAll();
    // WHEN a number out of range is typed
    QTest::keyClicks(spin, typed);
    // THEN it stays as typed until the edit ends
    QCOMPARE(edit->text(), typed);
    // WHEN the edit ends, the number is refused with a message naming the range;
    // Return leaves it there to correct, Tab goes on and puts the confirmed value back
    sendKey(spin, QEvent::KeyPress, Qt::Key(endKey));
    QCOMPARE(edit->text(), endKey == Qt::Key_Tab ? QStringLiteral("24") : typed);
    QVERIFY(!bag.called(QStringLiteral("setValue")));
    QTRY_COMPARE(messages.shown.size(), 1);
    QVERIFY(messages.shown[0].text.contains(QStringLiteral("3")) && messages.shown[0].text.contains(QStringLiteral("64")));
  }

  void grooveClicksDoNotPage()
  {
    RecordingBag bag;
    FocusedControl<PropUiQSliderCtrl> window(bag, addOpacity(bag, 0));
    window.resize(400, 80);
    QVERIFY(window.showActive());
    PropQSliderBox* slider = window.control->slider();
    const QPoint farRight(slider->width() - 3, slider->height() / 2);
    QTest::mouseClick(slider, Qt::LeftButton, Qt::NoModifier, farRight);
    QCOMPARE(slider->value(), 0);
    QVERIFY(bag.written.isEmpty());
  }
};

QTEST_MAIN(TestIntegerSlider)
#include "tst_IntegerSlider.moc"

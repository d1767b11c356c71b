#include "FocusedControl.h"
#include "MessageCatcher.h"
#include "OdStringQt.h"
#include "PropUiQAngleCtrl.h"
#include "PropUiQDoubleCtrl.h"
#include "PropUiQTextCtrl.h"
#include "QHostMessageBalloon.h"
#include "QHostTextEdit.h"
#include "RecordingBag.h"
#include "TestValues.h"
#include <QtTest>

namespace
{

/** A radius that the bag refuses when it is not positive. */
int addRadius(RecordingBag& bag, double value = 12.5)
{
  return bag.addItem(QStringLiteral("Radius"), realValue(value));
}

/** A radius whose validation refuses every value with a reason. */
int addRefusedRadius(RecordingBag& bag)
{
  const int item = addRadius(bag);
  bag.item(item).acceptValidate = false;
  bag.item(item).validateMessage = QStringLiteral("The radius must be greater than zero.");
  return item;
}

} // namespace

class TestLineEdit : public QObject
{
  Q_OBJECT

private slots:
  void initTestCase() { QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany)); }

  // Without an interceptor, as in the host: no modal box hides the field or takes the focus.
  void aRefusalIsSilentOnLeavingAndHangsAtTheFieldOnReturn()
  {
    RecordingBag bag;
    FocusedControl<PropUiQDoubleCtrl> window(bag, addRefusedRadius(bag));
    QLineEdit* edit = window.control->lineEdit();
    QVERIFY(window.focus(edit));
    edit->selectAll();
    QTest::keyClicks(edit, QStringLiteral("-1"));
    window.other->setFocus(Qt::MouseFocusReason);
    QTRY_VERIFY(window.other->hasFocus());
    QCOMPARE(edit->text(), QStringLiteral("12.5"));
    QCOMPARE(bag.count(QStringLiteral("validate")), 1);
    QCoreApplication::processEvents();
    QVERIFY(!host_qt_ui::QHostMessageBalloon::current());

    edit->setFocus(Qt::MouseFocusReason);
    QTRY_VERIFY(edit->hasFocus());
    edit->selectAll();
    QTest::keyClicks(edit, QStringLiteral("-2"));
    QTest::keyClick(edit, Qt::Key_Return);
    QTRY_VERIFY(host_qt_ui::QHostMessageBalloon::current());
    QPointer<host_qt_ui::QHostMessageBalloon> balloon = host_qt_ui::QHostMessageBalloon::current();
    QCOMPARE(balloon->field(), static_cast<QWidget*>(edit));
    QCOMPARE(balloon->text(), QStringLiteral("The radius must be greater than zero."));
    QVERIFY(!QApplication::activeModalWidget());
    QCOMPARE(QApplication::activeWindow(), static_cast<QWidget*>(&window));
    // A refused value is not moved away from: the user puts it right where it is, retyping it.
    QVERIFY(edit->hasFocus());
    QCOMPARE(edit->text(), QStringLiteral("-2"));
    QTest::keyClick(edit, Qt::Key_3);
    QTRY_VERIFY(!balloon);
    QCOMPARE(edit->text(), QStringLiteral("3"));
    QTest::keyClick(edit, Qt::Key_Escape);
    QCOMPARE(edit->text(), QStringLiteral("12.5"));
    QVERIFY(bag.written.isEmpty());
  }

  void returnCommitsAndMovesOn()
  {
    RecordingBag bag;
    FocusedControl<PropUiQDoubleCtrl> window(bag, addRadius(bag));
    auto* control = window.control;
    QVERIFY(window.focus(control->lineEdit()));
    control->lineEdit()->selectAll();
    QTest::keyClicks(control->lineEdit(), QStringLiteral("  7.5  "));
    QTest::keyClick(control->lineEdit(), Qt::Key_Return);
    QCOMPARE(bag.written.size(), 1);
    QCOMPARE(bag.written[0].getDouble(), 7.5);
    // Blanks never reach the bag's parser.
    QCOMPARE(toQString(bag.parsedTexts.last()), QStringLiteral("7.5"));
    QTRY_VERIFY(window.other->hasFocus());

    // The same text again is no edit at all.
    bag.clearCalls();
    control->lineEdit()->setFocus();
    QTRY_VERIFY(control->lineEdit()->hasFocus());
    const QString shown = control->lineEdit()->text();
    control->lineEdit()->setText(shown);
    QTest::keyClick(control->lineEdit(), Qt::Key_Return);
    QVERIFY(!control->applyData());
    QVERIFY(!bag.called(QStringLiteral("parseValue")));
    QVERIFY(!bag.called(QStringLiteral("setValue")));
  }

  // A text the bag cannot parse is not validated; it reverts without a word.
  void refusedParseRevertsSilently()
  {
    MessageCatcher messages;
    RecordingBag bag;
    const int item = addRadius(bag);
    bag.parse = [](int, const OdString&, PropVariant& v) {
      v.setDouble(3.0);
      return false;
    };
    QScopedPointer<PropUiQDoubleCtrl> control(boundControl<PropUiQDoubleCtrl>(bag, item));
    control->lineEdit()->setText(QStringLiteral("3"));
    QVERIFY(!control->applyData());
    QCOMPARE(control->lineEdit()->text(), QStringLiteral("12.5"));
    QVERIFY(!bag.called(QStringLiteral("validate")));
    QCoreApplication::processEvents();
    QVERIFY(messages.shown.isEmpty());
  }

  void variesShowsThePlaceholderUntilTheNextRead()
  {
    RecordingBag bag;
    const int item = bag.addItem(QStringLiteral("Radius"), realValue(2.0, true));
    FocusedControl<PropUiQDoubleCtrl> window(bag, item);
    auto* control = window.control;
    // The look itself is the varies-look table's; here, what reading and passing through leave alone.
    QVERIFY(control->isVaries());
    QVERIFY(!bag.called(QStringLiteral("formatValue")));

    // Passing through the field without typing writes nothing and keeps the state.
    QVERIFY(window.focus(control->lineEdit()));
    window.other->setFocus(Qt::MouseFocusReason);
    QTRY_VERIFY(window.other->hasFocus());
    QVERIFY(!bag.called(QStringLiteral("parseValue")));
    QVERIFY(control->isVaries());

    bag.item(item).value = realValue(2.0);
    control->updateData();
    QVERIFY(!control->isVaries());
    QCOMPARE(control->lineEdit()->text(), QStringLiteral("2"));
  }

  void badInputChangesNothing()
  {
    PropUiQDoubleCtrl unbound;
    QVERIFY(!unbound.setupUi());
    QVERIFY(unbound.findChildren<QWidget*>().isEmpty());
    QVERIFY(!unbound.applyData());
    RecordingBag bag;
    PropUiQDoubleCtrl unknown;
    unknown.setPropBagItem(&bag, 7);
    QVERIFY(unknown.setupUi());
    unknown.updateData();
    QVERIFY(unknown.lineEdit()->text().isEmpty());
    unknown.lineEdit()->setText(QStringLiteral("3"));
    QVERIFY(!unknown.applyData());
  }

};

QTEST_MAIN(TestLineEdit)
#include "tst_LineEdit.moc"

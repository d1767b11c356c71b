#include "FocusedControl.h"
#include "MessageCatcher.h"
#include "OdStringQt.h"
#include "PropUiQDateCtrl.h"
#include "RecordingBag.h"
#include "TestValues.h"
#include <QCalendarWidget>
#include <QLineEdit>
#include <QtTest>

namespace
{

int addRevised(RecordingBag& bag, bool varies = false)
{
  return bag.addItem(QStringLiteral("Revised"), textValue(QStringLiteral("05.03.2021"), varies));
}

} // namespace

class TestDateCtrl : public QObject
{
  Q_OBJECT

private slots:
  void initTestCase()
  {
    // Dates are typed in the locale's short form: pin one whose form has dots.
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
  }

  void arrowStepsAreOneWrite()
  {
    RecordingBag bag;
    const int item = addRevised(bag);
    FocusedControl<PropUiQDateCtrl> window(bag, item);
    PropQDateEdit* edit = window.control->dateEdit();
    QVERIFY(window.focus(edit));
    QTest::keyClick(edit, Qt::Key_Up);
    QTest::keyClick(edit, Qt::Key_Up);
    QTest::keyClick(edit, Qt::Key_Up);
    QCOMPARE(edit->date(), QDate(2021, 3, 8));
    QVERIFY(!bag.called(QStringLiteral("setValue")));
    QTest::keyClick(edit, Qt::Key_Return);
    QCOMPARE(bag.count(QStringLiteral("setValue")), 1);
    QCOMPARE(toQString(bag.written[0].getString()), QStringLiteral("08.03.2021"));
  }

  void aCalendarPickIsOneWriteWhenTheCalendarCloses()
  {
    // GIVEN a focused date edit with its calendar open
    RecordingBag bag;
    const int item = addRevised(bag);
    FocusedControl<PropUiQDateCtrl> window(bag, item);
    PropQDateEdit* edit = window.control->dateEdit();
    QVERIFY(window.focus(edit));
    QTest::mouseClick(edit, Qt::LeftButton, Qt::NoModifier, QPoint(edit->width() - 6, edit->height() / 2));
    QTRY_VERIFY(QApplication::activePopupWidget());
    QCalendarWidget* calendar = edit->calendarWidget();
    // WHEN the user walks the calendar, nothing is written
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
    QCOMPARE(calendar->selectedDate(), QDate(2021, 3, 7));
    QVERIFY(!bag.called(QStringLiteral("setValue")));
    // THEN picking the date closes the calendar and writes it once
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QTRY_VERIFY(!QApplication::activePopupWidget());
    QTRY_COMPARE(bag.count(QStringLiteral("setValue")), 1);
    QCOMPARE(toQString(bag.written[0].getString()), QStringLiteral("07.03.2021"));
  }

  void typedDatesAreWrittenOnceWhenTheEditEndsOrRefused_data()
  {
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("kept");
    QTest::addColumn<bool>("byLeaving");
    QTest::addColumn<bool>("possible");
    QTest::newRow("short form, Enter") << QStringLiteral("1.1.2035") << QStringLiteral("1.1.2035") << false << true;
    QTest::newRow("short form, leaving") << QStringLiteral("01.01.2035") << QStringLiteral("01.01.2035") << true << true;
    QTest::newRow("yyyy-MM-dd, Enter") << QStringLiteral("2035-01-01") << QStringLiteral("2035-01-01") << false << true;
    QTest::newRow("yyyy-MM-dd, leaving") << QStringLiteral("2035-1-1") << QStringLiteral("2035-1-1") << true << true;
    QTest::newRow("letters are dropped") << QStringLiteral("1x.1.2035y") << QStringLiteral("1.1.2035") << false << true;
    QTest::newRow("30 February") << QStringLiteral("30.02.2035") << QStringLiteral("30.02.2035") << false << false;
    QTest::newRow("month 13") << QStringLiteral("2035-13-01") << QStringLiteral("2035-13-01") << false << false;
  }

  void typedDatesAreWrittenOnceWhenTheEditEndsOrRefused()
  {
    QFETCH(QString, typed);
    QFETCH(QString, kept);
    QFETCH(bool, byLeaving);
    QFETCH(bool, possible);
    MessageCatcher messages;
    // GIVEN a focused date edit
    RecordingBag bag;
    const int item = addRevised(bag);
    FocusedControl<PropUiQDateCtrl> window(bag, item);
    PropQDateEdit* edit = window.control->dateEdit();
    QVERIFY(window.focus(edit));
    // WHEN a whole date is typed, nothing is written yet
    QTest::keyClicks(edit, typed);
    QCOMPARE(edit->findChild<QLineEdit*>()->text(), kept);
    QVERIFY(!bag.called(QStringLiteral("setValue")));
    // THEN ending the edit writes it once, or refuses an impossible date with a word
    if (byLeaving)
      window.other->setFocus(Qt::MouseFocusReason);
    else
      QTest::keyClick(edit, Qt::Key_Return);
    if (!possible)
    {
      QCOMPARE(edit->date(), QDate(2021, 3, 5));
      QVERIFY(!bag.called(QStringLiteral("setValue")));
      QTRY_COMPARE(messages.shown.size(), 1);
      QVERIFY(messages.shown[0].text.contains(kept));
      return;
    }
    QTRY_COMPARE(bag.count(QStringLiteral("setValue")), 1);
    QCOMPARE(toQString(bag.written[0].getString()), QStringLiteral("01.01.2035"));
    QCOMPARE(edit->date(), QDate(2035, 1, 1));
    QCoreApplication::processEvents();
    QCOMPARE(bag.count(QStringLiteral("setValue")), 1);
    QVERIFY(messages.shown.isEmpty());
  }
};

QTEST_MAIN(TestDateCtrl)
#include "tst_DateCtrl.moc"

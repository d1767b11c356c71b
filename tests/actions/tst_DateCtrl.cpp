#include "OdStringQt.h"
#include "PropUiQDateCtrl.h"
#include "RecordingBag.h"
#include "TestValues.h"
#include <QLineEdit>
#include <QtTest>

class TestDateCtrl : public QObject
{
  Q_OBJECT

private slots:
  void readsAndWritesEveryChangeAsText()
  {
    RecordingBag bag;
    const int item = bag.addItem(QStringLiteral("Revised"), textValue(QStringLiteral("05.03.2021")));
    QScopedPointer<PropUiQDateCtrl> control(boundControl<PropUiQDateCtrl>(bag, item));
    QCOMPARE(control->dateEdit()->date(), QDate(2021, 3, 5));
    QVERIFY(control->dateEdit()->calendarPopup());
    QVERIFY(bag.written.isEmpty());

    control->dateEdit()->setDate(QDate(2021, 3, 6));
    QCOMPARE(bag.written.size(), 1);
    QCOMPARE(toQString(bag.written[0].getString()), QStringLiteral("06.03.2021"));
    QVERIFY(bag.written[0].type() & PropVariant::kString);
  }

  void refusedDatesRevertAtOnce()
  {
    RecordingBag bag;
    const int item = bag.addItem(QStringLiteral("Revised"), textValue(QStringLiteral("05.03.2021")));
    QScopedPointer<PropUiQDateCtrl> control(boundControl<PropUiQDateCtrl>(bag, item));
    bag.item(item).acceptValidate = false;
    control->dateEdit()->setDate(QDate(2031, 1, 1));
    QCOMPARE(control->dateEdit()->date(), QDate(2021, 3, 5));
    bag.item(item).acceptValidate = true;
    bag.item(item).acceptWrite = false;
    control->dateEdit()->setDate(QDate(2022, 1, 1));
    QCOMPARE(control->dateEdit()->date(), QDate(2021, 3, 5));
    QVERIFY(bag.written.isEmpty());
  }

  void variesShowsTextAndTakesNoTyping()
  {
    RecordingBag bag;
    const int item = bag.addItem(QStringLiteral("Revised"), textValue(QStringLiteral("05.03.2021"), true));
    QScopedPointer<PropUiQDateCtrl> control(boundControl<PropUiQDateCtrl>(bag, item));
    QVERIFY(control->isVaries());
    QCOMPARE(control->dateEdit()->findChild<QLineEdit*>()->text(), QStringLiteral("*varies*"));
    QString typed = QStringLiteral("1");
    int pos = 1;
    QCOMPARE(control->dateEdit()->validate(typed, pos), QValidator::Invalid);

    // Picking a date (as from the popup) writes it.
    control->dateEdit()->setDate(QDate(2024, 2, 29));
    QCOMPARE(bag.written.size(), 1);
    QCOMPARE(toQString(bag.written[0].getString()), QStringLiteral("29.02.2024"));
  }

  void unreadableTextsAndBadInput()
  {
    RecordingBag bag;
    const int item = bag.addItem(QStringLiteral("Revised"), textValue(QStringLiteral("05.03.2021")));
    QScopedPointer<PropUiQDateCtrl> control(boundControl<PropUiQDateCtrl>(bag, item));
    bag.item(item).value = textValue(QStringLiteral("2021-03-05"));
    control->updateData();
    QCOMPARE(control->dateEdit()->date(), QDate(2021, 3, 5));
    PropVariant number;
    number.setInt32(3);
    bag.item(item).value = number;
    control->updateData();
    QCOMPARE(control->dateEdit()->date(), QDate(2021, 3, 5));
    QVERIFY(bag.written.isEmpty());

    PropUiQDateCtrl unbound;
    QVERIFY(!unbound.setupUi());
    QVERIFY(!unbound.applyData());
  }
};

QTEST_MAIN(TestDateCtrl)
#include "tst_DateCtrl.moc"

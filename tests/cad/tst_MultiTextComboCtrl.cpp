#include "ControlWindow.h"
#include "MessageCatcher.h"
#include "OdStringQt.h"
#include "PropUiQMultiTextComboCtrl.h"
#include "RecordingBag.h"
#include "TestValues.h"
#include <QAbstractItemView>
#include <QComboBox>
#include <QtTest>

Q_DECLARE_METATYPE(PropVariant)

namespace
{

const QStringList kSnaps{QStringLiteral("Endpoint"), QStringLiteral("Midpoint"), QStringLiteral("Center")};

/** The object snaps in force: bits 1, 2, 4 as flags, or their names as a list. */
int addSnaps(RecordingBag& bag, const PropVariant& value, bool asNames)
{
  const int item = bag.addItem(QStringLiteral("Object snaps"), value);
  RecordingBag::Item& it = bag.item(item);
  it.listNames = kSnaps;
  for (int i = 0; i < kSnaps.size(); ++i)
  {
    it.listKeys << unsigned(i);
    it.listValues[unsigned(i)] = asNames ? textValue(kSnaps[i]) : intValue(1 << i);
  }
  return item;
}

QList<bool> chosenOf(const PropUiQMultiTextComboCtrl& combo)
{
  QList<bool> chosen;
  for (int i = 0; i < kSnaps.size(); ++i)
    chosen << combo.isChosen(i);
  return chosen;
}

} // namespace

class TestMultiTextComboCtrl : public QObject
{
  Q_OBJECT

private slots:
  void aChoice_data()
  {
    QTest::addColumn<PropVariant>("value");
    QTest::addColumn<bool>("asNames");
    QTest::addColumn<QString>("summary");
    QTest::addColumn<PropVariant>("afterTickingCenter");
    QTest::newRow("flags") << intValue(3) << false << "Endpoint, Midpoint" << intValue(7);
    QTest::newRow("flags, none") << intValue(0) << false << "" << intValue(4);
    QTest::newRow("names") << textsValue({"Midpoint"}) << true << "Midpoint" << textsValue({"Midpoint", "Center"});
    QTest::newRow("names, in list order") << textsValue({"Midpoint", "Endpoint"}) << true << "Endpoint, Midpoint"
                                          << textsValue({"Endpoint", "Midpoint", "Center"});
    QTest::newRow("varies") << intValue(3, true) << false << "*varies*" << intValue(4);
  }

  void aChoice()
  {
    QFETCH(PropVariant, value);
    QFETCH(bool, asNames);
    QFETCH(QString, summary);
    QFETCH(PropVariant, afterTickingCenter);
    RecordingBag bag;
    const int item = addSnaps(bag, value, asNames);
    QScopedPointer<PropUiQMultiTextComboCtrl> combo(boundControl<PropUiQMultiTextComboCtrl>(bag, item));
    QCOMPARE(combo->isVaries() ? QStringLiteral("*varies*") : combo->summary(), summary);

    // Closing the popup with nothing changed writes nothing.
    bag.clearCalls();
    combo->onPopupClosed();
    QVERIFY(!bag.called(QStringLiteral("setValue")));

    combo->setChosen(2, true);
    combo->onPopupClosed();
    QCOMPARE(bag.count(QStringLiteral("setValue")), 1);
    QVERIFY2(bag.written.last() == afterTickingCenter, qPrintable(RecordingBag::textOf(bag.written.last())));
    QVERIFY(!combo->isVaries());
    QVERIFY(combo->isChosen(2));
  }

  void aRefusedChangeRestoresTheChoice_data()
  {
    QTest::addColumn<QString>("bag");
    QTest::newRow("refused") << "refuse";
    QTest::newRow("write fails") << "fail";
  }

  void aRefusedChangeRestoresTheChoice()
  {
    QFETCH(QString, bag);
    MessageCatcher messages;
    RecordingBag snaps;
    const int item = addSnaps(snaps, intValue(1), false);
    snaps.item(item).acceptValidate = bag != QLatin1String("refuse");
    snaps.item(item).acceptWrite = bag != QLatin1String("fail");
    snaps.item(item).validateMessage = QStringLiteral("Center snap is locked");
    QScopedPointer<PropUiQMultiTextComboCtrl> combo(boundControl<PropUiQMultiTextComboCtrl>(snaps, item));
    combo->setChosen(0, false);
    combo->setChosen(2, true);
    combo->onPopupClosed();
    QCOMPARE(chosenOf(*combo), (QList<bool>{true, false, false}));
    QCOMPARE(combo->summary(), QStringLiteral("Endpoint"));
    QCOMPARE(snaps.item(item).value.getInt32(), 1);
  }

  void badInputWritesNothing()
  {
    // A value of neither form, and an entry the bag cannot give.
    RecordingBag bag;
    const int item = addSnaps(bag, realValue(2.5), false);
    bag.item(item).listValues.remove(1);
    QScopedPointer<PropUiQMultiTextComboCtrl> combo(boundControl<PropUiQMultiTextComboCtrl>(bag, item));
    QCOMPARE(combo->comboBox()->count(), 2);
    combo->setChosen(1, true);
    bag.item(item).readable = false;
    combo->updateData();
    combo->setChosen(7, true);
    QVERIFY(!combo->isChosen(7));
    bag.clearCalls();
    combo->onPopupClosed(); // a double is neither a set of flags nor a list
    QVERIFY(!bag.called(QStringLiteral("setValue")));
    QVERIFY(!combo->isChosen(1));
  }

  // Entries are ticked in the open popup, which stays for the next; closing it writes once.
  void clicksInTheOpenPopupTickEntries()
  {
    RecordingBag snaps;
    const int item = addSnaps(snaps, intValue(1), false);
    auto* combo = boundControl<PropUiQMultiTextComboCtrl>(snaps, item);
    ControlWindow window(combo);
    QVERIFY(window.showActive());
    combo->comboBox()->showPopup();
    QAbstractItemView* view = combo->comboBox()->view();
    QTRY_VERIFY(view->isVisible());
    const QRect centre = view->visualRect(view->model()->index(2, 0));
    QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, centre.center());
    QVERIFY(view->isVisible());
    QCOMPARE(chosenOf(*combo), (QList<bool>{true, false, true}));
    QVERIFY(!snaps.called(QStringLiteral("setValue")));
    combo->comboBox()->hidePopup();
    QCOMPARE(snaps.count(QStringLiteral("setValue")), 1);
    QCOMPARE(snaps.written.last(), intValue(5));
  }
};

QTEST_MAIN(TestMultiTextComboCtrl)
#include "tst_MultiTextComboCtrl.moc"

#include "PropUiOptions.h"
#include "FocusedControl.h"
#include "MessageCatcher.h"
#include "OdStringQt.h"
#include "PropMathValidator.h"
#include "PropUiGuids.h"
#include "PropUiQComboBox.h"
#include "PropUiQTextComboCtrl.h"
#include "RecordingBag.h"
#include "TestValues.h"
#include <QIntValidator>
#include <QLineEdit>
#include <QtTest>

namespace
{

/** A line-type choice: Solid (key 10), Dashed (11), Dotted (12), values by name. */
int addStyle(RecordingBag& bag, const QString& current = QStringLiteral("Dashed"))
{
  const int item = bag.addItem(QStringLiteral("Line type"), textValue(current));
  RecordingBag::Item& it = bag.item(item);
  it.listNames = QStringList{QStringLiteral("Solid"), QStringLiteral("Dashed"), QStringLiteral("Dotted")};
  it.listKeys = {10, 11, 12};
  for (int i = 0; i < 3; ++i)
    it.listValues.insert(it.listKeys[i], textValue(it.listNames[i]));
  it.icons.insert(10, QIcon(QPixmap(8, 8)));
  return item;
}

} // namespace

class TestComboBox : public QObject
{
  Q_OBJECT

private slots:

  void aValueOutsideTheListIsATemporaryEntry()
  {
    RecordingBag bag;
    const int item = addStyle(bag, QStringLiteral("Phantom"));
    QScopedPointer<PropUiQComboBox> control(boundControl<PropUiQComboBox>(bag, item));
    QComboBox* combo = control->comboBox();
    QCOMPARE(combo->count(), 4);
    QCOMPARE(combo->currentIndex(), 3);
    QCOMPARE(combo->currentText(), QStringLiteral("Phantom"));
    QVERIFY(!combo->itemData(3).isValid());

    // Reading the same value again does not pile up entries.
    control->updateData();
    QCOMPARE(combo->count(), 4);
    QCOMPARE(combo->currentIndex(), 3);

    // Choosing the temporary entry writes nothing.
    control->onActivated(3);
    QVERIFY(bag.written.isEmpty());

    // A real choice, once committed, takes the temporary entry away.
    combo->setCurrentIndex(0);
    control->onActivated(0);
    QCOMPARE(bag.written.size(), 1);
    QCOMPARE(toQString(bag.written[0].getString()), QStringLiteral("Solid"));
    QCOMPARE(combo->count(), 3);
    QCOMPARE(combo->currentText(), QStringLiteral("Solid"));
  }

  // That a refused choice goes back is the varies-look table's; here, how each combo speaks and goes on.
  void refusedChoicesAreToldByKind_data()
  {
    QTest::addColumn<bool>("textCombo");
    QTest::addColumn<int>("kind"); // of the message
    QTest::newRow("plain combo: a note") << false << int(host_qt_ui::QHostMessageBoxOd::Information);
    QTest::newRow("text combo: an error") << true << int(host_qt_ui::QHostMessageBoxOd::Critical);
  }

  void refusedChoicesAreToldByKind()
  {
    QFETCH(bool, textCombo);
    QFETCH(int, kind);
    MessageCatcher messages;
    RecordingBag bag;
    const int item = addStyle(bag);
    QScopedPointer<PropUiQComboBox> control(textCombo ? boundControl<PropUiQTextComboCtrl>(bag, item)
                                                      : boundControl<PropUiQComboBox>(bag, item));
    bag.item(item).acceptValidate = false;
    bag.item(item).validateMessage = QStringLiteral("Dotted lines are not allowed on this layer.");
    control->comboBox()->setCurrentIndex(2);
    control->onActivated(2);
    QTRY_COMPARE(messages.shown.size(), 1);
    QCOMPARE(int(messages.shown[0].kind), kind);

    // The plain combo takes the next choice; the text combo stays inert after a refusal.
    bag.item(item).acceptValidate = true;
    control->comboBox()->setCurrentIndex(0);
    control->onActivated(0);
    QCOMPARE(bag.written.size(), textCombo ? 0 : 1);
  }

  void numericTypesGetANumberValidator()
  {
    RecordingBag bag;
    TestItemType integerType(1, PropUiGuidInteger), textType(2, PropUiGuidText);
    const int count = bag.addItem(QStringLiteral("Count"), intValue(3));
    bag.item(count).flags = PropItemFlag::kEditableList;
    bag.item(count).type = &integerType;
    const int name = bag.addItem(QStringLiteral("Name"), textValue(QStringLiteral("A")));
    bag.item(name).flags = PropItemFlag::kEditableList;
    bag.item(name).type = &textType;
    QScopedPointer<PropUiQTextComboCtrl> numbers(boundControl<PropUiQTextComboCtrl>(bag, count));
    auto* validator = qobject_cast<const PropMathValidator*>(numbers->comboBox()->validator());
    QVERIFY(validator);
    QVERIFY(qobject_cast<QIntValidator*>(validator->numberValidator()));
    QCOMPARE(validator->itemIndex(), count);
    QScopedPointer<PropUiQTextComboCtrl> texts(boundControl<PropUiQTextComboCtrl>(bag, name));
    QVERIFY(!texts->comboBox()->validator());
  }

  // Typing and Return into a number combo are the number fields' table; here, what the combo keeps.
  void typedValuesAreParsedAndListedTextsChosen()
  {
    RecordingBag bag;
    TestItemType heights(1, PropUiGuidDouble);
    const int item = bag.addItem(QStringLiteral("Text height"), realValue(3.5));
    RecordingBag::Item& it = bag.item(item);
    it.flags = PropItemFlag::kEditableList;
    it.type = &heights;
    it.listNames = QStringList{QStringLiteral("2.5"), QStringLiteral("3.5")};
    it.listKeys = {0, 1};
    it.listValues.insert(0, realValue(2.5));
    it.listValues.insert(1, realValue(3.5));
    it.hasListText = true;
    FocusedControl<PropUiQTextComboCtrl> window(bag, item);
    auto* control = window.control;
    QCOMPARE(control->comboBox()->currentText(), QStringLiteral("3.5"));
    QVERIFY(window.focus(control->comboBox()));
    control->comboBox()->lineEdit()->selectAll();
    QTest::keyClicks(control->comboBox(), QStringLiteral("4.25"));
    // Return both ends the edit and activates the entry: one write, not two
    QTest::keyClick(control->comboBox(), Qt::Key_Return);
    QTRY_COMPARE(bag.written.size(), 1);
    QCoreApplication::processEvents();
    QCOMPARE(bag.written.size(), 1);
    QCOMPARE(bag.written[0].getDouble(), 4.25);
    QCOMPARE(control->committed().text(), QStringLiteral("4.25"));

    // A listed text typed in is a choice, not a new value for the parser.
    bag.clearCalls();
    control->comboBox()->setEditText(QStringLiteral("2.5"));
    QVERIFY(!control->applyData());
    QVERIFY(!bag.called(QStringLiteral("parseValue")));
  }

  // What every kind does with bad input is the base's table; here, what only a combo has.
  void badInputWritesNothing()
  {
    PropUiQComboBox unbound;
    QVERIFY(!unbound.setupUi());
    QCOMPARE(unbound.addTempItem(PropVariant()), -1);
    QVERIFY(!unbound.removeTempItem(0));

    RecordingBag bag;
    const int item = addStyle(bag);
    bag.item(item).listValues.clear(); // getListValue answers false
    QScopedPointer<PropUiQComboBox> control(boundControl<PropUiQComboBox>(bag, item));
    control->onActivated(0);
    QVERIFY(!control->removeTempItem(0)); // a real entry stays
    QVERIFY(bag.written.isEmpty());

    const int empty = bag.addItem(QStringLiteral("Nothing listed"), textValue(QStringLiteral("x")));
    QScopedPointer<PropUiQComboBox> none(boundControl<PropUiQComboBox>(bag, empty));
    QCOMPARE(none->comboBox()->count(), 1); // only the value, as a temporary entry
  }
};

QTEST_MAIN(TestComboBox)
#include "tst_ComboBox.moc"

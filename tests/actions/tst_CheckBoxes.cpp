#include "PropUiOptions.h"
#include "MessageCatcher.h"
#include "PropUiQCheckBox.h"
#include "PropUiQSwitchBox.h"
#include "PropUiQTextCheckBox.h"
#include "PropUiQTextSwitchBox.h"
#include "RecordingBag.h"
#include "TestValues.h"
#include <QtTest>

class TestCheckBoxes : public QObject
{
  Q_OBJECT

private slots:
  void variesIsPartialAndOneClickChecks()
  {
    RecordingBag bag;
    const int item = bag.addItem(QStringLiteral("Visible"), boolValue(false, true));
    QScopedPointer<PropUiQCheckBox> control(boundControl<PropUiQCheckBox>(bag, item));
    QCOMPARE(control->checkBox()->checkState(), Qt::PartiallyChecked);
    QVERIFY(control->isVaries());

    control->checkBox()->click();
    QCOMPARE(control->checkBox()->checkState(), Qt::Checked);
    QVERIFY(!control->checkBox()->isTristate());
    QCOMPARE(bag.written.size(), 1);
    QVERIFY(bag.written[0].getBool());
    QVERIFY(bag.written[0].type() & PropVariant::kBool);

    // Never back to the third state by clicking.
    control->checkBox()->click();
    control->checkBox()->click();
    QCOMPARE(control->checkBox()->checkState(), Qt::Checked);
  }

  void refusalFallsBackToTheLastConfirmedState()
  {
    MessageCatcher messages;
    RecordingBag bag;
    const int item = bag.addItem(QStringLiteral("Locked"), boolValue(false));
    QScopedPointer<PropUiQCheckBox> control(boundControl<PropUiQCheckBox>(bag, item));
    bag.item(item).acceptWrite = false;
    control->checkBox()->click();
    QCOMPARE(control->checkBox()->checkState(), Qt::Unchecked);
    QVERIFY(bag.written.isEmpty());

    bag.item(item).acceptWrite = true;
    bag.item(item).acceptValidate = false;
    bag.item(item).validateMessage = QStringLiteral("Locked by the layer.");
    control->checkBox()->click();
    QCOMPARE(control->checkBox()->checkState(), Qt::Unchecked);
    QTRY_COMPARE(messages.shown.size(), 1);
  }

  void captionsFromTheNameOrTheList()
  {
    RecordingBag bag;
    const int item = bag.addItem(QStringLiteral("Visible"), boolValue(true));
    bag.item(item).flags = PropItemFlag::kCaptionOnCheckBox;
    QScopedPointer<PropUiQCheckBox> named(boundControl<PropUiQCheckBox>(bag, item));
    QCOMPARE(named->checkBox()->text(), QStringLiteral("Visible"));

    bag.item(item).flags = 0;
    bag.item(item).listNames = QStringList{QStringLiteral("Protect from edits")};
    QScopedPointer<PropUiQTextCheckBox> textBox(boundControl<PropUiQTextCheckBox>(bag, item));
    QCOMPARE(textBox->checkBox()->text(), QStringLiteral("Protect from edits"));
    bag.item(item).value = boolValue(true, true);
    textBox->updateData();
    QCOMPARE(textBox->checkBox()->text(), QStringLiteral("*varies*"));

    // Two listed texts leave the caption as it is.
    bag.item(item).value = boolValue(false);
    bag.item(item).listNames = QStringList{QStringLiteral("a"), QStringLiteral("b")};
    QScopedPointer<PropUiQTextSwitchBox> textSwitch(boundControl<PropUiQTextSwitchBox>(bag, item));
    QVERIFY(textSwitch->checkBox()->text().isEmpty());
  }

  void switchShowsVariesInTheMiddleAndOneClickTurnsItOn()
  {
    RecordingBag bag;
    const int item = bag.addItem(QStringLiteral("Snap"), boolValue(false));
    QScopedPointer<PropUiQSwitchBox> control(boundControl<PropUiQSwitchBox>(bag, item));
    QVERIFY(control->checkBox()->isSwitchMode());
    QVERIFY(!control->checkBox()->isChecked());
    bag.item(item).value = boolValue(false, true);
    control->updateData();
    QVERIFY(control->isVaries());
    QCOMPARE(control->checkBox()->checkState(), Qt::PartiallyChecked); // neither on nor off

    control->checkBox()->click();
    QVERIFY(!control->isVaries());
    QCOMPARE(control->checkBox()->checkState(), Qt::Checked);
    QCOMPARE(bag.written.size(), 1);
    QVERIFY(bag.written[0].getBool());

    // Never back to the middle by clicking; a refusal returns to the confirmed state.
    bag.item(item).acceptWrite = false;
    control->checkBox()->click();
    QCOMPARE(control->checkBox()->checkState(), Qt::Checked);
    bag.item(item).acceptWrite = true;
    control->checkBox()->click();
    control->checkBox()->click();
    QCOMPARE(control->checkBox()->checkState(), Qt::Checked);

    // A read of a real value leaves the middle.
    bag.item(item).value = boolValue(false, true);
    control->updateData();
    bag.item(item).value = boolValue(false);
    control->updateData();
    QVERIFY(!control->isVaries());
    QCOMPARE(control->checkBox()->checkState(), Qt::Unchecked);
    QVERIFY(!control->checkBox()->isTristate());
  }

  void otherTypesAndBadInputChangeNothing()
  {
    RecordingBag bag;
    const int item = bag.addItem(QStringLiteral("Visible"), boolValue(true));
    QScopedPointer<PropUiQCheckBox> control(boundControl<PropUiQCheckBox>(bag, item));
    PropVariant number;
    number.setInt32(0);
    bag.item(item).value = number;
    control->updateData();
    QCOMPARE(control->checkBox()->checkState(), Qt::Checked);
    bag.item(item).readable = false;
    control->updateData();
    QCOMPARE(control->checkBox()->checkState(), Qt::Checked);
    bag.item(item).editable = false;
    control->updateUi();
    QVERIFY(!control->checkBox()->isEnabled());
  }

  void elementBoundBoxesUseElements()
  {
    RecordingBag bag;
    const int item = bag.addItem(QStringLiteral("Layers on"));
    bag.item(item).elementValues.insert(2, boolValue(false));
    PropUiQCheckBox control;
    control.setPropBagItem(&bag, item, 2);
    control.setupUi();
    control.updateData();
    control.checkBox()->click();
    QVERIFY(bag.item(item).elementValues.value(2).getBool());
    QVERIFY(!bag.called(QStringLiteral("getValue")) && !bag.called(QStringLiteral("setValue")));
  }
};

QTEST_MAIN(TestCheckBoxes)
#include "tst_CheckBoxes.moc"

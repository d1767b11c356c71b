#include "PropUiOptions.h"
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
  void variesIsPartialAndOneClickTurnsItOn_data()
  {
    QTest::addColumn<bool>("switchMode");
    QTest::newRow("check box") << false;
    QTest::newRow("switch") << true;
  }

  void variesIsPartialAndOneClickTurnsItOn()
  {
    QFETCH(bool, switchMode);
    RecordingBag bag;
    const int item = bag.addItem(QStringLiteral("Visible"), boolValue(false, true));
    PropUiQSwitchBox* asSwitch = switchMode ? boundControl<PropUiQSwitchBox>(bag, item) : nullptr;
    PropUiQCheckBox* asCheck = switchMode ? nullptr : boundControl<PropUiQCheckBox>(bag, item);
    QScopedPointer<PropUiQControl> control(switchMode ? static_cast<PropUiQControl*>(asSwitch) : asCheck);
    host_qt_ui_core::QHostCheckBox* box = switchMode ? asSwitch->checkBox() : asCheck->checkBox();
    QCOMPARE(box->isSwitchMode(), switchMode);
    QVERIFY(control->isVaries());
    QCOMPARE(box->checkState(), Qt::PartiallyChecked); // neither on nor off

    box->click();
    QVERIFY(!control->isVaries());
    QCOMPARE(box->checkState(), Qt::Checked);
    QVERIFY(!box->isTristate());
    QCOMPARE(bag.written.size(), 1);
    QVERIFY(bag.written[0].getBool());
    QVERIFY(bag.written[0].type() & PropVariant::kBool);

    // Never back to the middle by clicking.
    box->click();
    box->click();
    QCOMPARE(box->checkState(), Qt::Checked);

    // A read of a real value leaves the middle.
    bag.item(item).value = boolValue(false, true);
    control->updateData();
    bag.item(item).value = boolValue(false);
    control->updateData();
    QVERIFY(!control->isVaries());
    QCOMPARE(box->checkState(), Qt::Unchecked);
    QVERIFY(!box->isTristate());
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

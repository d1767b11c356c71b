#include "PropUiOptions.h"
#include "PropUiQCheckBox.h"
#include "PropUiQTextCheckBox.h"
#include "PropUiQTextSwitchBox.h"
#include "RecordingBag.h"
#include "TestValues.h"
#include <QtTest>

class TestCheckBoxes : public QObject
{
  Q_OBJECT

private slots:
  void captionsFromTheNameOrTheList()
  {
    RecordingBag bag;
    const int item = bag.addItem(QStringLiteral("Visible"), boolValue(true));
    bag.item(item).flags = PropItemFlag::kCaptionOnCheckBox;
    QScopedPointer<PropUiQCheckBox> named(boundControl<PropUiQCheckBox>(bag, item));
    QCOMPARE(named->checkBox()->text(), QStringLiteral("Visible"));
    QVERIFY(!named->checkBox()->isSwitchMode());
    named->updateData(); // the same value again leaves the box as it is
    QCOMPARE(named->checkBox()->checkState(), Qt::Checked);

    bag.item(item).flags = 0;
    bag.item(item).listNames = QStringList{QStringLiteral("Protect from edits")};
    QScopedPointer<PropUiQTextCheckBox> textBox(boundControl<PropUiQTextCheckBox>(bag, item));
    QCOMPARE(textBox->checkBox()->text(), QStringLiteral("Protect from edits"));

    // Two listed texts leave the caption as it is.
    bag.item(item).listNames = QStringList{QStringLiteral("a"), QStringLiteral("b")};
    QScopedPointer<PropUiQTextSwitchBox> textSwitch(boundControl<PropUiQTextSwitchBox>(bag, item));
    QVERIFY(textSwitch->checkBox()->isSwitchMode());
    QVERIFY(textSwitch->checkBox()->text().isEmpty());
  }

};

QTEST_MAIN(TestCheckBoxes)
#include "tst_CheckBoxes.moc"

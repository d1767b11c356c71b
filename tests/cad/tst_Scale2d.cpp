#include "MessageCatcher.h"
#include "PropUiQScale2d.h"
#include "PropUiQScaleElementCtrl.h"
#include "RecordingBag.h"
#include "TestValues.h"
#include <QToolButton>
#include <QtTest>

Q_DECLARE_METATYPE(PropVariant)

namespace
{

/** A host whose elements are the numbers of the scale it holds, as a block reference's are. */
class ScaleBag : public RecordingBag
{
public:
  bool getElementValue(int index, unsigned long element, PropVariant& value) override
  {
    calls.append(QStringLiteral("getElementValue(%1,%2)").arg(index).arg(element));
    PropVariant whole = item(index).value;
    if (!whole.isArray() || whole.getDoubleArray().size() != 2 || element > 1)
      return false;
    value.setDouble(whole.getDoubleArray()[element]);
    return true;
  }
};

QPair<double, double> numbersOf(const PropVariant& v)
{
  if (!v.isArray() || v.getDoubleArray().size() != 2)
    return {-1, -1};
  return {v.getDoubleArray()[0], v.getDoubleArray()[1]};
}

} // namespace

class TestScale2d : public QObject
{
  Q_OBJECT

private slots:
  void locking_data()
  {
    QTest::addColumn<PropVariant>("value");
    QTest::addColumn<bool>("accept");
    QTest::addColumn<bool>("startsUnlocked");
    QTest::addColumn<int>("writes");
    QTest::addColumn<bool>("locked");
    QTest::newRow("within 1e-10: one scale") << realsValue({2, 2.00000000001}) << true << false << 0 << true;
    QTest::newRow("different: Y becomes X") << realsValue({3, 2}) << true << true << 1 << true;
    QTest::newRow("refused: stays unlocked") << realsValue({3, 2}) << false << true << 0 << false;
    QTest::newRow("varies: no X to copy") << withVaries(realsValue({3, 2}), true) << true << false << 0 << true;
    QTest::newRow("not two numbers") << textValue(QStringLiteral("3 2")) << true << false << 0 << true;
  }

  void locking()
  {
    QFETCH(PropVariant, value);
    QFETCH(bool, accept);
    QFETCH(bool, startsUnlocked);
    QFETCH(int, writes);
    QFETCH(bool, locked);
    MessageCatcher messages;
    ScaleBag bag;
    const int item = bag.addItem(QStringLiteral("Scale"), value);
    bag.item(item).acceptValidate = accept;
    bag.item(item).validateMessage = QStringLiteral("Scales must be uniform here");
    QScopedPointer<PropUiQScale2d> scale(boundControl<PropUiQScale2d>(bag, item));
    QToolButton* lock = scale->lockButton();
    QVERIFY(lock);
    QCOMPARE(lock->isChecked(), startsUnlocked);
    QCOMPARE(scale->element(1)->isNonUniform(), startsUnlocked);

    // Unlocking writes nothing.
    lock->setChecked(true);
    QVERIFY(scale->element(0)->isNonUniform() && scale->element(1)->isNonUniform());
    bag.clearCalls();
    lock->setChecked(false);
    QCOMPARE(bag.count(QStringLiteral("setValue")), writes);
    QVERIFY(!bag.called(QStringLiteral("setElementValue")));
    if (writes)
      QCOMPARE(numbersOf(bag.written.last()), qMakePair(3.0, 3.0));
    QCOMPARE(!lock->isChecked(), locked);
    QCOMPARE(scale->element(0)->isNonUniform(), !locked);
    QCOMPARE(scale->element(1)->isNonUniform(), !locked);
    if (!accept)
      QTRY_COMPARE(messages.shown.size(), 1);
  }

  void anEditWhileLockedWritesBoth_data()
  {
    QTest::addColumn<bool>("locked");
    QTest::addColumn<bool>("accept");
    QTest::addColumn<QString>("calls");
    QTest::addColumn<double>("x");
    QTest::addColumn<double>("y");
    QTest::newRow("locked") << true << true << "setValue(0)" << 5.0 << 5.0;
    QTest::newRow("unlocked") << false << true << "setElementValue(0,1)" << 2.0 << 5.0;
    QTest::newRow("locked, refused") << true << false << "" << 2.0 << 2.0;
  }

  void anEditWhileLockedWritesBoth()
  {
    QFETCH(bool, locked);
    QFETCH(bool, accept);
    QFETCH(QString, calls);
    QFETCH(double, x);
    QFETCH(double, y);
    MessageCatcher messages;
    ScaleBag bag;
    const int item = bag.addItem(QStringLiteral("Scale"), realsValue({2, 2}));
    bag.item(item).acceptValidate = accept;
    QScopedPointer<PropUiQScale2d> scale(boundControl<PropUiQScale2d>(bag, item));
    if (!locked)
    {
      scale->lockButton()->setChecked(true);
      // RecordingBag writes an element into its element map; this host keeps only the whole scale.
      bag.item(item).elementValues[1] = realValue(2);
    }
    bag.clearCalls();
    PropUiQScaleElementCtrl* yEdit = scale->element(1);
    yEdit->lineEdit()->setText(QStringLiteral("5"));
    yEdit->onEditingFinished();
    QCOMPARE(bag.calls.filter(QStringLiteral("set")).join(QLatin1Char(' ')), calls);
    if (locked)
    {
      QCOMPARE(numbersOf(bag.item(item).value), qMakePair(x, y));
      // The other number shows what the bag holds now.
      QCOMPARE(scale->element(0)->lineEdit()->text(), QString::number(x));
      QCOMPARE(yEdit->lineEdit()->text(), QString::number(y));
    }
    else
    {
      QCOMPARE(bag.written.last().getDouble(), 5.0);
      QCOMPARE(numbersOf(bag.item(item).value), qMakePair(2.0, 2.0));
    }
  }
};

QTEST_MAIN(TestScale2d)
#include "tst_Scale2d.moc"

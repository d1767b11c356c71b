#include "PropUiGuids.h"
#include "PropUiQDefaultFormatter.h"
#include "PropUiQStandardFormatter.h"
#include "RecordingBag.h"
#include "TestValues.h"
#include <QtTest>

namespace
{

/** Tags every text it makes, so a test sees which formatter answered. */
class TaggingFormatter : public PropUiQDefaultFormatter
{
public:
  explicit TaggingFormatter(QObject* parent) : PropUiQDefaultFormatter(parent) {}
  QString getText(int item, const PropVariant& value) override
  {
    return QStringLiteral("tagged ") + PropUiQDefaultFormatter::getText(item, value);
  }
};

} // namespace

class TestStandardFormatter : public QObject
{
  Q_OBJECT

private slots:

  void registeringAgainReplaces()
  {
    TestItemType color(1, PropUiGuidColor);
    TestItemType layer(2, PropUiGuidLayer);
    RecordingBag bag;
    bag.addItem(QStringLiteral("Color"), intValue(4));
    bag.item(0).type = &color;
    bag.addItem(QStringLiteral("Layer"), intValue(1));
    bag.item(1).type = &layer;
    PropUiQStandardFormatter standard(nullptr);
    standard.setPropBag(&bag);
    QPointer<PropUiQFormatter> first = new TaggingFormatter(nullptr);
    standard.registerFormatter(PropUiGuidColor, first);
    QCOMPARE(first->parent(), &standard);
    QCOMPARE(standard.getText(0, intValue(4)), QStringLiteral("tagged 4"));

    standard.registerFormatter(PropUiGuidColor, new PropUiQDefaultFormatter(nullptr));
    QVERIFY(!first);
    QCOMPARE(standard.getText(0, intValue(4)), QStringLiteral("4")); // the new one answers at once
    QVERIFY(!standard.formatterFor(PropUiGuidLayer.toString()));      // no default registered here
    QVERIFY(standard.getText(1, intValue(1)).isNull());
  }
};

QTEST_MAIN(TestStandardFormatter)
#include "tst_StandardFormatter.moc"

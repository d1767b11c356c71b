#include "OdDbDatabase.h"
#include "OdDbLayerTableRecord.h"
#include "PropUiGuids.h"
#include "PropUiQArrowheadFormatter.h"
#include "PropUiQColorFormatter.h"
#include "PropUiQLayerFormatter.h"
#include "PropUiQLineTypeFormatter.h"
#include "PropUiQLineWeightFormatter.h"
#include "PropVariantConversions.h"
#include "RecordingBag.h"
#include "TestValues.h"
#include "hostDbPropBagCtx.h"
#include <QtTest>

namespace
{

QImage imageOf(const QVariant& icon)
{
  return icon.value<QIcon>().pixmap(QSize(40, 16)).toImage();
}

OdCmColor aci(int index)
{
  OdCmColor c;
  c.setColorIndex(OdInt16(index));
  return c;
}

} // namespace

class TestDrawingFormatters : public QObject
{
  Q_OBJECT

private slots:
  void iconsFollowTheValueAndNoneForAnotherKind_data()
  {
    QTest::addColumn<int>("kind");
    QTest::newRow("layer") << 0;
    QTest::newRow("colour") << 1;
    QTest::newRow("linetype") << 2;
    QTest::newRow("lineweight") << 3;
    QTest::newRow("arrowhead") << 4;
  }

  void iconsFollowTheValueAndNoneForAnotherKind()
  {
    QFETCH(int, kind);
    OdDbDatabase db;
    const OdDbObjectId walls = db.addLayer(OdString(L"Walls"));
    db.openLayer(walls)->setColor(aci(1));
    db.openLayer(walls)->setColor(aci(5), db.activeViewportId());
    const OdDbObjectId dashed = db.addLinetype(OdString(L"Dashed"), OdString(), OdDoubleArray{0.5, -0.25});
    hostDbPropBagCtx context(&db);
    RecordingBag bag;
    bag.context = &context;
    QObject owner;
    PropUiQFormatter* formatter = nullptr;
    PropVariant one, two;
    switch (kind)
    {
    case 0:
      formatter = new PropUiQLayerFormatter(&owner);
      one = propVariantFromObjectId(walls);
      two = propVariantFromObjectId(db.getLayerZeroId());
      break;
    case 1:
      formatter = new PropUiQColorFormatter(&owner);
      one = propVariantFromColor(aci(1));
      two = propVariantFromColor(aci(3));
      break;
    case 2:
      formatter = new PropUiQLineTypeFormatter(&owner);
      one = propVariantFromObjectId(dashed);
      two = propVariantFromObjectId(db.getLinetypeContinuousId());
      break;
    case 3:
      formatter = new PropUiQLineWeightFormatter(&owner);
      one = propVariantFromLineweight(OdDb::kLnWt200);
      two = propVariantFromLineweight(OdDb::kLnWt013);
      break;
    default:
      formatter = new PropUiQArrowheadFormatter(&owner);
      one = propVariantFromObjectId(db.getBlockId(OdString(L"_Dot")));
      two = propVariantFromObjectId(db.getBlockId(OdString(L"_Oblique")));
      break;
    }
    const int item = bag.addItem(QStringLiteral("Attribute"), one);
    bag.format = [](int, const PropVariant&, OdString& text) {
      text = OdString(L"as the bag says");
      return true;
    };
    formatter->setPropBag(&bag);

    // An arrowhead's text is the bag's; the other kinds name their values as their controls do.
    if (kind == 4)
      QCOMPARE(formatter->getText(item, one), QStringLiteral("as the bag says"));
    const QVariant first = formatter->getIcon(item, one);
    const QVariant second = formatter->getIcon(item, two);
    QVERIFY(first.isValid());
    QVERIFY(second.isValid());
    QVERIFY(imageOf(first) != imageOf(second));
    QCOMPARE(imageOf(formatter->getChoiceIcon(item, one, 99)), imageOf(first));
    if (kind == 0) // the active viewport's colour wins
    {
      const OdDbObjectId blue = db.addLayer(OdString(L"Blue"));
      db.openLayer(blue)->setColor(aci(5));
      QCOMPARE(imageOf(first), imageOf(formatter->getIcon(item, propVariantFromObjectId(blue))));
    }

    // A value list: the kind's rule for each key, in order.
    const OdUInt64Array keys{kind == 3 ? OdUInt64(OdDb::kLnWt200) : one.getUInt64(),
                             kind == 3 ? OdUInt64(OdDb::kLnWt013) : two.getUInt64()};
    const QVariantList listed = formatter->getValueListIcons(item, one, OdStringArray{OdString(L"a"), OdString(L"b")}, keys);
    QCOMPARE(listed.size(), 2);
    QCOMPARE(imageOf(listed[0]), imageOf(first));
    QCOMPARE(imageOf(listed[1]), imageOf(second));

    // Another kind, a varying text, an id the drawing does not hold: no icon, no crash; the colour
    // control shows such a value as the default colour, and so does its formatter.
    const QVariant defaultColour = kind == 1 ? formatter->getIcon(item, propVariantFromColor(OdCmColor())) : QVariant();
    QCOMPARE(imageOf(formatter->getIcon(item, textValue(QStringLiteral("red")))), imageOf(defaultColour));
    QCOMPARE(imageOf(formatter->getIcon(item, realValue(1e300))), imageOf(defaultColour));
    if (kind != 1 && kind != 3)
      QVERIFY(!formatter->getIcon(item, propVariantFromObjectId(OdDbObjectId(987654321))).isValid());

    // Without a drawing context the drawing's kinds have nothing to draw from.
    RecordingBag plain;
    plain.addItem(QStringLiteral("Attribute"), one);
    formatter->setPropBag(&plain);
    if (kind == 0)
      QVERIFY(!formatter->getIcon(item, one).isValid());
  }
};

QTEST_MAIN(TestDrawingFormatters)
#include "tst_DrawingFormatters.moc"

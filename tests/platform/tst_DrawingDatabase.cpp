#include "OdCmColor.h"
#include "OdDbBlockTableRecord.h"
#include "OdDbDatabase.h"
#include "OdDbLayerTableRecord.h"
#include "OdDbLinetypeTableRecord.h"
#include "OdStringQt.h"
#include "PropVariantConversions.h"
#include <QtTest>
#include <cmath>

class TestDrawingDatabase : public QObject
{
  Q_OBJECT

private slots:
  void paletteHoldsTheKnownColours_data()
  {
    QTest::addColumn<int>("index");
    QTest::addColumn<uint>("rgb");
    QTest::newRow("red") << 1 << 0xFF0000u;
    QTest::newRow("white") << 7 << 0xFFFFFFu;
    QTest::newRow("dark grey") << 8 << 0x808080u;
    QTest::newRow("orange, a hue between") << 30 << 0xFF7F00u;
    QTest::newRow("washed red") << 11 << 0xFF7F7Fu;
    QTest::newRow("last hue, darkest washed") << 249 << 0x4C262Fu;
    QTest::newRow("first grey") << 250 << 0x333333u;
    QTest::newRow("last grey") << 255 << 0xFFFFFFu;
  }

  void paletteHoldsTheKnownColours()
  {
    QFETCH(int, index);
    QFETCH(uint, rgb);
    QCOMPARE(uint(OdCmEntityColor::lookUpRGB(OdUInt8(index))), rgb);
    OdCmColor color;
    color.setColorIndex(OdInt16(index));
    QCOMPARE(uint((color.red() << 16) | (color.green() << 8) | color.blue()), rgb);
    QCOMPARE(int(OdCmEntityColor::lookUpRGB(OdCmEntityColor::lookUpACI(OdUInt8(rgb >> 16), OdUInt8(rgb >> 8), OdUInt8(rgb)))),
             int(rgb));
  }

  void colourMethodsRoundTripThroughTheirNumber()
  {
    OdCmColor byLayer, byBlock(OdCmEntityColor::kByBlock), aci, truecolor;
    aci.setColorIndex(42);
    truecolor.setRGB(1, 2, 3);
    QVERIFY(truecolor.setNames(OdString(L"Sea"), OdString(L"Book")));
    QVERIFY(!aci.setNames(OdString(L"Sea"))); // only a true colour has a name
    QVERIFY(byLayer.isByLayer());
    QCOMPARE(int(byLayer.colorIndex()), 256);
    QCOMPARE(int(byBlock.colorIndex()), 0);
    for (const OdCmColor& c : {byLayer, byBlock, aci, truecolor})
    {
      OdCmColor back;
      QVERIFY(back.setColor(c.color()));
      QCOMPARE(back.color(), c.color());
    }
    OdCmColor untouched = aci;
    QVERIFY(!untouched.setColor(0xC3000000u));      // palette index 0 is not a palette colour
    QVERIFY(!untouched.setColor(0xC3000100u));      // nor is 256
    QVERIFY(!untouched.setColor(0x12345678u));      // no such method
    QVERIFY(!untouched.setColor(0xC0000001u));      // ByLayer carries nothing
    QCOMPARE(untouched, aci);
    untouched.setColorIndex(300);
    QCOMPARE(untouched, aci);
  }

  void newDatabaseHoldsWhatEveryDrawingHolds()
  {
    OdDbDatabase db;
    for (const wchar_t* name : {L"ByLayer", L"ByBlock", L"Continuous"})
      QVERIFY(!db.getLinetypeId(OdString(name)).isNull());
    QCOMPARE(db.getLinetypeId(OdString(L"bylayer")), db.getLinetypeByLayerId());
    QCOMPARE(db.getLinetypeId(OdString(L"BYBLOCK")), db.getLinetypeByBlockId());
    const OdDbLayerTableRecord* zero = db.openLayer(db.getLayerZeroId());
    QVERIFY(zero);
    QCOMPARE(toQString(zero->getName()), QStringLiteral("0"));
    QCOMPARE(zero->linetypeObjectId(), db.getLinetypeContinuousId());
    for (int i = 0; i < OdDbDatabase::kArrowBlockCount; ++i)
      QVERIFY(db.openBlock(db.getBlockId(OdString(OdDbDatabase::kArrowBlockNames[i]))));
    QVERIFY(!db.activeViewportId().isNull());
  }

  void namesAreUniqueAndIdsBelongToOneDatabase()
  {
    OdDbDatabase db, other;
    const OdDbObjectId walls = db.addLayer(OdString(L"Walls"));
    QVERIFY(!walls.isNull());
    QVERIFY(db.addLayer(OdString(L"WALLS")).isNull());
    QVERIFY(db.addLayer(OdString()).isNull());
    QVERIFY(db.addLinetype(OdString(L"Bad"), OdString(), OdDoubleArray{1.0, std::nan("")}).isNull());
    QVERIFY(db.getLinetypeId(OdString(L"Bad")).isNull());
    QVERIFY(!other.openObject(walls));
    QVERIFY(!db.openObject(OdDbObjectId::kNull));
    QVERIFY(!db.openLinetype(walls)); // a layer is no linetype
    QVERIFY(!db.openObject(OdDbObjectId(walls.getHandle() + 100000)));
  }

  void recordsKeepTheirRules()
  {
    OdDbDatabase db;
    OdDbLayerTableRecord* layer = db.openLayer(db.addLayer(OdString(L"Doors")));
    OdCmColor red;
    red.setColorIndex(1);
    QVERIFY(!layer->setColor(OdCmColor(OdCmEntityColor::kByLayer)));
    QVERIFY(layer->setColor(red));
    OdCmColor blue;
    blue.setColorIndex(5);
    QVERIFY(layer->setColor(blue, db.activeViewportId()));
    QCOMPARE(layer->color(), red);
    QCOMPARE(layer->color(db.activeViewportId()), blue);
    QVERIFY(!layer->setLineWeight(OdDb::kLnWtByLayer));
    QVERIFY(!layer->setLineWeight(OdDb::LineWeight(17)));
    QVERIFY(layer->setLineWeight(OdDb::kLnWt050));

    OdDbLinetypeTableRecord* dashed =
      db.openLinetype(db.addLinetype(OdString(L"Dashed"), OdString(L"__ __"), OdDoubleArray{0.5, -0.25, 0.0, -0.25}));
    QCOMPARE(dashed->numDashes(), 4);
    QCOMPARE(dashed->patternLength(), 1.0);
    QCOMPARE(dashed->dashLengthAt(4), 0.0);
    QCOMPARE(dashed->dashLengthAt(-1), 0.0);
  }

  void conversionsRefuseOtherKinds()
  {
    OdCmColor aci;
    aci.setColorIndex(30);
    OdCmColor color;
    QVERIFY(propVariantToColor(propVariantFromColor(aci), color));
    QCOMPARE(color, aci);

    OdDb::LineWeight weight = OdDb::kLnWt000;
    QVERIFY(propVariantToLineweight(propVariantFromLineweight(OdDb::kLnWtByLwDefault), weight));
    QCOMPARE(weight, OdDb::kLnWtByLwDefault);
    PropVariant plain;
    plain.setInt32(35);
    QVERIFY(propVariantToLineweight(plain, weight)); // what the lineweight control writes
    QCOMPARE(weight, OdDb::kLnWt035);

    OdDbObjectId id;
    QVERIFY(propVariantToObjectId(propVariantFromObjectId(OdDbObjectId(77)), id));
    QCOMPARE(id.getHandle(), OdUInt64(77));

    PropVariant text, real, oddWeight, lying;
    text.setString(OdString(L"Red"));
    real.setDouble(1e300);
    oddWeight.setInt32(17);
    lying.setDouble(std::nan(""));
    lying.setType(PropVariant::kObjectId); // a type word that its storage contradicts
    color = aci;
    weight = OdDb::kLnWt035;
    id = OdDbObjectId(5);
    for (const PropVariant& v : {text, real, oddWeight, lying, PropVariant()})
    {
      QVERIFY(!propVariantToColor(v, color));
      QVERIFY(!propVariantToObjectId(v, id));
    }
    QVERIFY(!propVariantToLineweight(oddWeight, weight));
    QVERIFY(!propVariantToLineweight(text, weight));
    QCOMPARE(color, aci);
    QCOMPARE(weight, OdDb::kLnWt035);
    QCOMPARE(id.getHandle(), OdUInt64(5));
  }
};

QTEST_GUILESS_MAIN(TestDrawingDatabase)
#include "tst_DrawingDatabase.moc"

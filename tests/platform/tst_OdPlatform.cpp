#include "OdAlloc.h"
#include "OdArray.h"
#include "OdCmColor.h"
#include "OdDbBlockTableRecord.h"
#include "OdDbDatabase.h"
#include "OdDbLayerTableRecord.h"
#include "OdDbLinetypeTableRecord.h"
#include "OdError.h"
#include "OdGUID.h"
#include "OdSharedPtr.h"
#include "OdStringQt.h"
#include "OdVariant.h"
#include "PropVariant.h"
#include "PropVariantConversions.h"
#include <QtTest>
#include <cmath>

namespace
{

struct Counted
{
  static int alive;
  Counted() { ++alive; }
  ~Counted() { --alive; }
};
int Counted::alive = 0;

} // namespace

class TestOdPlatform : public QObject
{
  Q_OBJECT

private slots:
  void stringsOrderByCodePointAndRoundTripToQt()
  {
    QVERIFY(OdString(L"B") < OdString(L"a"));
    QVERIFY(OdString(L"abc") < OdString(L"abd"));
    QVERIFY(!(OdString(L"x") < OdString(L"x")));
    const QString text = QStringLiteral("Länge ∅ 12");
    QCOMPARE(toQString(toOdString(text)), text);
    QCOMPARE(toOdString(QString()).getLength(), 0);
    OdString padded(L"  7.5 ");
    QCOMPARE(toQString(padded.trimLeft().trimRight()), QStringLiteral("7.5"));
  }

  void arraysRaiseTheInvalidIndexError()
  {
    OdInt32Array a{1, 2, 3};
    QCOMPARE(a[2], 3);
    for (unsigned int bad : {3u, 100u, unsigned(-1)})
    {
      try
      {
        (void)a[bad];
        QFAIL("no error for an index outside the array");
      }
      catch (const OdError& e)
      {
        QCOMPARE(e.code(), eInvalidIndex);
      }
    }
    a.removeAt(0);
    QCOMPARE(a.size(), 2u);
    QVERIFY_EXCEPTION_THROWN(a.removeAt(5), OdError);
    OdInt32Array empty;
    QVERIFY_EXCEPTION_THROWN(empty.first(), OdError);
  }

  void sharedPointersCountInAFreedBlock()
  {
    const long blocksBefore = odrxAllocatedBlocks();
    {
      OdSharedPtr<Counted> a(new Counted);
      OdSharedPtr<Counted> b = a;
      OdSharedPtr<Counted> c;
      c = b;
      QCOMPARE(a.refCount(), 3);
      b = OdSharedPtr<Counted>();
      QCOMPARE(a.refCount(), 2);
      QCOMPARE(Counted::alive, 1);
    }
    QCOMPARE(Counted::alive, 0);
    QCOMPARE(odrxAllocatedBlocks(), blocksBefore);
  }

  void guidsPrintCanonicallyAndCompare()
  {
    const unsigned char bytes[8] = {0x8B, 0xE0, 0xF7, 0x78, 0xF4, 0x4B, 0x9D, 0x61};
    const OdGUID guid(0x3ECE78B5, 0x1C4B, 0x45A9, bytes);
    QCOMPARE(toQString(guid.toString(1)), QStringLiteral("3ECE78B5-1C4B-45A9-8BE0-F778F44B9D61"));
    const unsigned char high[8] = {0x8A, 0x30, 0x0E, 0xA0, 0x82, 0xC3, 0xA6, 0x68};
    const OdGUID negative(int(0xDDE63B97u), short(0xCEC8), 0x439A, high);
    QCOMPARE(toQString(negative.toString(1)), QStringLiteral("DDE63B97-CEC8-439A-8A30-0EA082C3A668"));
    QCOMPARE(toQString(OdGUID().toString(1)), QStringLiteral("00000000-0000-0000-0000-000000000000"));
    OdGUID parsed;
    QVERIFY(parsed.fromString(guid.toString(0)));
    QCOMPARE(parsed, guid);
    QVERIFY(parsed != negative);
    QVERIFY(!parsed.fromString(OdString(L"not-a-guid")));
    QCOMPARE(parsed, guid);
  }

  // Controls read whatever a bag hands them: a getter of another kind answers empty, never throws.
  void variantsConvertWithoutThrowingAndSettingClearsTheState()
  {
    OdVariant v;
    QCOMPARE(v.getInt32(), 0);
    v.setDouble(2.75);
    QCOMPARE(v.getInt32(), 2);
    QVERIFY(v.getBool());
    v.setString(OdString(L"abc"));
    QCOMPARE(v.getDouble(), 0.0);
    QVERIFY(!v.getBool());
    QVERIFY(v.getDoubleArray().isEmpty());

    PropVariant a, b;
    QCOMPARE(a.type(), 1u);
    a.setInt32(1);
    b.setInt32(1);
    QCOMPARE(a, b);
    b.setVaries();
    QVERIFY(a != b);
    QCOMPARE(b.getInt32(), 1);
    b.setBool(true);
    QCOMPARE(b.type(), 0x2u);
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
    // The round trips of every kind are the drawing formatters' daily bread (tst_DrawingFormatters);
    // a plain number is what the lineweight control writes.
    OdDb::LineWeight weight = OdDb::kLnWt000;
    PropVariant plain;
    plain.setInt32(35);
    QVERIFY(propVariantToLineweight(plain, weight));
    QCOMPARE(weight, OdDb::kLnWt035);

    PropVariant text, real, oddWeight, lying;
    text.setString(OdString(L"Red"));
    real.setDouble(1e300);
    oddWeight.setInt32(17);
    lying.setDouble(std::nan(""));
    lying.setType(PropVariant::kObjectId); // a type word that its storage contradicts
    OdCmColor aci;
    aci.setColorIndex(30);
    OdCmColor color = aci;
    OdDbObjectId id(5);
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

QTEST_GUILESS_MAIN(TestOdPlatform)
#include "tst_OdPlatform.moc"

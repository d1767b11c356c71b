#include "OdAlloc.h"
#include "OdArray.h"
#include "OdError.h"
#include "OdGUID.h"
#include "OdRxClass.h"
#include "OdRxDictionary.h"
#include "OdSharedPtr.h"
#include "OdStringQt.h"
#include "OdVariant.h"
#include "PropBagCtx.h"
#include "PropVariant.h"
#include <QtTest>

namespace
{

struct Counted
{
  static int alive;
  Counted() { ++alive; }
  ~Counted() { --alive; }
};
int Counted::alive = 0;

class Shape : public OdRxObject
{
  ODRX_DECLARE_MEMBERS(Shape);
};
class Circle : public Shape
{
  ODRX_DECLARE_MEMBERS(Circle);
};
ODRX_DEFINE_MEMBERS(Shape, OdRxObject, L"TestShape")
ODRX_DEFINE_MEMBERS(Circle, Shape, L"TestCircle")

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
      QCOMPARE(odrxAllocatedBlocks(), blocksBefore + 1);
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
    OdSharedPtr<Counted> none;
    QVERIFY(none.isNull());
    QCOMPARE(none.refCount(), 0);
  }

  void runTimeClassesCreateAndCast()
  {
    Shape::rxInit();
    Circle::rxInit();
    QVERIFY_EXCEPTION_THROWN(Circle::rxInit(), OdError);
    try
    {
      newOdRxClass(OdString(L"TestShape"), OdRxObject::desc());
      QFAIL("a class name was registered twice");
    }
    catch (const OdError& e)
    {
      QCOMPARE(int(e.code()), 314);
    }

    OdRxObjectPtr made = Circle::desc()->create();
    QVERIFY(made);
    QCOMPARE(made->numRefs(), 1L);
    QVERIFY(made->isKindOf(Shape::desc()));
    QVERIFY(Shape::cast(made.get()));
    OdRxObjectPtr shape = Shape::desc()->create();
    QVERIFY(!Circle::cast(shape.get()));
    QVERIFY(!PropBagCtx::cast(shape.get()));
    QCOMPARE(toQString(made->isA()->name()), QStringLiteral("TestCircle"));

    Circle::rxUninit();
    Shape::rxUninit();
    try
    {
      Shape::rxUninit();
      QFAIL("a class was removed twice");
    }
    catch (const OdError& e)
    {
      QCOMPARE(int(e.code()), 255);
    }
    QVERIFY(!odrxClassDictionary()->has(OdString(L"TestShape")));
  }

  void systemRegistryHoldsAReference()
  {
    Shape::rxInit();
    OdRxObjectPtr object = Shape::desc()->create();
    OdRxDictionary* registry = odrxSysRegistry();
    QVERIFY(!registry->putAt(OdString(L"TEST_KEY"), object.get()));
    QCOMPARE(object->numRefs(), 2L);
    QCOMPARE(registry->getAt(OdString(L"TEST_KEY")).get(), object.get());
    OdRxObjectPtr removed = registry->remove(OdString(L"TEST_KEY"));
    QCOMPARE(removed.get(), object.get());
    QVERIFY(!registry->has(OdString(L"TEST_KEY")));
    QVERIFY(!registry->remove(OdString(L"TEST_KEY")));
    removed.release();
    QCOMPARE(object->numRefs(), 1L);
    object.release();
    Shape::rxUninit();
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

  void variantsConvertWithoutThrowing()
  {
    OdVariant v;
    QVERIFY(v.isVoid());
    QCOMPARE(v.getInt32(), 0);
    QVERIFY(v.getString().isEmpty());
    v.setDouble(2.75);
    QCOMPARE(v.getInt32(), 2);
    QCOMPARE(v.varType(), int(OdVariant::kDouble));
    v.setString(OdString(L"abc"));
    QCOMPARE(v.getDouble(), 0.0);
    QVERIFY(v.getDoubleArray().isEmpty());
    v.setInt32Array(OdInt32Array{4, 5});
    QVERIFY(v.isArray());
    QCOMPARE(v.getInt32Array()[1], 5);
    v.setUInt64(~0ull);
    QCOMPARE(v.getUInt64(), ~0ull);
  }

  void propVariantTypeWord()
  {
    PropVariant v;
    QCOMPARE(v.type(), 1u);
    v.setInt32(7);
    QCOMPARE(v.type() & PropVariant::kScalarMask, 0x4u);
    v.setVaries();
    QVERIFY(v.isVaries());
    QCOMPARE(v.getInt32(), 7);
    v.setBool(true);
    QCOMPARE(v.type(), 0x2u);
    v.setDoubleArray(OdDoubleArray{1.0});
    QVERIFY(v.type() & PropVariant::kArray);
    PropVariant a, b;
    a.setInt32(1);
    b.setInt32(1);
    QCOMPARE(a, b);
    b.setVaries();
    QVERIFY(a != b);
  }
};

QTEST_GUILESS_MAIN(TestOdPlatform)
#include "tst_OdPlatform.moc"

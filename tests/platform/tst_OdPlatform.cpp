#include "OdAlloc.h"
#include "OdArray.h"
#include "OdError.h"
#include "OdGUID.h"
#include "OdSharedPtr.h"
#include "OdStringQt.h"
#include "OdVariant.h"
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
    v.setString(OdString(L"abc"));
    QCOMPARE(v.getDouble(), 0.0);
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
};

QTEST_GUILESS_MAIN(TestOdPlatform)
#include "tst_OdPlatform.moc"

#include "OdStringQt.h"
#include "PropUiVariantConverter_p.h"
#include "TestValues.h"
#include <QDate>
#include <QtTest>

Q_DECLARE_METATYPE(PropVariant)

namespace
{

template <class Array, class T>
Array arrayOf(std::initializer_list<T> entries)
{
  Array array;
  for (const T& entry : entries)
    array.append(entry);
  return array;
}

template <class Array>
PropVariant typedArray(OdVariant& (OdVariant::*set)(const Array&), const Array& array, unsigned int type)
{
  PropVariant v;
  (v.*set)(array);
  v.setType(type);
  return v;
}

QString describe(const PropVariant& v)
{
  return QStringLiteral("type 0x%1 varType %2").arg(v.type(), 0, 16).arg(v.varType());
}

} // namespace

class TestVariantConverter : public QObject
{
  Q_OBJECT

private slots:
  void bothWays_data()
  {
    QTest::addColumn<PropVariant>("prop");
    QTest::addColumn<QVariant>("qt");
    PropVariant v;
    QTest::newRow("bool") << PropVariant(v.setBool(true)) << QVariant(true);
    QTest::newRow("int16") << PropVariant(v.setInt16(-7)) << QVariant::fromValue<short>(-7);
    QTest::newRow("int32") << PropVariant(v.setInt32(-2147483647 - 1)) << QVariant(int(-2147483647 - 1));
    QTest::newRow("uint64") << PropVariant(v.setUInt64(~OdUInt64(0))) << QVariant(qulonglong(~quint64(0)));
    QTest::newRow("double") << PropVariant(v.setDouble(2.5)) << QVariant(2.5);
    QTest::newRow("string") << PropVariant(v.setString(OdString(L"Layout1"))) << QVariant(QStringLiteral("Layout1"));
    QTest::newRow("empty string") << PropVariant(v.setString(OdString())) << QVariant(QString());
    QTest::newRow("bool array") << typedArray(&OdVariant::setBoolArray, arrayOf<OdBoolArray>({true, false}),
                                              PropVariant::kBool | PropVariant::kArray)
                                << QVariant(QVariantList{true, false});
    QTest::newRow("int32 array") << PropVariant(v.setInt32Array(arrayOf<OdInt32Array>({1, 2, 3})))
                                 << QVariant(QVariantList{1, 2, 3});
    QTest::newRow("uint64 array") << typedArray(&OdVariant::setUInt64Array, arrayOf<OdUInt64Array>({OdUInt64(9)}),
                                                PropVariant::kUInt64 | PropVariant::kArray)
                                  << QVariant(QVariantList{qulonglong(9)});
    QTest::newRow("string array") << textsValue({QStringLiteral("A"), QStringLiteral("B")})
                                  << QVariant(QStringList{QStringLiteral("A"), QStringLiteral("B")});
  }

  void bothWays()
  {
    QFETCH(PropVariant, prop);
    QFETCH(QVariant, qt);
    const QVariant made = PropUiVariantConverter::toQVariant(prop);
    QCOMPARE(made.userType(), qt.userType());
    QCOMPARE(made, qt);
    PropVariant back;
    QVERIFY(PropUiVariantConverter::toPropVariant(qt, back));
    QVERIFY2(back == prop, qPrintable(describe(back) + QStringLiteral(" for ") + describe(prop)));
  }

  void withoutAQtForm_data()
  {
    QTest::addColumn<PropVariant>("prop");
    QTest::newRow("varies flag") << realValue(1, true);
    PropVariant noData;
    noData.setInt32(3);
    noData.setType(PropVariant::kInt32 | PropVariant::kNoData);
    QTest::newRow("no data") << noData;
    PropVariant color;
    color.setInt32(3);
    color.setType(PropVariant::kColor);
    QTest::newRow("kind outside the table") << color;
    QTest::newRow("fresh") << PropVariant();
  }

  void withoutAQtForm()
  {
    QFETCH(PropVariant, prop);
    QVERIFY(!PropUiVariantConverter::toQVariant(prop).isValid());
  }

  void refusedQtValues_data()
  {
    QTest::addColumn<QVariant>("qt");
    QTest::newRow("a date") << QVariant(QDate(2024, 1, 1));
    QTest::newRow("invalid") << QVariant();
    QTest::newRow("mixed list") << QVariant(QVariantList{1, QStringLiteral("two")});
    QTest::newRow("list of lists") << QVariant(QVariantList{QVariant(QVariantList{1})});
  }

  void refusedQtValues()
  {
    QFETCH(QVariant, qt);
    PropVariant out;
    out.setInt32(42);
    QVERIFY(!PropUiVariantConverter::toPropVariant(qt, out));
    QCOMPARE(out.getInt32(), 42); // left alone
  }

};

QTEST_MAIN(TestVariantConverter)
#include "tst_VariantConverter.moc"

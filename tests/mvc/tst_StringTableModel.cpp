#include "PropUiQStringTableModel.h"
#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QtTest>

class TestStringTableModel : public QObject
{
  Q_OBJECT

private slots:
  void testerPassesOverShapes_data()
  {
    QTest::addColumn<QStringList>("cells");
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("columns");
    QTest::newRow("empty") << QStringList() << 0 << 0;
    QTest::newRow("one cell") << QStringList{QStringLiteral("a")} << 1 << 1;
    QTest::newRow("full 2x3") << QString("a b c d e f").split(' ') << 2 << 3;
    QTest::newRow("short list") << QString("a b c d").split(' ') << 3 << 2;
  }
  void testerPassesOverShapes()
  {
    QFETCH(QStringList, cells);
    QFETCH(int, rows);
    QFETCH(int, columns);
    PropUiQStringTableModel model;
    QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    model.setCells(cells, rows, columns);
    QCOMPARE(model.rowCount(), rows);
    QCOMPARE(model.columnCount(), columns);
    if (rows > 0 && columns > 0)
    {
      QVERIFY(model.setData(model.index(rows - 1, columns - 1), QStringLiteral("z")));
      QCOMPARE(model.index(rows - 1, columns - 1).data().toString(), QStringLiteral("z"));
    }
    model.setCells(QStringList(), 0, 0);
  }

  // A refresh brings the same shape: views must hear of every changed cell, and keep their place otherwise.
  void sameShapeChangesCellsInPlace()
  {
    PropUiQStringTableModel model;
    QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    model.setCells(QString("a b c d e f").split(' '), 3, 2);
    QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
    QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
    model.setCells(QString("a b c d e f").split(' '), 3, 2);
    QCOMPARE(changed.size(), 0);
    model.setCells(QString("a x c d e f").split(' '), 3, 2);
    QCOMPARE(changed.size(), 1);
    QCOMPARE(changed[0][0].toModelIndex(), model.index(0, 1));
    QCOMPARE(changed[0][1].toModelIndex(), model.index(0, 1));
    model.setCells(QString("a x y d e z").split(' '), 3, 2);
    QCOMPARE(changed.size(), 2);
    QCOMPARE(changed[1][0].toModelIndex(), model.index(1, 0));
    QCOMPARE(changed[1][1].toModelIndex(), model.index(2, 1));
    QCOMPARE(model.index(2, 1).data().toString(), QStringLiteral("z"));
    QCOMPARE(resets.size(), 0);
    model.setCells(QString("a x y d").split(' '), 3, 2); // cells gone read invalid, and say so
    QCOMPARE(changed.size(), 3);
    QCOMPARE(changed[2][1].toModelIndex(), model.index(2, 1));
    QVERIFY(!model.index(2, 0).data().isValid());
    QCOMPARE(model.index(1, 1).data().toString(), QStringLiteral("d"));
    QCOMPARE(model.cellIndex(model.index(2, 1)), 5);
    model.setCells(QString("a x y d").split(' '), 2, 2);
    QCOMPARE(resets.size(), 1);
    QCOMPARE(model.rowCount(), 2);
  }

  void onlyDisplayAndEditRoles()
  {
    PropUiQStringTableModel model;
    model.setCells(QString("a b").split(' '), 1, 2);
    QCOMPARE(model.index(0, 1).data(Qt::EditRole).toString(), QStringLiteral("b"));
    QVERIFY(!model.index(0, 1).data(Qt::ToolTipRole).isValid());
    QVERIFY(!model.setData(model.index(0, 1), QStringLiteral("x"), Qt::ToolTipRole));
    QVERIFY(!model.setData(model.index(1, 0), QStringLiteral("x"))); // outside the table
    QVERIFY(model.flags(model.index(0, 0)) & Qt::ItemIsEditable);

    QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
    QVERIFY(!model.setItemData(model.index(0, 0), {}));
    QVERIFY(!model.setItemData(model.index(0, 0), {{Qt::EditRole, QStringLiteral("x")}, {Qt::ToolTipRole, 1}}));
    QVERIFY(model.setItemData(model.index(0, 0),
                              {{Qt::DisplayRole, QStringLiteral("shown")}, {Qt::EditRole, QStringLiteral("edited")}}));
    QCOMPARE(model.cells(), QString("edited b").split(' '));
    QCOMPARE(changed.size(), 1);
  }

  void headerRangesAreTheOtherDimension()
  {
    PropUiQStringTableModel model;
    model.setCells(QString("c c c c c c c c c c").split(QLatin1Char(' ')), 5, 2);
    QSignalSpy headers(&model, &QAbstractItemModel::headerDataChanged);
    model.setHeaders(QStringList{QStringLiteral("X"), QStringLiteral("Y")}, Qt::Horizontal);
    model.setHeaders(QStringList{QStringLiteral("r1")}, Qt::Vertical);
    QCOMPARE(headers.size(), 2);
    QCOMPARE(headers[0][1].toInt(), 0);
    QCOMPARE(headers[0][2].toInt(), 4); // sections 0..rows-1 for column labels
    QCOMPARE(headers[1][2].toInt(), 1); // and 0..columns-1 for row labels
    QCOMPARE(model.headerData(1, Qt::Horizontal).toString(), QStringLiteral("Y"));
    QVERIFY(!model.headerData(2, Qt::Horizontal).isValid());
    QCOMPARE(model.headerData(0, Qt::Vertical).toString(), QStringLiteral("r1"));
    QVERIFY(!model.headerData(1, Qt::Vertical).isValid()); // no label for it
    QVERIFY(!model.headerData(0, Qt::Horizontal, Qt::ToolTipRole).isValid());

    PropUiQStringTableModel empty;
    QSignalSpy none(&empty, &QAbstractItemModel::headerDataChanged);
    empty.setHeaders(QStringList{QStringLiteral("X")}, Qt::Horizontal);
    QCOMPARE(none.size(), 0); // an empty range is not reported
  }
};

QTEST_MAIN(TestStringTableModel)
#include "tst_StringTableModel.moc"

#include "PropUiFlatParentChildProxyModel.h"
#include "PropUiQDefaultFormatter.h"
#include "PropertyBagModel.h"
#include "RecordingBag.h"
#include "TestValues.h"
#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QStandardItemModel>
#include <QtTest>

namespace
{

/** Each proxy row's column-0 text, which here names the row. */
QStringList namesOf(const QAbstractItemModel& model)
{
  QStringList names;
  for (int r = 0; r < model.rowCount(); ++r)
    names << model.index(r, 0).data().toString();
  return names;
}

/** "A" with children "A0", "A1", ... in a two-column standard model. */
QList<QStandardItem*> rowWithChildren(const QString& name, int children)
{
  auto* parent = new QStandardItem(name);
  for (int c = 0; c < children; ++c)
    parent->appendRow({new QStandardItem(name + QString::number(c)), new QStandardItem(QStringLiteral("v"))});
  return {parent, new QStandardItem(QStringLiteral("v"))};
}

} // namespace

class TestFlatProxyModel : public QObject
{
  Q_OBJECT

private slots:
  void listsEachItemFollowedByItsElements_data()
  {
    QTest::addColumn<int>("items");
    QTest::addColumn<bool>("withElements");
    QTest::addColumn<bool>("varies");
    QTest::addColumn<int>("expectedRows");
    QTest::newRow("no items") << 0 << false << false << 0;
    QTest::newRow("one item") << 1 << false << false << 1;
    QTest::newRow("items with elements") << 3 << true << false << 9;
    QTest::newRow("varying elements") << 3 << true << true << 9;
  }
  void listsEachItemFollowedByItsElements()
  {
    QFETCH(int, items);
    QFETCH(bool, withElements);
    QFETCH(bool, varies);
    QFETCH(int, expectedRows);
    RecordingBag bag;
    for (int i = 0; i < items; ++i)
    {
      bag.addItem(QStringLiteral("I%1").arg(i), realValue(i, varies));
      if (withElements && i != 1)
      {
        bag.item(i).elements = {0, 1, 2};
        bag.item(i).elementCaptions = QStringList{QStringLiteral("x"), QStringLiteral("y"), QStringLiteral("z")};
        bag.item(i).elementValues = {{0, realValue(1, varies)}, {1, realValue(2)}, {2, realValue(3)}};
      }
    }
    PropertyBagModel source;
    PropUiQDefaultFormatter formatter(nullptr);
    formatter.setPropBag(&bag);
    source.setFormatter(&formatter);
    PropUiFlatParentChildProxyModel proxy;
    QAbstractItemModelTester tester(&proxy, QAbstractItemModelTester::FailureReportingMode::Fatal);
    proxy.setSourceModel(&source);
    QCOMPARE(proxy.rowCount(), 0);
    source.setPropBag(&bag);
    source.itemChanged(-1);
    if (items > 2)
      source.itemChanged(2);
    QCOMPARE(proxy.rowCount(), expectedRows);
    if (withElements)
    {
      QCOMPARE(namesOf(proxy).mid(0, 6), (QStringList{QStringLiteral("I0"), QStringLiteral("x"), QStringLiteral("y"),
                                                      QStringLiteral("z"), QStringLiteral("I1"), QStringLiteral("I2")}));
      QCOMPARE(proxy.index(1, 1).data().toString(), varies ? QStringLiteral("*varies*") : QStringLiteral("1"));
      QCOMPARE(proxy.index(1, 0).data(PropIsSubItemRole).toBool(), true);
      QCOMPARE(proxy.mapFromSource(source.index(2, 1, source.index(2, 0))), proxy.index(8, 1));
      QCOMPARE(proxy.mapToSource(proxy.index(8, 1)), source.index(2, 1, source.index(2, 0)));
    }
    for (int r = 0; r < proxy.rowCount(); ++r)
    {
      QVERIFY(!proxy.parent(proxy.index(r, 0)).isValid());
      QVERIFY(!proxy.hasChildren(proxy.index(r, 0)));
    }
  }

  void withoutSourceItIsEmpty()
  {
    PropUiFlatParentChildProxyModel proxy;
    QCOMPARE(proxy.rowCount(), 0);
    QCOMPARE(proxy.columnCount(), 0);
    QVERIFY(!proxy.index(0, 0).isValid());
    QStandardItemModel other(2, 2);
    QVERIFY(!proxy.mapFromSource(other.index(0, 0)).isValid());
  }

  void followsStructuralChangesOfItsSource()
  {
    QStandardItemModel source;
    source.appendRow(rowWithChildren(QStringLiteral("A"), 2));
    source.appendRow(rowWithChildren(QStringLiteral("B"), 0));
    source.appendRow(rowWithChildren(QStringLiteral("C"), 1));
    PropUiFlatParentChildProxyModel proxy;
    QAbstractItemModelTester tester(&proxy, QAbstractItemModelTester::FailureReportingMode::Fatal);
    proxy.setSourceModel(&source);
    QCOMPARE(namesOf(proxy), QString("A A0 A1 B C C0").split(' '));

    QSignalSpy inserted(&proxy, &QAbstractItemModel::rowsInserted);
    source.insertRow(1, rowWithChildren(QStringLiteral("N"), 2));
    QCOMPARE(namesOf(proxy), QString("A A0 A1 N N0 N1 B C C0").split(' '));
    QCOMPARE(inserted.size(), 1);
    QCOMPARE(inserted[0][1].toInt(), 3);
    QCOMPARE(inserted[0][2].toInt(), 5);

    source.item(1)->insertRow(1, {new QStandardItem(QStringLiteral("Nx")), new QStandardItem(QStringLiteral("v"))});
    QCOMPARE(namesOf(proxy), QString("A A0 A1 N N0 Nx N1 B C C0").split(' '));

    QPersistentModelIndex c0 = proxy.index(9, 0);
    QSignalSpy removed(&proxy, &QAbstractItemModel::rowsRemoved);
    source.removeRow(0);
    QCOMPARE(namesOf(proxy), QString("N N0 Nx N1 B C C0").split(' '));
    QCOMPARE(removed.size(), 1);
    QCOMPARE(removed[0][1].toInt(), 0);
    QCOMPARE(removed[0][2].toInt(), 2);
    QCOMPARE(c0.data().toString(), QStringLiteral("C0"));

    source.item(0)->removeRow(0);
    QCOMPARE(namesOf(proxy), QString("N Nx N1 B C C0").split(' '));

    source.setSortRole(Qt::DisplayRole);
    source.sort(0, Qt::DescendingOrder);
    QCOMPARE(namesOf(proxy), QString("N Nx N1 C C0 B").split(' '));
    QCOMPARE(c0.data().toString(), QStringLiteral("C0"));

    QSignalSpy changed(&proxy, &QAbstractItemModel::dataChanged);
    source.item(0)->child(0)->setText(QStringLiteral("N1*"));
    QCOMPARE(changed.size(), 1);
    QCOMPARE(changed[0][0].toModelIndex().data().toString(), QStringLiteral("N1*"));

    source.clear();
    QCOMPARE(proxy.rowCount(), 0);
  }
};

QTEST_MAIN(TestFlatProxyModel)
#include "tst_FlatProxyModel.moc"

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

#include "BagModel.h"
#include "PropUiQtMVCFactories.h"
#include "RecordingBag.h"
#include "TestMvcGroup.h"
#include "TestValues.h"
#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QStandardItemModel>
#include <QtTest>

namespace
{

enum Shape
{
  Empty,
  OneItem,
  Mixed,
  Varying
};

/** A bag of the given shape: plain items, items with elements, choice items, varying values. */
void fill(RecordingBag& bag, Shape shape)
{
  if (shape == Empty)
    return;
  bag.addItem(QStringLiteral("Width"), realValue(2.5, shape == Varying));
  if (shape == OneItem)
    return;
  const int point = bag.addItem(QStringLiteral("Center"), realValue(0));
  bag.item(point).elements = {0, 1, 2};
  bag.item(point).elementCaptions = QStringList{QStringLiteral("X"), QStringLiteral("Y"), QStringLiteral("Z")};
  bag.item(point).elementValues = {{0, realValue(1)}, {1, realValue(2, shape == Varying)}, {2, realValue(3)}};
  const int choice = bag.addItem(QStringLiteral("Style"), intValue(20, shape == Varying));
  bag.item(choice).flags = 0x2;
  bag.item(choice).listNames = QStringList{QStringLiteral("Thin"), QStringLiteral("Thick")};
  bag.item(choice).listKeys = {7, 9};
  bag.item(choice).listValues = {{7, intValue(10)}, {9, intValue(20)}};
  bag.addItem(QStringLiteral("Name"), textValue(QStringLiteral("hub")));
}

/** Column 0 and 1 display texts of every top-level row and its element rows, "name=value" and "  X=1". */
QStringList rowsOf(const QAbstractItemModel& model, const QModelIndex& parent = QModelIndex(), const QString& indent = QString())
{
  QStringList rows;
  for (int r = 0; r < model.rowCount(parent); ++r)
  {
    const QModelIndex name = model.index(r, 0, parent);
    rows << indent + name.data().toString() + QLatin1Char('=') + model.index(r, 1, parent).data().toString();
    rows << rowsOf(model, name, indent + QStringLiteral("  "));
  }
  return rows;
}

} // namespace

Q_DECLARE_METATYPE(Shape)

class TestPropertyBagModel : public QObject
{
  Q_OBJECT

private slots:
  void testerPassesThroughBindAndChanges_data()
  {
    QTest::addColumn<Shape>("shape");
    QTest::newRow("no items") << Empty;
    QTest::newRow("one item") << OneItem;
    QTest::newRow("items with and without elements") << Mixed;
    QTest::newRow("varying values") << Varying;
  }
  void testerPassesThroughBindAndChanges()
  {
    QFETCH(Shape, shape);
    RecordingBag bag;
    fill(bag, shape);
    PropertyBagModel model;
    PropUiQDefaultFormatter formatter(nullptr);
    formatter.setPropBag(&bag);
    QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);

    model.setFormatter(&formatter);
    model.setPropBag(&bag);
    model.itemChanged(-1);
    for (int i = 0; i < bag.getItemCount(); ++i)
      model.itemChanged(i);
    model.itemChanged(99); // out of range: nothing to report
    model.setPropBag(nullptr);
    QCOMPARE(model.rowCount(), 0);
    model.setPropBag(&bag);
    QCOMPARE(model.rowCount(), bag.getItemCount());
  }

  void variesTextsDifferByLevel()
  {
    RecordingBag bag;
    fill(bag, Varying);
    BagModel bound(bag);
    const PropertyBagModel& model = bound.model;

    QCOMPARE(model.index(0, 1).data().toString(), QStringLiteral("*VARIES*"));
    const QVariant icon = model.index(0, 1).data(Qt::DecorationRole);
    QVERIFY(icon.canConvert<QIcon>() && icon.value<QIcon>().isNull());
    QCOMPARE(model.index(1, 1, model.index(1, 0)).data().toString(), QStringLiteral("*varies*"));
    QCOMPARE(model.index(0, 1, model.index(1, 0)).data().toString(), QStringLiteral("1"));
  }

  void roles_data()
  {
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("parentRow");
    QTest::addColumn<int>("item");
    QTest::addColumn<qulonglong>("sub");
    QTest::addColumn<bool>("isSubItem");
    QTest::addColumn<unsigned int>("styleFlags");
    QTest::newRow("plain item") << 0 << -1 << 0 << 0ull << false << 0x2u;
    QTest::newRow("element row") << 2 << 1 << 1 << 2ull << true << 0x2u;
    QTest::newRow("choice item: position of the matching key") << 2 << -1 << 2 << 1ull << false << 0x2u;
    QTest::newRow("editable list, not a choice: no entry is looked up") << 2 << -1 << 2 << 0ull << false << 0x4u;
    QTest::newRow("text item") << 3 << -1 << 3 << 0ull << false << 0x2u;
  }
  void roles()
  {
    QFETCH(int, row);
    QFETCH(int, parentRow);
    QFETCH(int, item);
    QFETCH(qulonglong, sub);
    QFETCH(bool, isSubItem);
    QFETCH(unsigned int, styleFlags);
    RecordingBag bag;
    fill(bag, Mixed);
    bag.item(2).flags = styleFlags;
    BagModel bound(bag);
    const PropertyBagModel& model = bound.model;
    const QModelIndex parent = parentRow < 0 ? QModelIndex() : model.index(parentRow, 0);
    const QModelIndex index = model.index(row, 1, parent);

    int gotItem = -5;
    unsigned long gotSub = 99;
    bool gotIsSub = !isSubItem;
    QVERIFY(PropUiQtMVCInterface::getPropData(index, gotItem, gotSub, gotIsSub));
    QCOMPARE(gotItem, item);
    QCOMPARE(qulonglong(gotSub), sub);
    QCOMPARE(gotIsSub, isSubItem);
    if (styleFlags != 0x2u)
      QVERIFY(!bag.called(QStringLiteral("getValueList")));
  }

  void badInputGivesNothing()
  {
    RecordingBag bag;
    fill(bag, Mixed);
    PropertyBagModel model;
    QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    QVERIFY(!model.index(0, 0).isValid()); // unbound
    model.setPropBag(&bag);
    QVERIFY(!model.index(0, 1).data().isValid()); // no formatter yet
    PropUiQDefaultFormatter formatter(nullptr);
    model.setFormatter(&formatter);
    QVERIFY(!model.index(4, 0).isValid());
    QVERIFY(!model.index(0, 2).isValid());
    QVERIFY(!model.index(-1, 0).isValid());

    QStandardItemModel other(3, 2);
    QVERIFY(!model.index(0, 0, other.index(1, 0)).isValid());
    QCOMPARE(model.rowCount(other.index(1, 0)), 0);
    QVERIFY(!model.data(other.index(0, 0)).isValid());

    // The bag grows behind the model's back: the rows stay those bound.
    bag.addItem(QStringLiteral("Late"), intValue(1));
    QCOMPARE(model.rowCount(), 4);
    bag.item(0).readable = false;
    QVERIFY(!model.index(0, 1).data().isValid());
  }

  void itemChangedReportsTheFiveRoles()
  {
    RecordingBag bag;
    fill(bag, Mixed);
    PropertyBagModel model;
    model.setPropBag(&bag);
    QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
    model.itemChanged(2); // before anyone asked for its elements: nothing to follow
    model.itemChanged(-1);
    QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    QCOMPARE(changed.size(), 2);
    QCOMPARE(changed[0][0].toModelIndex(), model.index(2, 0));
    QCOMPARE(changed[0][1].toModelIndex(), model.index(2, 1));
    QCOMPARE(changed[0][2].value<QVector<int> >(),
             (QVector<int>{Qt::DisplayRole, Qt::DecorationRole, PropItemIndexRole, PropSubIndexRole, PropIsSubItemRole}));
    QCOMPARE(changed[1][0].toModelIndex(), model.index(0, 0));
    QCOMPARE(changed[1][1].toModelIndex(), model.index(3, 1));
  }

  void elementRowsFollowChangeNotices()
  {
    RecordingBag bag;
    fill(bag, Mixed);
    PropertyBagModel model;
    QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    model.setPropBag(&bag);
    const QModelIndex point = model.index(1, 0);
    QCOMPARE(model.rowCount(point), 3);

    bag.item(1).elements = {0, 1};
    model.itemChanged(1);
    QCOMPARE(model.rowCount(point), 2);
    bag.item(1).elements.clear();
    model.itemChanged(-1);
    QCOMPARE(model.rowCount(point), 0);
    QVERIFY(!model.hasChildren(point));
    bag.item(1).elements = {0, 1, 2};
    model.setPropBag(&bag);
    QCOMPARE(model.rowCount(model.index(1, 0)), 3);
  }

  void getPropDataChecksTypesExactly()
  {
    QStandardItemModel host(1, 1);
    auto* cell = new QStandardItem;
    host.setItem(0, 0, cell);
    cell->setData(3, PropItemIndexRole);
    cell->setData(4, PropSubIndexRole); // a plain int, not unsigned 64-bit
    cell->setData(true, PropIsSubItemRole);
    int item = -1;
    unsigned long sub = 7;
    bool isSub = false;
    QVERIFY(!PropUiQtMVCInterface::getPropData(host.index(0, 0), item, sub, isSub));
    QCOMPARE(item, -1);
    cell->setData(QVariant::fromValue<qulonglong>(4), PropSubIndexRole);
    QVERIFY(PropUiQtMVCInterface::getPropData(host.index(0, 0), item, sub, isSub));
    QCOMPARE(item, 3);
    QVERIFY(!PropUiQtMVCInterface::getPropData(QModelIndex(), item, sub, isSub));
  }

  void factoriesAttachToTheGroup()
  {
    TestMvcGroup group;
    QObject owner;
    QAbstractItemModel* model = hostCreatePropUiItemModel(&group, &owner);
    QAbstractItemModel* table = hostCreatePropUiTableModel(&group, &owner);
    RecordingBag bag;
    fill(bag, Mixed);
    PropUiQDefaultFormatter formatter(nullptr);
    group.setFormatter(&formatter);
    group.setPropBag(&bag);
    QCOMPARE(model->rowCount(), 4);
    QCOMPARE(table->rowCount(), 7);
    QVERIFY(!table->index(2, 0).parent().isValid());
    QCOMPARE(table->index(2, 0).data().toString(), QStringLiteral("X"));

    QAbstractItemModel* unattached = hostCreatePropUiItemModel(nullptr, &owner);
    QCOMPARE(unattached->rowCount(), 0);
  }
};

QTEST_MAIN(TestPropertyBagModel)
#include "tst_PropertyBagModel.moc"

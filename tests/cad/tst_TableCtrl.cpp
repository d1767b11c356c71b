#include "MessageCatcher.h"
#include "OdStringQt.h"
#include "PropUiQStringTableModel.h"
#include "PropUiQTableCtrl.h"
#include "RecordingBag.h"
#include "TestValues.h"
#include <QAbstractItemModelTester>
#include <QtTest>

Q_DECLARE_METATYPE(PropVariant)

namespace
{

QStringList stringsOf(const PropVariant& v)
{
  QStringList list;
  for (const OdString& s : v.getStringArray())
    list << toQString(s);
  return list;
}

/** A title block: two rows of (field, value), with labels. */
int addTitleBlock(RecordingBag& bag)
{
  const int item = bag.addItem(QStringLiteral("Title block"),
                               textsValue({QStringLiteral("Title"), QStringLiteral("Plan"), QStringLiteral("Scale"),
                                        QStringLiteral("1:50")}));
  RecordingBag::Item& it = bag.item(item);
  it.elementValues[PropUiQTableCtrl::kRowsElement] = intValue(2);
  it.elementValues[PropUiQTableCtrl::kColumnsElement] = intValue(2);
  it.elementValues[PropUiQTableCtrl::kColumnLabelsElement] = textsValue({QStringLiteral("Field"), QStringLiteral("Value")});
  return item;
}

QStringList shown(PropUiQTableCtrl& table)
{
  QStringList texts;
  PropUiQStringTableModel* model = table.tableModel();
  for (int r = 0; r < model->rowCount(); ++r)
    for (int c = 0; c < model->columnCount(); ++c)
      texts << model->index(r, c).data().toString();
  return texts;
}

} // namespace

class TestTableCtrl : public QObject
{
  Q_OBJECT

private slots:
  // A refresh hands the view new labels only: labels that changed, or came or went, must show.
  void cellsAndLabelsFromTheBag()
  {
    RecordingBag bag;
    const int item = addTitleBlock(bag);
    QScopedPointer<PropUiQTableCtrl> table(boundControl<PropUiQTableCtrl>(bag, item));
    PropUiQStringTableModel* model = table->tableModel();
    QAbstractItemModelTester tester(model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    QSignalSpy announced(model, &QAbstractItemModel::headerDataChanged);
    QCOMPARE(model->rowCount(), 2);
    QCOMPARE(shown(*table), (QStringList{"Title", "Plan", "Scale", "1:50"}));
    QCOMPARE(model->headerData(1, Qt::Horizontal).toString(), QStringLiteral("Value"));
    QVERIFY(!model->headerData(0, Qt::Vertical).isValid());
    QVERIFY(table->tableView()->editTriggers() != QAbstractItemView::NoEditTriggers);

    RecordingBag::Item& it = bag.item(item);
    it.elementValues[PropUiQTableCtrl::kColumnLabelsElement] = textsValue({QStringLiteral("Key"), QStringLiteral("Text")});
    it.elementValues[PropUiQTableCtrl::kRowLabelsElement] = textsValue({QStringLiteral("1"), QStringLiteral("2")});
    table->updateData();
    QCOMPARE(model->headerData(1, Qt::Horizontal).toString(), QStringLiteral("Text"));
    QCOMPARE(model->headerData(1, Qt::Vertical).toString(), QStringLiteral("2"));
    QVERIFY(!announced.isEmpty());

    it.elementValues.remove(PropUiQTableCtrl::kRowLabelsElement);
    table->updateData();
    QVERIFY(!model->headerData(0, Qt::Vertical).isValid());
    QCOMPARE(model->headerData(0, Qt::Horizontal).toString(), QStringLiteral("Key"));
  }

  void shapes_data()
  {
    QTest::addColumn<PropVariant>("rows");
    QTest::addColumn<PropVariant>("columns");
    QTest::addColumn<int>("shownRows");
    QTest::addColumn<int>("shownColumns");
    QTest::newRow("no shape: one column") << PropVariant() << PropVariant() << 4 << 1;
    QTest::newRow("more cells named than held") << intValue(3) << intValue(2) << 3 << 2;
    QTest::newRow("negative") << intValue(-1) << intValue(2) << 0 << 0;
    QTest::newRow("too big to show") << intValue(100000) << intValue(100000) << 0 << 0;
    QTest::newRow("a shape that is text") << textValue(QStringLiteral("2")) << intValue(2) << 4 << 1;
  }

  void shapes()
  {
    QFETCH(PropVariant, rows);
    QFETCH(PropVariant, columns);
    QFETCH(int, shownRows);
    QFETCH(int, shownColumns);
    RecordingBag bag;
    const int item = addTitleBlock(bag);
    RecordingBag::Item& it = bag.item(item);
    it.elementValues.remove(PropUiQTableCtrl::kRowsElement);
    it.elementValues.remove(PropUiQTableCtrl::kColumnsElement);
    if (!rows.isVoid())
      it.elementValues[PropUiQTableCtrl::kRowsElement] = rows;
    if (!columns.isVoid())
      it.elementValues[PropUiQTableCtrl::kColumnsElement] = columns;
    QScopedPointer<PropUiQTableCtrl> table(boundControl<PropUiQTableCtrl>(bag, item));
    QCOMPARE(table->tableModel()->rowCount(), shownRows);
    QCOMPARE(table->tableModel()->columnCount(), shownColumns);
  }

  void aCellEdit_data()
  {
    QTest::addColumn<QString>("bag");
    QTest::addColumn<QString>("cell");
    QTest::addColumn<QStringList>("written");
    QTest::addColumn<int>("writes");
    QTest::newRow("accepted") << "" << "Section" << QStringList{"Title", "Section", "Scale", "1:50"} << 1;
    QTest::newRow("trimmed") << "" << "  Section " << QStringList{"Title", "Section", "Scale", "1:50"} << 1;
    QTest::newRow("refused") << "refuse" << "Section" << QStringList() << 0;
    QTest::newRow("not parsed") << "parse" << "Section" << QStringList() << 0;
    QTest::newRow("write fails") << "fail" << "Section" << QStringList() << 1;
    QTest::newRow("unchanged") << "" << "Plan" << QStringList() << 0;
  }

  void aCellEdit()
  {
    QFETCH(QString, bag);
    QFETCH(QString, cell);
    QFETCH(QStringList, written);
    QFETCH(int, writes);
    MessageCatcher messages;
    RecordingBag titles;
    const int item = addTitleBlock(titles);
    RecordingBag::Item& it = titles.item(item);
    it.acceptValidate = bag != QLatin1String("refuse");
    it.acceptWrite = bag != QLatin1String("fail");
    if (bag == QLatin1String("parse"))
      titles.parse = [](int, const OdString&, PropVariant&) { return false; };
    QScopedPointer<PropUiQTableCtrl> table(boundControl<PropUiQTableCtrl>(titles, item));
    titles.clearCalls();
    // As the view's editor does when the user commits the cell.
    table->tableModel()->setData(table->tableModel()->index(0, 1), cell);
    QCOMPARE(titles.count(QStringLiteral("setValue")), writes);
    if (written.isEmpty())
    {
      QCOMPARE(shown(*table), (QStringList{"Title", "Plan", "Scale", "1:50"}));
    }
    else
    {
      QCOMPARE(stringsOf(titles.written.last()), written);
      QCOMPARE(shown(*table), written);
      QCOMPARE(titles.calls.filter(QStringLiteral("parseValue")), QStringList{QStringLiteral("parseValue(0,1)")});
    }
    QVERIFY(!titles.called(QStringLiteral("setElementValue")));
  }

  void variesAndReadOnlyCannotBeEdited()
  {
    RecordingBag bag;
    const int item = addTitleBlock(bag);
    bag.item(item).value.setVaries();
    QScopedPointer<PropUiQTableCtrl> table(boundControl<PropUiQTableCtrl>(bag, item));
    QVERIFY(table->isVaries());
    QCOMPARE(shown(*table), QStringList{QStringLiteral("*varies*")});
    QCOMPARE(table->tableView()->editTriggers(), QAbstractItemView::NoEditTriggers);
    bag.clearCalls();
    QVERIFY(!table->applyCell(table->tableModel()->index(0, 0)));
    QVERIFY(!bag.called(QStringLiteral("setValue")));

    // Once the objects agree, the table shows and can be edited; the varying cells follow the shape.
    bag.item(item).value.setVaries(false);
    table->updateData();
    QVERIFY(!table->isVaries());
    QVERIFY(table->tableView()->editTriggers() != QAbstractItemView::NoEditTriggers);
    bag.item(item).value.setVaries();
    table->updateData();
    QCOMPARE(shown(*table), (QStringList{"*varies*", "*varies*", "*varies*", "*varies*"}));

    bag.item(item).value.setVaries(false);
    bag.item(item).editable = false;
    table->updateData();
    table->updateUi();
    QCOMPARE(table->tableView()->editTriggers(), QAbstractItemView::NoEditTriggers);
  }
};

QTEST_MAIN(TestTableCtrl)
#include "tst_TableCtrl.moc"

#include "PropGrid.h"
#include "RecordingBag.h"
#include "RunningModule.h"
#include "TestValues.h"
#include <QImage>
#include <QPainter>
#include <QtTest>
#include <functional>

namespace
{

QStringList logged;
QtMessageHandler previousHandler = nullptr;

void catchLibraryWarnings(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
  if (context.category && QByteArray(context.category) == "propwidgets")
    logged.append(text);
  else
    previousHandler(type, context, text);
}

/** A grid whose pieces the test wires by hand, mistakes included. */
struct HandWiredGrid
{
  HandWiredGrid()
  {
    bag.addItem(QStringLiteral("Radius"), realValue(2.5));
    bag.addItem(QStringLiteral("Name"), textValue(QStringLiteral("Wheel")));
    model = hostCreatePropUiItemModel(&group, &owner);
    delegate = hostCreatePropUiItemDelegate(&group, &owner);
    formatter = propUiCreateStandardFormatter(&owner);
  }

  /** Everything a view of the grid asks for, twice over. */
  void show()
  {
    view.setModel(model);
    view.setItemDelegate(delegate);
    view.show();
    QCoreApplication::processEvents();
    QImage image(200, 20, QImage::Format_ARGB32);
    QPainter painter(&image);
    for (int pass = 0; pass < 2; ++pass)
      for (int row = 0; row < model->rowCount(); ++row)
      {
        model->index(row, 1).data();
        QStyleOptionViewItem option;
        option.rect = image.rect();
        delegate->paint(&painter, option, model->index(row, 1));
      }
    QCoreApplication::processEvents();
  }

  QObject owner;
  RecordingBag bag;
  TestMvcGroup group;
  QAbstractItemModel* model = nullptr;
  QAbstractItemDelegate* delegate = nullptr;
  PropUiQStandardFormatter* formatter = nullptr;
  QTreeView view;
};

} // namespace

Q_DECLARE_METATYPE(std::function<void(HandWiredGrid&)>)

class TestGridDiagnostics : public QObject
{
  Q_OBJECT

  RunningModule module;

private slots:
  void init()
  {
    logged.clear();
    previousHandler = qInstallMessageHandler(catchLibraryWarnings);
  }
  void cleanup() { qInstallMessageHandler(previousHandler); }

  // Each mistake is told once in a process, so the rows run in this order: the right wiring first.
  void aGridThatShowsNothingSaysWhyOnce_data()
  {
    QTest::addColumn<std::function<void(HandWiredGrid&)>>("wire");
    QTest::addColumn<QString>("advice");
    QTest::newRow("wired as the README shows") << std::function<void(HandWiredGrid&)>([](HandWiredGrid& g) {
      g.formatter->setPropBag(&g.bag);
      g.group.setFormatter(g.formatter);
      g.group.setPropBag(&g.bag);
    }) << QString();
    QTest::newRow("formatter without a bag") << std::function<void(HandWiredGrid&)>([](HandWiredGrid& g) {
      g.group.setFormatter(g.formatter);
      g.group.setPropBag(&g.bag);
    }) << "call setPropBag on the formatter too";
    QTest::newRow("group that keeps nothing") << std::function<void(HandWiredGrid&)>([](HandWiredGrid& g) {
      g.group.interfaces.clear();
      g.group.setFormatter(g.formatter);
      g.group.setPropBag(&g.bag);
    }) << "never given a bag";
    QTest::newRow("no formatter") << std::function<void(HandWiredGrid&)>([](HandWiredGrid& g) {
      g.group.setPropBag(&g.bag);
    }) << "no formatter";
    QTest::newRow("delegate left out") << std::function<void(HandWiredGrid&)>([](HandWiredGrid& g) {
      g.formatter->setPropBag(&g.bag);
      g.group.interfaces.removeAll(dynamic_cast<PropUiQtMVCInterface*>(g.delegate));
      g.group.setFormatter(g.formatter);
      g.group.setPropBag(&g.bag);
    }) << "forward the bag to the delegate";
    QTest::newRow("bag reads nothing") << std::function<void(HandWiredGrid&)>([](HandWiredGrid& g) {
      g.bag.item(0).readable = false;
      g.bag.item(1).readable = false;
      g.formatter->setPropBag(&g.bag);
      g.group.setFormatter(g.formatter);
      g.group.setPropBag(&g.bag);
    }) << "answered false to getValue for every item";
  }
  void aGridThatShowsNothingSaysWhyOnce()
  {
    QFETCH(std::function<void(HandWiredGrid&)>, wire);
    QFETCH(QString, advice);
    HandWiredGrid grid;
    wire(grid);
    grid.show();
    if (advice.isEmpty())
    {
      QCOMPARE(logged, QStringList());
      return;
    }
    QCOMPARE(logged.size(), 1);
    QVERIFY2(logged.first().contains(advice), qPrintable(logged.first()));
  }
};

QTEST_MAIN(TestGridDiagnostics)
#include "tst_GridDiagnostics.moc"

#include "PropGrid.h"
#include "RecordingBag.h"
#include "RunningModule.h"
#include "TestValues.h"
#include <QImage>
#include <QPainter>
#include <QtTest>

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

enum Mistake
{
  None,
  FormatterWithoutBag,
  GroupKeepsNothing,
  NoFormatter,
  DelegateLeftOut,
  BagReadsNothing
};

} // namespace

Q_DECLARE_METATYPE(Mistake)

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
    QTest::addColumn<Mistake>("mistake");
    QTest::addColumn<QString>("advice");
    QTest::newRow("wired as the README shows") << None << QString();
    QTest::newRow("formatter without a bag") << FormatterWithoutBag << "call setPropBag on the formatter too";
    QTest::newRow("group that keeps nothing") << GroupKeepsNothing << "never given a bag";
    QTest::newRow("no formatter") << NoFormatter << "no formatter";
    QTest::newRow("delegate left out") << DelegateLeftOut << "forward the bag to the delegate";
    QTest::newRow("bag reads nothing") << BagReadsNothing << "answered false to getValue for every item";
  }
  void aGridThatShowsNothingSaysWhyOnce()
  {
    QFETCH(Mistake, mistake);
    QFETCH(QString, advice);
    // GIVEN a grid wired as the README shows, but for the row's mistake
    HandWiredGrid g;
    if (mistake == GroupKeepsNothing)
      g.group.interfaces.clear();
    if (mistake == DelegateLeftOut)
      g.group.interfaces.removeAll(dynamic_cast<PropUiQtMVCInterface*>(g.delegate));
    if (mistake == BagReadsNothing)
    {
      g.bag.item(0).readable = false;
      g.bag.item(1).readable = false;
    }
    if (mistake == None || mistake == DelegateLeftOut || mistake == BagReadsNothing)
      g.formatter->setPropBag(&g.bag);
    if (mistake != NoFormatter)
      g.group.setFormatter(g.formatter);
    g.group.setPropBag(&g.bag);

    // WHEN a view shows it
    g.show();

    // THEN the library says why it shows nothing, once, and nothing when wired right
    QVERIFY2(logged.size() == (advice.isEmpty() ? 0 : 1), qPrintable(logged.join(QLatin1Char('\n'))));
    QVERIFY(advice.isEmpty() || logged.first().contains(advice));
  }
};

QTEST_MAIN(TestGridDiagnostics)
#include "tst_GridDiagnostics.moc"

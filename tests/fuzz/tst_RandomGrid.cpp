// A property grid as a host builds it (item model, flat table, standard
// delegate, a sorting proxy, a real QTreeView) over a bag whose every answer
// is random and whose item count changes without notice, driven by a host
// that rebinds and notifies at any moment and a user who scrolls, expands,
// sorts and edits. Qt's model tester watches every model. PROP_FUZZ_SEED and
// PROP_FUZZ_OPS replay or lengthen a run, as for the random bag.

#include "FuzzHost.h"
#include "MessageCatcher.h"
#include "RunningModule.h"
#include "PropUiQStandardFormatter.h"
#include "PropUiQtMVCFactories.h"
#include "TestMvcGroup.h"
#include <QAbstractItemModelTester>
#include <QHeaderView>
#include <QLoggingCategory>
#include <QScrollBar>
#include <QSortFilterProxyModel>
#include <QTreeView>
#include <memory>

namespace
{

/**
 * The random bag with an item count that the host changes behind the grid's
 * back, and any registered editor. What it reads out stays the same until
 * the host changes the data (a new generation), as a drawing's properties
 * do: a sort that compares one row twice must get one answer, and a model
 * cannot keep its rows' captions still under Qt's model tester otherwise.
 */
class GridBag : public RandomBag
{
public:
  GridBag(unsigned int seed, const std::vector<OdGUID>& kinds)
    : RandomBag(seed), m_seed(seed), m_kinds(kinds)
  {
  }

  int getItemCount() override { return count; }
  bool getName(int index, OdString& name) override
  {
    Dice stable(stableSeed(unsigned(index), 1));
    name = toOdString(stable.text());
    return stable.chance(0.9);
  }
  unsigned int getElements(int index, PropKeyArray& elements, OdStringArray& captions) override
  {
    elements.clear();
    captions.clear();
    Dice stable(stableSeed(unsigned(index), 2));
    const int listed = stable.chance(0.6) ? 0 : stable.below(6);
    for (int i = 0; i < listed; ++i)
    {
      elements.append(stable.chance(0.8) ? unsigned(i) : stable.word());
      captions.append(toOdString(stable.text()));
    }
    // Now and then a count that disagrees with the list.
    return stable.chance(0.8) ? unsigned(listed) : unsigned(stable.integer());
  }

  // What a cell shows follows from the generation and the question: a drawing attribute's text
  // from its control's kind and the drawing of the context too.
  OdGUID getControlGuid(int index) override
  {
    Dice stable(stableSeed(unsigned(index), 12));
    return stable.chance(0.9) ? stable.pick(m_kinds) : OdGUID();
  }

  int count = 0;
  unsigned int generation = 0;

private:
  unsigned int stableSeed(unsigned int where, unsigned int question) const
  {
    return m_seed * 31u + generation * 1000003u + question * 7919u + where;
  }

  /** What a view reads, again and again, is stable; what the grid writes, validates or runs is not. */
  void asking(const char* what, int index, unsigned long element) override
  {
    static const QByteArrayList stable = {"getItemType",     "isEditable",   "getFlags",     "getValue",    "formatValue",
                                          "getElementValue", "getValueList", "getListValue", "getListText", "getContext"};
    const int question = int(stable.indexOf(what));
    if (question >= 0)
      reseed(stableSeed(unsigned(index) + unsigned(element) * 7u, unsigned(question) + 13u));
  }

  unsigned int m_seed;
  const std::vector<OdGUID>& m_kinds;
};

QStringList g_modelFaults;

void collectModelFaults(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
  if (type != QtDebugMsg && type != QtInfoMsg && QLatin1String(context.category) == QLatin1String("qt.modeltest"))
    g_modelFaults << text;
}

/** The grid, its models and the operations on it. */
class Grid
{
public:
  Grid(unsigned int seed, const std::vector<OdGUID>& kinds) : m_dice(seed), m_kinds(kinds)
  {
    m_formatter = propUiCreateStandardFormatter(&m_view);
    m_tree = hostCreatePropUiItemModel(&m_group, &m_view);
    m_table = hostCreatePropUiTableModel(&m_group, &m_view);
    m_sorted.setSourceModel(m_tree);
    for (QAbstractItemModel* model : {m_tree, m_table, static_cast<QAbstractItemModel*>(&m_sorted)})
      m_testers.push_back(std::make_unique<QAbstractItemModelTester>(
        model, QAbstractItemModelTester::FailureReportingMode::Warning));
    m_view.setItemDelegate(hostCreatePropUiItemDelegate(&m_group, &m_view));
    m_view.setModel(m_tree);
    m_group.setFormatter(m_formatter);
    m_view.resize(400, 300);
  }

  ~Grid()
  {
    // The view's editors go before the bags they edit.
    m_view.setModel(nullptr);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }

  bool showActive()
  {
    m_view.show();
    m_view.activateWindow();
    return QTest::qWaitForWindowActive(&m_view);
  }

  void runOne()
  {
    struct Op
    {
      const char* name;
      void (Grid::*run)();
    };
    static const std::vector<Op> ops = {
      {"bind", &Grid::bind},       {"recount", &Grid::recount}, {"notify", &Grid::notify}, {"notify", &Grid::notify},
      {"scroll", &Grid::scroll},   {"expand", &Grid::expand},   {"sort", &Grid::sort},     {"swap", &Grid::swap},
      {"current", &Grid::current}, {"current", &Grid::current}, {"edit", &Grid::edit},     {"key", &Grid::key},
      {"key", &Grid::key},         {"type", &Grid::type},       {"type", &Grid::type},     {"click", &Grid::click},
      {"events", &Grid::events}};
    const Op& op = m_dice.pick(ops);
    if (m_printTrace)
      fprintf(stderr, "%s\n", op.name);
    m_trace << QLatin1String(op.name);
    if (m_trace.size() > 20)
      m_trace.removeFirst();
    try
    {
      (this->*op.run)();
    }
    catch (const OdError& e)
    {
      m_faults << QStringLiteral("OdError %1 out of %2").arg(int(e.code())).arg(QLatin1String(op.name));
    }
    catch (const std::exception& e)
    {
      m_faults << QStringLiteral("%1 out of %2").arg(QLatin1String(e.what()), QLatin1String(op.name));
    }
    catch (...)
    {
      m_faults << QStringLiteral("an exception out of %1").arg(QLatin1String(op.name));
    }
  }

  /** The last operations, for the report of a failure. */
  QString recentTrace() const { return m_trace.join(QLatin1Char(' ')); }

  QStringList faults() const
  {
    QStringList all = application()->escaped + g_modelFaults + m_faults;
    for (const auto& bag : m_bags)
      all += bag->faults;
    return all;
  }

private:
  // The host: a new bag, or the same one again, possibly while a cell is being edited.
  void bind()
  {
    if (m_bags.empty() || m_dice.chance(0.3))
    {
      m_bags.push_back(std::make_unique<GridBag>(m_dice.word(), m_kinds));
      m_bags.back()->count = m_dice.below(20);
    }
    GridBag* bag = m_dice.pick(m_bags).get();
    m_formatter->setPropBag(bag);
    m_group.setPropBag(m_dice.chance(0.05) ? nullptr : bag);
  }

  /** Items and their elements come and go with no word to the grid; the host may or may not say so later. */
  void recount()
  {
    if (m_bags.empty())
      return;
    GridBag* bag = m_dice.pick(m_bags).get();
    bag->count = m_dice.chance(0.1) ? -m_dice.below(3) : m_dice.below(40);
    ++bag->generation;
  }

  void notify() { m_group.itemChanged(m_dice.chance(0.3) ? -1 : int(m_dice.integer() % 50)); }

  void scroll()
  {
    QScrollBar* bar = m_dice.chance(0.8) ? m_view.verticalScrollBar() : m_view.horizontalScrollBar();
    bar->setValue(bar->minimum() + m_dice.below(bar->maximum() - bar->minimum() + 1));
  }

  void expand()
  {
    switch (m_dice.below(4))
    {
    case 0: m_view.expandAll(); break;
    case 1: m_view.collapseAll(); break;
    default:
    {
      const QModelIndex index = anyIndex();
      m_view.setExpanded(index, !m_view.isExpanded(index));
    }
    }
  }

  void sort()
  {
    if (m_view.model() != &m_sorted)
      return;
    m_view.setSortingEnabled(true);
    m_view.sortByColumn(m_dice.below(2), m_dice.chance(0.5) ? Qt::AscendingOrder : Qt::DescendingOrder);
    if (m_dice.chance(0.3))
      m_sorted.setFilterFixedString(m_dice.chance(0.5) ? QString() : QString(QChar(u'a' + m_dice.below(26))));
  }

  /** The tree, the flat table, or the tree sorted and filtered. */
  void swap()
  {
    QAbstractItemModel* models[] = {m_tree, m_table, &m_sorted};
    m_view.setSortingEnabled(false);
    m_view.setModel(models[m_dice.below(3)]);
  }

  void current() { m_view.setCurrentIndex(anyIndex()); }

  void edit()
  {
    const QModelIndex index = anyIndex();
    if (index.isValid())
      m_view.edit(index);
  }

  void key()
  {
    static const std::vector<Qt::Key> keys = {Qt::Key_F2,  Qt::Key_Return,  Qt::Key_Enter, Qt::Key_Escape,
                                              Qt::Key_Tab, Qt::Key_Backtab, Qt::Key_Up,    Qt::Key_Down,
                                              Qt::Key_Left, Qt::Key_Right,  Qt::Key_Space, Qt::Key_Delete};
    QWidget* target = QApplication::focusWidget() ? QApplication::focusWidget() : &m_view;
    QTest::keyClick(target, m_dice.pick(keys));
  }

  void type()
  {
    QPointer<QWidget> target = QApplication::focusWidget() ? QApplication::focusWidget() : &m_view;
    for (QChar c : m_dice.text().left(8))
      if (target && c.unicode() < 0x7f && c.isPrint())
        QTest::keyClick(target, char(c.unicode()));
  }

  void click()
  {
    QWidget* viewport = m_view.viewport();
    const QPoint at(m_dice.below(viewport->width()), m_dice.below(viewport->height()));
    if (m_dice.chance(0.5))
      QTest::mouseClick(viewport, Qt::LeftButton, Qt::NoModifier, at);
    else
      QTest::mouseDClick(viewport, Qt::LeftButton, Qt::NoModifier, at);
  }

  void events()
  {
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }

  /** Any index of the model the view shows, at any depth, or none. */
  QModelIndex anyIndex()
  {
    QAbstractItemModel* model = m_view.model();
    if (!model || m_dice.chance(0.05))
      return QModelIndex();
    QModelIndex index;
    for (int depth = m_dice.below(3); depth >= 0; --depth)
    {
      const int rows = model->rowCount(index);
      if (rows <= 0)
        break;
      index = model->index(m_dice.below(rows), m_dice.below(2), index.sibling(index.row(), 0));
    }
    return index;
  }

  Dice m_dice;
  const std::vector<OdGUID>& m_kinds;
  std::vector<std::unique_ptr<GridBag> > m_bags;
  TestMvcGroup m_group;
  QTreeView m_view;
  PropUiQStandardFormatter* m_formatter = nullptr;
  QAbstractItemModel* m_tree = nullptr;
  QAbstractItemModel* m_table = nullptr;
  QSortFilterProxyModel m_sorted;
  std::vector<std::unique_ptr<QAbstractItemModelTester> > m_testers;
  QStringList m_faults;
  QStringList m_trace;
  const bool m_printTrace = qEnvironmentVariableIntValue("PROP_FUZZ_TRACE") != 0;
};

} // namespace

class TestRandomGrid : public QObject
{
  Q_OBJECT
  RunningModule module;

private slots:
  void initTestCase() { QLocale::setDefault(QLocale::c()); }

  void gridSurvivesRandomAnswersAndUsers()
  {
    // GIVEN a grid over random bags, every registered editor, a seed and a count
    const std::vector<OdGUID> kinds = registeredKinds();
    QVERIFY(!kinds.empty());
    const FuzzRun run(20261125u, 5000);
    const unsigned int seed = run.seed;
    MessageCatcher messages;
    ModalAnswerer user(seed ^ 0x9e3779b9u);
    const QtMessageHandler previous = qInstallMessageHandler(collectModelFaults);
    QStringList faults;
    {
      Grid grid(seed, kinds);
      QVERIFY(grid.showActive());

      // WHEN the host and the user do anything, in any order
      for (int i = 0; i < run.operations && faults.isEmpty(); ++i)
      {
        grid.runOne();
        faults = grid.faults();
        if (!faults.isEmpty())
          faults.prepend(QStringLiteral("PROP_FUZZ_SEED=%1 failed at operation %2, after %3:")
                           .arg(seed)
                           .arg(i)
                           .arg(grid.recentTrace()));
      }
    }
    qInstallMessageHandler(previous);

    // THEN no exception crossed the event loop, no model broke its rules and nothing was written after a refusal
    QVERIFY2(faults.isEmpty(), qPrintable(faults.mid(0, 10).join(QLatin1Char('\n'))));
    qInfo("%d messages shown", int(messages.shown.size()));
  }
};

int main(int argc, char** argv)
{
  CatchingApplication app(argc, argv);
  TestRandomGrid test;
  QTEST_SET_MAIN_SOURCE_PATH
  return QTest::qExec(&test, argc, argv);
}

#include "tst_RandomGrid.moc"

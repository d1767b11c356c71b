// How a property grid (the library's item model and standard delegate over a
// bag) compares with a plain QTreeView over a trivial lazy model of the same
// rows: populate + first paint, a scroll through the whole tree one row at a
// time, and peak memory growth, as ratios; and how our costs grow from 10,000
// to 100,000 items.
//
//   bench_grid [ROUNDS]   (default 3; run with QT_QPA_PLATFORM=offscreen)
//
// Every figure comes from a fresh child process, so that one view's heap and
// peak RSS do not leak into the next; children of both kinds alternate and the
// median of the rounds is reported. Times are process CPU time, which a shared
// machine disturbs far less than wall time.

#include "OdStringQt.h"
#include "PropBag.h"
#include "PropItemType.h"
#include "PropUiGuids.h"
#include "PropUiQStandardFormatter.h"
#include "PropUiQtMVCFactories.h"
#include "PropWidgetsEntry.h"
#include "TestMvcGroup.h"
#include <QAbstractItemModel>
#include <QApplication>
#include <QFile>
#include <QProcess>
#include <QScrollBar>
#include <QTest>
#include <QTreeView>
#include <algorithm>
#include <cstdio>
#include <ctime>
#include <memory>
#include <vector>

namespace
{

constexpr int kElementsPerGroup = 3;

bool hasElements(int item)
{
  return item % 7 == 0;
}

class PlainType : public PropItemType
{
public:
  int typeId() const override { return 1; }
  OdString typeName() const override { return OdString("real"); }
  OdGUID editorGuid() const override { return OdGUID(); }
};

/** A host's bag as lean as it gets: a value per item, texts made when asked. */
class NumberBag : public PropBag
{
public:
  explicit NumberBag(int items) : m_values(std::size_t(items))
  {
    for (int i = 0; i < items; ++i)
      m_values[std::size_t(i)] = 1.25 + i;
  }
  int getItemCount() override { return int(m_values.size()); }
  PropItemType* getItemType(int) override { return &m_type; }
  bool getName(int index, OdString& name) override
  {
    name = toOdString(QStringLiteral("Item %1").arg(index));
    return true;
  }
  OdGUID getControlGuid(int) override { return PropUiGuidDouble; }
  bool getValue(int index, PropVariant& value) override
  {
    value.setDouble(m_values[std::size_t(index)]);
    return true;
  }
  bool setValue(int index, const PropVariant& value) override
  {
    m_values[std::size_t(index)] = value.getDouble();
    return true;
  }
  bool formatValue(int, unsigned long, const PropVariant& value, OdString& text) override
  {
    text = toOdString(QString::number(value.getDouble(), 'f', 2));
    return true;
  }
  unsigned int getElements(int index, PropKeyArray& elements, OdStringArray& captions) override
  {
    if (!hasElements(index))
      return 0;
    static const char* const names[kElementsPerGroup] = {"X", "Y", "Z"};
    for (unsigned long e = 0; e < kElementsPerGroup; ++e)
    {
      elements.append(e);
      captions.append(OdString(names[e]));
    }
    return kElementsPerGroup;
  }
  bool getElementValue(int index, unsigned long element, PropVariant& value) override
  {
    value.setDouble(m_values[std::size_t(index)] + double(element));
    return true;
  }
  int getElementCount(int index) override { return hasElements(index) ? kElementsPerGroup : 0; }

private:
  std::vector<double> m_values;
  PlainType m_type;
};

/** The baseline: the same rows and texts, made on demand, with nothing behind them. */
class LazyModel : public QAbstractItemModel
{
public:
  explicit LazyModel(int items) : m_items(items) {}

  QModelIndex index(int row, int column, const QModelIndex& parent) const override
  {
    if (row < 0 || column < 0 || column > 1)
      return QModelIndex();
    if (!parent.isValid())
      return row < m_items ? createIndex(row, column, quintptr(0)) : QModelIndex();
    if (parent.internalId() != 0 || row >= rowCount(parent))
      return QModelIndex();
    return createIndex(row, column, quintptr(parent.row() + 1));
  }
  QModelIndex parent(const QModelIndex& child) const override
  {
    if (!child.isValid() || child.internalId() == 0)
      return QModelIndex();
    return createIndex(int(child.internalId() - 1), 0, quintptr(0));
  }
  int rowCount(const QModelIndex& parent) const override
  {
    if (!parent.isValid())
      return m_items;
    return parent.internalId() == 0 && parent.column() == 0 && hasElements(parent.row()) ? kElementsPerGroup : 0;
  }
  int columnCount(const QModelIndex&) const override { return 2; }
  QVariant data(const QModelIndex& index, int role) const override
  {
    if (role != Qt::DisplayRole || !index.isValid())
      return QVariant();
    const bool element = index.internalId() != 0;
    const int item = element ? int(index.internalId() - 1) : index.row();
    if (index.column() == 0)
      return element ? QString(QChar(u'X' + index.row())) : QStringLiteral("Item %1").arg(item);
    return QString::number(1.25 + item + (element ? index.row() : 0), 'f', 2);
  }
  Qt::ItemFlags flags(const QModelIndex& index) const override
  {
    Qt::ItemFlags result = QAbstractItemModel::flags(index);
    return index.column() == 1 ? result | Qt::ItemIsEditable : result;
  }

private:
  int m_items;
};

double cpuMs()
{
  timespec now{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
  return now.tv_sec * 1e3 + now.tv_nsec / 1e6;
}

long statusKiB(const char* field)
{
  QFile status(QStringLiteral("/proc/self/status"));
  if (!status.open(QIODevice::ReadOnly))
    return 0;
  const QByteArray key(field);
  for (const QByteArray& line : status.readAll().split('\n'))
    if (line.startsWith(key))
      return line.mid(key.size()).trimmed().split(' ').value(0).toLong();
  return 0;
}

/** Lets the next peak reading start from the present resident size. */
void resetPeakRss()
{
  QFile clearRefs(QStringLiteral("/proc/self/clear_refs"));
  if (clearRefs.open(QIODevice::WriteOnly))
    clearRefs.write("5");
}

struct Figures
{
  double populateMs = 0;
  double scrollMs = 0;
  double rssKiB = 0;
  int scrolledRows = 0;
};

/** One grid of one kind: built, painted, scrolled to the end and measured. */
Figures measureOnce(bool ours, int items)
{
  odrxCreateModuleObject()->initApp();
  std::unique_ptr<NumberBag> bag(ours ? new NumberBag(items) : nullptr);
  TestMvcGroup group;
  const long residentBefore = statusKiB("VmRSS:");
  resetPeakRss();

  Figures figures;
  const double startPopulate = cpuMs();
  auto view = std::make_unique<QTreeView>();
  view->resize(480, 640);
  if (ours)
  {
    PropUiQStandardFormatter* formatter = propUiCreateStandardFormatter(view.get());
    formatter->setPropBag(bag.get());
    view->setModel(hostCreatePropUiItemModel(&group, view.get()));
    view->setItemDelegate(hostCreatePropUiItemDelegate(&group, view.get()));
    group.setFormatter(formatter);
    group.setPropBag(bag.get());
  }
  else
  {
    view->setModel(new LazyModel(items));
  }
  view->expandAll();
  const QPixmap firstPaint = view->grab();
  figures.populateMs = cpuMs() - startPopulate;

  view->show();
  if (!QTest::qWaitForWindowExposed(view.get()))
    return figures;
  QApplication::processEvents();
  QScrollBar* bar = view->verticalScrollBar();
  const double startScroll = cpuMs();
  for (int value = bar->minimum() + 1; value <= bar->maximum(); ++value)
  {
    bar->setValue(value);
    QApplication::processEvents();
  }
  figures.scrollMs = cpuMs() - startScroll;
  figures.scrolledRows = bar->maximum() - bar->minimum();
  figures.rssKiB = double(statusKiB("VmHWM:") - residentBefore);

  // The model and delegate go with the view; the group must not be used after this.
  view.reset();
  odrxCreateModuleObject()->uninitApp();
  return figures;
}

Figures runChild(const QString& kind, int items)
{
  QProcess child;
  child.start(QCoreApplication::applicationFilePath(),
              {QStringLiteral("--child"), kind, QString::number(items)});
  Figures figures;
  if (!child.waitForFinished(-1) || child.exitCode() != 0)
  {
    std::fprintf(stderr, "child %s %d failed: %s\n", qPrintable(kind), items, child.readAllStandardError().constData());
    return figures;
  }
  const QList<QByteArray> fields = child.readAllStandardOutput().trimmed().split(' ');
  if (fields.size() == 4)
  {
    figures.populateMs = fields[0].toDouble();
    figures.scrollMs = fields[1].toDouble();
    figures.rssKiB = fields[2].toDouble();
    figures.scrolledRows = fields[3].toInt();
  }
  return figures;
}

double median(std::vector<double> values)
{
  std::sort(values.begin(), values.end());
  return values.empty() ? 0 : values[values.size() / 2];
}

struct Medians
{
  double populateMs, scrollMs, rssKiB;
  int scrolledRows;
};

Medians medians(const std::vector<Figures>& runs)
{
  std::vector<double> populate, scroll, rss;
  for (const Figures& f : runs)
  {
    populate.push_back(f.populateMs);
    scroll.push_back(f.scrollMs);
    rss.push_back(f.rssKiB);
  }
  return {median(populate), median(scroll), median(rss), runs.empty() ? 0 : runs.front().scrolledRows};
}

double ratio(double ours, double baseline)
{
  return baseline > 0 ? ours / baseline : 0.0;
}

void report(const char* what, double ours, double baseline, const char* unit, double target)
{
  const double r = ratio(ours, baseline);
  std::printf("  %-26s %11.3f %-6s baseline %11.3f %-6s ratio %5.2f  (target <= %.1f) %s\n", what, ours, unit,
              baseline, unit, r, target, r <= target ? "ok" : "MISSED");
}

} // namespace

int main(int argc, char** argv)
{
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
    qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication app(argc, argv);

  if (argc == 4 && qstrcmp(argv[1], "--child") == 0)
  {
    const Figures f = measureOnce(qstrcmp(argv[2], "ours") == 0, std::max(1, atoi(argv[3])));
    std::printf("%.3f %.3f %.0f %d\n", f.populateMs, f.scrollMs, f.rssKiB, f.scrolledRows);
    return 0;
  }

  const int rounds = argc > 1 ? std::max(1, atoi(argv[1])) : 3;
  const int sizes[] = {10000, 100000};
  Medians oursAt[2] = {};
  for (int s = 0; s < 2; ++s)
  {
    const int items = sizes[s];
    std::vector<Figures> ours, plain;
    for (int round = 0; round < rounds; ++round)
    {
      plain.push_back(runChild(QStringLiteral("plain"), items));
      ours.push_back(runChild(QStringLiteral("ours"), items));
    }
    const Medians o = medians(ours);
    const Medians p = medians(plain);
    oursAt[s] = o;
    std::printf("grid of %d items, every seventh with %d elements, expanded (%d rows scrolled); median of %d\n",
                items, kElementsPerGroup, o.scrolledRows, rounds);
    report("populate + first paint", o.populateMs, p.populateMs, "ms", 1.2);
    report("scroll, per row", 1e3 * o.scrollMs / std::max(1, o.scrolledRows),
           1e3 * p.scrollMs / std::max(1, p.scrolledRows), "us", 1.0);
    report("peak RSS growth", o.rssKiB / 1024.0, p.rssKiB / 1024.0, "MiB", 1.1);
  }
  std::printf("our cost at 100000 / at 10000 (target <= 11.0)\n");
  std::printf("  populate + first paint %5.2f   scroll (whole tree) %5.2f   peak RSS growth %5.2f\n",
              ratio(oursAt[1].populateMs, oursAt[0].populateMs), ratio(oursAt[1].scrollMs, oursAt[0].scrollMs),
              ratio(oursAt[1].rssKiB, oursAt[0].rssKiB));
  return 0;
}

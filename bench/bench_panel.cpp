// How a property panel over a large selection compares with the same panel
// built from plain Qt widgets: build time, refresh time and memory, as ratios.
//
//   bench_panel [ROWS]   (default 2000; run with QT_QPA_PLATFORM=offscreen)

#include "OdStringQt.h"
#include "PropBag.h"
#include "PropUiGuids.h"
#include "PropUiQLabel.h"
#include "PropUiQWidget.h"
#include "PropUiRegistry.h"
#include "PropWidgetsEntry.h"
#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <algorithm>
#include <cstdio>
#include <functional>
#include <unistd.h>
#include <vector>

namespace
{

/** A bag as lean as a host's: a value per item, formatted with two decimals. */
class NumberBag : public PropBag
{
public:
  explicit NumberBag(int rows) : m_values(std::size_t(rows), 1.25) {}
  void setVaries(bool varies) { m_varies = varies; }
  int getItemCount() override { return int(m_values.size()); }
  bool getName(int index, OdString& name) override
  {
    name = toOdString(QStringLiteral("Width %1").arg(index));
    return true;
  }
  bool getValue(int index, PropVariant& value) override
  {
    value.setDouble(m_values[std::size_t(index)] + index);
    if (m_varies)
      value.setVaries(true);
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

private:
  std::vector<double> m_values;
  bool m_varies = false;
};

long residentKiB()
{
  QFile statm(QStringLiteral("/proc/self/statm"));
  if (!statm.open(QIODevice::ReadOnly))
    return 0;
  const QList<QByteArray> fields = statm.readAll().split(' ');
  return fields.size() > 1 ? fields[1].toLong() * (sysconf(_SC_PAGESIZE) / 1024) : 0;
}

/** Median of five runs, in milliseconds. */
double medianMs(const std::function<void()>& run)
{
  std::vector<double> times;
  for (int i = 0; i < 5; ++i)
  {
    QElapsedTimer timer;
    timer.start();
    run();
    times.push_back(timer.nsecsElapsed() / 1e6);
  }
  std::sort(times.begin(), times.end());
  return times[2];
}

void report(const char* what, double ours, double baseline, const char* unit)
{
  std::printf("%-34s %10.2f %s  baseline %10.2f %s  ratio %6.2f\n", what, ours, unit, baseline, unit,
              baseline > 0 ? ours / baseline : 0.0);
}

} // namespace

int main(int argc, char** argv)
{
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
    qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication app(argc, argv);
  const int rows = argc > 1 ? std::max(1, atoi(argv[1])) : 2000;
  odrxCreateModuleObject()->initApp();
  NumberBag bag(rows);

  std::vector<PropUiQWidget*> controls;
  QWidget* ourPanel = nullptr;
  auto buildOurs = [&]() {
    delete ourPanel;
    controls.clear();
    ourPanel = new QWidget;
    auto* grid = new QGridLayout(ourPanel);
    for (int i = 0; i < rows; ++i)
    {
      auto* caption = new PropUiQLabel(ourPanel);
      caption->setPropBagItem(&bag, i);
      caption->setupUi();
      PropUiQWidget* control = propUiCreateWidget(PropUiGuidDouble, 0x40);
      control->setParent(ourPanel);
      control->setPropBagItem(&bag, i);
      control->setupUi();
      control->updateUi();
      control->updateData();
      grid->addWidget(caption, i, 0);
      grid->addWidget(control, i, 1);
      controls.push_back(control);
    }
  };

  std::vector<QLineEdit*> edits;
  QWidget* plainPanel = nullptr;
  auto buildPlain = [&]() {
    delete plainPanel;
    edits.clear();
    plainPanel = new QWidget;
    auto* grid = new QGridLayout(plainPanel);
    for (int i = 0; i < rows; ++i)
    {
      auto* caption = new QLabel(QStringLiteral("Width %1").arg(i), plainPanel);
      auto* edit = new QLineEdit(plainPanel);
      edit->setText(QString::number(1.25 + i, 'f', 2));
      grid->addWidget(caption, i, 0);
      grid->addWidget(edit, i, 1);
      edits.push_back(edit);
    }
  };

  std::printf("panel of %d rows (label + real-number editor)\n", rows);
  const long before = residentKiB();
  buildPlain();
  const long plainKiB = residentKiB() - before;
  const long beforeOurs = residentKiB();
  buildOurs();
  const long oursKiB = residentKiB() - beforeOurs;

  report("build panel", medianMs(buildOurs), medianMs(buildPlain), "ms");
  bool varies = false;
  report("refresh every row (updateData)", medianMs([&]() {
           varies = !varies;
           bag.setVaries(varies);
           for (PropUiQWidget* control : controls)
             control->updateData();
         }),
         medianMs([&]() {
           varies = !varies;
           for (std::size_t i = 0; i < edits.size(); ++i)
             edits[i]->setText(varies ? QString() : QString::number(1.25 + double(i), 'f', 2));
         }),
         "ms");
  report("memory of the panel", oursKiB, plainKiB, "KiB");

  delete ourPanel;
  delete plainPanel;
  odrxCreateModuleObject()->uninitApp();
  return 0;
}

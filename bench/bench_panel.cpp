// A property panel as a host uses it, against the same panel made of the
// plain Qt widgets a hand-written panel would use: build, first paint,
// refresh every row, rebuild for a new selection and teardown, at 200, 2,000
// and 20,000 rows of a caption and a real-number editor, and at 2,000 rows
// cycling through every registered kind. Rows stand in sections of 100. Ratios ours/plain per phase, memory
// per row, and how rebuild and teardown grow with the rows.
//
//   bench_panel [--rounds N] [--callgrind] [--callgrind-rows N]
//        every figure from a fresh child process, median of N rounds (default 3);
//        with --callgrind, instruction counts per phase as well, for panels of
//        at most --callgrind-rows rows (default 2000; 20000 judges the growth
//        on instructions, a few minutes more)
//   bench_panel --child ours|plain numbers|kinds ROWS
//        one measurement, as the parent runs it; prints one line of figures
//
// Run with QT_QPA_PLATFORM=offscreen (the default here).

#include "OdStringQt.h"
#include "PropBag.h"
#include "PropUiGuids.h"
#include "PropUiOptions.h"
#include "PropUiQLabel.h"
#include "PropUiQWidget.h"
#include "PropUiRegistry.h"
#include "PropWidgetsEntry.h"
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QProcess>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QSlider>
#include <QSpinBox>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>
#include <algorithm>
#include <cstdio>
#include <functional>
#include <map>
#include <memory>
#include <valgrind/callgrind.h>
#include <vector>

namespace
{

/** What a bare panel puts in a row for a kind. */
enum class Bare
{
  Nothing,
  Label,
  Line,
  Lines2,
  Lines3,
  Spin,
  Combo,
  Check,
  Buttons,
  RadioButtons,
  ToolButtons,
  Grid3x3,
  Slider,
  Date,
  List,
  Table
};

/** The value an item of a kind holds. */
enum class Value
{
  Real,
  Integer,
  Boolean,
  Text,
  Elements
};

struct Kind
{
  const OdGUID* guid;
  Bare bare;
  Value value;
  int listed; ///< entries in the item's list
};

const std::vector<Kind>& everyKind()
{
  static const std::vector<Kind> kinds = {
    {&PropUiGuidEmpty, Bare::Nothing, Value::Text, 0},
    {&PropUiGuidActionToolButtons, Bare::ToolButtons, Value::Text, 0},
    {&PropUiGuidActionPushButtons, Bare::Buttons, Value::Text, 0},
    {&PropUiGuidLabel, Bare::Label, Value::Text, 0},
    {&PropUiGuidDouble, Bare::Line, Value::Real, 0},
    {&PropUiGuidDistance, Bare::Line, Value::Real, 0},
    {&PropUiGuidAngle, Bare::Line, Value::Real, 0},
    {&PropUiGuidDoubleAlt, Bare::Line, Value::Real, 0},
    {&PropUiGuidText, Bare::Line, Value::Text, 0},
    {&PropUiGuidInteger, Bare::Spin, Value::Integer, 0},
    {&PropUiGuidTextCombo, Bare::Combo, Value::Text, 3},
    {&PropUiGuidLayer, Bare::Combo, Value::Text, 3},
    {&PropUiGuidColor, Bare::Combo, Value::Text, 3},
    {&PropUiGuidLinetype, Bare::Combo, Value::Text, 3},
    {&PropUiGuidLineweight, Bare::Combo, Value::Text, 3},
    {&PropUiGuidArrowhead, Bare::Combo, Value::Text, 3},
    {&PropUiGuidCoords2d, Bare::Lines2, Value::Elements, 0},
    {&PropUiGuidCoords2dAlt, Bare::Lines2, Value::Elements, 0},
    {&PropUiGuidScale2d, Bare::Lines2, Value::Real, 0},
    {&PropUiGuidCoords3d, Bare::Lines3, Value::Elements, 0},
    {&PropUiGuidCoords3dAlt, Bare::Lines3, Value::Elements, 0},
    {&PropUiGuidBool, Bare::Check, Value::Boolean, 0},
    {&PropUiGuidBoolText, Bare::Check, Value::Boolean, 1},
    {&PropUiGuidSwitch, Bare::Check, Value::Boolean, 0},
    {&PropUiGuidTextSwitch, Bare::Check, Value::Boolean, 1},
    {&PropUiGuidVariant, Bare::Combo, Value::Text, 3},
    {&PropUiGuidList, Bare::List, Value::Elements, 0},
    {&PropUiGuidTable, Bare::Table, Value::Text, 0},
    {&PropUiGuidPushButtons, Bare::Buttons, Value::Integer, 3},
    {&PropUiGuidToolButtons, Bare::ToolButtons, Value::Integer, 3},
    {&PropUiGuidRadioButtons, Bare::RadioButtons, Value::Integer, 3},
    {&PropUiGuidButtons3x3, Bare::Grid3x3, Value::Integer, 9},
    {&PropUiGuidSlider, Bare::Slider, Value::Integer, 0},
    {&PropUiGuidMultiTextCombo, Bare::Combo, Value::Text, 3},
    {&PropUiGuidDate, Bare::Date, Value::Text, 0},
  };
  return kinds;
}

const Kind& numberKind()
{
  static const Kind kind = {&PropUiGuidDouble, Bare::Line, Value::Real, 0};
  return kind;
}

/**
 * A bag as lean as a host's: one number per item, the value of any kind made
 * from it when asked, texts formatted when asked. A new selection shifts the
 * numbers; a changed drawing moves them by one.
 */
class PanelBag : public PropBag
{
public:
  PanelBag(int rows, bool everyKind) : m_rows(rows), m_everyKind(everyKind) {}
  const Kind& kindOf(int index) const
  {
    return m_everyKind ? everyKind()[std::size_t(index) % everyKind().size()] : numberKind();
  }
  void change() { ++m_generation; }

  int getItemCount() override { return m_rows; }
  bool getName(int index, OdString& name) override
  {
    name = toOdString(QStringLiteral("Width %1").arg(index));
    return true;
  }
  OdGUID getControlGuid(int index) override { return *kindOf(index).guid; }
  bool getValue(int index, PropVariant& value) override
  {
    const int number = index + m_generation;
    switch (kindOf(index).value)
    {
    case Value::Real:
    case Value::Elements:
      value.setDouble(1.25 + number);
      break;
    case Value::Integer:
      value.setInt32(number % 9);
      break;
    case Value::Boolean:
      value.setBool(number % 2 != 0);
      break;
    case Value::Text:
      value.setString(toOdString(QStringLiteral("Entry %1").arg(number % 3)));
      break;
    }
    return true;
  }
  bool setValue(int, const PropVariant&) override { return true; }
  bool formatValue(int, unsigned long, const PropVariant& value, OdString& text) override
  {
    if (value.scalarType() == PropVariant::kDouble)
      text = toOdString(QString::number(value.getDouble(), 'f', 2));
    else if (value.scalarType() == PropVariant::kInt32)
      text = toOdString(QStringLiteral("Entry %1").arg(value.getInt32()));
    else if (value.scalarType() == PropVariant::kString)
      text = value.getString();
    else
      return false;
    return true;
  }
  bool getValueList(int index, OdStringArray& names, PropKeyArray& keys) override
  {
    const int listed = kindOf(index).listed;
    for (int i = 0; i < listed; ++i)
    {
      names.push_back(toOdString(QStringLiteral("Entry %1").arg(i)));
      keys.push_back(static_cast<unsigned long>(i));
    }
    return listed > 0;
  }
  bool getListValue(int index, unsigned long key, PropVariant& value) override
  {
    if (kindOf(index).value == Value::Text)
      value.setString(toOdString(QStringLiteral("Entry %1").arg(key)));
    else
      value.setInt32(int(key));
    return true;
  }
  unsigned int getElements(int index, PropKeyArray& elements, OdStringArray& captions) override
  {
    if (kindOf(index).value != Value::Elements)
      return 0;
    const char* const names[] = {"X", "Y", "Z"};
    for (unsigned long e = 0; e < 3; ++e)
    {
      elements.push_back(e + 1);
      captions.push_back(OdString(names[e]));
    }
    return 3;
  }
  bool getElementValue(int index, unsigned long element, PropVariant& value) override
  {
    if (kindOf(index).guid == &PropUiGuidList)
      value.setBool((index + int(element) + m_generation) % 2 != 0);
    else
      value.setDouble(double(index + m_generation) + 0.5 * double(element));
    return true;
  }
  bool setElementValue(int, unsigned long, const PropVariant&) override { return true; }
  int getElementCount(int index) override { return kindOf(index).value == Value::Elements ? 3 : -1; }

private:
  int m_rows;
  bool m_everyKind;
  int m_generation = 0;
};

// Rows per section. A panel of thousands of rows puts them in sections, as
// a palette does under its category headings: with every row in one parent,
// Qt checks each changed widget against all of that parent's children when
// it paints, so showing or refreshing the panel would cost the square of its
// rows, for plain widgets and ours alike.
constexpr int kRowsPerSection = 100;

/** One panel: a scroll area over sections of caption and editor rows. */
class Panel
{
public:
  virtual ~Panel() = default;
  void build(QWidget* into, int rows)
  {
    clear();
    auto* sections = new QVBoxLayout(into);
    QWidget* section = nullptr;
    QGridLayout* grid = nullptr;
    for (int i = 0; i < rows; ++i)
    {
      if (i % kRowsPerSection == 0)
      {
        section = new QWidget(into);
        grid = new QGridLayout(section);
        sections->addWidget(section);
      }
      addRow(section, grid, i, i % kRowsPerSection);
    }
  }
  virtual void refresh() = 0;

protected:
  virtual void clear() = 0;
  virtual void addRow(QWidget* section, QGridLayout* grid, int index, int row) = 0;
};

class OurPanel : public Panel
{
public:
  explicit OurPanel(PanelBag& bag) : m_bag(bag) {}
  void refresh() override
  {
    for (PropUiQWidget* control : m_controls)
      control->updateData();
  }

private:
  void clear() override { m_controls.clear(); }
  void addRow(QWidget* section, QGridLayout* grid, int index, int row) override
  {
    auto* caption = new PropUiQLabel(section);
    caption->setPropBagItem(&m_bag, index);
    caption->setupUi();
    PropUiQWidget* control = propUiCreateWidget(m_bag.getControlGuid(index), PropUiOption::kToolTipFilter);
    if (!control)
      control = new PropUiQLabel;
    control->setParent(section);
    control->setPropBagItem(&m_bag, index);
    control->setupUi();
    control->updateUi();
    control->updateData();
    grid->addWidget(caption, row, 0);
    grid->addWidget(control, row, 1);
    m_controls.push_back(control);
  }

  PanelBag& m_bag;
  std::vector<PropUiQWidget*> m_controls;
};

/** What a hand-written panel does: the widget a kind needs, set from the value, one setter per refresh. */
class PlainPanel : public Panel
{
public:
  explicit PlainPanel(PanelBag& bag) : m_bag(bag) {}
  void refresh() override
  {
    for (const auto& refresh : m_refreshers)
      refresh();
  }

private:
  void clear() override { m_refreshers.clear(); }
  // A hand-written panel that assistive technology can read names its
  // editors and ties each caption to its editor, as bench_controls' plain
  // rows and our controls do.
  void addRow(QWidget* section, QGridLayout* grid, int index, int row) override
  {
    OdString name;
    m_bag.getName(index, name);
    const QString caption = toQString(name);
    auto* label = new QLabel(caption, section);
    QWidget* editor = makeEditor(section, index);
    QList<QWidget*> focusable = editor->findChildren<QWidget*>();
    focusable.prepend(editor);
    for (QWidget* widget : focusable)
      if (widget->focusPolicy() != Qt::NoFocus)
      {
        if (!label->buddy())
          label->setBuddy(widget);
        widget->setAccessibleName(caption);
      }
    grid->addWidget(label, row, 0);
    grid->addWidget(editor, row, 1);
  }

  QString textOf(int index)
  {
    PropVariant value;
    OdString text;
    m_bag.getValue(index, value);
    m_bag.formatValue(index, 0, value, text);
    return toQString(text);
  }
  int numberOf(int index)
  {
    PropVariant value;
    m_bag.getValue(index, value);
    return value.scalarType() == PropVariant::kInt32 ? value.getInt32() : int(value.getBool());
  }
  QWidget* row(QWidget* into, const std::vector<QWidget*>& widgets)
  {
    auto* holder = new QWidget(into);
    auto* layout = new QHBoxLayout(holder);
    layout->setContentsMargins(0, 0, 0, 0);
    for (QWidget* widget : widgets)
    {
      widget->setParent(holder);
      layout->addWidget(widget);
    }
    return holder;
  }
  template<class Button>
  QWidget* buttonRow(QWidget* into, int index, int count, bool grid)
  {
    auto* holder = new QWidget(into);
    QLayout* layout = grid ? static_cast<QLayout*>(new QGridLayout(holder)) : new QHBoxLayout(holder);
    layout->setContentsMargins(0, 0, 0, 0);
    std::vector<Button*> buttons;
    for (int b = 0; b < count; ++b)
    {
      auto* button = new Button(holder);
      button->setText(QStringLiteral("Entry %1").arg(b));
      button->setCheckable(true);
      if (grid)
        static_cast<QGridLayout*>(layout)->addWidget(button, b / 3, b % 3);
      else
        layout->addWidget(button);
      buttons.push_back(button);
    }
    auto refresh = [this, index, buttons]() {
      const int current = numberOf(index);
      for (std::size_t b = 0; b < buttons.size(); ++b)
        buttons[b]->setChecked(int(b) == current);
    };
    refresh();
    m_refreshers.push_back(refresh);
    return holder;
  }
  QWidget* makeEditor(QWidget* into, int index)
  {
    const Kind& kind = m_bag.kindOf(index);
    switch (kind.bare)
    {
    case Bare::Nothing:
      return new QWidget(into);
    case Bare::Label:
    {
      auto* label = new QLabel(textOf(index), into);
      m_refreshers.push_back([this, label, index]() { label->setText(textOf(index)); });
      return label;
    }
    case Bare::Line:
    {
      auto* edit = new QLineEdit(textOf(index), into);
      m_refreshers.push_back([this, edit, index]() { edit->setText(textOf(index)); });
      return edit;
    }
    case Bare::Lines2:
    case Bare::Lines3:
    {
      std::vector<QLineEdit*> edits;
      for (int e = 0; e < (kind.bare == Bare::Lines2 ? 2 : 3); ++e)
        edits.push_back(new QLineEdit);
      auto refresh = [this, edits, index]() {
        for (std::size_t e = 0; e < edits.size(); ++e)
        {
          PropVariant value;
          m_bag.getElementValue(index, e + 1, value);
          edits[e]->setText(QString::number(value.getDouble(), 'f', 2));
        }
      };
      refresh();
      m_refreshers.push_back(refresh);
      return row(into, std::vector<QWidget*>(edits.begin(), edits.end()));
    }
    case Bare::Spin:
    case Bare::Slider:
    {
      QAbstractSlider* slider = nullptr;
      QSpinBox* spin = nullptr;
      if (kind.bare == Bare::Spin)
        spin = new QSpinBox(into);
      else
        slider = new QSlider(Qt::Horizontal, into);
      auto refresh = [this, spin, slider, index]() {
        if (spin)
          spin->setValue(numberOf(index));
        else
          slider->setValue(numberOf(index));
      };
      refresh();
      m_refreshers.push_back(refresh);
      return spin ? static_cast<QWidget*>(spin) : slider;
    }
    case Bare::Combo:
    {
      auto* combo = new QComboBox(into);
      for (int e = 0; e < kind.listed; ++e)
        combo->addItem(QStringLiteral("Entry %1").arg(e));
      auto refresh = [this, combo, index]() { combo->setCurrentText(textOf(index)); };
      refresh();
      m_refreshers.push_back(refresh);
      return combo;
    }
    case Bare::Check:
    {
      auto* box = new QCheckBox(kind.listed ? QStringLiteral("Entry 0") : QString(), into);
      auto refresh = [this, box, index]() { box->setChecked(numberOf(index) != 0); };
      refresh();
      m_refreshers.push_back(refresh);
      return box;
    }
    case Bare::Buttons:
      return buttonRow<QPushButton>(into, index, std::max(kind.listed, 2), false);
    case Bare::RadioButtons:
      return buttonRow<QRadioButton>(into, index, kind.listed, false);
    case Bare::ToolButtons:
      return buttonRow<QToolButton>(into, index, std::max(kind.listed, 2), false);
    case Bare::Grid3x3:
      return buttonRow<QToolButton>(into, index, 9, true);
    case Bare::Date:
    {
      auto* date = new QDateEdit(into);
      auto refresh = [this, date, index]() { date->setDate(QDate(2024, 1, 1).addDays(numberOf(index))); };
      refresh();
      m_refreshers.push_back(refresh);
      return date;
    }
    case Bare::List:
    {
      auto* list = new QListWidget(into);
      for (const char* axis : {"X", "Y", "Z"})
      {
        auto* entry = new QListWidgetItem(QString::fromLatin1(axis), list);
        entry->setFlags(entry->flags() | Qt::ItemIsUserCheckable);
      }
      auto refresh = [this, list, index]() {
        for (int e = 0; e < list->count(); ++e)
        {
          PropVariant value;
          m_bag.getElementValue(index, unsigned(e + 1), value);
          list->item(e)->setCheckState(value.getBool() ? Qt::Checked : Qt::Unchecked);
        }
      };
      refresh();
      m_refreshers.push_back(refresh);
      return list;
    }
    case Bare::Table:
    {
      auto* table = new QTableWidget(1, 1, into);
      auto refresh = [this, table, index]() { table->setItem(0, 0, new QTableWidgetItem(textOf(index))); };
      refresh();
      m_refreshers.push_back(refresh);
      return table;
    }
    }
    return new QWidget(into);
  }

  PanelBag& m_bag;
  std::vector<std::function<void()> > m_refreshers;
};

long statusKiB(const char* field)
{
  QFile status(QStringLiteral("/proc/self/status"));
  if (!status.open(QIODevice::ReadOnly))
    return 0;
  for (const QByteArray& line : status.readAll().split('\n'))
    if (line.startsWith(field))
      return line.mid(int(qstrlen(field))).trimmed().split(' ').value(0).toLong();
  return 0;
}

const char* const kPhases[] = {"build", "first paint", "refresh all", "rebuild", "teardown"};
constexpr int kPhaseCount = 5;

/** Runs one phase, timed, and under callgrind counted on its own. */
double phase(const char* name, const std::function<void()>& run)
{
  CALLGRIND_ZERO_STATS;
  CALLGRIND_TOGGLE_COLLECT;
  QElapsedTimer timer;
  timer.start();
  run();
  const double ms = double(timer.nsecsElapsed()) / 1e6;
  CALLGRIND_TOGGLE_COLLECT;
  CALLGRIND_DUMP_STATS_AT(name);
  return ms;
}

/** Every deferred deletion and posted event handled, as a host's event loop would by the next user event. */
void settle()
{
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  QApplication::processEvents();
}

/** One panel of one kind, built and taken through every phase: the phase times and the KiB per row. */
int runChild(bool ours, bool kinds, int rows)
{
  odrxCreateModuleObject()->initApp();
  PanelBag bag(rows, kinds);
  std::unique_ptr<Panel> panel(ours ? static_cast<Panel*>(new OurPanel(bag)) : new PlainPanel(bag));
  QScrollArea area;
  area.setWidgetResizable(true);
  area.resize(480, 800);

  // The process's one-time allocations (styles, fonts, the module) are paid
  // by a small panel first, so that the figures hold the rows only.
  {
    auto* warmUp = new QWidget;
    panel->build(warmUp, int(everyKind().size()));
    area.setWidget(warmUp);
    area.show();
    if (!QTest::qWaitForWindowExposed(&area))
      return 1;
    settle();
    delete area.takeWidget();
    settle();
  }

  double ms[kPhaseCount] = {};
  const long before = statusKiB("VmRSS:");
  auto* content = new QWidget;
  ms[0] = phase(kPhases[0], [&]() { panel->build(content, rows); });
  ms[1] = phase(kPhases[1], [&]() {
    area.setWidget(content);
    settle();
    area.viewport()->repaint();
  });
  const long kiB = statusKiB("VmRSS:") - before;
  bag.change();
  ms[2] = phase(kPhases[2], [&]() {
    panel->refresh();
    settle();
  });
  ms[3] = phase(kPhases[3], [&]() {
    delete area.takeWidget();
    bag.change();
    content = new QWidget;
    panel->build(content, rows);
    area.setWidget(content);
    settle();
  });
  ms[4] = phase(kPhases[4], [&]() {
    delete area.takeWidget();
    settle();
  });
  for (double m : ms)
    std::printf("%.3f ", m);
  std::printf("%.3f\n", double(kiB) / rows);
  panel.reset();
  odrxCreateModuleObject()->uninitApp();
  return 0;
}

struct Figures
{
  double ms[kPhaseCount] = {};
  double kiBPerRow = 0;
  double instructions[kPhaseCount] = {};
};

QStringList childArguments(bool ours, bool kinds, int rows)
{
  return {QStringLiteral("--child"), ours ? QStringLiteral("ours") : QStringLiteral("plain"),
          kinds ? QStringLiteral("kinds") : QStringLiteral("numbers"), QString::number(rows)};
}

bool runProcess(const QString& program, const QStringList& arguments, QByteArray& output)
{
  QProcess child;
  child.start(program, arguments);
  if (!child.waitForFinished(-1) || child.exitStatus() != QProcess::NormalExit || child.exitCode() != 0)
  {
    std::fprintf(stderr, "%s failed: %s\n", qPrintable(arguments.join(QLatin1Char(' '))),
                 child.readAllStandardError().constData());
    return false;
  }
  output = child.readAllStandardOutput();
  return true;
}

Figures timedRun(bool ours, bool kinds, int rows)
{
  Figures figures;
  QByteArray output;
  if (!runProcess(QCoreApplication::applicationFilePath(), childArguments(ours, kinds, rows), output))
    return figures;
  const QList<QByteArray> fields = output.trimmed().split(' ');
  if (fields.size() != kPhaseCount + 1)
    return figures;
  for (int p = 0; p < kPhaseCount; ++p)
    figures.ms[p] = fields[p].toDouble();
  figures.kiBPerRow = fields[kPhaseCount].toDouble();
  return figures;
}

/** The instructions of each phase, from the dumps callgrind writes at each phase's end. */
void countInstructions(bool ours, bool kinds, int rows, Figures& figures)
{
  QTemporaryDir dir;
  const QString out = dir.filePath(QStringLiteral("callgrind.out"));
  QStringList arguments = {QStringLiteral("--tool=callgrind"), QStringLiteral("--collect-atstart=no"),
                           QStringLiteral("--callgrind-out-file=") + out, QCoreApplication::applicationFilePath()};
  arguments += childArguments(ours, kinds, rows);
  QByteArray output;
  if (!runProcess(QStringLiteral("valgrind"), arguments, output))
    return;
  for (const QFileInfo& dump : QDir(dir.path()).entryInfoList({QStringLiteral("callgrind.out.*")}, QDir::Files))
  {
    QFile file(dump.filePath());
    if (!file.open(QIODevice::ReadOnly))
      continue;
    QByteArray trigger;
    double total = 0;
    for (const QByteArray& line : file.readAll().split('\n'))
    {
      if (line.startsWith("desc: Trigger: Client Request: "))
        trigger = line.mid(31).trimmed();
      else if (line.startsWith("totals: ") || line.startsWith("summary: "))
        total = line.mid(line.indexOf(' ') + 1).trimmed().toDouble();
    }
    for (int p = 0; p < kPhaseCount; ++p)
      if (trigger == kPhases[p])
        figures.instructions[p] = total;
  }
}

double median(std::vector<double> values)
{
  std::sort(values.begin(), values.end());
  return values.empty() ? 0 : values[values.size() / 2];
}

Figures medianOf(const std::vector<Figures>& runs)
{
  Figures m;
  for (int p = 0; p < kPhaseCount; ++p)
  {
    std::vector<double> values;
    for (const Figures& f : runs)
      values.push_back(f.ms[p]);
    m.ms[p] = median(values);
  }
  std::vector<double> memory;
  for (const Figures& f : runs)
    memory.push_back(f.kiBPerRow);
  m.kiBPerRow = median(memory);
  return m;
}

double ratio(double ours, double baseline)
{
  return baseline > 0 ? ours / baseline : 0.0;
}

struct Measured
{
  Figures ours;
  Figures plain;
};

Measured measure(bool kinds, int rows, int rounds, bool callgrind)
{
  std::vector<Figures> ours, plain;
  for (int round = 0; round < rounds; ++round)
  {
    plain.push_back(timedRun(false, kinds, rows));
    ours.push_back(timedRun(true, kinds, rows));
  }
  Measured m{medianOf(ours), medianOf(plain)};
  if (callgrind)
  {
    countInstructions(true, kinds, rows, m.ours);
    countInstructions(false, kinds, rows, m.plain);
  }
  return m;
}

void report(const char* title, int rows, const Measured& m, bool counted)
{
  std::printf("%s, %d rows\n", title, rows);
  std::printf("  %-12s %12s %12s %6s", "phase", "ours ms", "plain ms", "ratio");
  if (counted)
    std::printf(" %14s %14s %6s", "ours Ir", "plain Ir", "ratio");
  std::printf("\n");
  for (int p = 0; p < kPhaseCount; ++p)
  {
    std::printf("  %-12s %12.2f %12.2f %6.2f", kPhases[p], m.ours.ms[p], m.plain.ms[p], ratio(m.ours.ms[p], m.plain.ms[p]));
    if (counted)
      std::printf(" %14.0f %14.0f %6.2f", m.ours.instructions[p], m.plain.instructions[p],
                  ratio(m.ours.instructions[p], m.plain.instructions[p]));
    std::printf("\n");
  }
  const double memory = ratio(m.ours.kiBPerRow, m.plain.kiBPerRow);
  std::printf("  %-12s %9.2f KiB %9.2f KiB %6.2f  (target <= 1.2 at 2000 rows) %s\n", "memory/row", m.ours.kiBPerRow,
              m.plain.kiBPerRow, memory, rows != 2000 ? "" : memory <= 1.2 ? "ok" : "MISSED");
}

} // namespace

int main(int argc, char** argv)
{
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
    qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication app(argc, argv);

  if (argc == 5 && qstrcmp(argv[1], "--child") == 0)
    return runChild(qstrcmp(argv[2], "ours") == 0, qstrcmp(argv[3], "kinds") == 0, std::max(1, atoi(argv[4])));

  int rounds = 3;
  bool callgrind = false;
  int callgrindRows = 2000;
  for (int i = 1; i < argc; ++i)
  {
    if (qstrcmp(argv[i], "--rounds") == 0 && i + 1 < argc)
      rounds = std::max(1, atoi(argv[++i]));
    else if (qstrcmp(argv[i], "--callgrind") == 0)
      callgrind = true;
    else if (qstrcmp(argv[i], "--callgrind-rows") == 0 && i + 1 < argc)
      callgrindRows = std::max(1, atoi(argv[++i]));
  }

  std::printf("median of %d rounds, each figure from a fresh process\n", rounds);
  const int sizes[] = {200, 2000, 20000};
  std::map<int, Measured> numbers;
  for (int rows : sizes)
  {
    const bool counted = callgrind && rows <= callgrindRows;
    numbers[rows] = measure(false, rows, rounds, counted);
    report("caption + real-number editor", rows, numbers[rows], counted);
  }
  const bool kindsCounted = callgrind && 2000 <= callgrindRows;
  report("caption + every registered kind in turn", 2000, measure(true, 2000, rounds, kindsCounted), kindsCounted);

  // The plain panel's growth beside ours tells Qt's own share. Instructions
  // decide where both sizes were counted: wall time at 20,000 rows also pays
  // for caches that no longer hold the panel, and for the machine's load.
  const bool growthCounted = callgrind && callgrindRows >= 20000;
  std::printf("growth from 2000 to 20000 rows (target <= 11.0, judged on %s)\n",
              growthCounted ? "instructions" : "wall time");
  std::printf("  %-12s %12s %12s   %10s %10s\n", "phase", "ours Ir", "plain Ir", "ours ms", "plain ms");
  for (int p : {0, 3, 4})
  {
    auto growth = [&](const Figures Measured::*side, bool counted) {
      const Figures& small = numbers[2000].*side;
      const Figures& large = numbers[20000].*side;
      return counted ? ratio(large.instructions[p], small.instructions[p]) : ratio(large.ms[p], small.ms[p]);
    };
    const double judged = growth(&Measured::ours, growthCounted);
    if (growthCounted)
      std::printf("  %-12s %12.2f %12.2f", kPhases[p], judged, growth(&Measured::plain, true));
    else
      std::printf("  %-12s %12s %12s", kPhases[p], "-", "-");
    std::printf("   %10.2f %10.2f %s\n", growth(&Measured::ours, false), growth(&Measured::plain, false),
                judged <= 11.0 ? "ok" : "MISSED");
  }
  return 0;
}

// Every registered control kind, driven by a host and a user that do anything
// at any moment, over a bag whose every answer is random. The PROP_FUZZ_*
// variables that replay, lengthen, trace or narrow a run are listed in the README.

#include "PropUiQWidget.h"
#include "PropUiRegistry.h"
#include "FuzzHost.h"
#include "MessageCatcher.h"
#include "RunningModule.h"
#include <QAbstractButton>
#include <QComboBox>
#include <QLineEdit>
#include <QMetaMethod>
#include <QPointer>
#include <QVBoxLayout>
#include <QtTest>
#include <algorithm>
#include <functional>
#include <memory>

namespace
{

/** A host's slot that deletes a control when one of its parts signals: a palette rebuilt after a pick. */
class DeleteOnSignal : public QObject
{
  Q_OBJECT

public:
  explicit DeleteOnSignal(QWidget* doomed) : QObject(doomed), m_doomed(doomed) {}

public Q_SLOTS:
  void fire()
  {
    if (m_doomed)
      m_doomed->deleteLater();
  }

private:
  QPointer<QWidget> m_doomed;
};

struct Bound
{
  QPointer<PropUiQWidget> control;
  std::unique_ptr<RandomBag> bag;
};

/** A host window with a panel of controls, and the operations a host and a user perform on it. */
class Session : public QObject
{
public:
  Session(unsigned int seed, const std::vector<OdGUID>& kinds) : m_dice(seed), m_kinds(kinds)
  {
    auto* layout = new QVBoxLayout(&m_window);
    m_other = new QLineEdit(&m_window);
    layout->addWidget(m_other);
    // 5,000-character texts ask for a window wider than any screen; painting it would take most of the run.
    layout->setSizeConstraint(QLayout::SetNoConstraint);
    m_window.setFixedSize(400, 600);
    m_noDeleteWithFocus = qEnvironmentVariableIntValue("PROP_FUZZ_NO_DELETE_WITH_FOCUS") != 0;
    m_printTrace = qEnvironmentVariableIntValue("PROP_FUZZ_TRACE") != 0;
    const QStringList skipped = qEnvironmentVariable("PROP_FUZZ_SKIP").split(QLatin1Char(','));
    for (const Operation& op : allOperations())
      if (!skipped.contains(QLatin1String(op.name)))
        for (int i = 0; i < op.weight; ++i)
          m_operations.push_back(op);
  }

  ~Session() override { closePanel(); }

  bool showActive()
  {
    m_window.show();
    m_window.activateWindow();
    return QTest::qWaitForWindowActive(&m_window);
  }

  void runOne(int number)
  {
    const Operation& op = m_dice.pick(m_operations);
    note(QStringLiteral("#%1 %2").arg(number).arg(QLatin1String(op.name)));
    (this->*op.run)();
    forgetDestroyed();
  }

  /** Everything that went wrong so far: escaped exceptions and what the bags saw. */
  QStringList faults() const
  {
    QStringList all = application()->escaped + m_faults;
    for (const Bound& b : m_bound)
      all += b.bag->faults;
    return all;
  }

  /** The last operations, for the report of a failure. */
  QString recentTrace() const { return m_trace.join(QLatin1Char('\n')); }

  void closePanel()
  {
    for (const QPointer<QWidget>& window : m_windows)
      destroyNow(window);
    m_windows.clear();
    destroyNow(m_panel);
    processEvents();
    forgetDestroyed();
  }

private:
  struct Operation
  {
    const char* name;
    int weight;
    void (Session::*run)();
  };

  static std::vector<Operation> allOperations()
  {
    return {{"create", 6, &Session::create},
            {"bind", 4, &Session::bind},
            {"setup", 3, &Session::setup},
            {"refresh", 6, &Session::refresh},
            {"focus", 10, &Session::focus},
            {"focusAway", 3, &Session::focusAway},
            {"type", 12, &Session::type},
            {"key", 12, &Session::key},
            {"click", 8, &Session::click},
            {"comboKey", 5, &Session::comboKey},
            {"popup", 2, &Session::popup},
            {"lastEntry", 2, &Session::lastEntry},
            {"wheel", 4, &Session::wheel},
            {"editThenRefresh", 4, &Session::editThenRefresh},
            {"deleteOnSignal", 3, &Session::deleteOnSignal},
            {"delete", 3, &Session::deleteControl},
            {"deleteLater", 2, &Session::deleteControlLater},
            {"deletePanel", 1, &Session::deletePanel},
            {"events", 8, &Session::processEvents}};
  }

  // Host operations. Only here may a control raise OdError: the host asked for it.

  void create()
  {
    if (!m_panel)
    {
      m_panel = new QWidget;
      m_panel->installEventFilter(this);
      new QVBoxLayout(m_panel);
      static_cast<QVBoxLayout*>(m_window.layout())->insertWidget(0, m_panel);
      m_panel->show();
    }
    if (m_panel->findChildren<PropUiQWidget*>().size() >= 6)
      return;
    const OdGUID guid = m_dice.pick(m_kinds);
    const bool asEditor = m_dice.chance(0.3);
    const int options = randomOptions();
    note(QStringLiteral("  %1 %2 options 0x%3")
           .arg(asEditor ? QStringLiteral("editor") : QStringLiteral("widget"), toQString(guid.toString(1)))
           .arg(unsigned(options), 0, 16));
    PropUiQWidget* control = asEditor ? propUiCreateEditor(guid, options) : propUiCreateWidget(guid, options);
    if (!control)
    {
      m_faults << QStringLiteral("the registry made no control for %1").arg(toQString(guid.toString(1)));
      return;
    }
    control->installEventFilter(this);
    // A host may show a control as a window of its own (a floating editor).
    if (m_dice.chance(0.05))
      m_windows.push_back(control);
    else
      m_panel->layout()->addWidget(control);
    m_bound.push_back({control, std::make_unique<RandomBag>(m_dice.word())});
    m_bound.back().bag->sideEffect = [this] { moveFocusAnywhere(); };
    bindRandomly(m_bound.back());
    hostCall([&] { control->setupUi(); });
    refreshControl(control);
    control->show();
  }

  void bind()
  {
    if (Bound* b = anyBound())
      bindRandomly(*b);
  }

  void setup()
  {
    if (Bound* b = anyBound())
      hostCall([&] { b->control->setupUi(); });
  }

  /** The host's "data changed". */
  void refresh()
  {
    if (Bound* b = anyBound())
      refreshControl(b->control);
  }

  void editThenRefresh()
  {
    focus();
    type();
    refresh();
    if (m_dice.chance(0.5))
      key();
  }

  /** The host deletes a control later from a slot of any signal of any of its parts, itself included. */
  void deleteOnSignal()
  {
    Bound* b = anyBound();
    if (!b)
      return;
    QList<QObject*> parts = b->control->findChildren<QObject*>();
    parts.prepend(b->control);
    QObject* sender = parts[m_dice.below(parts.size())];
    std::vector<QMetaMethod> signals_;
    const QMetaObject* meta = sender->metaObject();
    for (int i = 0; i < meta->methodCount(); ++i)
    {
      const QMetaMethod method = meta->method(i);
      if (method.methodType() == QMetaMethod::Signal && method.name() != "destroyed")
        signals_.push_back(method);
    }
    if (signals_.empty())
      return;
    const QMetaMethod signal = m_dice.pick(signals_);
    note(QStringLiteral("  %1::%2 deletes %3")
           .arg(QLatin1String(meta->className()), QLatin1String(signal.methodSignature()), describe(b->control)));
    auto* slot = new DeleteOnSignal(b->control);
    connect(sender, signal, slot, slot->metaObject()->method(slot->metaObject()->indexOfSlot("fire()")));
  }

  void deleteControl()
  {
    if (Bound* b = anyBound())
      destroyNow(b->control);
  }

  void deleteControlLater()
  {
    if (Bound* b = anyBound())
      b->control->deleteLater();
  }

  void deletePanel()
  {
    if (m_panel && m_dice.chance(0.5))
      m_panel->deleteLater();
    else
      destroyNow(m_panel);
  }

  // User operations. Whatever they cause must not throw.

  void focus()
  {
    if (QWidget* target = anyPart())
    {
      note(QStringLiteral("  into %1").arg(describe(target)));
      userEvent([&] { target->setFocus(m_dice.chance(0.5) ? Qt::TabFocusReason : Qt::MouseFocusReason); });
    }
  }

  void moveFocusAnywhere()
  {
    if (m_dice.chance(0.5))
      focusAway();
    else
      focus();
  }

  void focusAway()
  {
    userEvent([&] { m_other->setFocus(Qt::MouseFocusReason); });
  }

  void type()
  {
    QPointer<QWidget> target = QApplication::focusWidget();
    if (!target || target == m_other)
      return;
    // Typing 5,000 characters key by key is slow; long texts come from the bag instead.
    QString text = m_dice.text().left(16);
    note(QStringLiteral("  \"%1\" into %2").arg(text, describe(target)));
    userEvent([&] {
      for (QChar c : text)
      {
        if (!target)
          return;
        // QTest knows the keys of printable ASCII only; other characters come as text alone.
        if (c.unicode() < 0x7f && c.isPrint())
          QTest::keyClick(target, char(c.unicode()));
        else
          QTest::sendKeyEvent(QTest::Click, target, Qt::Key_unknown, QString(c), Qt::NoModifier);
      }
    });
  }

  void key()
  {
    static const std::vector<Qt::Key> keys = {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape, Qt::Key_Tab,
                                              Qt::Key_Backtab, Qt::Key_Up,    Qt::Key_Down,   Qt::Key_PageUp,
                                              Qt::Key_Space,  Qt::Key_Delete, Qt::Key_Backspace};
    QPointer<QWidget> target = QApplication::focusWidget();
    if (!target)
      return;
    const Qt::Key pressed = m_dice.pick(keys);
    note(QStringLiteral("  key 0x%1 into %2").arg(int(pressed), 0, 16).arg(describe(target)));
    userEvent([&] { QTest::keyClick(target, pressed); });
  }

  void click()
  {
    if (auto* button = anyPart<QAbstractButton>())
    {
      note(QStringLiteral("  %1").arg(describe(button)));
      userEvent([&] { QTest::mouseClick(button, Qt::LeftButton); });
    }
  }

  /** Keys browse a closed combo; the entry reached is taken when the browse ends (Enter, leaving, a pause). */
  void comboKey()
  {
    static const std::vector<Qt::Key> keys = {Qt::Key_Up, Qt::Key_Down, Qt::Key_Home, Qt::Key_End};
    if (auto* combo = anyPart<QComboBox>())
    {
      note(QStringLiteral("  %1 of %2 entries").arg(describe(combo)).arg(combo->count()));
      userEvent([&] { QTest::keyClick(combo, m_dice.pick(keys)); });
    }
  }

  /** End and Enter over a closed combo take its last entry: in a picker, the one that opens its chooser. */
  void lastEntry()
  {
    if (auto* combo = anyPart<QComboBox>())
    {
      note(QStringLiteral("  last of %1 entries of %2").arg(combo->count()).arg(describe(combo)));
      QPointer<QComboBox> target(combo);
      userEvent([&] {
        QTest::keyClick(target, Qt::Key_End);
        if (target)
          QTest::keyClick(target, Qt::Key_Return);
      });
    }
  }

  /** Opens a popup and, sometimes, picks from it; an open popup is left for the next operations. */
  void popup()
  {
    auto* combo = anyPart<QComboBox>();
    if (!combo)
      return;
    userEvent([&] { combo->showPopup(); });
    QPointer<QWidget> open = QApplication::activePopupWidget();
    if (open && m_dice.chance(0.5))
      userEvent([&] {
        QTest::keyClick(open, Qt::Key_Down);
        if (open)
          QTest::keyClick(open, Qt::Key_Return);
      });
  }

  void wheel()
  {
    QWidget* target = anyPart();
    if (!target)
      return;
    const QPoint delta(0, m_dice.chance(0.5) ? 120 : -120);
    const QPoint at(target->width() / 2, target->height() / 2);
    QWheelEvent event(at, target->mapToGlobal(at), QPoint(), delta, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    note(QStringLiteral("  %1").arg(describe(target)));
    userEvent([&] { QApplication::sendEvent(target, &event); });
  }

  void processEvents()
  {
    userEvent([&] {
      QCoreApplication::processEvents();
      QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    });
  }

  // Helpers.

  /** A deferred delete starts the destruction: from then on the bag must not hear from the control. */
  bool eventFilter(QObject* watched, QEvent* event) override
  {
    auto* widget = qobject_cast<QWidget*>(watched);
    if (event->type() == QEvent::DeferredDelete && widget)
    {
      spareFocus(widget);
      retireWithin(widget);
    }
    return false;
  }

  void hostCall(const std::function<void()>& call)
  {
    try
    {
      call();
    }
    catch (const OdError&)
    {
      // The platform's errors may reach the host that asked.
    }
  }

  void userEvent(const std::function<void()>& event)
  {
    try
    {
      event();
    }
    catch (...)
    {
      m_faults << QStringLiteral("an exception out of a user event");
    }
  }

  void refreshControl(PropUiQWidget* control)
  {
    hostCall([&] { control->updateUi(); });
    hostCall([&] { control->updateData(); });
  }

  void bindRandomly(Bound& b)
  {
    const int index = m_dice.chance(0.7) ? m_dice.below(10) : int(m_dice.integer());
    if (m_dice.chance(0.5))
    {
      note(QStringLiteral("  bound to item %1").arg(index));
      b.control->setPropBagItem(b.bag.get(), index);
      return;
    }
    const auto element = RandomBag::Key(m_dice.chance(0.7) ? m_dice.below(10) : m_dice.integer());
    note(QStringLiteral("  bound to item %1 element %2").arg(index).arg(element));
    b.control->setPropBagItem(b.bag.get(), index, element);
  }

  int randomOptions()
  {
    static const std::vector<int> bits = {0x1, 0x2, 0x4, 0x8, 0x10, 0x20, 0x40, 0x100, 0x1000, 0x10000, 0x1000000};
    if (m_dice.chance(0.1))
      return int(m_dice.word());
    int options = 0;
    for (int n = m_dice.below(4); n > 0; --n)
      options |= m_dice.pick(bits);
    return options;
  }

  Bound* anyBound()
  {
    std::vector<Bound*> alive;
    for (Bound& b : m_bound)
      if (b.control)
        alive.push_back(&b);
    return alive.empty() ? nullptr : m_dice.pick(alive);
  }

  /** A control or any of its parts, of the given kind. */
  template <class Part = QWidget>
  Part* anyPart()
  {
    Bound* b = anyBound();
    if (!b)
      return nullptr;
    std::vector<Part*> parts;
    if (auto* self = qobject_cast<Part*>(b->control.data()))
      parts.push_back(self);
    for (Part* part : b->control->template findChildren<Part*>())
      parts.push_back(part);
    return parts.empty() ? nullptr : m_dice.pick(parts);
  }

  /** With PROP_FUZZ_NO_DELETE_WITH_FOCUS, nothing of the doomed widget keeps the focus or an open popup. */
  void spareFocus(QWidget* doomed)
  {
    if (!m_noDeleteWithFocus)
      return;
    if (QWidget* popup = QApplication::activePopupWidget(); popup && within(doomed, popup))
      popup->close();
    if (within(doomed, QApplication::focusWidget()))
      m_other->setFocus();
  }

  /** Whether the widget is the doomed one or its descendant, across windows such as popups. */
  static bool within(QWidget* doomed, QWidget* widget)
  {
    for (; widget; widget = widget->parentWidget())
      if (widget == doomed)
        return true;
    return false;
  }

  void destroyNow(QWidget* doomed)
  {
    if (!doomed)
      return;
    spareFocus(doomed);
    retireWithin(doomed);
    delete doomed;
  }

  void retireWithin(QWidget* doomed)
  {
    for (Bound& b : m_bound)
      if (b.control && within(doomed, b.control))
        b.bag->retired = true;
  }

  /** Frees the bags of destroyed controls: a control that still calls one is caught by AddressSanitizer. */
  void forgetDestroyed()
  {
    for (const Bound& b : m_bound)
      if (!b.control)
        m_faults += b.bag->faults;
    m_bound.erase(std::remove_if(m_bound.begin(), m_bound.end(), [](const Bound& b) { return !b.control; }), m_bound.end());
  }

  QString describe(QWidget* widget) const
  {
    return QStringLiteral("%1 \"%2\"").arg(QLatin1String(widget->metaObject()->className()), widget->objectName());
  }

  void note(const QString& line)
  {
    if (m_printTrace)
      fprintf(stderr, "%s\n", qPrintable(line));
    m_trace << line;
    if (m_trace.size() > 60)
      m_trace.removeFirst();
  }

  Dice m_dice;
  std::vector<OdGUID> m_kinds;
  std::vector<Operation> m_operations;
  QWidget m_window;
  QLineEdit* m_other = nullptr;
  QPointer<QWidget> m_panel;
  std::vector<QPointer<QWidget> > m_windows;
  std::vector<Bound> m_bound;
  QStringList m_faults;
  QStringList m_trace;
  bool m_noDeleteWithFocus = false;
  bool m_printTrace = false;
};

} // namespace

class TestRandomBag : public QObject
{
  Q_OBJECT
  RunningModule module;

private slots:
  void initTestCase() { QLocale::setDefault(QLocale::c()); }

  void everyKindSurvivesRandomAnswersAndUsers()
  {
    // GIVEN every registered kind, a seed and a count
    const std::vector<OdGUID> kinds = registeredKinds();
    QVERIFY(!kinds.empty());
    const FuzzRun run(20261123u, 20000);
    const unsigned int seed = run.seed;

    // Messages are caught; the choosers are the real modal windows, answered by a user.
    MessageCatcher messages;
    ModalAnswerer user(seed ^ 0x9e3779b9u);
    Session session(seed, kinds);
    QVERIFY(session.showActive());

    // WHEN the host and the user do anything, in any order
    for (int i = 0; i < run.operations; ++i)
    {
      session.runOne(i);
      // THEN nothing a control must never do has happened
      const QStringList faults = session.faults();
      if (!faults.isEmpty())
        QFAIL(qPrintable(QStringLiteral("PROP_FUZZ_SEED=%1 failed at operation %2:\n%3\nlast operations:\n%4")
                           .arg(seed)
                           .arg(i)
                           .arg(faults.join(QLatin1Char('\n')), session.recentTrace())));
    }
    session.closePanel();
    QVERIFY2(session.faults().isEmpty(), qPrintable(session.faults().join(QLatin1Char('\n'))));
    qInfo("%d messages shown, %d modal windows answered", int(messages.shown.size()), user.answered);
  }
};

int main(int argc, char** argv)
{
  CatchingApplication app(argc, argv);
  TestRandomBag test;
  QTEST_SET_MAIN_SOURCE_PATH
  return QTest::qExec(&test, argc, argv);
}

#include "tst_RandomBag.moc"

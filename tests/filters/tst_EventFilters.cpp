#include "PropUiCollectorFocusPolicyFilter.h"
#include "PropUiCommonToolTipFilter.h"
#include "PropUiEditCommitFilter.h"
#include "PropUiQControl.h"
#include "PropUiElidedLineEditFilter.h"
#include "PropUiFocusReactorFilter.h"
#include "PropUiRedirectFocusPolicyFilter.h"
#include "RecordingBag.h"
#include <QtTest>
#include <QtWidgets>

class TestEventFilters : public QObject
{
  Q_OBJECT

private slots:
  void focusReportsReachTheReactor_data()
  {
    QTest::addColumn<int>("reason");
    QTest::addColumn<bool>("reported");
    QTest::newRow("mouse") << int(Qt::MouseFocusReason) << true;
    QTest::newRow("tab") << int(Qt::TabFocusReason) << true;
    QTest::newRow("popup") << int(Qt::PopupFocusReason) << false;
    QTest::newRow("other") << int(Qt::OtherFocusReason) << false;
  }

  void focusReportsReachTheReactor()
  {
    QFETCH(int, reason);
    QFETCH(bool, reported);
    RecordingBag bag;
    RecordingReactor reactor;
    TestItemType type(42);
    const int item = bag.addItem(QStringLiteral("Radius"));
    bag.item(item).reactor = &reactor;
    bag.item(item).type = &type;

    QWidget control;
    QLineEdit edit(&control);
    PropUiFocusReactorFilter filter(&control);
    edit.installEventFilter(&filter);
    filter.setPropBagItem(&bag, item, 7);

    QFocusEvent in(QEvent::FocusIn, Qt::FocusReason(reason));
    QFocusEvent out(QEvent::FocusOut, Qt::FocusReason(reason));
    QCoreApplication::sendEvent(&edit, &in);
    QCoreApplication::sendEvent(&edit, &out);
    QCOMPARE(reactor.focus.size(), reported ? 2 : 0);
    if (reported)
    {
      QCOMPARE(reactor.focus[0].typeId, 42);
      QCOMPARE(reactor.focus[0].element, 7ul);
      QVERIFY(reactor.focus[0].focusIn);
      QVERIFY(!reactor.focus[1].focusIn);
    }
  }

  void filtersWithoutABagReactorOrTypeAreHarmless()
  {
    RecordingBag bag;
    RecordingReactor reactor;
    bag.addItem(QStringLiteral("Radius"));
    bag.item(0).reactor = &reactor; // but no item type
    QLineEdit edit;
    PropUiFocusReactorFilter filter(&edit);
    edit.installEventFilter(&filter);
    QFocusEvent unbound(QEvent::FocusIn, Qt::MouseFocusReason);
    QCoreApplication::sendEvent(&edit, &unbound);
    filter.setPropBagItem(&bag, 5); // an index the bag does not know
    QCoreApplication::sendEvent(&edit, &unbound);
    filter.setPropBagItem(&bag, 0);
    QCoreApplication::sendEvent(&edit, &unbound);
    QCOMPARE(reactor.focus.size(), 1);
    QCOMPARE(reactor.focus[0].typeId, 0);
    // A tool-tip filter with no bag leaves the widget's own tip.
    PropUiCommonToolTipFilter tips(&edit);
    edit.installEventFilter(&tips);
    edit.setToolTip(QStringLiteral("own"));
    QHelpEvent tip(QEvent::ToolTip, QPoint(1, 1), QPoint(1, 1));
    QCoreApplication::sendEvent(&edit, &tip);
    QCOMPARE(edit.toolTip(), QStringLiteral("own"));
  }

  void focusPolicyIsLentWhileTheEditorIsDisabled()
  {
    QWidget target;
    target.setFocusPolicy(Qt::NoFocus);
    QLineEdit editor(&target);
    editor.setFocusPolicy(Qt::StrongFocus);
    target.show();
    PropUiRedirectFocusPolicyFilter filter(&target);
    filter.setup(&editor, &target);
    QCOMPARE(target.focusPolicy(), Qt::NoFocus);

    editor.setEnabled(false);
    QCOMPARE(target.focusPolicy(), Qt::StrongFocus);
    editor.setEnabled(true);
    QCOMPARE(target.focusPolicy(), Qt::NoFocus);

    // Set up on an editor that is already disabled: lent at once.
    editor.setEnabled(false);
    editor.setEnabled(true);
    QLineEdit disabled(&target);
    disabled.setFocusPolicy(Qt::ClickFocus);
    disabled.setEnabled(false);
    filter.setup(&disabled, &target);
    QCOMPARE(target.focusPolicy(), Qt::ClickFocus);
    // A new target gets nothing back from the old one, the old one gets its own back.
    QWidget other;
    other.setFocusPolicy(Qt::TabFocus);
    filter.setup(&disabled, &other);
    QCOMPARE(target.focusPolicy(), Qt::NoFocus);
    // A target with a policy of its own is left alone.
    QCOMPARE(other.focusPolicy(), Qt::TabFocus);
    disabled.setEnabled(true);
    disabled.setEnabled(false);
    QCOMPARE(other.focusPolicy(), Qt::TabFocus);
  }

  void containerGivesUpFocusToItsButtons()
  {
    QWidget container;
    container.setFocusPolicy(Qt::StrongFocus);
    QList<QPushButton*> buttons;
    for (int i = 0; i < 3; ++i)
      buttons.append(new QPushButton(QString::number(i), &container));
    new PropUiCollectorFocusPolicyFilter(&container);
    QCOMPARE(container.focusPolicy(), Qt::NoFocus);

    buttons[0]->setEnabled(false);
    buttons[1]->setEnabled(false);
    QCOMPARE(container.focusPolicy(), Qt::NoFocus);
    buttons[2]->setEnabled(false);
    QCOMPARE(container.focusPolicy(), Qt::StrongFocus);

    // A button added later is watched: enabling it collects again.
    auto* late = new QPushButton(QStringLiteral("late"), &container);
    late->setEnabled(false);
    QCOMPARE(container.focusPolicy(), Qt::StrongFocus);
    late->setEnabled(true);
    QCOMPARE(container.focusPolicy(), Qt::NoFocus);
  }

  void unfocusedEditShowsTheStartOfLongText()
  {
    QWidget window;
    auto* layout = new QVBoxLayout(&window);
    QLineEdit first(&window), second(&window), other(&window);
    for (QLineEdit* edit : {&first, &second})
    {
      edit->setFixedWidth(120);
      layout->addWidget(edit);
      new PropUiElidedLineEditFilter(edit);
    }
    layout->addWidget(&other);
    const QString start = QStringLiteral("Bore widened to 42 mm after the fit test ");
    first.setText(start + QStringLiteral("of revision C"));
    second.setText(start + QStringLiteral("of revision D, with notes"));
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    other.setFocus(Qt::OtherFocusReason);
    QTRY_VERIFY(other.hasFocus());

    // Elided at the right, two texts with the same start look the same...
    QCOMPARE(first.grab().toImage(), second.grab().toImage());
    const QImage elided = first.grab().toImage();
    // ...while a focused edit scrolls to its cursor, at the end.
    first.setFocus(Qt::OtherFocusReason);
    first.end(false);
    QTRY_VERIFY(first.hasFocus());
    QVERIFY(first.grab().toImage() != elided);

    // An empty edit keeps its placeholder.
    second.clear();
    second.setPlaceholderText(QStringLiteral("*varies*"));
    const QImage withPlaceholder = second.grab().toImage();
    second.setPlaceholderText(QString());
    QVERIFY(second.grab().toImage() != withPlaceholder);
  }

  // The rules a control picks, as the editor's events meet them. The log
  // names the callbacks in the order they ran.
  void commitRulesFollowTheEvent_data()
  {
    using R = PropUiEditCommitFilter::Rule;
    QTest::addColumn<int>("rules");
    QTest::addColumn<int>("event"); // a focus reason, or a key
    QTest::addColumn<bool>("changed");
    QTest::addColumn<bool>("acceptable");
    QTest::addColumn<QString>("log");
    const int all = R::CommitOnLeave | R::CommitOnTab | R::RestoreOnEscape | R::RevertAfterReturn | R::MoveOnAfterReturn;
    QTest::newRow("leave by mouse commits a change") << all << int(Qt::MouseFocusReason) << true << true << "commit";
    QTest::newRow("leave by mouse, nothing changed") << all << int(Qt::MouseFocusReason) << false << true << "";
    QTest::newRow("leave with bad input puts back") << all << int(Qt::MouseFocusReason) << true << false << "commit restore";
    QTest::newRow("leave by Tab leaves it to the Tab key") << all << int(Qt::TabFocusReason) << true << true << "";
    QTest::newRow("leave without the rule") << int(R::CommitOnTab) << int(Qt::MouseFocusReason) << true << true << "";
    QTest::newRow("typed Tab commits") << all << int(Qt::Key_Tab) + 1000 << false << true << "commit";
    QTest::newRow("typed Tab, bad input") << all << int(Qt::Key_Tab) + 1000 << false << false << "commit restore";
    QTest::newRow("Escape puts back") << all << int(Qt::Key_Escape) + 1000 << true << true << "restore";
    QTest::newRow("Return moves on later") << all << int(Qt::Key_Return) + 1000 << true << true << "| moveOn";
    QTest::newRow("Return with bad input") << all << int(Qt::Key_Return) + 1000 << true << false << "| restore moveOn";
    QTest::newRow("Return, only moving on") << int(R::MoveOnAfterReturn) << int(Qt::Key_Return) + 1000 << true << false
                                            << "| moveOn";
  }

  void commitRulesFollowTheEvent()
  {
    QFETCH(int, rules);
    QFETCH(int, event);
    QFETCH(bool, changed);
    QFETCH(bool, acceptable);
    QFETCH(QString, log);
    QStringList ran;
    PropUiQControl control;
    auto* editor = new QLineEdit(&control);
    PropUiEditCommitFilter::Edit edit;
    edit.changed = [&]() { return changed; };
    edit.acceptable = [&]() { return acceptable; };
    edit.commit = [&]() { ran << QStringLiteral("commit"); };
    edit.restore = [&]() { ran << QStringLiteral("restore"); };
    edit.moveOn = [&]() { ran << QStringLiteral("moveOn"); };
    new PropUiEditCommitFilter(&control, editor,
                               PropUiEditCommitFilter::Rules(rules) | PropUiEditCommitFilter::SilenceWhileLeaving, edit);

    if (event < 1000)
    {
      QFocusEvent in(QEvent::FocusIn, Qt::MouseFocusReason);
      QCoreApplication::sendEvent(editor, &in);
      QVERIFY(!control.messagesSuppressed());
      QFocusEvent out(QEvent::FocusOut, Qt::FocusReason(event));
      QCoreApplication::sendEvent(editor, &out);
      QVERIFY(control.messagesSuppressed());
    }
    else
    {
      QTest::keyClick(editor, Qt::Key(event - 1000));
      ran << QStringLiteral("|");
      QCoreApplication::processEvents();
      if (ran.last() == QLatin1String("|"))
        ran.removeLast();
    }
    QCOMPARE(ran.join(QLatin1Char(' ')), log);
  }
};

QTEST_MAIN(TestEventFilters)
#include "tst_EventFilters.moc"

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
    QTest::addColumn<int>("item"); // -1 for none
    QTest::addColumn<int>("typeId"); // reported, or -1 for no report
    const int mouse = int(Qt::MouseFocusReason);
    QTest::newRow("mouse") << mouse << 0 << 42;
    QTest::newRow("tab") << int(Qt::TabFocusReason) << 0 << 42;
    QTest::newRow("popup") << int(Qt::PopupFocusReason) << 0 << -1;
    QTest::newRow("other") << int(Qt::OtherFocusReason) << 0 << -1;
    QTest::newRow("unbound") << mouse << -1 << -1;
    QTest::newRow("an item the bag does not have") << mouse << 5 << -1;
    QTest::newRow("an item without a type") << mouse << 1 << 0;
  }

  void focusReportsReachTheReactor()
  {
    QFETCH(int, reason);
    QFETCH(int, item);
    QFETCH(int, typeId);
    RecordingBag bag;
    RecordingReactor reactor;
    TestItemType type(42);
    bag.addItem(QStringLiteral("Radius"));
    bag.item(0).reactor = &reactor;
    bag.item(0).type = &type;
    bag.addItem(QStringLiteral("Untyped"));
    bag.item(1).reactor = &reactor;

    QWidget control;
    QLineEdit edit(&control);
    PropUiFocusReactorFilter filter(&control);
    edit.installEventFilter(&filter);
    if (item >= 0)
      filter.setPropBagItem(&bag, item, 7);

    QFocusEvent in(QEvent::FocusIn, Qt::FocusReason(reason));
    QFocusEvent out(QEvent::FocusOut, Qt::FocusReason(reason));
    QCoreApplication::sendEvent(&edit, &in);
    QCoreApplication::sendEvent(&edit, &out);
    QCOMPARE(reactor.focus.size(), typeId < 0 ? 0 : 2);
    if (typeId >= 0)
    {
      QCOMPARE(reactor.focus[0].typeId, typeId);
      QCOMPARE(reactor.focus[0].element, 7ul);
      QVERIFY(reactor.focus[0].focusIn);
      QVERIFY(!reactor.focus[1].focusIn);
    }
  }

  void toolTipFilterWithoutABagLeavesTheOwnTip()
  {
    QLineEdit edit;
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

#include "HostQtStyleManager.h"
#include "OdError.h"
#include "OdStringQt.h"
#include "PropUiActionPushButtonsCtrl.h"
#include "PropUiActionToolButtonsCtrl.h"
#include "PropUiIcons.h"
#include "PropUiPlaceholder.h"
#include "PropUiQAction.h"
#include "PropUiQActionsToolBar.h"
#include "PropUiQLineEdit.h"
#include "PropUiQTextCtrl.h"
#include "ControlWindow.h"
#include "EveryKind.h"
#include "RichItem.h"
#include "RunningModule.h"
#include <QtTest>
#include <QtWidgets>

namespace
{

/** A control that counts how often it was asked to re-read its value. */
class CountingControl : public PropUiQControl
{
public:
  void updateData() override
  {
    PropUiQControl::updateData();
    ++reads;
  }
  int reads = 0;
};

/** A control whose items cannot be shown: the 3x3 grid over a list shorter than nine raises so. */
class RaisingControl : public PropUiQControl
{
public:
  void updateData() override { throw OdError_InvalidIndex(); }
};

/** An action that says when it is gone. */
class WatchedAction : public TestAction
{
public:
  explicit WatchedAction(bool& gone) : TestAction(QStringLiteral("Watched")), m_gone(gone) {}
  ~WatchedAction() override { m_gone = true; }

private:
  bool& m_gone;
};

QImage pictureOf(const QIcon& icon)
{
  return icon.pixmap(16, 16).toImage();
}

QList<QAbstractButton*> buttonsOf(QWidget& control)
{
  QList<QAbstractButton*> buttons = control.findChildren<QAbstractButton*>();
  std::sort(buttons.begin(), buttons.end(), [](QAbstractButton* a, QAbstractButton* b) { return a->x() < b->x(); });
  return buttons;
}

int addActions(RecordingBag& bag, int count)
{
  const int item = bag.addItem(QStringLiteral("Tools"));
  for (int i = 0; i < count; ++i)
    bag.item(item).actions.append(OdSharedPtr<PropAction>(new TestAction(QStringLiteral("Command %1").arg(i))));
  return item;
}

/** A row of the item's actions as push or tool buttons, set up and showing the list. */
PropUiActionButtonGroupCtrl* actionRow(bool push, RecordingBag& bag, int item, int options = 0)
{
  if (push)
    return boundControl<PropUiActionPushButtonsCtrl>(bag, item, options);
  return boundControl<PropUiActionToolButtonsCtrl>(bag, item, options);
}

void addToolAndPushRows()
{
  QTest::addColumn<bool>("push");
  QTest::newRow("tool buttons") << false;
  QTest::newRow("push buttons") << true;
}

QImage drawnIcon()
{
  QPixmap pixmap(16, 16);
  pixmap.fill(Qt::red);
  return pixmap.toImage();
}

/** The popup menu now open, or null. */
QMenu* openMenu()
{
  return qobject_cast<QMenu*>(QApplication::activePopupWidget());
}

QStringList captionsOf(const QMenu* menu)
{
  QStringList captions;
  for (QAction* action : menu->actions())
    if (!action->isSeparator())
      captions.append(action->text());
  return captions;
}

} // namespace

class TestActions : public QObject
{
  Q_OBJECT
  RunningModule module;

private slots:
  void mirrorCopiesTheActionOrFallsBackToTheThemedButton_data()
  {
    QTest::addColumn<int>("theme");
    QTest::newRow("dark") << 0;
    QTest::newRow("light") << 1;
  }

  void mirrorCopiesTheActionOrFallsBackToTheThemedButton()
  {
    QFETCH(int, theme);
    hostGetQtStyleManager()->setTheme(theme);
    TestAction toggle(QStringLiteral("Lock"), false);
    toggle.isCheckable = true;
    toggle.isChecked = true;
    toggle.iconToGive = QIcon(QPixmap::fromImage(drawnIcon()));
    PropUiQAction mirror(nullptr);
    mirror.setPropAction(&toggle);
    QCOMPARE(mirror.iconText(), QStringLiteral("Lock"));
    QVERIFY(mirror.isCheckable() && mirror.isChecked() && !mirror.isEnabled());
    QCOMPARE(pictureOf(mirror.icon()), drawnIcon());
    mirror.setPropAction(nullptr);
    QVERIFY(!mirror.isCheckable() && !mirror.isChecked() && mirror.isEnabled());
    QVERIFY(mirror.icon().isNull() && mirror.iconText().isEmpty());

    TestAction plain; // every default: no caption, no picture
    mirror.setPropAction(&plain);
    QVERIFY(mirror.isEnabled() && !mirror.isCheckable());
    QVERIFY(mirror.iconText().isEmpty());
    QCOMPARE(pictureOf(mirror.icon()), pictureOf(propUiGetIcon(QStringLiteral("default_button"))));

    // A placeholder's picture is present but empty: a blank, disabled button.
    PropUiPlaceholder placeholder;
    mirror.setPropAction(&placeholder);
    QVERIFY(!mirror.isEnabled());
    QVERIFY(pictureOf(mirror.icon()).isNull());
    PropVariant in, out;
    QVERIFY(!placeholder.execute(in, out));
    hostGetQtStyleManager()->setTheme(1);
  }

  void buttonsFollowTheListByPosition_data() { addToolAndPushRows(); }

  void buttonsFollowTheListByPosition()
  {
    QFETCH(bool, push);
    RecordingBag bag;
    const int item = addActions(bag, 3);
    QScopedPointer<PropUiActionButtonGroupCtrl> row(actionRow(push, bag, item));
    QButtonGroup* group = row->findChild<QButtonGroup*>();
    QCOMPARE(group->buttons().size(), 3);

    QTest::mouseClick(group->buttons()[1], Qt::LeftButton);
    QCOMPARE(bag.executed.size(), 1);
    QCOMPARE(bag.executed[0], bag.item(item).actions[1].get());

    // The list shrank since the last update: the click takes the list as it is now.
    bag.item(item).actions.resize(1);
    QTest::mouseClick(group->buttons()[2], Qt::LeftButton);
    QCOMPARE(bag.executed.size(), 1);
    QCOMPARE(bag.count(QStringLiteral("getValue")), 0);

    row->updateData();
    QCOMPARE(group->buttons().size(), 1);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(row->findChildren<QAbstractButton*>().size(), 1);

    // A row without actions has nothing to focus and nothing to name: no Tab stop, until it has a button.
    const int none = addActions(bag, 0);
    QScopedPointer<PropUiActionButtonGroupCtrl> empty(actionRow(push, bag, none));
    QCOMPARE(empty->focusPolicy(), Qt::NoFocus);
    bag.item(none).actions = bag.item(item).actions;
    empty->updateData();
    QCOMPARE(empty->focusPolicy(), Qt::StrongFocus);
    // The option for a field's own toolbar keeps the buttons out of the Tab chain.
    QScopedPointer<PropUiActionButtonGroupCtrl> inert(actionRow(push, bag, item, PropUiOption::kNoFocusButtons));
    for (QAbstractButton* button : buttonsOf(*inert))
      QCOMPARE(button->focusPolicy(), Qt::NoFocus);
  }

  // The focus moving onto a button of a field's toolbar commits the field;
  // a host that refreshes the field as the bag takes the value, with a list
  // that has lost that button, takes the button away while Qt moves the focus onto it.
  void aButtonLosingItsActionMidFocusMoveOutlivesTheMove()
  {
    RecordingBag bag;
    const int item = addActions(bag, 2);
    bag.item(item).flags = PropItemFlag::kHasActions;
    bag.item(item).value = textValue(QStringLiteral("before"));
    auto* field = boundControl<PropUiQTextCtrl>(bag, item);
    ControlWindow window(field);
    QVERIFY(window.showActive());
    auto* edit = field->findChild<QLineEdit*>();
    edit->setFocus(Qt::MouseFocusReason);
    QTest::keyClicks(edit, QStringLiteral("!"));
    bag.duringValidate = [&]() {
      bag.item(item).actions.resize(1);
      field->updateData();
    };
    QPointer<QAbstractButton> last = buttonsOf(*field).last();

    last->setFocus(Qt::MouseFocusReason);

    QCOMPARE(bag.written.size(), 1);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!last);
    QCOMPARE(buttonsOf(*field).size(), 1);
  }

  // A command run from a field's toolbar makes the field read its value again, as the command may
  // have changed it; a row of command buttons is a control of its own and never does.
  void toolbarRefreshesItsControlOnlyOnSuccess()
  {
    RecordingBag bag;
    const int item = addActions(bag, 2);
    CountingControl embedding;
    auto* row = new PropUiActionToolButtonsCtrl(&embedding);
    row->setPropBagItem(&bag, item);
    row->setupUi();
    row->updateData();
    QTest::mouseClick(buttonsOf(*row)[0], Qt::LeftButton);
    QCOMPARE(bag.executed.size(), 1);
    QCOMPARE(embedding.reads, 0);

    auto* toolbar = new PropUiQActionsToolBar(&embedding);
    toolbar->setPropBagItem(&bag, item);
    QVERIFY(toolbar->setupUi());
    toolbar->updateData();
    QCOMPARE(toolbar->toolBar()->actions().size(), 2);

    toolbar->toolBar()->actions()[1]->trigger();
    QCOMPARE(bag.executed.last(), bag.item(item).actions[1].get());
    QCOMPARE(embedding.reads, 1);

    bag.item(item).executeResult = false;
    toolbar->toolBar()->actions()[0]->trigger();
    QCOMPARE(bag.executed.size(), 3);
    QCOMPARE(embedding.reads, 1);

    bag.item(item).actions.resize(0);
    toolbar->updateData();
    QVERIFY(toolbar->toolBar()->actions().isEmpty());
  }

  // The bag may hand out a new list on every call and drop the old one; a
  // press long after the toolbar read its list still runs a live action, and
  // a control that cannot show its item after the action keeps the error to itself.
  void toolbarActionsOutliveTheBagsList()
  {
    RecordingBag bag;
    const int item = bag.addItem(QStringLiteral("Tools"));
    bool gone = false;
    bag.item(item).actions = {OdSharedPtr<PropAction>(new WatchedAction(gone))};
    RaisingControl embedding;
    auto* toolbar = new PropUiQActionsToolBar(&embedding);
    toolbar->setPropBagItem(&bag, item);
    toolbar->setupUi();
    toolbar->updateData();
    bag.item(item).actions.clear();
    QVERIFY(!gone);

    toolbar->toolBar()->actions()[0]->trigger();
    QCOMPARE(bag.executed.size(), 1);
    QCOMPARE(toQString(bag.executed[0]->name()), QStringLiteral("Watched"));
    toolbar->updateData();
    QVERIFY(gone);
  }

  // Buttons showing the stock picture could only be told apart by their tool tips.
  void actionButtonsShowTheirPictureOrElseTheirCaption_data()
  {
    QTest::addColumn<bool>("push");
    QTest::addColumn<bool>("picture");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<bool>("captionShown");
    QTest::addColumn<int>("options");
    QTest::newRow("tool, own picture") << false << true << QStringLiteral("Zoom") << false << 0;
    QTest::newRow("tool, caption only") << false << false << QStringLiteral("Zoom") << true << 0;
    QTest::newRow("tool, neither") << false << false << QString() << false << 0;
    QTest::newRow("push, own picture") << true << true << QStringLiteral("Zoom") << true << 0;
    QTest::newRow("push, caption only") << true << false << QStringLiteral("Zoom") << true << 0;
    QTest::newRow("push, neither") << true << false << QString() << false << 0;
    QTest::newRow("push, pictures only") << true << false << QStringLiteral("Zoom") << false << 0x40000;
  }

  void actionButtonsShowTheirPictureOrElseTheirCaption()
  {
    QFETCH(bool, push);
    QFETCH(bool, picture);
    QFETCH(QString, caption);
    QFETCH(bool, captionShown);
    QFETCH(int, options);
    RecordingBag bag;
    const int item = bag.addItem(QStringLiteral("Tools"));
    auto* action = new TestAction(caption);
    if (picture)
      action->iconToGive = QIcon(QPixmap::fromImage(drawnIcon()));
    bag.item(item).actions.append(OdSharedPtr<PropAction>(action));
    QScopedPointer<PropUiActionButtonGroupCtrl> row(actionRow(push, bag, item, options));
    QAbstractButton* button = buttonsOf(*row).value(0);
    QVERIFY(button);
    QCOMPARE(button->toolTip(), caption);

    QIcon shown = button->icon();
    bool textShown = !button->text().isEmpty();
    if (auto* tool = qobject_cast<QToolButton*>(button))
    {
      shown = tool->toolButtonStyle() == Qt::ToolButtonTextOnly ? QIcon() : tool->defaultAction()->icon();
      textShown = tool->toolButtonStyle() != Qt::ToolButtonIconOnly && !tool->defaultAction()->iconText().isEmpty();
    }
    QCOMPARE(textShown, captionShown);
    if (picture)
      QCOMPARE(pictureOf(shown), drawnIcon());
    else if (!captionShown)
      QCOMPARE(pictureOf(shown), pictureOf(propUiGetIcon(QStringLiteral("default_button"))));
    else
      QVERIFY(shown.isNull());
    // A caption must fit: the button is at least as wide as its text.
    if (captionShown)
      QVERIFY(button->width() >= button->fontMetrics().horizontalAdvance(caption));
  }

  void aRefreshShowsWhatChangedInTheAction_data() { addToolAndPushRows(); }

  // A refresh hands on only what changed: a new caption, picture or font must still get through.
  void aRefreshShowsWhatChangedInTheAction()
  {
    QFETCH(bool, push);
    RecordingBag bag;
    const int item = bag.addItem(QStringLiteral("Tools"));
    auto* action = new TestAction(QStringLiteral("Zoom"));
    bag.item(item).actions.append(OdSharedPtr<PropAction>(action));
    QScopedPointer<PropUiActionButtonGroupCtrl> row(actionRow(push, bag, item));
    QAbstractButton* button = buttonsOf(*row).value(0);
    QVERIFY(button);
    const int narrow = button->width();

    bag.item(item).actions[0] = OdSharedPtr<PropAction>(action = new TestAction(QStringLiteral("Zoom to the whole drawing")));
    row->updateData();
    QCOMPARE(button->toolTip(), QStringLiteral("Zoom to the whole drawing"));
    QVERIFY(button->width() > narrow);
    QVERIFY(button->width() >= button->fontMetrics().horizontalAdvance(QStringLiteral("Zoom to the whole drawing")));

    QFont bigger = button->font();
    bigger.setPointSize(bigger.pointSize() * 2);
    button->setFont(bigger);
    // The font alone, before any refresh, makes the caption fit again.
    QVERIFY(button->width() >= button->fontMetrics().horizontalAdvance(QStringLiteral("Zoom to the whole drawing")));
    row->updateData();
    QVERIFY(button->width() >= button->fontMetrics().horizontalAdvance(QStringLiteral("Zoom to the whole drawing")));

    const int captionOnly = button->width();
    action->iconToGive = QIcon(QPixmap::fromImage(drawnIcon()));
    row->updateData();
    // A push button makes room for the picture beside its caption; a tool button shows only the picture.
    if (push)
      QVERIFY(button->width() > captionOnly);
    else
      QCOMPARE(button->width(), 15);
    auto* tool = qobject_cast<QToolButton*>(button);
    QCOMPARE(pictureOf(tool ? tool->defaultAction()->icon() : button->icon()), drawnIcon());
  }

  void libraryIconsAreDrawnForDoubleDensity_data()
  {
    QTest::addColumn<QString>("path");
    for (const char* theme : {"dark", "light"})
      for (const char* name : {"default_button", "lock", "unlock"})
        QTest::newRow(qPrintable(QStringLiteral("%1/%2").arg(QLatin1String(theme), QLatin1String(name))))
          << QStringLiteral(":/res/%1/%2.ico").arg(QLatin1String(theme), QLatin1String(name));
  }

  void libraryIconsAreDrawnForDoubleDensity()
  {
    QFETCH(QString, path);
    const QIcon icon(path);
    const QList<QSize> sizes = icon.availableSizes();
    QVERIFY2(sizes.contains(QSize(16, 16)), qPrintable(path));
    QVERIFY2(sizes.contains(QSize(32, 32)), qPrintable(path));
    // The double size is drawn, not the small one enlarged: it has detail the small one cannot.
    const QImage large = icon.pixmap(QSize(32, 32)).toImage();
    QCOMPARE(large.size(), QSize(32, 32));
    const QImage enlarged = icon.pixmap(QSize(16, 16)).toImage().scaled(32, 32);
    QVERIFY(large.convertToFormat(QImage::Format_ARGB32) != enlarged.convertToFormat(QImage::Format_ARGB32));
  }

  // The button beside a field takes no focus: its command is reached from the
  // field's context menu, however the menu is asked for.
  void contextMenuListsAndRunsTheItemsActions_data()
  {
    QTest::addColumn<int>("how");
    QTest::addColumn<bool>("ran");
    QTest::newRow("right click") << 0 << true;
    QTest::newRow("menu key") << 1 << true;
    QTest::newRow("shift+F10") << 2 << true;
    QTest::newRow("bag refuses") << 2 << false;
  }

  void contextMenuListsAndRunsTheItemsActions()
  {
    QFETCH(int, how);
    QFETCH(bool, ran);
    RecordingBag bag;
    const int item = addActions(bag, 2);
    bag.item(item).value = textValue(QStringLiteral("M12"));
    bag.item(item).flags |= 0x1;
    bag.item(item).executeResult = ran;
    auto* control = boundControl<PropUiQLineEdit>(bag, item);
    ControlWindow window(control);
    QVERIFY(window.showActive());
    auto* edit = control->findChild<QLineEdit*>(QStringLiteral("edit"));
    QVERIFY(edit);
    edit->setFocus(Qt::TabFocusReason);
    QTRY_VERIFY(edit->hasFocus());

    if (how == 2)
      QTest::keyClick(edit, Qt::Key_F10, Qt::ShiftModifier);
    else
    {
      QContextMenuEvent request(how == 0 ? QContextMenuEvent::Mouse : QContextMenuEvent::Keyboard, QPoint(4, 4),
                                edit->mapToGlobal(QPoint(4, 4)));
      QApplication::sendEvent(edit, &request);
    }
    QTRY_VERIFY(openMenu());
    QMenu* menu = openMenu();
    const QStringList captions = captionsOf(menu);
    // The edit keeps its own entries, with the commands after them.
    QVERIFY(captions.size() > 2);
    QCOMPARE(captions.mid(captions.size() - 2), (QStringList{QStringLiteral("Command 0"), QStringLiteral("Command 1")}));
    // From the keyboard the first command is ready for Return; a click leaves the choice to the mouse.
    QCOMPARE(menu->activeAction() ? menu->activeAction()->text() : QString(),
             how == 0 ? QString() : QStringLiteral("Command 0"));

    bag.clearCalls();
    menu->actions().last()->trigger();
    menu->close();
    QCOMPARE(bag.executed.size(), 1);
    QCOMPARE(bag.executed[0], bag.item(item).actions[1].get());
    // As from the toolbar: a command the bag ran makes the control re-read its value.
    QCOMPARE(bag.called(QStringLiteral("getValue")), ran);
    QTRY_VERIFY(!openMenu());
  }

  // Every widget a control is made of offers the menu, from the first request on:
  // a spin box's inner edit, a check box, each button of a row.
  void contextMenuOpensOnEveryWidgetOfTheControl_data()
  {
    QTest::addColumn<OdGUID>("guid");
    QTest::newRow("integer") << PropUiGuidInteger;
    QTest::newRow("check box") << PropUiGuidBool;
    QTest::newRow("radio buttons") << PropUiGuidRadioButtons;
  }

  void contextMenuOpensOnEveryWidgetOfTheControl()
  {
    QFETCH(OdGUID, guid);
    RecordingBag bag;
    PropUiQWidget* control = boundKind(guid, bag, addRichItem(bag, QStringLiteral("Rich")));
    QVERIFY(control);
    ControlWindow window(control);
    QVERIFY(window.showActive());

    QList<QWidget*> widgets{control};
    widgets += control->findChildren<QWidget*>();
    for (QWidget* widget : widgets)
    {
      if (!widget->isVisible())
        continue;
      QContextMenuEvent request(QContextMenuEvent::Mouse, QPoint(2, 2), widget->mapToGlobal(QPoint(2, 2)));
      QApplication::sendEvent(widget, &request);
      QTRY_VERIFY2(openMenu(), qPrintable(widget->metaObject()->className()));
      QVERIFY(captionsOf(openMenu()).contains(QStringLiteral("Reset")));
      openMenu()->close();
      QTRY_VERIFY(!openMenu());
    }
  }

  void contextMenuOfAnItemWithoutActionsIsLeftAlone_data()
  {
    QTest::addColumn<int>("binding");
    QTest::newRow("no actions") << 0;
    QTest::newRow("unknown item") << 1;
    QTest::newRow("unbound") << 2;
  }

  void contextMenuOfAnItemWithoutActionsIsLeftAlone()
  {
    QFETCH(int, binding);
    RecordingBag bag;
    const int item = addActions(bag, 0);
    auto* row = new PropUiActionToolButtonsCtrl;
    if (binding == 0)
      row->setPropBagItem(&bag, item);
    else if (binding == 1)
      row->setPropBagItem(&bag, 9);
    row->setupUi();
    row->updateData();
    ControlWindow window(row);
    QVERIFY(window.showActive());
    row->setFocus();
    QTest::keyClick(row, Qt::Key_F10, Qt::ShiftModifier);
    QContextMenuEvent request(QContextMenuEvent::Keyboard, QPoint(2, 2), row->mapToGlobal(QPoint(2, 2)));
    QApplication::sendEvent(row, &request);
    QVERIFY(!openMenu());
    QVERIFY(bag.executed.isEmpty());
  }
};

QTEST_MAIN(TestActions)
#include "tst_Actions.moc"

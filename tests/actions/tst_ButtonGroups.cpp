#include "ControlWindow.h"
#include "OdError.h"
#include "OdStringQt.h"
#include "PropUiActionPushButtonsCtrl.h"
#include "PropUiActionToolButtonsCtrl.h"
#include "PropUiQButtons3x3Ctrl.h"
#include "PropUiQPushButtonsCtrl.h"
#include "PropUiQRadioButtonsCtrl.h"
#include "PropUiQToolButtonsCtrl.h"
#include "RecordingBag.h"
#include "TestValues.h"
#include <QAbstractButton>
#include <QButtonGroup>
#include <QSignalSpy>
#include <QtTest>

namespace
{

/** Entries named by `names`, keyed 100, 101, ... with the values 1, 2, ...; the current value is `current`. */
int addChoice(RecordingBag& bag, const QStringList& names, int current)
{
  const int item = bag.addItem(QStringLiteral("Units"), intValue(current));
  RecordingBag::Item& it = bag.item(item);
  it.listNames = names;
  for (int i = 0; i < names.size(); ++i)
  {
    it.listKeys.append(static_cast<unsigned long>(100 + i));
    it.listValues.insert(static_cast<unsigned long>(100 + i), intValue(i + 1));
  }
  it.hasListText = true;
  return item;
}

/** Nine cells named "cell 0" ... "cell 8", for the 3x3 grid. */
int addGrid(RecordingBag& bag, int current)
{
  QStringList cells;
  for (int i = 0; i < 9; ++i)
    cells << QStringLiteral("cell %1").arg(i);
  return addChoice(bag, cells, current);
}

/** The three choice rows, as the kind makeRow() takes. */
void addRowKinds()
{
  QTest::addColumn<int>("kind");
  QTest::newRow("radio") << 0;
  QTest::newRow("push") << 1;
  QTest::newRow("tool") << 2;
}

PropUiButtonGroupCtrl* makeRow(int kind)
{
  if (kind == 0)
    return new PropUiQRadioButtonsCtrl;
  if (kind == 1)
    return new PropUiQPushButtonsCtrl;
  return new PropUiQToolButtonsCtrl;
}

/** The row with the options, bound to the item, set up and showing the bag's value. */
template <class Row>
Row* bound(Row* row, RecordingBag& bag, int item, int options = 0)
{
  if (options)
    row->setOptions(options);
  row->setPropBagItem(&bag, item);
  row->setupUi();
  row->updateData();
  return row;
}

QList<QAbstractButton*> buttonsOf(PropUiButtonGroupCtrl* row)
{
  return row->buttonGroup()->buttons();
}

QAbstractButton* checkedOf(PropUiButtonGroupCtrl* row)
{
  return row->buttonGroup()->checkedButton();
}

} // namespace

class TestButtonGroups : public QObject
{
  Q_OBJECT

private slots:
  // A refresh touches only what changed: renamed entries read anew, the check
  // moves with the value, and a current button that stays is not flipped.
  void rowsFollowTheListAndMatchByText_data() { addRowKinds(); }

  void rowsFollowTheListAndMatchByText()
  {
    QFETCH(int, kind);
    RecordingBag bag;
    const int item = addChoice(bag, {QStringLiteral("mm"), QStringLiteral("cm"), QStringLiteral("m"), QStringLiteral("in")}, 2);
    QScopedPointer<PropUiButtonGroupCtrl> row(bound(makeRow(kind), bag, item));
    const QList<QAbstractButton*> buttons = buttonsOf(row.data());
    QCOMPARE(buttons.size(), 4);
    QAbstractButton* cm = checkedOf(row.data());
    QCOMPARE(cm->text(), QStringLiteral("cm"));
    QCOMPARE(buttons[3]->toolTip(), QStringLiteral("in"));
    QSignalSpy toggled(cm, &QAbstractButton::toggled);
    row->updateData();
    QCOMPARE(checkedOf(row.data()), cm);
    QCOMPARE(toggled.count(), 0);

    bag.item(item).listNames = QStringList{QStringLiteral("mm"), QStringLiteral("dm"), QStringLiteral("km"), QStringLiteral("in")};
    bag.item(item).value = intValue(3);
    row->updateData();
    QCOMPARE(buttons[1]->text(), QStringLiteral("dm"));
    QCOMPARE(buttons[2]->toolTip(), QStringLiteral("km"));
    QCOMPARE(checkedOf(row.data()), buttons[2]);
    QVERIFY(!cm->isChecked());

    // The current entry renamed in place keeps its button checked. Characters beyond
    // 16 bits take two places in a QString and one in the bag's text.
    const QString wide = QStringLiteral("\U0001D400") + QStringLiteral("-profile");
    bag.item(item).listNames[2] = wide;
    row->updateData();
    QCOMPARE(buttons[2]->text(), wide);
    QCOMPARE(buttons[2]->toolTip(), wide);
    QCOMPARE(checkedOf(row.data()), buttons[2]);
    QSignalSpy stays(buttons[2], &QAbstractButton::toggled);
    row->updateData();
    QCOMPARE(checkedOf(row.data()), buttons[2]);
    QCOMPARE(stays.count(), 0);

    buttons[1]->click();
    QCOMPARE(bag.written.size(), 1);
    QCOMPARE(bag.written[0].getInt32(), 2);

    // The list shrinks; a value with no matching text leaves every button unchecked.
    bag.item(item).listNames = QStringList{QStringLiteral("mm"), QStringLiteral("cm")};
    bag.item(item).value = intValue(9);
    row->updateData();
    QCOMPARE(buttonsOf(row.data()).size(), 2);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(row->findChildren<QAbstractButton*>().size(), 2);
    QVERIFY(!checkedOf(row.data()));
  }

  // A row is one Tab stop on its buttons, never on the frame that cannot show focus.
  void focusPassesToTheCurrentOrFirstButton_data()
  {
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("expected");
    QTest::addColumn<int>("backtabStop");
    QTest::newRow("radio: the checked one") << 0 << 1 << 1;
    QTest::newRow("push: the checked one") << 1 << 1 << 1;
    QTest::newRow("tool: the checked one") << 2 << 1 << 1;
    QTest::newRow("action tool buttons: the first") << 3 << 0 << 2;
    QTest::newRow("action push buttons: the first") << 4 << 0 << 2;
    QTest::newRow("3x3 grid: the current cell") << 5 << 3 << 3;
  }

  void focusPassesToTheCurrentOrFirstButton()
  {
    QFETCH(int, kind);
    QFETCH(int, expected);
    QFETCH(int, backtabStop);
    RecordingBag bag;
    PropUiQControl* control = nullptr;
    int item = 0;
    if (kind < 3)
    {
      item = addChoice(bag, {QStringLiteral("mm"), QStringLiteral("cm"), QStringLiteral("m")}, 2);
      control = bound(makeRow(kind), bag, item);
    }
    else if (kind == 5)
    {
      item = addGrid(bag, 4);
      control = bound(new PropUiQButtons3x3Ctrl, bag, item);
    }
    else
    {
      item = bag.addItem(QStringLiteral("Tools"));
      for (const char* caption : {"Zoom", "Isolate", "Hide"})
        bag.item(item).actions.append(OdSharedPtr<PropAction>(new TestAction(QLatin1String(caption))));
      control = kind == 3 ? static_cast<PropUiQControl*>(boundControl<PropUiActionToolButtonsCtrl>(bag, item))
                          : boundControl<PropUiActionPushButtonsCtrl>(bag, item);
    }
    ControlWindow window(control);
    QVERIFY(window.showActive());
    QButtonGroup* group = control->findChild<QButtonGroup*>();
    QAbstractButton* target = group->buttons().value(expected);
    QVERIFY(target);

    // The frame is no Tab stop while its buttons are. Into a choice row, Tab and Backtab land
    // on the current entry; a row of commands has a stop per button.
    for (bool backwards : {false, true})
    {
      window.other->setFocus();
      QTRY_VERIFY(window.other->hasFocus());
      if (backwards)
        QTest::keyClick(window.other, Qt::Key_Backtab, Qt::ShiftModifier);
      else
        QTest::keyClick(window.other, Qt::Key_Tab);
      QTRY_COMPARE(QApplication::focusWidget(), static_cast<QWidget*>(group->buttons().value(backwards ? backtabStop : expected)));
    }

    if (kind == 5)
      return; // only the rows hand focus given to the control on to a button
    // Focus given to the row (by a host or a delegate) goes on to its current button.
    window.other->setFocus();
    control->setFocus(Qt::TabFocusReason);
    QTRY_COMPARE(QApplication::focusWidget(), static_cast<QWidget*>(target));

    // With no button able to hold it, the row keeps the focus itself.
    for (QAbstractButton* button : group->buttons())
      button->setEnabled(false);
    QCOMPARE(control->focusPolicy(), Qt::StrongFocus);
    window.other->setFocus();
    control->setFocus(Qt::TabFocusReason);
    QTRY_VERIFY(control->hasFocus());
  }

  void iconOnlyToolButtonsNeverMatch()
  {
    RecordingBag bag;
    const int item = addChoice(bag, {QStringLiteral("None"), QStringLiteral("Box")}, 2);
    bag.item(item).icons.insert(101, QIcon(QPixmap(8, 8)));
    QScopedPointer<PropUiButtonGroupCtrl> row(bound(makeRow(2), bag, item, 0x40000));
    QVERIFY(buttonsOf(row.data())[1]->text().isEmpty());
    QCOMPARE(buttonsOf(row.data())[1]->toolTip(), QStringLiteral("Box"));
    QVERIFY(!buttonsOf(row.data())[1]->icon().isNull());
    QVERIFY(!checkedOf(row.data())); // matched by text, and there is none
  }

  void gridNeedsNineEntries()
  {
    RecordingBag bag;
    const int item = addChoice(bag, {QStringLiteral("a"), QStringLiteral("b")}, 1);
    PropUiQButtons3x3Ctrl grid;
    grid.setPropBagItem(&bag, item);
    grid.setupUi();
    try
    {
      grid.updateData();
      QFAIL("a short list was taken");
    }
    catch (const OdError& e)
    {
      QCOMPARE(e.code(), eInvalidIndex);
    }
    QVERIFY(!grid.buttonGroup()->checkedButton());
    QVERIFY(bag.written.isEmpty());
  }
};

QTEST_MAIN(TestButtonGroups)
#include "tst_ButtonGroups.moc"

#include "ControlWindow.h"
#include "EveryKind.h"
#include "PropUiOptions.h"
#include "PropUiActionToolButtonsCtrl.h"
#include "PropUiCommonToolTipFilter.h"
#include "PropUiFocusReactorFilter.h"
#include "PropUiQControl.h"
#include "PropUiQDefaultFormatter.h"
#include "MessageCatcher.h"
#include "RecordingBag.h"
#include "RichItem.h"
#include "RunningModule.h"
#include "TestValues.h"
#include <QtTest>
#include <QtWidgets>

using host_qt_ui::QHostMessageBoxOd;

namespace
{

/** A control that lets the tests flip the base's message switch. */
class ProbeControl : public PropUiQControl
{
public:
  using PropUiQControl::setMessagesSuppressed;
};

} // namespace

class TestControlBase : public QObject
{
  Q_OBJECT
  RunningModule module;

private slots:
  void theWheelIsLeftToThePanel_data()
  {
    addEveryKindRows();
    QTest::newRow("multi-line double") << PropUiGuidDouble;
  }

  // A user scrolling the panel passes over every control: none may take the
  // turn for itself, change what it shows, write, or pull the focus to it.
  void theWheelIsLeftToThePanel()
  {
    QFETCH(OdGUID, guid);
    const bool multiLine = QByteArray(QTest::currentDataTag()).startsWith("multi-line");
    RecordingBag bag;
    const int item = addRichItem(bag, QStringLiteral("Rich"));
    if (guid == PropUiGuidDate)
      bag.item(item).value = textValue(QStringLiteral("05.03.2021"));
    PropUiQWidget* control = boundKind(guid, bag, item, multiLine ? PropUiOption::kMultiLine : 0);
    if (!control)
      QSKIP("kind not registered");
    ControlWindow window(control);
    QVERIFY(window.showActive());
    window.other->setFocus();
    QTRY_VERIFY(window.other->hasFocus());
    const QImage before = control->grab().toImage();
    bag.clearCalls();
    for (QWidget* widget : control->findChildren<QWidget*>())
    {
      if (!widget->isVisible())
        continue;
      const QString where = QString::fromLatin1(widget->metaObject()->className()) + QLatin1Char(' ') + widget->objectName();
      // Combo boxes keep Qt's wheel focus; the turn still chooses nothing in them.
      if (!qobject_cast<QComboBox*>(widget))
        QVERIFY2((widget->focusPolicy() & Qt::WheelFocus) != Qt::WheelFocus, qPrintable(where));
      for (int delta : {120, -120, 120})
      {
        const QPoint centre = widget->rect().center();
        QWheelEvent wheel(centre, widget->mapToGlobal(centre), QPoint(), QPoint(0, delta), Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(widget, &wheel);
        // A view may scroll its own rows; anything else hands the turn on to the panel.
        if (!qobject_cast<QAbstractScrollArea*>(widget) && !qobject_cast<QAbstractScrollArea*>(widget->parentWidget()))
          QVERIFY2(!wheel.isAccepted(), qPrintable(where));
      }
    }
    QVERIFY(window.other->hasFocus());
    QVERIFY2(!bag.called(QStringLiteral("validate")) && !bag.called(QStringLiteral("setValue"))
               && !bag.called(QStringLiteral("setElementValue")),
             qPrintable(bag.calls.join(QLatin1Char(' '))));
    QCOMPARE(control->grab().toImage(), before);
  }

  void badInputWritesNothing_data() { addEveryKindRows(); }

  // Unbound, bound to an item the bag does not have, given a value it cannot read, one of
  // another type or none at all, and told of entries that do not exist: no control writes.
  void badInputWritesNothing()
  {
    QFETCH(OdGUID, guid);
    MessageCatcher messages;
    QScopedPointer<PropUiQWidget> unbound(propUiCreateWidget(guid, 0));
    if (!unbound)
      QSKIP("kind not registered");
    if (guid == PropUiGuidButtons3x3)
      QSKIP("the 3x3 grid lets an exception of the bag through on bad input");
    unbound->setupUi();
    unbound->updateUi();
    unbound->updateData();

    RecordingBag bag;
    const int item = addRichItem(bag, QStringLiteral("Rich"));
    QScopedPointer<PropUiQWidget> unknown(propUiCreateWidget(guid, 0));
    unknown->setPropBagItem(&bag, 7);
    unknown->setupUi();
    unknown->updateUi();
    unknown->updateData();

    QScopedPointer<PropUiQWidget> control(boundKind(guid, bag, item));
    const QImage shown = control->grab().toImage();
    bag.item(item).readable = false;
    bag.item(item).value = intValue(7);
    control->updateData();
    QCOMPARE(control->grab().toImage(), shown); // what it cannot read leaves what is shown
    bag.item(item).readable = true;
    PropVariant noData = intValue(50);
    noData.setType(noData.type() | PropVariant::kNoData);
    for (const PropVariant& value : {textValue(QStringLiteral("many")), realValue(2.5), boolValue(true), noData,
                                     textsValue({QStringLiteral("a")}), PropVariant()})
    {
      bag.item(item).value = value;
      control->updateData();
    }
    for (PropUiQWidget* bound : {control.data(), unknown.data()})
      for (QComboBox* combo : bound->findChildren<QComboBox*>())
        for (int entry : {-1, 1000})
          emit combo->activated(entry);
    for (QLineEdit* edit : unknown->findChildren<QLineEdit*>())
    {
      edit->setText(QStringLiteral("3"));
      emit edit->editingFinished();
    }
    QCoreApplication::processEvents();
    QVERIFY2(!bag.called(QStringLiteral("setValue")) && !bag.called(QStringLiteral("setElementValue")),
             qPrintable(bag.calls.join(QLatin1Char(' '))));
  }

  void bindingFormsAndPropagation()
  {
    RecordingBag bag;
    bag.addItem(QStringLiteral("Width"));
    bag.addItem(QStringLiteral("Vertices"));
    PropUiQControl control;
    QVERIFY(control.getFormatter()); // made on first use, owned by the control
    QCOMPARE(control.getFormatter()->parent(), &control);

    control.setPropBagItem(&bag, 1, 4);
    QVERIFY(control.isPropertyElement());
    QCOMPARE(control.element(), 4ul);
    QCOMPARE(control.getFormatter()->propBag(), &bag);

    // The two-argument form clears the flag but leaves the element as it was.
    control.setPropBagItem(&bag, 0);
    QVERIFY(!control.isPropertyElement());
    QCOMPARE(control.element(), 4ul);
    QCOMPARE(control.itemIndex(), 0);

    PropUiQDefaultFormatter other(nullptr);
    control.setFormatter(&other);
    control.setFormatter(nullptr);
    control.setPropBagItem(&bag, 0); // no formatter: the step is skipped
    QCOMPARE(other.propBag(), nullptr);
  }

  void actionsToolbarFollowsTheItemFlag()
  {
    RecordingBag bag;
    const int plain = bag.addItem(QStringLiteral("Plain"));
    const int withActions = bag.addItem(QStringLiteral("Style"));
    bag.item(withActions).flags = PropItemFlag::kHasActions;
    bag.item(withActions).actions.append(OdSharedPtr<PropAction>(new TestAction(QStringLiteral("Edit"))));

    PropUiQControl control;
    control.setPropBagItem(&bag, withActions);
    PropUiActionToolButtonsCtrl* toolbar = control.createActionsToolBar();
    QVERIFY(toolbar);
    QCOMPARE(toolbar->parentWidget(), &control);
    QCOMPARE(toolbar->getOptions(), PropUiOption::kNoFocusButtons);
    QVERIFY(toolbar->isPropertyElement()); // always the element form, with the stored element
    QCOMPARE(toolbar->element(), 0ul);
    QPointer<PropUiActionToolButtonsCtrl> first = toolbar;

    // A rebuild replaces the toolbar; an item without the flag destroys it.
    QVERIFY(control.createActionsToolBar());
    QVERIFY(!first);
    QPointer<PropUiActionToolButtonsCtrl> second = control.findChild<PropUiActionToolButtonsCtrl*>();
    control.setPropBagItem(&bag, plain);
    QVERIFY(!control.createActionsToolBar());
    QVERIFY(!second);

    control.setPropBagItem(&bag, withActions);
    control.disableActionsToolbar(true);
    QVERIFY(!control.createActionsToolBar());
    QVERIFY(!control.findChild<PropUiActionToolButtonsCtrl*>());

    // Rebinding the control rebinds the toolbar with it.
    control.disableActionsToolbar(false);
    toolbar = control.createActionsToolBar();
    control.setPropBagItem(&bag, withActions, 9);
    QCOMPARE(toolbar->element(), 9ul);
    control.setPropBagItem(&bag, plain);
    QVERIFY(!toolbar->isPropertyElement());
    QCOMPARE(toolbar->itemIndex(), plain);
  }

  void messagesAreDeferredAndCanBeSuppressed_data()
  {
    QTest::addColumn<bool>("error");
    QTest::addColumn<int>("kind");
    QTest::newRow("error") << true << int(QHostMessageBoxOd::Critical);
    QTest::newRow("information") << false << int(QHostMessageBoxOd::Information);
  }

  void messagesAreDeferredAndCanBeSuppressed()
  {
    QFETCH(bool, error);
    QFETCH(int, kind);
    MessageCatcher messages;
    ProbeControl control;
    auto show = [&](const char* text) {
      const OdString message(text);
      return error ? control.showErrorMessage(message) : control.showInfoMessage(message);
    };

    QVERIFY(!show(""));
    control.setMessagesSuppressed(true);
    QVERIFY(!show("Radius must be positive"));
    control.setMessagesSuppressed(false);
    QVERIFY(show("Radius must be positive"));
    QVERIFY(messages.shown.isEmpty()); // never inside the event that caused it
    QTRY_COMPARE(messages.shown.size(), 1);
    QCOMPARE(int(messages.shown[0].kind), kind);
    QCOMPARE(messages.shown[0].text, QStringLiteral("Radius must be positive"));
    QCOMPARE(messages.shown[0].buttons, 0x400);
    QCoreApplication::processEvents();
    QCOMPARE(messages.shown.size(), 1);
  }

  // Only an item with a description gets the filter, and with it the
  // description in place of the widgets' own tips; until then they keep theirs.
  void toolTipFilterNeedsTheOptionAndADescription()
  {
    RecordingBag bag;
    bag.addItem(QStringLiteral("Width"));
    QHelpEvent tip(QEvent::ToolTip, QPoint(1, 1), QPoint(1, 1));
    PropUiQControl without;
    without.setPropBagItem(&bag, 0);
    bag.item(0).description = QStringLiteral("Line width");
    without.setupUi();
    without.updateUi();
    QVERIFY(!without.findChild<PropUiCommonToolTipFilter*>());

    PropUiQControl with;
    with.setOptions(0x40);
    with.setPropBagItem(&bag, 0, 2);
    bag.item(0).description.clear();
    with.setupUi();
    QLabel inner(&with);
    inner.setToolTip(QStringLiteral("own"));
    with.useToolTipFilter(&inner);
    with.updateUi();
    QVERIFY(!with.findChild<PropUiCommonToolTipFilter*>());
    QCoreApplication::sendEvent(&inner, &tip);
    QCOMPARE(inner.toolTip(), QStringLiteral("own"));

    bag.item(0).description = QStringLiteral("Line width");
    with.updateUi();
    with.updateUi();
    const auto filters = with.findChildren<PropUiCommonToolTipFilter*>();
    QCOMPARE(filters.size(), 1);
    QVERIFY(filters[0]->isBoundWithSubIndex());
    QCOMPARE(filters[0]->subIndex(), 2ul);
    for (QWidget* hovered : {static_cast<QWidget*>(&inner), static_cast<QWidget*>(&with)})
    {
      QCoreApplication::sendEvent(hovered, &tip);
      QCOMPARE(hovered->toolTip(), QStringLiteral("Line width"));
    }
    // A description the bag cannot give now leaves the last one.
    bag.item(0).hasDescription = false;
    with.updateUi();
    QCoreApplication::sendEvent(&inner, &tip);
    QCOMPARE(inner.toolTip(), QStringLiteral("Line width"));
  }

  void focusReactorIsCreatedOnceAndBound()
  {
    RecordingBag bag;
    bag.addItem(QStringLiteral("Width"));
    PropUiQControl control;
    control.setPropBagItem(&bag, 0, 3);
    QLineEdit a(&control), b(&control);
    control.useFocusReactor(&a);
    control.useFocusReactor(&b);
    control.useFocusReactor(nullptr);
    const auto filters = control.findChildren<PropUiFocusReactorFilter*>();
    QCOMPARE(filters.size(), 1);
    QCOMPARE(filters[0]->propBag(), &bag);
    QCOMPARE(filters[0]->subIndex(), 3ul);
    control.setPropBagItem(&bag, 0);
    QVERIFY(!filters[0]->isBoundWithSubIndex());
  }

  void defaultFormatterAsksTheBag()
  {
    RecordingBag bag;
    const int item = bag.addItem(QStringLiteral("Style"));
    bag.item(item).icons.insert(7, QIcon(QPixmap(4, 4)));
    PropUiQDefaultFormatter formatter(nullptr);
    PropVariant value;
    value.setInt32(12);
    QVERIFY(formatter.getText(item, value).isNull()); // no bag yet
    formatter.setPropBag(&bag);
    QCOMPARE(formatter.getText(item, value), QStringLiteral("12"));
    QVERIFY(formatter.getText(item, PropVariant()).isNull()); // the bag cannot format it
    QVERIFY(formatter.getIcon(item, value).isNull());
    QVERIFY(formatter.getChoiceIcon(item, value, 7).value<QIcon>().availableSizes().size() > 0);
    QVERIFY(!formatter.getChoiceIcon(item, value, 8).isValid());

    const OdStringArray names{OdString(L"Solid"), OdString(L"Dashed")};
    const OdUInt64Array keys{7, 8};
    QCOMPARE(formatter.getValueListTexts(item, value, names, keys), QStringList({QStringLiteral("Solid"), QStringLiteral("Dashed")}));
    const QVariantList icons = formatter.getValueListIcons(item, value, names, keys);
    QCOMPARE(icons.size(), 2);
    QVERIFY(icons[0].isValid() && !icons[1].isValid());
    QCOMPARE(formatter.getNameListIcons(item, value, names).size(), 2);
  }
};

QTEST_MAIN(TestControlBase)
#include "tst_ControlBase.moc"

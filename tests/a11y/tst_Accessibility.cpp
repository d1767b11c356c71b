#include "ControlWindow.h"
#include "EveryKind.h"
#include "PropUiQControl.h"
#include "PropUiQLabel.h"
#include "RichItem.h"
#include "RunningModule.h"
#include <QAccessible>
#include <QtTest>
#include <QtWidgets>

namespace
{

const QString kCaption = QStringLiteral("Hub radius");
const QString kDescription = QStringLiteral("How far the rim stands from the axle");

/** The widgets a user can tab or click into. */
QList<QWidget*> focusable(QWidget* control)
{
  QList<QWidget*> widgets;
  for (QWidget* child : control->findChildren<QWidget*>())
    if (child->focusPolicy() != Qt::NoFocus)
      widgets << child;
  return widgets;
}

QString descriptionOf(QWidget* widget)
{
  return QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Description);
}

QString where(QWidget* widget)
{
  return QString::fromLatin1(widget->metaObject()->className()) + QLatin1Char(' ') + widget->objectName();
}

/** Kinds whose widgets show no value of their own: captions, and rows of buttons whose state is the value. */
bool showsNoValue(const QByteArray& kind)
{
  static const QList<QByteArray> kinds{"empty",        "label",        "action tool buttons", "action push buttons",
                                       "push buttons", "tool buttons", "radio buttons",       "3x3"};
  return kinds.contains(kind);
}

/** What the widget's interface says its value is, empty when it says nothing. */
QString valueOf(QAccessibleInterface* iface)
{
  if (QAccessibleValueInterface* value = iface->valueInterface())
    if (value->currentValue().isValid())
      return value->currentValue().toString();
  return iface->text(QAccessible::Value);
}

/** Counts the layout requests delivered to the objects it watches. */
class LayoutRequests : public QObject
{
public:
  int count = 0;

protected:
  bool eventFilter(QObject*, QEvent* event) override
  {
    if (event->type() == QEvent::LayoutRequest)
      ++count;
    return false;
  }
};

} // namespace

class TestAccessibility : public QObject
{
  Q_OBJECT
  RunningModule module;

private slots:
  void everyFocusableWidgetCarriesTheItem_data()
  {
    addEveryKindRows();
    // The multi-line forms: one edit per element, each to be told apart.
    QTest::newRow("multi-line double") << PropUiGuidDouble;
    QTest::newRow("multi-line integer") << PropUiGuidInteger;
  }

  void everyFocusableWidgetCarriesTheItem()
  {
    QFETCH(OdGUID, guid);
    // GIVEN a control of the kind over an item with a caption and a description
    const bool multiLine = QByteArray(QTest::currentDataTag()).startsWith("multi-line");
    RecordingBag bag;
    const int item = addRichItem(bag, kCaption, kDescription);
    PropUiQWidget* control = boundKind(guid, bag, item, multiLine ? PropUiOption::kMultiLine : 0);
    if (!control)
      QSKIP("kind not registered");
    ControlWindow window(control);
    QVERIFY(window.showActive());
    // WHEN the control has settled
    QCoreApplication::processEvents();
    // THEN every widget the user can reach names the item and describes it
    QStringList values;
    QStringList buttonNames;
    QStringList editNames;
    for (QWidget* widget : focusable(control))
    {
      QAccessibleInterface* iface = QAccessible::queryAccessibleInterface(widget);
      QVERIFY2(iface, qPrintable(where(widget)));
      const QString name = iface->text(QAccessible::Name);
      QVERIFY2(name.startsWith(kCaption), qPrintable(where(widget) + QStringLiteral(": ") + name));
      QCOMPARE(iface->text(QAccessible::Description), kDescription);
      if (!valueOf(iface).isEmpty())
        values << valueOf(iface);
      if (auto* combo = qobject_cast<QComboBox*>(widget))
        QCOMPARE(iface->text(QAccessible::Value), combo->isEditable() ? combo->lineEdit()->text() : combo->currentText());
      if (qobject_cast<QAbstractButton*>(widget) && !qobject_cast<QCheckBox*>(widget))
        buttonNames << name;
      if (widget->objectName() == QLatin1String("edit") || widget->objectName() == QLatin1String("spinBox"))
        editNames << name;
    }
    // AND what the control shows reaches the user as a value
    if (!showsNoValue(QTest::currentDataTag()))
      QVERIFY2(!values.isEmpty(), "no widget announces the value");
    // AND the buttons of a row, and the editors of a composite's elements, are told apart
    for (QStringList names : {buttonNames, editNames})
    {
      const int all = names.size();
      names.removeDuplicates();
      QVERIFY2(names.size() == all, qPrintable(names.join(QStringLiteral(", "))));
    }
  }

  void variesAndReadOnlyAreAnnounced_data() { addEveryKindRows(); }

  void variesAndReadOnlyAreAnnounced()
  {
    QFETCH(OdGUID, guid);
    const QString varies = QStringLiteral("*varies*");
    const QString readOnly = QStringLiteral("read-only");
    // GIVEN an item the selection holds different values of, which cannot be edited
    RecordingBag bag;
    const int item = addRichItem(bag, kCaption, kDescription, true);
    bag.item(item).editable = false;
    PropUiQWidget* control = boundKind(guid, bag, item);
    if (!control)
      QSKIP("kind not registered");
    ControlWindow window(control);
    QVERIFY(window.showActive());
    QCoreApplication::processEvents();
    // THEN both states are announced after the description, by every widget that is in them
    int announcingReadOnly = 0;
    for (QWidget* widget : focusable(control))
    {
      const QString description = descriptionOf(widget);
      QVERIFY2(description.startsWith(kDescription), qPrintable(where(widget) + QStringLiteral(": ") + description));
      if (control->isVaries())
        QVERIFY2(description.contains(varies), qPrintable(where(widget) + QStringLiteral(": ") + description));
      const bool userCannotEdit = !widget->isEnabled() || widget->property("readOnly").toBool();
      QCOMPARE(description.contains(readOnly), userCannotEdit);
      announcingReadOnly += userCannotEdit;
    }
    // A view's rows tell their own state: the view as a whole stays usable for reading.
    const QByteArray kind = QTest::currentDataTag();
    if (!showsNoValue(kind) && kind != "list" && kind != "table")
      QVERIFY2(announcingReadOnly > 0, "the editor does not say that it cannot be edited");

    // WHEN the selection changes to one value, and only the value is re-read
    bag.item(item).value = intValue(5);
    for (unsigned long e = 0; e < 3; ++e)
      bag.item(item).elementValues[e] = intValue(int(e) + 1);
    control->updateData();
    QCoreApplication::processEvents();
    // THEN varies is announced only by a control that still shows it
    // (a control that cannot read the new value keeps what it showed)
    for (QWidget* widget : focusable(control))
      QCOMPARE(descriptionOf(widget).contains(varies), control->isVaries());

    // WHEN the item becomes editable
    bag.item(item).editable = true;
    control->updateUi();
    control->updateData();
    QCoreApplication::processEvents();
    // THEN read-only is no longer announced by what the user can use
    for (QWidget* widget : focusable(control))
      if (widget->isEnabled())
        QVERIFY2(!descriptionOf(widget).contains(readOnly),
                 qPrintable(where(widget) + QStringLiteral(": ") + descriptionOf(widget)));
  }

  void captionIsTheBuddyOfItsControl_data()
  {
    QTest::addColumn<OdGUID>("guid");
    QTest::addColumn<bool>("captionFirst");
    QTest::addColumn<bool>("sameItem");
    QTest::newRow("line edit, caption after") << PropUiGuidDouble << false << true;
    QTest::newRow("combo, caption first") << PropUiGuidTextCombo << true << true;
    QTest::newRow("switch, caption after") << PropUiGuidSwitch << false << true;
    QTest::newRow("caption of another item") << PropUiGuidDouble << false << false;
  }

  void captionIsTheBuddyOfItsControl()
  {
    QFETCH(OdGUID, guid);
    QFETCH(bool, captionFirst);
    QFETCH(bool, sameItem);
    // GIVEN a row of a panel built while hidden: a caption beside a control, as a host lays them out
    RecordingBag bag;
    const int item = addRichItem(bag, kCaption, kDescription);
    const int other = bag.addItem(QStringLiteral("Rim width"), intValue(1));
    QWidget panel;
    auto* layout = new QHBoxLayout(&panel);
    auto* caption = new PropUiQLabel;
    caption->setPropBagItem(&bag, sameItem ? item : other);
    const auto setUpCaption = [&] {
      caption->setParent(&panel);
      caption->setupUi();
    };
    if (captionFirst)
      setUpCaption();
    PropUiQWidget* control = boundKind(guid, bag, item);
    QVERIFY(control);
    control->setParent(&panel);
    if (!captionFirst)
      setUpCaption();
    layout->addWidget(caption);
    layout->addWidget(control);
    LayoutRequests requests;
    caption->installEventFilter(&requests);
    // WHEN it is shown and the events that follow have run
    panel.show();
    QVERIFY(QTest::qWaitForWindowExposed(&panel));
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();

    // THEN the caption was tied before the panel was laid out: tying it later asks every row
    // for a second layout, each request searching the queue of posted events, and a large
    // panel then costs the square of its rows to show and to tear down
    QCOMPARE(requests.count, 0);
    // AND it labels the control's editor, for the keyboard and for assistive technology
    auto* label = caption->findChild<QLabel*>();
    QVERIFY(label);
    const QList<QWidget*> editors = focusable(control);
    if (!sameItem)
    {
      QCOMPARE(label->buddy(), static_cast<QWidget*>(nullptr));
      // Bound to the control's item afterwards, it finds the control
      caption->setPropBagItem(&bag, item);
      caption->updateUi();
      QTRY_COMPARE(label->buddy(), editors.value(0));
      return;
    }
    QVERIFY(!editors.isEmpty());
    QCOMPARE(label->buddy(), editors.first());
    const auto labelled = QAccessible::queryAccessibleInterface(label)->relations(QAccessible::Labelled);
    QCOMPARE(labelled.size(), 1);
    QCOMPARE(labelled.first().first->object(), static_cast<QObject*>(editors.first()));
  }

  // A refresh leaves alone what did not change; these changes alone must still be heard.
  void aRefreshChangingOnlyAnEntryOrTheDescriptionIsHeard()
  {
    // GIVEN a row of radio buttons, its widgets named and described
    RecordingBag bag;
    const int item = addRichItem(bag, kCaption, kDescription);
    QScopedPointer<PropUiQWidget> control(boundKind(PropUiGuidRadioButtons, bag, item));
    QVERIFY(control);
    QCoreApplication::processEvents();
    const QList<QAbstractButton*> buttons = control->findChildren<QAbstractButton*>();
    QVERIFY(buttons.size() > 1);
    QCOMPARE(buttons[1]->accessibleName(), kCaption + QStringLiteral(": Entry 1"));

    // WHEN only the second entry's text changes
    bag.item(item).listNames[1] = QStringLiteral("Spoke");
    control->updateData();
    QCoreApplication::processEvents();
    // THEN its button is renamed, and its neighbour keeps its name
    QCOMPARE(buttons[1]->accessibleName(), kCaption + QStringLiteral(": Spoke"));
    QCOMPARE(buttons[0]->accessibleName(), kCaption + QStringLiteral(": Entry 0"));

    // WHEN only the description changes
    bag.item(item).description = QStringLiteral("Where the spokes meet");
    control->updateUi();
    control->updateData();
    QCoreApplication::processEvents();
    // THEN every button says the new one
    for (QAbstractButton* button : buttons)
      QVERIFY2(descriptionOf(button).startsWith(QStringLiteral("Where the spokes meet")), qPrintable(where(button)));
  }

  // A composite names its rows after their axis, a host may name a widget
  // itself: a refresh keeps those, and renames only what the control named.
  void namesOthersGaveAreKeptAndOwnNamesFollowTheItem()
  {
    // GIVEN a point's control, and a text control whose edit the host has named
    RecordingBag bag;
    const int point = addRichItem(bag, kCaption, kDescription);
    const int text = bag.addItem(QStringLiteral("Label"), textValue(QStringLiteral("Hub")));
    QScopedPointer<PropUiQWidget> coords(boundKind(PropUiGuidCoords3d, bag, point));
    QScopedPointer<PropUiQWidget> edit(boundKind(PropUiGuidDouble, bag, text));
    QVERIFY(coords && edit);
    auto* hostNamed = edit->findChild<QLineEdit*>(QStringLiteral("edit"));
    hostNamed->setAccessibleName(QStringLiteral("Title of the hub"));
    QCoreApplication::processEvents();
    QStringList axes;
    for (QLineEdit* axis : coords->findChildren<QLineEdit*>(QStringLiteral("edit")))
      axes << axis->accessibleName();
    QCOMPARE(axes, QStringList({kCaption + QStringLiteral(" X"), kCaption + QStringLiteral(" Y"),
                                kCaption + QStringLiteral(" Z")}));
    auto* groups = coords->findChild<QSpinBox*>(QStringLiteral("groupSpinBox"));
    QVERIFY(groups);

    // WHEN the items are renamed and the controls refresh
    bag.item(point).name = QStringLiteral("Centre");
    bag.item(text).name = QStringLiteral("Caption");
    for (PropUiQWidget* control : {coords.data(), edit.data()})
    {
      control->updateUi();
      control->updateData();
    }
    QCoreApplication::processEvents();

    // THEN the axes and the host's name stay, and the group selector follows the item
    QStringList after;
    for (QLineEdit* axis : coords->findChildren<QLineEdit*>(QStringLiteral("edit")))
      after << axis->accessibleName();
    QCOMPARE(after, axes);
    QCOMPARE(hostNamed->accessibleName(), QStringLiteral("Title of the hub"));
    QCOMPARE(groups->accessibleName(), kCaption);
  }

  void checkBoxAnnouncesAndTakesItsState_data()
  {
    QTest::addColumn<OdGUID>("guid");
    QTest::addColumn<bool>("editable");
    QTest::newRow("check box") << PropUiGuidBool << true;
    QTest::newRow("switch") << PropUiGuidSwitch << true;
    QTest::newRow("read-only switch") << PropUiGuidSwitch << false;
  }

  void checkBoxAnnouncesAndTakesItsState()
  {
    QFETCH(OdGUID, guid);
    QFETCH(bool, editable);
    // GIVEN a box over an item that is off
    RecordingBag bag;
    const int item = bag.addItem(QStringLiteral("Visible"), boolValue(false));
    bag.item(item).editable = editable;
    PropUiQWidget* control = boundKind(guid, bag, item);
    QVERIFY(control);
    ControlWindow window(control);
    QVERIFY(window.showActive());
    QCoreApplication::processEvents();
    auto* box = control->findChild<QCheckBox*>();
    QVERIFY(box);
    QAccessibleInterface* iface = QAccessible::queryAccessibleInterface(box);
    QVERIFY(iface->valueInterface());
    QCOMPARE(iface->role(), QAccessible::CheckBox);
    QCOMPARE(iface->text(QAccessible::Name), QStringLiteral("Visible"));
    QCOMPARE(iface->text(QAccessible::Value), QStringLiteral("off"));
    QCOMPARE(iface->valueInterface()->currentValue(), QVariant(0));
    QVERIFY(!iface->state().checked);

    // WHEN assistive technology sets it on, and sets a value a box cannot hold
    bag.clearCalls();
    iface->valueInterface()->setCurrentValue(1);
    iface->valueInterface()->setCurrentValue(7);
    iface->valueInterface()->setCurrentValue(QStringLiteral("on"));

    // THEN an editable box writes once, as a click would; a read-only one writes nothing
    QCOMPARE(bag.count(QStringLiteral("setValue")), editable ? 1 : 0);
    QCOMPARE(iface->state().checked, editable);
    QCOMPARE(iface->text(QAccessible::Value), editable ? QStringLiteral("on") : QStringLiteral("off"));
    if (editable)
      QCOMPARE(bag.written.last().getBool(), true);
  }
};

QTEST_MAIN(TestAccessibility)
#include "tst_Accessibility.moc"

// What a person types into a number field reaches the bag as the person
// meant it, or not at all and with a word: every number kind, in a panel, as
// an element and as a grid cell, in the C locale and a German one.

#include "ControlWindow.h"
#include "FocusedControl.h"
#include "MessageCatcher.h"
#include "PropGrid.h"
#include "PropUiGuids.h"
#include "PropUiOptions.h"
#include "PropUiRegistry.h"
#include "PropUiQDoubleCtrl.h"
#include "RecordingBag.h"
#include "RunningModule.h"
#include "TestValues.h"
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QLineEdit>
#include <QtTest>
#include <cmath>

namespace
{

enum Kind
{
  Real,
  Distance,
  Angle,
  Whole,
  Combo // a text combo's number entry
};
enum Form
{
  Panel,
  Element,
  Cell
};

const OdGUID& guidOf(Kind kind)
{
  const OdGUID* guids[] = {&PropUiGuidDouble, &PropUiGuidDistance, &PropUiGuidAngle, &PropUiGuidInteger, &PropUiGuidDouble};
  return *guids[kind];
}

/** The text a field shows, whether it is a line edit or a spin box. */
QString textOf(QWidget* field)
{
  if (auto* combo = qobject_cast<QComboBox*>(field))
    return combo->currentText();
  if (auto* spin = qobject_cast<QAbstractSpinBox*>(field))
    return spin->text();
  return static_cast<QLineEdit*>(field)->text();
}

void selectAll(QWidget* field)
{
  if (auto* combo = qobject_cast<QComboBox*>(field))
    combo->lineEdit()->selectAll();
  else if (auto* spin = qobject_cast<QAbstractSpinBox*>(field))
    spin->selectAll();
  else
    static_cast<QLineEdit*>(field)->selectAll();
}

/** The number a write carried, or NaN for none. */
double writtenNumber(const RecordingBag& bag)
{
  return bag.written.isEmpty() ? std::nan("") : bag.written.last().getDouble();
}

const double kRefused = std::nan("");

} // namespace

class TestNumberFields : public QObject
{
  Q_OBJECT
  RunningModule module;

private Q_SLOTS:
  void cleanup() { QLocale::setDefault(QLocale::c()); }

  void typedTextReachesTheBagAsMeant_data()
  {
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("form");
    QTest::addColumn<bool>("german");
    QTest::addColumn<bool>("bagKnowsUnits");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<double>("written");

    struct Case
    {
      const char* typed;
      double real[2]; // C, German
      double whole[2];
      bool units = false;
    };
    const double x = kRefused;
    const Case cases[] = {
      {"7", {7, 7}, {7, 7}},
      {"10*2", {20, 20}, {20, 20}},
      {"(1+2)/4", {0.75, 0.75}, {x, x}},
      {"2^10", {1024, 1024}, {1024, 1024}},
      {"3.5", {3.5, 3.5}, {x, x}},
      {"-0.25", {-0.25, -0.25}, {x, x}},
      {"3,5", {x, 3.5}, {x, x}},
      {"0,5*4", {x, 2}, {x, 2}},
      {"1,000", {x, 1}, {x, 1}},
      {"2mm", {x, x}, {x, x}},
      {"2mm", {2, 2}, {2, 2}, true},
      {"2**", {x, x}, {x, x}},
      {"abc", {x, x}, {x, x}},
      {"1e400", {x, x}, {x, x}},
      {"inf", {x, x}, {x, x}},
      {"1/0", {x, x}, {x, x}},
      {"", {x, x}, {x, x}},
      {"99999999999", {99999999999.0, 99999999999.0}, {x, x}},
    };
    // Every text in a panel; the element and cell forms share the reading, so a few texts show they reach it.
    const QStringList everyForm = {QStringLiteral("10*2"), QStringLiteral("abc"), QStringLiteral("3,5")};
    const char* kindNames[] = {"real", "distance", "angle", "integer", "combo"};
    const char* formNames[] = {"panel", "element", "cell"};
    for (int kind : {Real, Distance, Angle, Whole, Combo})
      for (int form : {Panel, Element, Cell})
        for (bool german : {false, true})
          for (const Case& c : cases)
          {
            const QString typed = QString::fromUtf8(c.typed);
            if (form != Panel && (!everyForm.contains(typed) || c.units || kind == Combo))
              continue;
            if (kind == Combo && typed.isEmpty()) // an emptied combo shows its chosen entry again
              continue;
            const double written = kind == Whole ? c.whole[german] : c.real[german];
            QTest::addRow("%s %s %s %s\"%s\"", kindNames[kind], formNames[form], german ? "de" : "C",
                          c.units ? "units " : "", c.typed)
              << kind << form << german << c.units << typed << written;
          }
  }

  void typedTextReachesTheBagAsMeant()
  {
    QFETCH(int, kind);
    QFETCH(int, form);
    QFETCH(bool, german);
    QFETCH(bool, bagKnowsUnits);
    QFETCH(QString, typed);
    QFETCH(double, written);
    if (german)
      QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    MessageCatcher messages;

    // GIVEN a bag that reads only plain numbers in the C locale (and, if told, a trailing "mm"), showing 5
    RecordingBag bag;
    const PropVariant five = kind == Whole ? intValue(5) : realValue(5);
    const int item = bag.addItem(QStringLiteral("Radius"), five);
    static TestItemType types[] = {TestItemType(1, PropUiGuidDouble), TestItemType(2, PropUiGuidDistance),
                                   TestItemType(3, PropUiGuidAngle), TestItemType(4, PropUiGuidInteger)};
    bag.item(item).guid = guidOf(Kind(kind));
    if (kind == Combo)
      bag.item(item).flags = PropItemFlag::kEditableList;
    bag.item(item).type = &types[kind == Combo ? Real : kind];
    if (form == Element)
    {
      bag.item(item).elements = {0, 1};
      bag.item(item).elementCaptions = QStringList{QStringLiteral("X"), QStringLiteral("Y")};
      bag.item(item).elementValues = {{0, five}, {1, five}};
    }
    if (bagKnowsUnits)
      bag.parse = [kind](int, const OdString& text, PropVariant& value) {
        QString s = toQString(text);
        if (s.endsWith(QStringLiteral("mm")))
          s.chop(2);
        bool ok = false;
        if (kind == Whole)
          value.setInt32(s.toInt(&ok));
        else
          value.setDouble(s.toDouble(&ok));
        return ok;
      };

    // ... in a panel, as the element, or in a grid cell opened by the keyboard
    ControlWindow* window = nullptr;
    const QScopedPointer<PropGrid> grid(form == Cell ? new PropGrid(bag) : nullptr);
    QWidget* field = nullptr;
    if (grid)
    {
      QVERIFY(grid->showActive());
      grid->view.setCurrentIndex(grid->model->index(0, 1));
      QTest::keyClick(&grid->view, Qt::Key_F2);
    }
    else
    {
      PropUiQWidget* control = propUiCreateWidget(guidOf(Kind(kind)), kind == Combo ? PropUiOption::kTextCombo : 0);
      if (form == Element)
        control->setPropBagItem(&bag, item, 1);
      else
        control->setPropBagItem(&bag, item);
      control->setupUi();
      control->updateUi();
      control->updateData();
      window = new ControlWindow(control);
      QVERIFY(window->showActive());
      QWidget* first = kind == Whole   ? static_cast<QWidget*>(control->findChild<QAbstractSpinBox*>())
                       : kind == Combo ? static_cast<QWidget*>(control->findChild<QComboBox*>())
                                       : static_cast<QWidget*>(control->findChild<QLineEdit*>(QStringLiteral("edit")));
      first->setFocus(Qt::TabFocusReason);
    }
    const QScopedPointer<ControlWindow> ownWindow(window);
    QTRY_VERIFY2((field = QApplication::focusWidget()) != nullptr && (!grid || field != &grid->view), field ? field->metaObject()->className() : "none");
    if (auto* inner = qobject_cast<QLineEdit*>(field); inner && (kind == Whole || kind == Combo))
      field = inner->parentWidget();
    QVERIFY(field);
    const QString confirmed = textOf(field);
    bag.clearCalls();

    // WHEN the text is typed, every key of it, and Return pressed
    selectAll(field);
    if (typed.isEmpty())
      QTest::keyClick(field, Qt::Key_Delete);
    QTest::keyClicks(field, typed);
    QCOMPARE(textOf(field), typed);
    QTest::keyClick(field, Qt::Key_Return);

    if (std::isnan(written))
    {
      // THEN nothing reaches the bag; the text stays to be corrected, with the words that say what is taken
      QVERIFY(!bag.called(QStringLiteral("validate")) && !bag.called(QStringLiteral("set")));
      // (a combo box shows its committed entry again, as it does for any refusal)
      QCOMPARE(textOf(field), kind == Combo ? confirmed : typed);
      QTRY_COMPARE(messages.shown.size(), 1);
      QVERIFY2(messages.shown[0].text.contains(QStringLiteral("10*2")), qPrintable(messages.shown[0].text));
      if (form == Cell)
        QVERIFY(field->isVisible()); // the editor stays open
      // WHEN Escape is pressed, THEN the confirmed value is back, and still nothing written
      QTest::keyClick(field, Qt::Key_Escape);
      if (form != Cell)
        QCOMPARE(textOf(field), confirmed);
      QVERIFY(!bag.called(QStringLiteral("set")));
    }
    else
    {
      // THEN the bag receives the number once, and the field shows the bag's reading of it
      QCOMPARE(bag.written.size(), 1);
      QCOMPARE(writtenNumber(bag), written);
      // An element is written and read again as the element, never as the whole item.
      if (form == Element)
        QVERIFY(bag.called(QStringLiteral("setElementValue")) && !bag.called(QStringLiteral("setValue"))
                && !bag.called(QStringLiteral("getValue")));
      if (form != Cell && !bagKnowsUnits && kind != Combo)
        QCOMPARE(textOf(field), kind == Whole ? QString::number(qint64(written)) : RecordingBag::textOf(realValue(written)));
      QCoreApplication::processEvents();
      QVERIFY(messages.shown.isEmpty());
    }
  }

  void theReadingTakesOnlyFiniteArithmetic_data()
  {
    QTest::addColumn<QString>("expression");
    QTest::addColumn<double>("value");
    QTest::newRow("precedence") << "1+2*3" << 7.0;
    QTest::newRow("power binds before the sign") << "-2^2" << -4.0;
    QTest::newRow("log is to base 10") << "log(1000)" << 3.0;
    QTest::newRow("ln is natural") << "ln(1)" << 0.0;
    QTest::newRow("functions in radians") << "sin(0)+cos(0)" << 1.0;
    QTest::newRow("abs") << "abs(-2.5)" << 2.5;
    QTest::newRow("exponent") << "2e3" << 2000.0;
    QTest::newRow("spaces") << " 1 + 1 " << 2.0;
    QTest::newRow("a function the fields do not name") << "sqrt(4)" << kRefused;
    QTest::newRow("a constant") << "_pi" << kRefused;
    QTest::newRow("a comparison") << "3>2" << kRefused;
    QTest::newRow("a condition") << "1?2:3" << kRefused;
    QTest::newRow("an assignment") << "e=3" << kRefused;
    QTest::newRow("a list") << "1,2" << kRefused;
    QTest::newRow("not finite") << "ln(0)" << kRefused;
    QTest::newRow("not a number") << "asin(2)" << kRefused;
  }

  void theReadingTakesOnlyFiniteArithmetic()
  {
    QFETCH(QString, expression);
    QFETCH(double, value);
    MessageCatcher messages;
    RecordingBag bag;
    const int item = bag.addItem(QStringLiteral("Radius"), realValue(5));
    FocusedControl<PropUiQDoubleCtrl> window(bag, item);
    QLineEdit* edit = window.control->lineEdit();
    QVERIFY(window.focus(edit));
    edit->setText(expression);
    QTest::keyClick(edit, Qt::Key_Return);
    if (std::isnan(value))
    {
      QVERIFY(bag.written.isEmpty());
      QTRY_COMPARE(messages.shown.size(), 1);
    }
    else
    {
      QCOMPARE(bag.written.size(), 1);
      QVERIFY(qAbs(bag.written[0].getDouble() - value) < 1e-12);
    }
  }

};

QTEST_MAIN(TestNumberFields)
#include "tst_NumberFields.moc"

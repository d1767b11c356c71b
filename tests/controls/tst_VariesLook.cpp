#include "MessageCatcher.h"
#include "PropUiOptions.h"
#include "PropUiQButtons3x3Ctrl.h"
#include "PropUiQCheckBox.h"
#include "PropUiQComboBox.h"
#include "PropUiQDateCtrl.h"
#include "PropUiQDoubleCtrl.h"
#include "PropUiQIntegerCtrl.h"
#include "PropUiQLineEdit.h"
#include "PropUiQPushButtonsCtrl.h"
#include "PropUiQRadioButtonsCtrl.h"
#include "PropUiQSwitchBox.h"
#include "PropUiQTextCheckBox.h"
#include "PropUiQTextComboCtrl.h"
#include "PropUiQTextSwitchBox.h"
#include "PropUiQToolButtonsCtrl.h"
#include "RecordingBag.h"
#include "TestValues.h"
#include <QAbstractButton>
#include <QCheckBox>
#include <QDateTimeEdit>
#include <QSpinBox>
#include <QLineEdit>
#include <QtTest>

// Every kind that edits one value shows a varying selection its one way,
// and a refused edit brings that look back rather than a value nobody chose;
// over a value, a refused edit brings the value back.

namespace
{

enum Kind
{
  LineEdit,
  Double,
  PlainCombo,
  TextComboTyped,
  TextComboChosen,
  CheckBox,
  TextCheckBox,
  Switch,
  TextSwitch,
  RadioRow,
  PushRow,
  ToolRow,
  Grid3x3,
  Integer,
  Date
};

enum Outcome
{
  RefusedByValidate,
  WriteFails,
  Accepted
};

const QString kVaries = QStringLiteral("*varies*");

/** An item whose selected objects disagree or not, with a list of nine choices for the kinds that need one. */
int addItem(RecordingBag& bag, Kind kind, bool varies)
{
  PropVariant value;
  switch (kind)
  {
  case LineEdit: value = textValue(QStringLiteral("Walls"), varies); break;
  case Double: value = realValue(1.5, varies); break;
  case CheckBox:
  case TextCheckBox:
  case Switch:
  case TextSwitch: value = boolValue(false, varies); break;
  case Integer: value = intValue(24, varies); break;
  case Date: value = textValue(QStringLiteral("05.03.2021"), varies); break;
  default: value = intValue(1, varies); break;
  }
  const int item = bag.addItem(QStringLiteral("Mixed"), value);
  RecordingBag::Item& it = bag.item(item);
  if (kind == TextComboTyped)
    it.flags = PropItemFlag::kEditableList;
  if (kind == TextCheckBox || kind == TextSwitch || kind == Integer || kind == Date)
    return item; // a caption from the list would hide the varies caption
  for (int i = 0; i < 9; ++i)
  {
    it.listNames << QStringLiteral("Choice %1").arg(i + 1);
    it.listKeys << static_cast<unsigned long>(100 + i);
    it.listValues.insert(static_cast<unsigned long>(100 + i), intValue(i + 1));
  }
  it.hasListText = true;
  return item;
}

PropUiQControl* makeControl(Kind kind)
{
  switch (kind)
  {
  case LineEdit: return new PropUiQLineEdit;
  case Double: return new PropUiQDoubleCtrl;
  case PlainCombo: return new PropUiQComboBox;
  case TextComboTyped:
  case TextComboChosen: return new PropUiQTextComboCtrl;
  case CheckBox: return new PropUiQCheckBox;
  case TextCheckBox: return new PropUiQTextCheckBox;
  case Switch: return new PropUiQSwitchBox;
  case TextSwitch: return new PropUiQTextSwitchBox;
  case RadioRow: return new PropUiQRadioButtonsCtrl;
  case PushRow: return new PropUiQPushButtonsCtrl;
  case ToolRow: return new PropUiQToolButtonsCtrl;
  case Grid3x3: return new PropUiQButtons3x3Ctrl;
  case Integer: return new PropUiQIntegerCtrl;
  case Date: return new PropUiQDateCtrl;
  }
  return nullptr;
}

void chooseEntry(QComboBox* combo, int entry)
{
  combo->setCurrentIndex(entry);
  emit combo->activated(entry);
}

/** What a user does to leave the varies state: type a value, choose an entry, click. */
void editAsAUser(PropUiQControl* control, Kind kind)
{
  switch (kind)
  {
  case LineEdit:
  case Double:
  {
    QLineEdit* edit = static_cast<PropUiQLineEdit*>(control)->lineEdit();
    edit->setText(kind == Double ? QStringLiteral("2.5") : QStringLiteral("Doors"));
    emit edit->editingFinished();
    break;
  }
  case PlainCombo:
  case TextComboChosen: chooseEntry(static_cast<PropUiQComboBox*>(control)->comboBox(), 2); break;
  case TextComboTyped:
  {
    QLineEdit* edit = static_cast<PropUiQComboBox*>(control)->comboBox()->lineEdit();
    edit->setText(QStringLiteral("42"));
    emit edit->editingFinished();
    break;
  }
  case CheckBox:
  case TextCheckBox: static_cast<PropUiQCheckBox*>(control)->checkBox()->click(); break;
  case Switch:
  case TextSwitch: static_cast<PropUiQSwitchBox*>(control)->checkBox()->click(); break;
  case RadioRow:
  case PushRow:
  case ToolRow: static_cast<PropUiButtonGroupCtrl*>(control)->buttonGroup()->buttons().at(2)->click(); break;
  case Grid3x3: static_cast<PropUiQButtons3x3Ctrl*>(control)->buttonGroup()->buttons().at(4)->click(); break;
  case Integer:
  {
    // A step out of the varies state is written at once; over a number it waits for the edit to end.
    auto* spin = static_cast<PropUiQIntegerCtrl*>(control);
    const bool varies = spin->isVaries();
    spin->spinBox()->stepUp();
    if (!varies)
      spin->applyData();
    break;
  }
  case Date: static_cast<PropUiQDateCtrl*>(control)->dateEdit()->setDate(QDate(2031, 1, 1)); break;
  }
}

/** Whether the widgets show the varies look, read from what is on screen rather than from isVaries. */
bool looksVaries(PropUiQControl* control, Kind kind)
{
  switch (kind)
  {
  case LineEdit:
  case Double:
  {
    QLineEdit* edit = static_cast<PropUiQLineEdit*>(control)->lineEdit();
    return edit->text().isEmpty() && edit->placeholderText() == kVaries;
  }
  case PlainCombo:
  case TextComboTyped:
  case TextComboChosen:
  {
    QComboBox* combo = static_cast<PropUiQComboBox*>(control)->comboBox();
    if (combo->currentIndex() != -1)
      return false;
    if (QLineEdit* edit = combo->lineEdit())
      return edit->text().isEmpty() && edit->placeholderText() == kVaries;
    return combo->placeholderText() == kVaries;
  }
  case CheckBox:
  case TextCheckBox:
  case Switch:
  case TextSwitch:
  {
    host_qt_ui_core::QHostCheckBox* check = kind == CheckBox || kind == TextCheckBox
                                              ? static_cast<PropUiQCheckBox*>(control)->checkBox()
                                              : static_cast<PropUiQSwitchBox*>(control)->checkBox();
    const bool captionOk = (kind != TextCheckBox && kind != TextSwitch)
                           || (check->text() == kVaries && check->isCaptionDimmed());
    return check->checkState() == Qt::PartiallyChecked && captionOk;
  }
  case RadioRow:
  case PushRow:
  case ToolRow: return !static_cast<PropUiButtonGroupCtrl*>(control)->buttonGroup()->checkedButton();
  case Grid3x3: return !static_cast<PropUiQButtons3x3Ctrl*>(control)->buttonGroup()->checkedButton();
  case Integer: return static_cast<PropUiQIntegerCtrl*>(control)->spinBox()->findChild<QLineEdit*>()->text() == kVaries;
  case Date: return static_cast<PropUiQDateCtrl*>(control)->dateEdit()->findChild<QLineEdit*>()->text() == kVaries;
  }
  return false;
}

/**
 * Beyond the text: a check box has its third state only while it varies, and a spin box
 * shows *varies* dimmed, as a placeholder; a date that varies takes no typing.
 */
bool partsAgree(QWidget* control, bool varies)
{
  if (auto* check = control->findChild<QCheckBox*>())
    return check->isTristate() == varies;
  auto* spin = control->findChild<QAbstractSpinBox*>();
  if (!spin)
    return true;
  QString typed = QStringLiteral("1");
  int pos = 1;
  const bool dimmed =
    spin->findChild<QLineEdit*>()->palette().color(QPalette::Text) == spin->palette().color(QPalette::PlaceholderText);
  const bool typingRefused = !qobject_cast<QDateTimeEdit*>(spin) || spin->validate(typed, pos) == QValidator::Invalid;
  return dimmed == varies && (!varies || typingRefused);
}

/** What the widgets show: every text, choice and check, in the order of the children. */
QStringList shownBy(QWidget* control)
{
  QStringList shown;
  for (QObject* child : control->findChildren<QObject*>())
    if (auto* edit = qobject_cast<QLineEdit*>(child))
      shown << edit->text();
    else if (auto* combo = qobject_cast<QComboBox*>(child))
      shown << QString::number(combo->currentIndex());
    else if (auto* check = qobject_cast<QCheckBox*>(child))
      shown << QString::number(check->checkState());
    else if (auto* button = qobject_cast<QAbstractButton*>(child))
      shown << QString::number(button->isChecked());
  return shown;
}

} // namespace

Q_DECLARE_METATYPE(Kind)
Q_DECLARE_METATYPE(Outcome)

class TestVariesLook : public QObject
{
  Q_OBJECT

private slots:
  void refusedEditPutsTheVariesLookBack_data()
  {
    QTest::addColumn<Kind>("kind");
    QTest::addColumn<bool>("varies");
    QTest::addColumn<Outcome>("outcome");
    // in the order of Kind
    const char* const names[] = {"line edit", "double", "plain combo", "text combo, typed", "text combo, chosen",
                                 "check box", "text check box", "switch", "text switch", "radio row",
                                 "push row", "tool row", "3x3 grid", "integer", "date"};
    for (int k = LineEdit; k <= Date; ++k)
      for (bool varies : {true, false})
      {
        const char* over = varies ? "varies" : "a value";
        QTest::addRow("%s over %s: validate refuses", names[k], over) << Kind(k) << varies << RefusedByValidate;
        QTest::addRow("%s over %s: the write fails", names[k], over) << Kind(k) << varies << WriteFails;
        QTest::addRow("%s over %s: accepted", names[k], over) << Kind(k) << varies << Accepted;
      }
  }

  void refusedEditPutsTheVariesLookBack()
  {
    QFETCH(Kind, kind);
    QFETCH(bool, varies);
    QFETCH(Outcome, outcome);
    MessageCatcher messages;
    RecordingBag bag;
    const int item = addItem(bag, kind, varies);
    QScopedPointer<PropUiQControl> control(makeControl(kind));
    control->setPropBagItem(&bag, item);
    QVERIFY(control->setupUi());
    control->updateUi();
    control->updateData();

    // GIVEN a selection whose values differ, or agree
    QCOMPARE(looksVaries(control.data(), kind), varies);
    QVERIFY(partsAgree(control.data(), varies));
    const QStringList before = shownBy(control.data());

    // WHEN the user edits and the bag answers
    RecordingBag::Item& it = bag.item(item);
    it.acceptValidate = outcome != RefusedByValidate;
    it.validateMessage = QStringLiteral("Not for these objects.");
    it.acceptWrite = outcome != WriteFails;
    editAsAUser(control.data(), kind);
    QCOMPARE(bag.count(QStringLiteral("validate")), 1);

    // THEN a refusal shows what was there again, and only an accepted edit leaves it
    QCOMPARE(looksVaries(control.data(), kind), varies && outcome != Accepted);
    QVERIFY(partsAgree(control.data(), varies && outcome != Accepted));
    const bool buttons = kind == RadioRow || kind == PushRow || kind == ToolRow || kind == Grid3x3;
    if (!buttons || varies) // a refused button stays pressed over a value until the next read
      QCOMPARE(shownBy(control.data()) == before, outcome != Accepted);
    if (!buttons) // button rows keep no varies state of their own: their look is all there is
      QCOMPARE(control->isVaries(), varies && outcome != Accepted);
    QCOMPARE(bag.written.size(), outcome == Accepted ? 1 : 0);
    // Only the validation speaks: a failed write is the bag's to report.
    if (outcome == RefusedByValidate)
    {
      QTRY_COMPARE(messages.shown.size(), 1);
      QCOMPARE(messages.shown[0].text, it.validateMessage);
    }
    else
    {
      QCoreApplication::processEvents();
      QVERIFY(messages.shown.isEmpty());
    }
  }
};

QTEST_MAIN(TestVariesLook)
#include "tst_VariesLook.moc"

// What each registered control costs against the plain Qt widgets a
// hand-written panel would use for the same item, over the same lean bag:
//
//   (a) build: create, bind, setupUi, updateUi, updateData (plain: create the
//       widgets and fill them from the bag's formatted value)
//   (b) refresh after the value changed (plain: read the bag, set the widget)
//   (c) one committed edit (plain: read the widget, parse, validate, write)
//   (d) destroy
//
// Instruction counts under callgrind are the primary figure: the parent runs
// itself once more under valgrind, and the child brackets every measured part
// with client requests. The median wall time, measured in this process, sits
// beside them; on a shared machine it moves by 2x from one run to the next.
//
//   bench_controls [--no-callgrind] [--kind NAME] [--reps N]
//   bench_controls --callgrind-child [--kind NAME] [--reps N]   (as the parent runs it)
//
// Both stacks sit in the same hidden panel, are built parentless and adopted
// by the panel's layout, and have their posted events delivered inside each
// measured part, so that work a control defers is counted too.

#include "EveryKind.h"
#include "OdDbDatabase.h"
#include "OdStringQt.h"
#include "PropBag.h"
#include "PropUiOptions.h"
#include "PropUiQMultiTextComboCtrl.h"
#include "PropUiQTableCtrl.h"
#include "PropUiQWidget.h"
#include "PropUiRegistry.h"
#include "PropVariantConversions.h"
#include "PropWidgetsEntry.h"
#include "QHostUiLineWeightComboBox.h"
#include "RecordingBag.h"
#include "hostDbPropBagCtx.h"
#include <QApplication>
#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QDir>
#include <QElapsedTimer>
#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QListWidget>
#include <QProcess>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QSpinBox>
#include <QStandardItemModel>
#include <QTableView>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>
#include <QVBoxLayout>
#include <valgrind/callgrind.h>
#include <algorithm>
#include <cstdio>
#include <functional>
#include <map>
#include <memory>
#include <vector>

namespace
{

// ---------------------------------------------------------------------------
// What a kind reads, and the plain widgets a panel would show it with.

enum class Data
{
  Number,
  Real,
  Text,
  Integer,
  Percent,
  Choice,
  NineChoices,
  TextChoice,
  Flags,
  Bool,
  BoolText,
  Date,
  Layouts,
  TitleBlock,
  Point2,
  Point3,
  Scale,
  Actions,
  Colour,
  Lineweight,
  Linetype,
  Arrowhead,
  Layer
};

enum class Stack
{
  Nothing,
  Label,
  LineEdit,
  SpinBox,
  Combo,
  EditableCombo,
  CheckCombo,
  CheckBox,
  PushRow,
  ToolRow,
  RadioRow,
  Grid,
  Slider,
  DateEdit,
  List,
  Table,
  Coords2,
  Coords3,
  Scale,
  ActionTools,
  ActionPushes
};

struct Recipe
{
  Data data;
  Stack stack;
};

/** A kind nobody described here yet is shown as a number in a line edit. */
Recipe recipeFor(const OdGUID& guid)
{
  static const struct
  {
    const OdGUID& guid;
    Recipe recipe;
  } known[] = {
    {PropUiGuidEmpty, {Data::Number, Stack::Nothing}},
    {PropUiGuidActionToolButtons, {Data::Actions, Stack::ActionTools}},
    {PropUiGuidActionPushButtons, {Data::Actions, Stack::ActionPushes}},
    {PropUiGuidLabel, {Data::Real, Stack::Label}},
    {PropUiGuidDouble, {Data::Real, Stack::LineEdit}},
    {PropUiGuidDistance, {Data::Real, Stack::LineEdit}},
    {PropUiGuidAngle, {Data::Real, Stack::LineEdit}},
    {PropUiGuidDoubleAlt, {Data::Real, Stack::LineEdit}},
    {PropUiGuidText, {Data::Text, Stack::LineEdit}},
    {PropUiGuidVariant, {Data::Text, Stack::LineEdit}},
    {PropUiGuidInteger, {Data::Integer, Stack::SpinBox}},
    {PropUiGuidTextCombo, {Data::TextChoice, Stack::EditableCombo}},
    {PropUiGuidLayer, {Data::Layer, Stack::Combo}},
    {PropUiGuidColor, {Data::Colour, Stack::Combo}},
    {PropUiGuidLinetype, {Data::Linetype, Stack::Combo}},
    {PropUiGuidLineweight, {Data::Lineweight, Stack::Combo}},
    {PropUiGuidArrowhead, {Data::Arrowhead, Stack::Combo}},
    {PropUiGuidCoords2d, {Data::Point2, Stack::Coords2}},
    {PropUiGuidCoords2dAlt, {Data::Point2, Stack::Coords2}},
    {PropUiGuidScale2d, {Data::Scale, Stack::Scale}},
    {PropUiGuidCoords3d, {Data::Point3, Stack::Coords3}},
    {PropUiGuidCoords3dAlt, {Data::Point3, Stack::Coords3}},
    {PropUiGuidBool, {Data::Bool, Stack::CheckBox}},
    {PropUiGuidBoolText, {Data::BoolText, Stack::CheckBox}},
    {PropUiGuidSwitch, {Data::Bool, Stack::CheckBox}},
    {PropUiGuidTextSwitch, {Data::BoolText, Stack::CheckBox}},
    {PropUiGuidList, {Data::Layouts, Stack::List}},
    {PropUiGuidTable, {Data::TitleBlock, Stack::Table}},
    {PropUiGuidPushButtons, {Data::Choice, Stack::PushRow}},
    {PropUiGuidToolButtons, {Data::Choice, Stack::ToolRow}},
    {PropUiGuidRadioButtons, {Data::Choice, Stack::RadioRow}},
    {PropUiGuidButtons3x3, {Data::NineChoices, Stack::Grid}},
    {PropUiGuidSlider, {Data::Percent, Stack::Slider}},
    {PropUiGuidMultiTextCombo, {Data::Flags, Stack::CheckCombo}},
    {PropUiGuidDate, {Data::Date, Stack::DateEdit}},
  };
  for (const auto& k : known)
    if (k.guid == guid)
      return k.recipe;
  return {Data::Number, Stack::LineEdit};
}

/** The drawing the drawing-attribute kinds pick from. */
struct Drawing
{
  Drawing()
  {
    walls = db.addLayer(OdString(L"Walls"));
    doors = db.addLayer(OdString(L"Doors"));
    dashed = db.addLinetype(OdString(L"Dashed"), OdString(L"__ __"), OdDoubleArray{0.5, -0.25});
    dots = db.addLinetype(OdString(L"Dots"), OdString(L". ."), OdDoubleArray{0.0, -0.1});
  }
  OdDbDatabase db;
  OdDbObjectId walls, doors, dashed, dots;
  hostDbPropBagCtx context{&db};
};

Drawing& drawing()
{
  static Drawing d;
  return d;
}

OdCmColor aci(int index)
{
  OdCmColor c;
  c.setColorIndex(OdInt16(index));
  return c;
}

// ---------------------------------------------------------------------------
// A bag as lean as a host's: one item, answers straight from its fields.

class LeanBag : public PropBag
{
public:
  explicit LeanBag(Data data) : m_data(data)
  {
    switch (data)
    {
    case Data::Choice:
    case Data::NineChoices:
    {
      const int count = data == Data::Choice ? 3 : 9;
      for (int i = 0; i < count; ++i)
      {
        m_listNames.append(toOdString(QStringLiteral("Choice %1").arg(i)));
        m_listKeys.append(static_cast<unsigned long>(100 + i));
        m_listValues[static_cast<unsigned long>(100 + i)] = PropVariant().setInt32(i + 1);
      }
      break;
    }
    case Data::TextChoice:
    case Data::Flags:
      if (data == Data::TextChoice)
        m_flags = PropItemFlag::kEditableList;
      for (int i = 0; i < 3; ++i)
      {
        const QString name = QStringList{QStringLiteral("Endpoint"), QStringLiteral("Midpoint"),
                                         QStringLiteral("Center")}[i];
        m_listNames.append(toOdString(name));
        m_listKeys.append(static_cast<unsigned long>(i));
        m_listValues[static_cast<unsigned long>(i)] = data == Data::Flags ? PropVariant().setInt32(1 << i)
                                                                          : PropVariant().setString(toOdString(name));
      }
      break;
    case Data::BoolText: m_listNames.append(OdString(L"Protect from edits")); break;
    case Data::Layouts:
      for (int i = 0; i < 3; ++i)
      {
        m_elements.append(static_cast<unsigned long>(10 + i));
        m_elementCaptions.append(toOdString(QStringLiteral("Layout%1").arg(i)));
      }
      m_elementCount = 3;
      m_groupCount = 1;
      break;
    case Data::TitleBlock:
      m_elementValues[PropUiQTableCtrl::kRowsElement] = PropVariant().setInt32(2);
      m_elementValues[PropUiQTableCtrl::kColumnsElement] = PropVariant().setInt32(2);
      m_elementValues[PropUiQTableCtrl::kColumnLabelsElement] =
        PropVariant().setStringArray(OdStringArray{OdString(L"Field"), OdString(L"Value")});
      break;
    case Data::Percent:
      m_hasRange = true;
      m_min.setInt32(0);
      m_max.setInt32(100);
      break;
    case Data::Actions:
      m_flags = PropItemFlag::kHasActions;
      m_actions.append(OdSharedPtr<PropAction>(new TestAction(QStringLiteral("Reset"))));
      m_actions.append(OdSharedPtr<PropAction>(new TestAction(QStringLiteral("Pick"))));
      break;
    case Data::Colour:
    case Data::Lineweight:
    case Data::Linetype:
    case Data::Arrowhead:
    case Data::Layer: m_context = &drawing().context; break;
    default: break;
    }
    setState(0);
  }

  /** One of two values, so that every refresh shows something new. */
  void setState(int state)
  {
    const bool second = state % 2 != 0;
    Drawing& d = drawing();
    switch (m_data)
    {
    case Data::Number:
    case Data::Integer: m_value.setInt32(second ? 6 : 5); break;
    case Data::Percent: m_value.setInt32(second ? 40 : 20); break;
    case Data::Real: m_value.setDouble(second ? 3.75 : 2.5); break;
    case Data::Text: m_value.setString(second ? OdString(L"Rim") : OdString(L"Wheel hub")); break;
    case Data::Choice:
    case Data::NineChoices: m_value.setInt32(second ? 3 : 2); break;
    case Data::TextChoice: m_value.setString(second ? OdString(L"Center") : OdString(L"Midpoint")); break;
    case Data::Flags: m_value.setInt32(second ? 5 : 3); break;
    case Data::Bool:
    case Data::BoolText: m_value.setBool(second); break;
    case Data::Date: m_value.setString(second ? OdString(L"06.03.2021") : OdString(L"05.03.2021")); break;
    case Data::Layouts:
      m_value.setStringArray(OdStringArray{OdString(L"Model"), OdString(L"Layout1"), OdString(L"Layout2")});
      for (int i = 0; i < 3; ++i)
        m_elementValues[static_cast<unsigned long>(10 + i)] = PropVariant().setBool((i == 1) == second);
      break;
    case Data::TitleBlock:
      m_value.setStringArray(OdStringArray{OdString(L"Title"), second ? OdString(L"Section") : OdString(L"Plan"),
                                           OdString(L"Scale"), OdString(L"1:50")});
      break;
    case Data::Point2:
    case Data::Point3:
      m_value.setDouble(0);
      for (unsigned long e = 0; e < (m_data == Data::Point2 ? 2u : 3u); ++e)
        m_elementValues[e] = PropVariant().setDouble(e + (second ? 1.25 : 0.5));
      break;
    case Data::Scale: m_value.setDoubleArray(second ? OdDoubleArray{3.0, 3.0} : OdDoubleArray{2.0, 2.0}); break;
    case Data::Actions: m_value = PropVariant(); break;
    case Data::Colour: m_value = propVariantFromColor(aci(second ? 2 : 1)); break;
    case Data::Lineweight: m_value = propVariantFromLineweight(second ? OdDb::kLnWt025 : OdDb::kLnWt050); break;
    case Data::Linetype: m_value = propVariantFromObjectId(second ? d.dots : d.dashed); break;
    case Data::Arrowhead:
      m_value = propVariantFromObjectId(d.db.getBlockId(second ? OdString(L"_Closed") : OdString(L"_Dot")));
      break;
    case Data::Layer: m_value = propVariantFromObjectId(second ? d.doors : d.walls); break;
    }
  }

  const OdStringArray& listNames() const { return m_listNames; }
  const PropKeyArray& listKeys() const { return m_listKeys; }

  int getItemCount() override { return 1; }
  bool isEditable(int, unsigned long) override { return true; }
  bool getName(int, OdString& name) override
  {
    name = OdString(L"Property");
    return true;
  }
  bool getDescription(int, OdString& description) override
  {
    description = OdString(L"What the property does");
    return true;
  }
  unsigned int getFlags(int) override { return m_flags; }
  bool validate(int, unsigned long, const PropVariant&, OdString&) override { return true; }
  bool getRange(int, unsigned long, PropVariant& min, PropVariant& max) override
  {
    if (!m_hasRange)
      return false;
    min = m_min;
    max = m_max;
    return true;
  }
  bool formatValue(int, unsigned long, const PropVariant& value, OdString& text) override
  {
    const unsigned int kind = value.scalarType();
    if (value.type() == PropVariant::kLineWeight)
    {
      OdDb::LineWeight weight;
      if (!propVariantToLineweight(value, weight))
        return false;
      text = toOdString(host_qt_ui::QHostLineWeightListModel::weightText(weight));
    }
    else if (value.isArray())
      return false;
    else if (kind & PropVariant::kBool)
      text = value.getBool() ? OdString(L"Yes") : OdString(L"No");
    else if (kind & (PropVariant::kInt16 | PropVariant::kInt32 | PropVariant::kInt64))
      text = toOdString(QString::number(value.getInt64()));
    else if (kind & PropVariant::kDouble)
      text = toOdString(QString::number(value.getDouble(), 'f', 4));
    else if (kind & PropVariant::kString)
      text = value.getString();
    else
      text = OdString();
    return true;
  }
  bool parseValue(int, unsigned long element, const OdString& text, PropVariant& value) override
  {
    const QString s = toQString(text);
    bool ok = true;
    const bool real = m_data == Data::Real || m_data == Data::Point2 || m_data == Data::Point3 ||
                      m_data == Data::Scale;
    if (m_data == Data::TitleBlock || m_data == Data::Text || m_data == Data::TextChoice || m_data == Data::Date)
      value.setString(text);
    else if (m_data == Data::Colour || m_data == Data::Lineweight || m_data == Data::Linetype ||
             m_data == Data::Arrowhead || m_data == Data::Layer)
    {
      // A host looks the name up in its tables; one of the two values stands in for that.
      const PropVariant held = m_value;
      setState(s.size() % 2);
      value = m_value;
      m_value = held;
    }
    else if (real)
      value.setDouble(s.toDouble(&ok));
    else if (m_data == Data::Bool || m_data == Data::BoolText)
      value.setBool(s == QLatin1String("Yes"));
    else
      value.setInt32(s.toInt(&ok));
    Q_UNUSED(element)
    return ok;
  }
  bool getValue(int, PropVariant& value) override
  {
    value = m_value;
    return true;
  }
  bool setValue(int, const PropVariant& value) override
  {
    m_value = value;
    ++writes;
    return true;
  }
  unsigned int getActions(int, unsigned long, PropActionArray& actions) override
  {
    actions = m_actions;
    return actions.size();
  }
  bool executeAction(int, PropAction* action) override
  {
    PropVariant in, out;
    ++writes;
    return action && action->execute(in, out);
  }
  bool getValueList(int, OdStringArray& names, PropKeyArray& keys) override
  {
    if (m_listNames.isEmpty())
      return false;
    names = m_listNames;
    keys = m_listKeys;
    return true;
  }
  bool getListValue(int, unsigned long id, PropVariant& value) override
  {
    const auto found = m_listValues.find(id);
    if (found == m_listValues.end())
      return false;
    value = found->second;
    return true;
  }
  unsigned int getElements(int, PropKeyArray& elements, OdStringArray& captions) override
  {
    elements = m_elements;
    captions = m_elementCaptions;
    return elements.size();
  }
  bool getElementValue(int, unsigned long element, PropVariant& value) override
  {
    if (m_data == Data::Scale)
    {
      if (!m_value.isArray() || element > 1)
        return false;
      value.setDouble(m_value.getDoubleArray()[element]);
      return true;
    }
    const auto found = m_elementValues.find(element);
    if (found == m_elementValues.end())
      return false;
    value = found->second;
    return true;
  }
  bool setElementValue(int, unsigned long element, const PropVariant& value) override
  {
    if (m_data == Data::Scale)
    {
      OdDoubleArray numbers = m_value.getDoubleArray();
      if (element > 1 || numbers.size() != 2)
        return false;
      numbers[element] = value.getDouble();
      m_value.setDoubleArray(numbers);
    }
    else
      m_elementValues[element] = value;
    ++writes;
    return true;
  }
  int getElementCount(int) override { return m_elementCount; }
  int getGroupCount(int) override { return m_groupCount; }
  PropBagCtx* getContext() override { return m_context; }

  /** Writes and actions run, so that a run can tell that every edit arrived. */
  int writes = 0;

private:
  Data m_data;
  PropVariant m_value;
  unsigned int m_flags = 0;
  bool m_hasRange = false;
  PropVariant m_min, m_max;
  OdStringArray m_listNames;
  PropKeyArray m_listKeys;
  std::map<unsigned long, PropVariant> m_listValues;
  PropKeyArray m_elements;
  OdStringArray m_elementCaptions;
  std::map<unsigned long, PropVariant> m_elementValues;
  int m_elementCount = -1;
  int m_groupCount = 0;
  PropActionArray m_actions;
  PropBagCtx* m_context = nullptr;
};

/** What a drawing-attribute combo offers: a swatch and a name per entry, at the size shown. */
struct ComboEntries
{
  std::vector<std::pair<QIcon, QString> > entries;
  QSize iconSize;
};

// ---------------------------------------------------------------------------
// The widgets a user touches, found once, so that both stacks are driven alike.

struct Handles
{
  QLineEdit* edit = nullptr;
  QSpinBox* spinBox = nullptr;
  QComboBox* combo = nullptr;
  QList<QAbstractButton*> buttons;
  QSlider* slider = nullptr;
  QDateEdit* dateEdit = nullptr;
  QAbstractItemModel* model = nullptr;
  /** For the multi-choice combo: ticks entry i (or unticks it) and closes the popup. */
  std::function<void(int, bool)> tick;
};

QString editText(Data data, bool second)
{
  switch (data)
  {
  case Data::Text: return second ? QStringLiteral("Rim") : QStringLiteral("Spoke");
  case Data::TextChoice: return second ? QStringLiteral("Tangent") : QStringLiteral("Quadrant");
  case Data::Real:
  case Data::Point2:
  case Data::Point3:
  case Data::Scale: return second ? QStringLiteral("4.5") : QStringLiteral("1.5");
  default: return second ? QStringLiteral("7") : QStringLiteral("8");
  }
}

/** One committed edit, as a user makes it; the same for both stacks. */
void drive(Stack stack, Data data, const Handles& h, int rep)
{
  const bool second = rep % 2 != 0;
  switch (stack)
  {
  case Stack::LineEdit:
  case Stack::Coords2:
  case Stack::Coords3:
  case Stack::Scale:
  case Stack::EditableCombo:
    if (h.edit)
    {
      h.edit->setText(editText(data, second));
      QTest::keyClick(h.edit, Qt::Key_Return);
    }
    break;
  case Stack::SpinBox:
    if (h.spinBox)
    {
      h.spinBox->setValue(second ? 7 : 8);
      QTest::keyClick(h.spinBox, Qt::Key_Return);
    }
    break;
  case Stack::Combo:
    if (h.combo && h.combo->count() > 2)
    {
      const int index = second ? 1 : 2;
      h.combo->setCurrentIndex(index);
      emit h.combo->activated(index);
    }
    break;
  case Stack::CheckCombo:
    if (h.tick)
      h.tick(2, !second);
    break;
  case Stack::CheckBox:
    if (!h.buttons.isEmpty())
      h.buttons.first()->click();
    break;
  case Stack::PushRow:
  case Stack::ToolRow:
  case Stack::RadioRow:
  case Stack::Grid:
    if (h.buttons.size() > 2)
      h.buttons[second ? 1 : 0]->click();
    break;
  case Stack::ActionTools:
  case Stack::ActionPushes:
    if (!h.buttons.isEmpty())
      h.buttons.first()->click();
    break;
  case Stack::Slider:
    if (h.slider)
    {
      h.slider->setValue(second ? 70 : 80);
      emit h.slider->sliderReleased();
    }
    break;
  case Stack::DateEdit:
    if (h.dateEdit)
    {
      h.dateEdit->setDate(QDate(2022, 1, second ? 2 : 1));
      QTest::keyClick(h.dateEdit, Qt::Key_Return);
    }
    break;
  case Stack::List:
    if (h.model && h.model->rowCount() > 1)
      h.model->setData(h.model->index(1, 0), second ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
    break;
  case Stack::Table:
    if (h.model && h.model->rowCount() > 0 && h.model->columnCount() > 1)
      h.model->setData(h.model->index(0, 1), editText(Data::Text, second), Qt::EditRole);
    break;
  case Stack::Nothing:
  case Stack::Label: break;
  }
}

/** What a user of our control would touch, by the names the controls give their children. */
Handles handlesOf(PropUiQWidget* control, Stack stack)
{
  Handles h;
  h.edit = control->findChild<QLineEdit*>(QStringLiteral("edit"));
  if (!h.edit)
    h.edit = control->findChild<QLineEdit*>();
  h.spinBox = control->findChild<QSpinBox*>(QStringLiteral("spinBox"));
  h.combo = control->findChild<QComboBox*>();
  h.slider = control->findChild<QSlider*>();
  h.dateEdit = control->findChild<QDateEdit*>();
  if (auto* list = control->findChild<QListView*>(QStringLiteral("list")))
    h.model = list->model();
  if (auto* table = control->findChild<QTableView*>(QStringLiteral("table")))
    h.model = table->model();
  for (QAbstractButton* button : control->findChildren<QAbstractButton*>())
  {
    const QString name = button->objectName();
    const bool wanted = stack == Stack::CheckBox ? name == QLatin1String("checkBox")
                        : stack == Stack::ActionTools || stack == Stack::ActionPushes
                          ? name == QLatin1String("actionButton")
                          : name == QLatin1String("choice") || name.startsWith(QLatin1String("cell"));
    if (wanted)
      h.buttons << button;
  }
  if (auto* multi = qobject_cast<PropUiQMultiTextComboCtrl*>(control))
    h.tick = [multi](int entry, bool on) {
      multi->setChosen(entry, on);
      multi->onPopupClosed();
    };
  return h;
}

// ---------------------------------------------------------------------------
// The hand-written panel row: the widgets, filled from the bag and writing back.

class PlainRow : public QWidget
{
public:
  PlainRow(Stack stack, Data what, LeanBag* bag, const ComboEntries& comboEntries)
    : m_stack(stack), m_data(what), m_bag(bag)
  {
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    OdString caption, description;
    bag->getName(0, caption);
    bag->getDescription(0, description);
    const QString name = toQString(caption);
    const QString tip = toQString(description);
    QWidget* focus = nullptr;
    switch (stack)
    {
    case Stack::Nothing: break;
    case Stack::Label:
      m_label = new QLabel(name, this);
      layout->addWidget(m_label);
      break;
    case Stack::LineEdit:
      m_edits << new QLineEdit(this);
      connect(m_edits[0], &QLineEdit::editingFinished, this, [this] { commitText(m_edits[0]->text()); });
      layout->addWidget(m_edits[0]);
      focus = m_edits[0];
      break;
    case Stack::Coords2:
    case Stack::Coords3:
    case Stack::Scale:
    {
      // A captioned row per axis, as a hand-written form lays out a point.
      const int axes = stack == Stack::Coords3 ? 3 : 2;
      auto* form = new QFormLayout;
      layout->addLayout(form);
      for (int e = 0; e < axes; ++e)
      {
        auto* edit = new QLineEdit(this);
        const QString axis = QString(QChar(u'X' + e));
        edit->setAccessibleName(axis);
        connect(edit, &QLineEdit::editingFinished, this, [this, edit, e] { commitElement(e, edit->text()); });
        form->addRow(new QLabel(axis, this), edit);
        m_edits << edit;
      }
      if (stack == Stack::Scale)
      {
        m_lock = new QToolButton(this);
        m_lock->setCheckable(true);
        m_lock->setAccessibleName(name);
        layout->addWidget(m_lock);
      }
      break;
    }
    case Stack::SpinBox:
      m_spinBox = new QSpinBox(this);
      m_spinBox->setRange(-1000000, 1000000);
      connect(m_spinBox, &QAbstractSpinBox::editingFinished, this, [this] { commit(PropVariant().setInt32(m_spinBox->value())); });
      layout->addWidget(m_spinBox);
      focus = m_spinBox;
      break;
    case Stack::Combo:
    case Stack::EditableCombo:
    case Stack::CheckCombo:
      m_combo = new QComboBox(this);
      if (stack == Stack::EditableCombo)
      {
        m_combo->setEditable(true);
        m_combo->setInsertPolicy(QComboBox::NoInsert);
        connect(m_combo->lineEdit(), &QLineEdit::editingFinished, this, [this] { commitText(m_combo->currentText()); });
      }
      if (stack == Stack::Combo)
      {
        // Pictures wider than the style's icons need the size said, as any panel showing them would.
        if (comboEntries.iconSize.isValid() && comboEntries.iconSize != m_combo->iconSize())
          m_combo->setIconSize(comboEntries.iconSize);
        for (const auto& entry : comboEntries.entries)
          m_combo->addItem(entry.first, entry.second);
        connect(m_combo, QOverload<int>::of(&QComboBox::activated), this,
                [this](int index) { commitText(m_combo->itemText(index)); });
      }
      else
      {
        for (const OdString& entry : bag->listNames())
          m_combo->addItem(toQString(entry));
      }
      if (stack == Stack::CheckCombo)
        m_ticks = qobject_cast<QStandardItemModel*>(m_combo->model());
      layout->addWidget(m_combo);
      focus = m_combo;
      break;
    case Stack::CheckBox:
      m_check = new QCheckBox(this);
      if (what == Data::BoolText)
        m_check->setText(toQString(bag->listNames().first()));
      connect(m_check, &QAbstractButton::clicked, this, [this](bool on) { commit(PropVariant().setBool(on)); });
      layout->addWidget(m_check);
      focus = m_check;
      break;
    case Stack::PushRow:
    case Stack::ToolRow:
    case Stack::RadioRow:
    case Stack::Grid:
    {
      m_group = new QButtonGroup(this);
      QGridLayout* grid = nullptr;
      if (stack == Stack::Grid)
      {
        grid = new QGridLayout;
        layout->addLayout(grid);
      }
      const PropKeyArray& keys = bag->listKeys();
      for (unsigned int i = 0; i < keys.size(); ++i)
      {
        QAbstractButton* button = nullptr;
        const QString text = toQString(bag->listNames()[i]);
        if (stack == Stack::PushRow)
          button = new QPushButton(text, this);
        else if (stack == Stack::RadioRow)
          button = new QRadioButton(text, this);
        else
        {
          auto* tool = new QToolButton(this);
          tool->setText(text);
          button = tool;
        }
        button->setCheckable(true);
        button->setToolTip(text);
        button->setAccessibleName(text);
        m_group->addButton(button, int(i));
        PropVariant value;
        bag->getListValue(0, keys[i], value);
        m_choices << value;
        if (grid)
          grid->addWidget(button, int(i) / 3, int(i) % 3);
        else
          layout->addWidget(button);
      }
      connect(m_group, &QButtonGroup::idClicked, this, [this](int id) { commit(m_choices.value(id)); });
      break;
    }
    case Stack::ActionTools:
    case Stack::ActionPushes:
    {
      bag->getActions(0, 0, m_actions);
      for (unsigned int i = 0; i < m_actions.size(); ++i)
      {
        const QString text = toQString(m_actions[i]->name());
        QAbstractButton* button = nullptr;
        if (stack == Stack::ActionPushes)
          button = new QPushButton(text, this);
        else
        {
          auto* tool = new QToolButton(this);
          tool->setText(text);
          button = tool;
        }
        button->setAccessibleName(text);
        connect(button, &QAbstractButton::clicked, this, [this, i] { m_bag->executeAction(0, m_actions[i].get()); });
        layout->addWidget(button);
        m_buttons << button;
      }
      break;
    }
    case Stack::Slider:
      m_slider = new QSlider(Qt::Horizontal, this);
      m_slider->setRange(0, 100);
      connect(m_slider, &QSlider::sliderReleased, this, [this] { commit(PropVariant().setInt32(m_slider->value())); });
      layout->addWidget(m_slider);
      focus = m_slider;
      break;
    case Stack::DateEdit:
      m_dateEdit = new QDateEdit(this);
      m_dateEdit->setDisplayFormat(QStringLiteral("dd.MM.yyyy"));
      connect(m_dateEdit, &QAbstractSpinBox::editingFinished, this,
              [this] { commitText(m_dateEdit->date().toString(QStringLiteral("dd.MM.yyyy"))); });
      layout->addWidget(m_dateEdit);
      focus = m_dateEdit;
      break;
    case Stack::List:
      m_list = new QListWidget(this);
      connect(m_list, &QListWidget::itemChanged, this, [this](QListWidgetItem* item) {
        const int row = m_list->row(item);
        const PropVariant value = PropVariant().setBool(item->checkState() == Qt::Checked);
        OdString message;
        if (m_bag->validate(0, 10 + row, value, message))
          m_bag->setElementValue(0, 10 + row, value);
      });
      layout->addWidget(m_list);
      focus = m_list;
      break;
    case Stack::Table:
      m_table = new QTableWidget(this);
      connect(m_table, &QTableWidget::itemChanged, this, [this](QTableWidgetItem*) { commitTable(); });
      layout->addWidget(m_table);
      focus = m_table;
      break;
    }
    if (focus)
    {
      focus->setToolTip(tip);
      focus->setAccessibleName(name);
    }
    for (QLineEdit* edit : m_edits)
      edit->setToolTip(tip);
    refresh();
  }

  /** The widgets a user touches. */
  Handles handles()
  {
    Handles h;
    h.edit = m_edits.value(0);
    if (m_combo && m_combo->isEditable())
      h.edit = m_combo->lineEdit();
    h.spinBox = m_spinBox;
    h.combo = m_combo;
    h.slider = m_slider;
    h.dateEdit = m_dateEdit;
    h.model = m_list ? m_list->model() : m_table ? m_table->model() : nullptr;
    if (m_check)
      h.buttons << m_check;
    if (m_group)
      h.buttons = m_group->buttons();
    h.buttons << m_buttons;
    if (m_ticks)
      h.tick = [this](int entry, bool on) {
        if (QStandardItem* item = m_ticks->item(entry))
          item->setCheckState(on ? Qt::Checked : Qt::Unchecked);
        commitTicks();
      };
    return h;
  }

  /** Reads the bag and shows what it holds. */
  void refresh()
  {
    const bool editable = m_bag->isEditable(0, 0);
    PropVariant value;
    switch (m_stack)
    {
    case Stack::Nothing: break;
    case Stack::Label:
    {
      OdString caption;
      if (m_bag->getName(0, caption))
        m_label->setText(toQString(caption));
      break;
    }
    case Stack::LineEdit:
      m_edits[0]->setReadOnly(!editable);
      if (m_bag->getValue(0, value))
        m_edits[0]->setText(formatted(value));
      break;
    case Stack::Coords2:
    case Stack::Coords3:
    case Stack::Scale:
      for (int e = 0; e < m_edits.size(); ++e)
      {
        m_edits[e]->setReadOnly(!m_bag->isEditable(0, static_cast<unsigned long>(e)));
        if (m_bag->getElementValue(0, static_cast<unsigned long>(e), value))
          m_edits[e]->setText(formatted(value));
      }
      if (m_lock && m_bag->getValue(0, value) && value.isArray() && value.getDoubleArray().size() == 2)
        m_lock->setChecked(value.getDoubleArray()[0] == value.getDoubleArray()[1]);
      break;
    case Stack::SpinBox:
      m_spinBox->setReadOnly(!editable);
      if (m_bag->getValue(0, value))
      {
        const QSignalBlocker quiet(m_spinBox);
        m_spinBox->setValue(value.getInt32());
      }
      break;
    case Stack::Combo:
      m_combo->setEnabled(editable);
      if (m_bag->getValue(0, value))
        m_combo->setCurrentIndex(m_combo->findText(formatted(value)));
      break;
    case Stack::EditableCombo:
      m_combo->setEnabled(editable);
      if (m_bag->getValue(0, value))
        m_combo->setEditText(formatted(value));
      break;
    case Stack::CheckCombo:
      m_combo->setEnabled(editable);
      if (m_bag->getValue(0, value) && m_ticks)
      {
        const QSignalBlocker quiet(m_ticks);
        for (int i = 0; i < m_ticks->rowCount(); ++i)
          m_ticks->item(i)->setCheckState(value.getInt32() & (1 << i) ? Qt::Checked : Qt::Unchecked);
      }
      break;
    case Stack::CheckBox:
      m_check->setEnabled(editable);
      if (m_bag->getValue(0, value))
        m_check->setChecked(value.getBool());
      break;
    case Stack::PushRow:
    case Stack::ToolRow:
    case Stack::RadioRow:
    case Stack::Grid:
      if (m_bag->getValue(0, value))
        for (int i = 0; i < m_choices.size(); ++i)
          if (m_choices[i] == value)
            m_group->button(i)->setChecked(true);
      break;
    case Stack::ActionTools:
    case Stack::ActionPushes:
      m_bag->getActions(0, 0, m_actions);
      for (int i = 0; i < m_buttons.size() && i < int(m_actions.size()); ++i)
        m_buttons[i]->setEnabled(m_actions[unsigned(i)]->enabled());
      break;
    case Stack::Slider:
      m_slider->setEnabled(editable);
      if (m_bag->getValue(0, value))
      {
        const QSignalBlocker quiet(m_slider);
        m_slider->setValue(value.getInt32());
      }
      break;
    case Stack::DateEdit:
      m_dateEdit->setReadOnly(!editable);
      if (m_bag->getValue(0, value))
      {
        const QSignalBlocker quiet(m_dateEdit);
        m_dateEdit->setDate(QDate::fromString(toQString(value.getString()), QStringLiteral("dd.MM.yyyy")));
      }
      break;
    case Stack::List:
      if (m_bag->getValue(0, value) && value.isArray())
      {
        const QSignalBlocker quiet(m_list);
        const OdStringArray names = value.getStringArray();
        for (unsigned int i = 0; i < names.size(); ++i)
        {
          const QString text = toQString(names[i]);
          QListWidgetItem* item = m_list->item(int(i));
          if (!item)
          {
            item = new QListWidgetItem(text, m_list);
            item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
          }
          else if (item->text() != text)
            item->setText(text);
          PropVariant ticked;
          if (m_bag->getElementValue(0, 10 + i, ticked))
            item->setCheckState(ticked.getBool() ? Qt::Checked : Qt::Unchecked);
        }
      }
      break;
    case Stack::Table:
    {
      PropVariant rows, columns;
      if (!m_bag->getValue(0, value) || !value.isArray() || !m_bag->getElementValue(0, 0, rows) ||
          !m_bag->getElementValue(0, 1, columns))
        break;
      const QSignalBlocker quiet(m_table);
      m_table->setRowCount(rows.getInt32());
      m_table->setColumnCount(columns.getInt32());
      const OdStringArray cells = value.getStringArray();
      for (int r = 0; r < rows.getInt32(); ++r)
        for (int c = 0; c < columns.getInt32(); ++c)
        {
          const unsigned int at = unsigned(r * columns.getInt32() + c);
          const QString text = at < cells.size() ? toQString(cells[at]) : QString();
          if (QTableWidgetItem* item = m_table->item(r, c))
            item->setText(text);
          else
            m_table->setItem(r, c, new QTableWidgetItem(text));
        }
      break;
    }
    }
  }

private:
  QString formatted(const PropVariant& value)
  {
    OdString text;
    return m_bag->formatValue(0, 0, value, text) ? toQString(text) : QString();
  }

  void commit(const PropVariant& value)
  {
    OdString message;
    if (m_bag->validate(0, 0, value, message))
      m_bag->setValue(0, value);
  }

  void commitText(const QString& text)
  {
    PropVariant value;
    if (m_bag->parseValue(0, 0, toOdString(text), value))
      commit(value);
  }

  void commitElement(int element, const QString& text)
  {
    PropVariant value;
    OdString message;
    const unsigned long e = static_cast<unsigned long>(element);
    if (m_bag->parseValue(0, e, toOdString(text), value) && m_bag->validate(0, e, value, message))
      m_bag->setElementValue(0, e, value);
  }

  void commitTicks()
  {
    int flags = 0;
    for (int i = 0; i < m_ticks->rowCount(); ++i)
      if (m_ticks->item(i)->checkState() == Qt::Checked)
        flags |= 1 << i;
    commit(PropVariant().setInt32(flags));
  }

  void commitTable()
  {
    OdStringArray cells;
    for (int r = 0; r < m_table->rowCount(); ++r)
      for (int c = 0; c < m_table->columnCount(); ++c)
      {
        const QTableWidgetItem* item = m_table->item(r, c);
        PropVariant cell;
        if (!m_bag->parseValue(0, 1, toOdString(item ? item->text() : QString()), cell))
          return;
        cells.append(cell.getString());
      }
    commit(PropVariant().setStringArray(cells));
  }

  Stack m_stack;
  Data m_data;
  LeanBag* m_bag;
  QLabel* m_label = nullptr;
  QList<QLineEdit*> m_edits;
  QToolButton* m_lock = nullptr;
  QSpinBox* m_spinBox = nullptr;
  QComboBox* m_combo = nullptr;
  QStandardItemModel* m_ticks = nullptr;
  QCheckBox* m_check = nullptr;
  QButtonGroup* m_group = nullptr;
  QVector<PropVariant> m_choices;
  PropActionArray m_actions;
  QList<QAbstractButton*> m_buttons;
  QSlider* m_slider = nullptr;
  QDateEdit* m_dateEdit = nullptr;
  QListWidget* m_list = nullptr;
  QTableWidget* m_table = nullptr;
};

// ---------------------------------------------------------------------------
// Measuring: the same four parts for both stacks, timed or counted.

enum Part
{
  Build,
  Refresh,
  Commit,
  Destroy,
  kParts
};
const char* const kPartNames[kParts] = {"build", "refresh", "commit", "destroy"};
const double kTargets[kParts] = {1.5, 1.2, 1.2, 1.2};

/** Brackets one measured part: a wall-clock reading, or callgrind's collection. */
class Meter
{
public:
  explicit Meter(bool callgrind) : m_callgrind(callgrind) {}
  void begin()
  {
    if (m_callgrind)
    {
      CALLGRIND_ZERO_STATS;
      CALLGRIND_TOGGLE_COLLECT;
    }
    m_timer.start();
  }
  /** Nanoseconds since begin(); under callgrind, dumps the counts under the label. */
  qint64 end(const QByteArray& label)
  {
    const qint64 ns = m_timer.nsecsElapsed();
    if (m_callgrind)
    {
      CALLGRIND_TOGGLE_COLLECT;
      CALLGRIND_DUMP_STATS_AT(label.constData());
    }
    return ns;
  }

private:
  bool m_callgrind;
  QElapsedTimer m_timer;
};

void deliverPosted()
{
  QCoreApplication::sendPostedEvents();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

struct Kind
{
  QString name;
  const OdGUID* guid;
  Recipe recipe;
  ComboEntries comboEntries;
};

/** One build, refresh, commit and destroy of `reps` rows of one stack; nanoseconds per part. */
std::vector<qint64> cycle(const Kind& kind, bool ours, int reps, QWidget& panel, Meter& meter, const QByteArray& label)
{
  std::vector<qint64> ns(kParts, 0);
  LeanBag bag(kind.recipe.data);
  QLayout* layout = panel.layout();
  std::vector<QWidget*> rows;
  rows.reserve(std::size_t(reps));

  meter.begin();
  for (int i = 0; i < reps; ++i)
  {
    QWidget* row = nullptr;
    if (ours)
    {
      PropUiQWidget* control = propUiCreateWidget(*kind.guid, PropUiOption::kToolTipFilter);
      control->setPropBagItem(&bag, 0);
      control->setupUi();
      control->updateUi();
      control->updateData();
      row = control;
    }
    else
      row = new PlainRow(kind.recipe.stack, kind.recipe.data, &bag, kind.comboEntries);
    layout->addWidget(row);
    rows.push_back(row);
  }
  deliverPosted();
  ns[Build] = meter.end(label + ":build");

  QWidget* first = rows.front();
  auto* control = ours ? static_cast<PropUiQWidget*>(first) : nullptr;
  auto* plain = ours ? nullptr : static_cast<PlainRow*>(first);
  meter.begin();
  for (int i = 0; i < reps; ++i)
  {
    bag.setState(i + 1);
    if (control)
    {
      control->updateUi();
      control->updateData();
    }
    else
      plain->refresh();
  }
  deliverPosted();
  ns[Refresh] = meter.end(label + ":refresh");

  const Handles handles = control ? handlesOf(control, kind.recipe.stack) : plain->handles();
  bag.writes = 0;
  meter.begin();
  for (int i = 0; i < reps; ++i)
    drive(kind.recipe.stack, kind.recipe.data, handles, i);
  deliverPosted();
  ns[Commit] = meter.end(label + ":commit");
  const bool committed = bag.writes >= reps;

  meter.begin();
  for (QWidget* row : rows)
    delete row;
  deliverPosted();
  ns[Destroy] = meter.end(label + ":destroy");
  if (!committed)
    ns[Commit] = -1; // an edit that never reached the bag has no cost to compare
  return ns;
}

/** The entries, swatches included, a plain combo needs to offer what our control offers. */
ComboEntries comboEntriesOf(const Kind& kind)
{
  if (kind.recipe.stack != Stack::Combo)
    return ComboEntries();
  LeanBag bag(kind.recipe.data);
  std::unique_ptr<PropUiQWidget> control(propUiCreateWidget(*kind.guid, PropUiOption::kToolTipFilter));
  control->setPropBagItem(&bag, 0);
  control->setupUi();
  control->updateData();
  ComboEntries entries;
  if (auto* combo = control->findChild<QComboBox*>())
  {
    entries.iconSize = combo->iconSize();
    for (int i = 0; i < combo->count(); ++i)
      entries.entries.push_back({combo->itemIcon(i), combo->itemText(i)});
  }
  return entries;
}

std::vector<Kind> registeredKinds(const QString& only)
{
  std::vector<Kind> kinds;
  for (const NamedKind& named : everyKind())
  {
    const QString name = QString::fromLatin1(named.name);
    if (!only.isEmpty() && name != only)
      continue;
    std::unique_ptr<PropUiQWidget> probe(propUiCreateWidget(named.guid, 0));
    if (!probe)
      continue;
    Kind kind{name, &named.guid, recipeFor(named.guid), {}};
    kind.comboEntries = comboEntriesOf(kind);
    kinds.push_back(kind);
  }
  return kinds;
}

QByteArray labelOf(int kindIndex, bool ours)
{
  return QByteArray::number(kindIndex) + (ours ? ":ours" : ":plain");
}

/** Under callgrind: one warm-up and one counted cycle per stack and kind. */
void countInstructions(const std::vector<Kind>& kinds, int reps)
{
  QWidget panel;
  new QVBoxLayout(&panel);
  Meter idle(false), counting(true);
  for (int k = 0; k < int(kinds.size()); ++k)
    for (bool ours : {false, true})
    {
      cycle(kinds[std::size_t(k)], ours, reps, panel, idle, QByteArray());
      cycle(kinds[std::size_t(k)], ours, reps, panel, counting, labelOf(k, ours));
    }
}

double median(std::vector<double> values)
{
  if (values.empty())
    return 0;
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

/** Median nanoseconds per row and part, over `runs` cycles after one warm-up. */
std::vector<double> wallTimes(const Kind& kind, bool ours, int reps, int runs, QWidget& panel)
{
  Meter meter(false);
  cycle(kind, ours, reps, panel, meter, QByteArray());
  std::vector<std::vector<double> > samples(kParts);
  for (int r = 0; r < runs; ++r)
  {
    const std::vector<qint64> ns = cycle(kind, ours, reps, panel, meter, QByteArray());
    for (int p = 0; p < kParts; ++p)
      samples[std::size_t(p)].push_back(double(ns[std::size_t(p)]) / reps);
  }
  std::vector<double> medians;
  for (const auto& s : samples)
    medians.push_back(median(s));
  return medians;
}

/** Runs this program under callgrind and reads every dump's total: label -> instructions. */
std::map<QByteArray, double> runUnderCallgrind(const QStringList& passOn)
{
  std::map<QByteArray, double> totals;
  QTemporaryDir dir;
  if (!dir.isValid())
    return totals;
  QProcess child;
  child.setProcessChannelMode(QProcess::ForwardedErrorChannel);
  QStringList args{QStringLiteral("--tool=callgrind"), QStringLiteral("--collect-atstart=no"),
                   QStringLiteral("--dump-instr=no"), QStringLiteral("--dump-line=no"),
                   QStringLiteral("--callgrind-out-file=%1/cg.out").arg(dir.path()),
                   QCoreApplication::applicationFilePath(), QStringLiteral("--callgrind-child")};
  args << passOn;
  args.prepend(QStringLiteral("--quiet"));
  child.start(QStringLiteral("valgrind"), args);
  if (!child.waitForStarted() || !child.waitForFinished(-1) || child.exitCode() != 0)
  {
    std::fprintf(stderr, "callgrind run failed (%s)\n", qPrintable(child.errorString()));
    return totals;
  }
  for (const QFileInfo& info : QDir(dir.path()).entryInfoList({QStringLiteral("cg.out*")}, QDir::Files))
  {
    QFile file(info.filePath());
    if (!file.open(QIODevice::ReadOnly))
      continue;
    QByteArray label;
    double total = -1;
    while (!file.atEnd())
    {
      const QByteArray line = file.readLine().trimmed();
      if (line.startsWith("desc: Trigger: Client Request: "))
        label = line.mid(int(qstrlen("desc: Trigger: Client Request: ")));
      else if (line.startsWith("summary: ") || line.startsWith("totals: "))
        total = line.mid(line.indexOf(' ') + 1).toDouble();
    }
    if (!label.isEmpty() && total >= 0)
      totals[label] = total;
  }
  return totals;
}

QString ratioText(double ours, double plain, bool* within, double target)
{
  if (ours < 0 || plain <= 0)
    return QStringLiteral("    -");
  const double r = ours / plain;
  if (r > target)
    *within = false;
  return QString::asprintf("%5.2f", r);
}

} // namespace

int main(int argc, char** argv)
{
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
    qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication app(argc, argv);
  const QStringList args = QCoreApplication::arguments().mid(1);
  const bool child = args.contains(QStringLiteral("--callgrind-child"));
  const bool wallOnly = args.contains(QStringLiteral("--no-callgrind"));
  const int kindAt = args.indexOf(QStringLiteral("--kind"));
  const QString only = kindAt >= 0 ? args.value(kindAt + 1) : QString();
  const int repsAt = args.indexOf(QStringLiteral("--reps"));
  const int reps = std::max(2, repsAt >= 0 ? args.value(repsAt + 1).toInt() : 20);

  odrxCreateModuleObject()->initApp();
  const std::vector<Kind> kinds = registeredKinds(only);
  if (kinds.empty())
  {
    std::fprintf(stderr, "no registered kind named \"%s\"\n", qPrintable(only));
    return 1;
  }
  if (child)
  {
    countInstructions(kinds, reps);
    odrxCreateModuleObject()->uninitApp();
    return 0;
  }

  std::vector<std::vector<double> > wallPlain, wallOurs;
  {
    QWidget panel;
    new QVBoxLayout(&panel);
    for (const Kind& kind : kinds)
    {
      wallPlain.push_back(wallTimes(kind, false, reps, 5, panel));
      wallOurs.push_back(wallTimes(kind, true, reps, 5, panel));
    }
  }
  odrxCreateModuleObject()->uninitApp();

  std::map<QByteArray, double> counts;
  if (!wallOnly)
  {
    QStringList passOn{QStringLiteral("--reps"), QString::number(reps)};
    if (!only.isEmpty())
      passOn << QStringLiteral("--kind") << only;
    counts = runUnderCallgrind(passOn);
    if (counts.empty())
      std::fprintf(stderr, "no instruction counts; showing wall times only\n");
  }

  std::printf("controls against plain Qt widgets, ours / plain, %d rows per part%s\n", reps,
              counts.empty() ? "" : "; instructions (callgrind), then median wall time");
  std::printf("targets: build <= %.1f, refresh <= %.1f, commit <= %.1f, destroy <= %.1f\n", kTargets[Build],
              kTargets[Refresh], kTargets[Commit], kTargets[Destroy]);
  std::printf("%-20s %-29s %-29s %s\n", "kind", counts.empty() ? "" : " instr: build refr  comm  dest",
              " wall:  build refr  comm  dest", "targets");
  int missed = 0;
  for (int k = 0; k < int(kinds.size()); ++k)
  {
    const std::size_t at = std::size_t(k);
    bool withinInstr = true, withinWall = true;
    QString instr, wall;
    for (int p = 0; p < kParts; ++p)
    {
      const QByteArray part = QByteArray(":") + kPartNames[p];
      if (!counts.empty())
      {
        const auto o = counts.find(labelOf(k, true) + part);
        const auto b = counts.find(labelOf(k, false) + part);
        const double ours = o == counts.end() ? -1 : o->second;
        const double plain = b == counts.end() ? -1 : b->second;
        // An edit that never reached the bag was not counted either.
        const bool noEdit = p == Commit && wallOurs[at][std::size_t(p)] < 0;
        instr += QLatin1Char(' ') + ratioText(noEdit ? -1 : ours, plain, &withinInstr, kTargets[p]);
      }
      wall += QLatin1Char(' ') + ratioText(wallOurs[at][std::size_t(p)], wallPlain[at][std::size_t(p)],
                                           &withinWall, kTargets[p]);
    }
    const bool within = counts.empty() ? withinWall : withinInstr;
    if (!within)
      ++missed;
    std::printf("%-20s %-29s %-29s %s\n", qPrintable(kinds[at].name),
                qPrintable(counts.empty() ? QString() : QStringLiteral("       ") + instr),
                qPrintable(QStringLiteral("       ") + wall), within ? "met" : "MISSED");
  }
  std::printf("%d of %d kinds miss a target%s\n", missed, int(kinds.size()),
              counts.empty() ? " (wall time: noisy)" : " (instructions)");
  return 0;
}

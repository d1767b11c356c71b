#include "PropUiQLineEdit.h"

#include "OdStringQt.h"
#include "PropBag.h"
#include "PropMathValidator.h"
#include "PropUiEditCommitFilter.h"
#include "PropUiElidedLineEditFilter.h"
#include "PropUiNumberEditing_p.h"
#include "PropUiTexts_p.h"
#include "PropUiTypedNumber_p.h"
#include "QHostLineEdit.h"
#include <QCoreApplication>
#include <QHBoxLayout>
#include <QKeyEvent>

PropUiQLineEdit::PropUiQLineEdit(QWidget* parent) : PropUiQControl(parent) {}

bool PropUiQLineEdit::setupUi()
{
  return setupWithEdit([](QWidget* parent) {
    auto* edit = new host_qt_ui_core::QHostLineEdit(parent);
    edit->setAutoChangePlaceholderTextColor(true);
    return edit;
  });
}

bool PropUiQLineEdit::setupWithEdit(const std::function<QLineEdit*(QWidget*)>& makeEdit)
{
  PropUiQControl::setupUi();
  if (!m_bag)
    return false;
  auto* layout = setupRow();
  QLineEdit* edit = makeEdit(this);
  edit->setObjectName(QStringLiteral("edit"));
  m_edit = edit;

  PropUiEditCommitFilter::Edit rules;
  rules.changed = [this]() { return m_edit->text() != m_lastText; };
  // A number field's validator lets unfinished arithmetic stand; only the commit judges it.
  rules.acceptable = [this]() { return !m_refused && (propui::numberValidatorOf(m_edit) || m_edit->hasAcceptableInput()); };
  rules.commit = [this]() {
    if (!propui::numberValidatorOf(m_edit))
      commitWithEnter();
    else
      onEditingFinished();
  };
  rules.restore = [this]() { restoreLastText(); };
  rules.moveOn = [this]() {
    if (!m_refused)
      focusNextPrevChild(true);
    else if (m_edit)
      m_edit->selectAll(); // the focus stays on the refused field: the next key retypes it
  };
  using Rule = PropUiEditCommitFilter::Rule;
  new PropUiEditCommitFilter(this, edit,
                             Rule::SilenceWhileLeaving | Rule::CommitOnLeave | Rule::DeselectOnLeave | Rule::CommitOnTab |
                               Rule::CommitOnReturn | Rule::RestoreOnEscape | Rule::RevertAfterReturn |
                               Rule::MoveOnAfterReturn,
                             rules);
  useFocusReactor(edit);
  if (m_options & PropUiOption::kElided)
  {
    new PropUiElidedLineEditFilter(edit);
    useToolTipFilter(edit);
  }
  connect(edit, &QLineEdit::editingFinished, this, &PropUiQLineEdit::onEditingFinished);
  connect(edit, &QLineEdit::editingFinished, this, &PropUiQLineEdit::onUpdateDisplay);
  layout->addWidget(edit);
  addActionsToolBar(layout);
  return true;
}

void PropUiQLineEdit::updateUi()
{
  PropUiQControl::updateUi();
  showEditable(m_edit);
}

void PropUiQLineEdit::updateData()
{
  PropUiQControl::updateData();
  if (!m_bag || !m_edit)
    return;
  PropVariant value;
  if (!readValue(value))
    return;
  if (value.isVaries())
  {
    setVaries(true);
    return;
  }
  OdString formatted;
  if (!m_bag->formatValue(m_index, m_element, value, formatted))
    return;
  if (isVaries())
    setVaries(false);
  const QString text = toQString(formatted);
  if (m_edit->text() != text)
    m_edit->setText(text);
  m_lastText = text;
}

bool PropUiQLineEdit::applyData()
{
  m_refused = false;
  if (!m_bag || !m_edit || m_edit->text() == m_lastText)
    return false;
  PropVariant value;
  bool evaluated = false;
  if (!readTypedValue(value, evaluated) || commitValue(value) != CommitResult::Written)
  {
    refuseEdit();
    return false;
  }
  confirmEdit(value, evaluated);
  return true;
}

bool PropUiQLineEdit::readTypedValue(PropVariant& value, bool& evaluated)
{
  evaluated = false;
  const PropMathValidator* numbers = propui::numberValidatorOf(m_edit);
  if (!numbers)
    return m_bag->parseValue(m_index, m_element, toOdString(m_edit->text().trimmed()), value);
  PropUiTypedNumber reader(m_bag, m_index, m_element, propui::numberKindOf(numbers), m_edit->locale());
  if (!reader.read(m_edit->text(), value))
  {
    if (m_edit->hasFocus())
      showErrorMessage(toOdString(reader.refusal()));
    return false;
  }
  evaluated = reader.wasEvaluated();
  return true;
}

void PropUiQLineEdit::refuseEdit()
{
  if (!m_edit)
    return;
  // Only a user still at the field can correct what was typed.
  if (!propui::numberValidatorOf(m_edit) || messagesSuppressed() || !m_edit->hasFocus())
    restoreLastText();
  m_refused = true;
}

void PropUiQLineEdit::confirmEdit(const PropVariant& written, bool evaluated)
{
  OdString formatted;
  if (evaluated && m_bag->formatValue(m_index, m_element, written, formatted))
    m_edit->setText(toQString(formatted));
  m_lastText = m_edit->text();
  m_refused = false;
  // The field holds a value of its own now; emptying it must not bring the varies text back.
  m_edit->setPlaceholderText(QString());
}

void PropUiQLineEdit::onEditingFinished()
{
  const WriteScope applying(this);
  if (applying.entered())
    applyData();
}

bool PropUiQLineEdit::isVaries() const
{
  return m_edit && !m_edit->placeholderText().isEmpty();
}

void PropUiQLineEdit::setVaries(bool varies)
{
  if (!m_edit)
    return;
  m_edit->clear();
  m_edit->setPlaceholderText(varies ? PropUiTexts::varies() : QString());
  // What the field shows now is empty; leaving it untouched must not write or revert.
  if (varies)
    m_lastText.clear();
}

void PropUiQLineEdit::restoreLastText()
{
  m_refused = false;
  if (m_edit && m_edit->text() != m_lastText)
    m_edit->setText(m_lastText);
}

// Commits through the edit's own Return handling, so validators and
// editingFinished behave as for a key the user pressed.
void PropUiQLineEdit::commitWithEnter()
{
  QKeyEvent enter(QEvent::KeyPress, Qt::Key_Enter, Qt::NoModifier);
  QCoreApplication::sendEvent(m_edit, &enter);
}

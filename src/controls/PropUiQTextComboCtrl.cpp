#include "PropUiQTextComboCtrl.h"

#include "OdStringQt.h"
#include "PropBag.h"
#include "PropMathValidator.h"
#include "PropUiNumberEditing_p.h"
#include "PropUiEditCommitFilter.h"
#include "PropUiElidedLineEditFilter.h"
#include "QHostLineEdit.h"
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>

PropUiQTextComboCtrl::PropUiQTextComboCtrl(QWidget* parent) : PropUiQComboBox(parent) {}

bool PropUiQTextComboCtrl::setupUi()
{
  if (!PropUiQComboBox::setupUi())
    return false;
  if (QLineEdit* edit = m_combo->lineEdit())
  {
    connect(edit, &QLineEdit::editingFinished, this, &PropUiQTextComboCtrl::onEditingFinished);
    PropUiEditCommitFilter::Edit rules;
    rules.changed = [this]() { return m_combo->currentText() != m_committed.text(); };
    rules.acceptable = [this]() { return acceptable(); };
    // A number entry's validator lets unfinished arithmetic stand; only the commit reads it.
    rules.commit = [this]() {
      if (propui::numberValidatorOf(m_combo->lineEdit()))
        onEditingFinished();
      else
        commitWithEnter();
    };
    rules.restore = [this]() { m_committed.restore(m_combo); };
    // Nothing typed was ever committed: leaving shows the chosen entry as it is.
    rules.mayCommitOnLeave = [this]() { return !m_committed.text().isEmpty(); };
    using Rule = PropUiEditCommitFilter::Rule;
    PropUiEditCommitFilter::Rules commitRules =
      Rule::SilenceWhileLeaving | Rule::CommitOnLeave | Rule::CommitOnTab | Rule::RevertAfterReturn;
    // The combo's own Return handling passes unfinished arithmetic over: a number entry commits first.
    if (propui::numberValidatorOf(edit))
      commitRules |= Rule::CommitOnReturn;
    new PropUiEditCommitFilter(this, m_combo, commitRules, rules);
    if (m_options & PropUiOption::kElided)
    {
      new PropUiElidedLineEditFilter(edit);
      useToolTipFilter(edit);
    }
    if (auto* hostEdit = qobject_cast<host_qt_ui_core::QHostLineEdit*>(edit))
      hostEdit->setAutoChangePlaceholderTextColor(true);
  }
  return true;
}

void PropUiQTextComboCtrl::addItems()
{
  PropUiQComboBox::addItems();
  if (m_combo)
    m_committed.init(m_combo->currentIndex(), m_combo->currentText());
}

void PropUiQTextComboCtrl::updateData()
{
  PropUiQComboBox::updateData();
  if (m_combo)
    m_committed.init(m_combo->currentIndex(), m_combo->currentText());
}

bool PropUiQTextComboCtrl::leaveVaries()
{
  if (!isVaries())
    return false;
  setVaries(false);
  return true;
}

void PropUiQTextComboCtrl::restoreCommitted(bool wasVaries)
{
  m_committed.restore(m_combo);
  if (wasVaries)
    setVaries(true);
}

// The choice writes the whole item, as the plain combo's does: a listed value belongs to the item.
void PropUiQTextComboCtrl::onActivated(int index)
{
  if (m_inert || !m_bag || !m_combo)
    return;
  const WriteScope applying(this);
  if (!applying.entered())
    return;
  const bool wasVaries = leaveVaries();
  const QVariant id = m_combo->itemData(index, Qt::UserRole);
  PropVariant value;
  if (!id.isValid() || !m_bag->getListValue(m_index, static_cast<unsigned long>(id.toULongLong()), value))
  {
    if (wasVaries)
      setVaries(true);
    return;
  }
  const CommitResult result = commitValue(value, CommitTarget::WholeItem);
  if (result == CommitResult::Refused)
  {
    restoreCommitted(wasVaries);
    // Deliberately final: after a refused choice the control takes no more input.
    m_inert = true;
    return;
  }
  if (result != CommitResult::Written)
    restoreCommitted(wasVaries);
  const int committedIndex = m_committed.index();
  if (committedIndex != m_combo->currentIndex())
    removeTempItem(committedIndex);
  m_committed.init(m_combo->currentIndex(), m_combo->currentText());
  m_lastIndex = m_combo->currentIndex();
}

bool PropUiQTextComboCtrl::applyData()
{
  if (!m_bag || !m_combo)
    return false;
  const QString text = m_combo->currentText().trimmed();
  // Nothing typed, or an entry's text (its activation writes it): the look stays, varies included.
  if (text == m_committed.text() || m_combo->findData(text, Qt::DisplayRole, Qt::MatchFixedString) >= 0)
    return false;
  const bool wasVaries = leaveVaries();
  PropVariant value;
  if (!readTyped(text, value))
  {
    restoreCommitted(wasVaries);
    return false;
  }
  switch (commitValue(value, CommitTarget::WholeItem))
  {
  case CommitResult::Written:
    m_committed.init(-1, text);
    return true;
  case CommitResult::NotWritten:
    restoreCommitted(wasVaries);
    // What the field shows is the varies look, not a typed text to come back to.
    if (!wasVaries)
      m_committed.setText(text);
    return false;
  default:
    restoreCommitted(wasVaries);
    return false;
  }
}

// A number entry reads arithmetic too, and says what it takes when it cannot read the text.
bool PropUiQTextComboCtrl::readTyped(const QString& text, PropVariant& value)
{
  const PropMathValidator* numbers = propui::numberValidatorOf(m_combo->lineEdit());
  if (!numbers)
    return m_bag->parseValue(m_index, m_element, toOdString(text), value);
  PropUiTypedNumber reader(m_bag, m_index, m_element, propui::numberKindOf(numbers), m_combo->locale());
  if (reader.read(text, value))
    return true;
  if (m_combo->lineEdit()->hasFocus())
    showErrorMessage(toOdString(reader.refusal()));
  return false;
}

void PropUiQTextComboCtrl::onEditingFinished()
{
  if (m_inert)
    return;
  const WriteScope applying(this);
  if (applying.entered())
    applyData();
}

void PropUiQTextComboCtrl::commitWithEnter()
{
  QKeyEvent enter(QEvent::KeyPress, Qt::Key_Enter, Qt::NoModifier);
  QCoreApplication::sendEvent(m_combo->lineEdit(), &enter);
}

bool PropUiQTextComboCtrl::acceptable() const
{
  // A number entry takes unfinished arithmetic for reading; an empty one stands for the chosen entry.
  return !m_combo || !m_combo->lineEdit() || m_combo->lineEdit()->hasAcceptableInput() ||
         (propui::numberValidatorOf(m_combo->lineEdit()) && !m_combo->currentText().trimmed().isEmpty());
}

#include "PropUiQDateCtrl.h"

#include "OdStringQt.h"
#include "PropBag.h"
#include "PropUiEditCommitFilter.h"
#include <QApplication>
#include <QHBoxLayout>

PropUiQDateCtrl::PropUiQDateCtrl(QWidget* parent) : PropUiQControl(parent) {}

QString PropUiQDateCtrl::dateFormat()
{
  return QStringLiteral("dd.MM.yyyy");
}

bool PropUiQDateCtrl::setupUi()
{
  PropUiQControl::setupUi();
  if (!m_bag)
    return false;
  auto* layout = setupRow();
  m_dateEdit = new PropQDateEdit(this);
  m_dateEdit->setObjectName(QStringLiteral("dateEdit"));
  m_dateEdit->setCalendarPopup(true);
  m_dateEdit->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
  useFocusReactor(m_dateEdit);
  PropUiEditCommitFilter::Edit rules;
  rules.restore = [this]() { m_dateEdit->setDate(m_lastDate); };
  rules.moveOn = [this]() { focusNextChild(); };
  using Rule = PropUiEditCommitFilter::Rule;
  // Not put on the edit: the rules act only where a host installs the control on its edit.
  m_keys = new PropUiEditCommitFilter(this, m_dateEdit, Rule::RestoreOnEscape | Rule::MoveOnAfterReturn, rules,
                                      PropUiEditCommitFilter::Placement::HandedEvents);
  connect(m_dateEdit.data(), &QDateTimeEdit::dateChanged, this, &PropUiQDateCtrl::onDateChanged);
  connect(m_dateEdit.data(), &QAbstractSpinBox::editingFinished, this, &PropUiQDateCtrl::onEditEnded);
  connect(m_dateEdit.data(), &PropQDateEdit::returnedFromPopup, this, &PropUiQDateCtrl::onEditEnded);
  connect(m_dateEdit.data(), &PropQDateEdit::typedDateRefused, this, &PropUiQDateCtrl::onTypedDateRefused);
  layout->addWidget(m_dateEdit);
  addActionsToolBar(layout);
  return true;
}

void PropUiQDateCtrl::updateUi()
{
  PropUiQControl::updateUi();
  showEditable(m_dateEdit);
}

void PropUiQDateCtrl::updateData()
{
  PropUiQControl::updateData();
  if (!m_bag || !m_dateEdit)
    return;
  PropVariant value;
  if (!readValue(value))
    return;
  if (value.isVaries())
  {
    setVaries(true);
    m_lastDate = m_dateEdit->date();
  }
  else if ((value.type() & PropVariant::kString) && !value.hasNoData())
  {
    setVaries(false);
    const QDate date = QDate::fromString(toQString(value.getString()), dateFormat());
    if (date != m_lastDate)
    {
      // An unreadable string is an invalid date, which the edit ignores: it keeps what it showed.
      m_lastDate = date;
      m_dateEdit->setDate(date);
    }
  }
}

bool PropUiQDateCtrl::isVaries() const
{
  return m_dateEdit && m_dateEdit->isVaries();
}

void PropUiQDateCtrl::setVaries(bool varies)
{
  if (!m_dateEdit || m_dateEdit->isVaries() == varies)
    return;
  m_dateEdit->setVariesFlag(varies);
  // The same date again makes the edit render its text anew.
  m_dateEdit->setDate(m_dateEdit->date());
}

// Typing and the arrow keys change the date step by step while the user is
// in the field, and the calendar while it is open: what they lead to is
// written once, when the edit ends or the calendar closes. A date set from
// outside any edit is written at once.
void PropUiQDateCtrl::onDateChanged(const QDate&)
{
  if (!m_dateEdit || m_dateEdit->hasFocus() || isPopupOpen())
    return;
  applyData();
}

void PropUiQDateCtrl::onEditEnded()
{
  if (!isPopupOpen())
    applyData();
}

void PropUiQDateCtrl::onTypedDateRefused(const QString& text)
{
  const QString shortForm = m_dateEdit ? m_dateEdit->locale().dateFormat(QLocale::ShortFormat) : QString();
  showErrorMessage(toOdString(
    tr("\"%1\" is not a date. Type a date as %2 or as yyyy-MM-dd.").arg(text, shortForm)));
}

bool PropUiQDateCtrl::isPopupOpen() const
{
  const QWidget* popup = QApplication::activePopupWidget();
  return popup && m_dateEdit && popup->parentWidget() == m_dateEdit;
}

bool PropUiQDateCtrl::applyData()
{
  if (!m_bag || !m_dateEdit || m_dateEdit->date() == m_lastDate)
    return false;
  const WriteScope applying(this);
  if (!applying.entered())
    return false;
  PropVariant value;
  value.setString(toOdString(m_dateEdit->date().toString(dateFormat())));
  if (commitValue(value) == CommitResult::Written)
  {
    m_lastDate = m_dateEdit->date();
    if (isVaries())
      setVaries(false);
  }
  else
  {
    // A date edit that varies still does: the varies look comes back with the date.
    m_dateEdit->setDate(m_lastDate);
  }
  return true;
}

bool PropUiQDateCtrl::eventFilter(QObject* watched, QEvent* event)
{
  if (watched == m_dateEdit && m_dateEdit && m_keys)
    m_keys->eventFilter(watched, event);
  return PropUiQControl::eventFilter(watched, event);
}

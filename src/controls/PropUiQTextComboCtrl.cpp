#include "PropUiQTextComboCtrl.h"

#include "OdStringQt.h"
#include "PropBag.h"
#include "PropUiElidedLineEditFilter.h"
#include "QHostLineEdit.h"
#include <QCoreApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTimer>

PropUiQTextComboCtrl::PropUiQTextComboCtrl(QWidget* parent) : PropUiQComboBox(parent) {}

bool PropUiQTextComboCtrl::setupUi()
{
  if (!PropUiQComboBox::setupUi())
    return false;
  if (QLineEdit* edit = m_combo->lineEdit())
  {
    connect(edit, &QLineEdit::editingFinished, this, &PropUiQTextComboCtrl::onEditingFinished);
    m_combo->installEventFilter(this);
    if (m_options & kElided)
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

void PropUiQTextComboCtrl::leaveVaries()
{
  if (isVaries())
    setVaries(false);
}

void PropUiQTextComboCtrl::onActivated(int index)
{
  if (m_applying || !m_bag || !m_combo)
    return;
  m_applying = true;
  leaveVaries();
  const QVariant id = m_combo->itemData(index, Qt::UserRole);
  PropVariant value;
  if (!id.isValid() || !m_bag->getListValue(m_index, static_cast<unsigned long>(id.toULongLong()), value))
  {
    m_applying = false;
    return;
  }
  OdString message;
  if (!m_bag->validate(m_index, m_element, value, message))
  {
    m_committed.restore(m_combo);
    showErrorMessage(message);
    // Deliberately left set: after a refused choice the control takes no more input.
    return;
  }
  if (!m_bag->setValue(m_index, value))
    m_committed.restore(m_combo);
  const int committedIndex = m_committed.index();
  if (committedIndex != m_combo->currentIndex())
    removeTempItem(committedIndex);
  m_committed.init(m_combo->currentIndex(), m_combo->currentText());
  m_lastIndex = m_combo->currentIndex();
  m_applying = false;
}

bool PropUiQTextComboCtrl::applyData()
{
  if (!m_bag || !m_combo)
    return false;
  leaveVaries();
  const QString text = m_combo->currentText().trimmed();
  if (text == m_committed.text() || m_combo->findData(text, Qt::DisplayRole, Qt::MatchFixedString) >= 0)
    return false;
  PropVariant value;
  if (!m_bag->parseValue(m_index, m_element, toOdString(text), value))
  {
    m_committed.restore(m_combo);
    return false;
  }
  OdString message;
  if (!m_bag->validate(m_index, m_element, value, message))
  {
    m_committed.restore(m_combo);
    showErrorMessage(message);
    return false;
  }
  if (!m_bag->setValue(m_index, value))
  {
    m_committed.restore(m_combo);
    m_committed.setText(text);
    return false;
  }
  m_committed.init(-1, text);
  return true;
}

void PropUiQTextComboCtrl::onEditingFinished()
{
  if (m_applying)
    return;
  m_applying = true;
  applyData();
  m_applying = false;
}

void PropUiQTextComboCtrl::commitWithEnter()
{
  QKeyEvent enter(QEvent::KeyPress, Qt::Key_Enter, Qt::NoModifier);
  QCoreApplication::sendEvent(m_combo->lineEdit(), &enter);
}

void PropUiQTextComboCtrl::revertUnacceptable()
{
  if (m_combo && m_combo->lineEdit() && !m_combo->lineEdit()->hasAcceptableInput())
    m_committed.restore(m_combo);
}

bool PropUiQTextComboCtrl::eventFilter(QObject* watched, QEvent* event)
{
  if (watched == m_combo && m_combo && m_combo->lineEdit())
  {
    switch (event->type())
    {
    case QEvent::FocusIn:
      m_messagesSuppressed = false;
      break;
    case QEvent::FocusOut:
    {
      m_messagesSuppressed = true;
      const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
      if (reason != Qt::TabFocusReason && reason != Qt::BacktabFocusReason && !m_committed.text().isEmpty())
      {
        if (m_combo->currentText() != m_committed.text())
          commitWithEnter();
        revertUnacceptable();
      }
      break;
    }
    case QEvent::KeyPress:
    {
      auto* key = static_cast<QKeyEvent*>(event);
      if (key->spontaneous() && key->key() == Qt::Key_Tab)
      {
        commitWithEnter();
        revertUnacceptable();
      }
      else if (key->spontaneous() && (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter))
      {
        QPointer<PropUiQTextComboCtrl> self(this);
        QTimer::singleShot(0, this, [self]() {
          if (self)
            self->revertUnacceptable();
        });
      }
      break;
    }
    default:
      break;
    }
  }
  return PropUiQComboBox::eventFilter(watched, event);
}

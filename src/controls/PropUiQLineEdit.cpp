#include "PropUiQLineEdit.h"

#include "OdStringQt.h"
#include "PropBag.h"
#include "PropUiActionToolButtonsCtrl.h"
#include "PropUiElidedLineEditFilter.h"
#include "QHostLineEdit.h"
#include <QCoreApplication>
#include <QFocusEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QTimer>

PropUiQLineEdit::PropUiQLineEdit(QWidget* parent) : PropUiQControl(parent) {}

bool PropUiQLineEdit::setupUi()
{
  if (!m_bag)
    return false;
  auto* edit = new host_qt_ui_core::QHostLineEdit(this);
  edit->setAutoChangePlaceholderTextColor(true);
  return setupWithEdit(edit);
}

bool PropUiQLineEdit::setupWithEdit(QLineEdit* edit)
{
  if (!m_bag)
  {
    delete edit;
    return false;
  }
  PropUiQControl::setupUi();
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  edit->setParent(this);
  edit->setObjectName(QStringLiteral("edit"));
  m_edit = edit;

  edit->installEventFilter(this);
  useFocusReactor(edit);
  if (m_options & kElided)
  {
    new PropUiElidedLineEditFilter(edit);
    useToolTipFilter(edit);
  }
  connect(edit, &QLineEdit::editingFinished, this, &PropUiQLineEdit::onEditingFinished);
  connect(edit, &QLineEdit::editingFinished, this, &PropUiQLineEdit::onUpdateDisplay);
  layout->addWidget(edit);
  if (PropUiActionToolButtonsCtrl* toolbar = createActionsToolBar())
    layout->addWidget(toolbar);
  return true;
}

void PropUiQLineEdit::updateUi()
{
  PropUiQControl::updateUi();
  if (m_bag && m_edit)
    m_edit->setReadOnly(!m_bag->isEditable(m_index, m_element));
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
  if (!m_bag || !m_edit || m_edit->text() == m_lastText)
    return false;
  PropVariant value;
  if (!m_bag->parseValue(m_index, m_element, toOdString(m_edit->text().trimmed()), value))
  {
    restoreLastText();
    return false;
  }
  if (!validateAndWrite(value))
  {
    restoreLastText();
    return false;
  }
  m_lastText = m_edit->text();
  return true;
}

void PropUiQLineEdit::onEditingFinished()
{
  if (m_applying)
    return;
  m_applying = true;
  applyData();
  m_applying = false;
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
  m_edit->setPlaceholderText(varies ? QWidget::tr("*varies*") : QString());
  // What the field shows now is empty; leaving it untouched must not write or revert.
  if (varies)
    m_lastText.clear();
}

void PropUiQLineEdit::restoreLastText()
{
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

bool PropUiQLineEdit::eventFilter(QObject* watched, QEvent* event)
{
  if (watched == m_edit && m_edit)
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
      if (reason != Qt::TabFocusReason && reason != Qt::BacktabFocusReason)
      {
        if (m_edit->text() != m_lastText)
          commitWithEnter();
        if (m_edit && !m_edit->hasAcceptableInput())
          restoreLastText();
      }
      if (m_edit && reason != Qt::PopupFocusReason)
        m_edit->deselect();
      break;
    }
    case QEvent::KeyPress:
    {
      auto* key = static_cast<QKeyEvent*>(event);
      if (key->key() == Qt::Key_Escape)
      {
        restoreLastText();
      }
      else if (key->spontaneous() && key->key() == Qt::Key_Tab)
      {
        commitWithEnter();
        if (m_edit && !m_edit->hasAcceptableInput())
          restoreLastText();
      }
      else if (key->spontaneous() && (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter))
      {
        QPointer<PropUiQLineEdit> self(this);
        QTimer::singleShot(0, this, [self]() {
          if (!self || !self->m_edit)
            return;
          if (!self->m_edit->hasAcceptableInput())
            self->restoreLastText();
          self->focusNextPrevChild(true);
        });
      }
      break;
    }
    default:
      break;
    }
  }
  return PropUiQControl::eventFilter(watched, event);
}

#include "PropUiQIntegerCtrl.h"

#include "PropBag.h"
#include "PropUiEditCommitFilter.h"
#include "PropUiElidedLineEditFilter.h"
#include "PropUiTexts_p.h"
#include "PropUiTypedNumber_p.h"
#include <QHBoxLayout>
#include "OdStringQt.h"
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <limits>

PropUiQIntegerCtrl::PropUiQIntegerCtrl(QWidget* parent) : PropUiQControl(parent) {}

bool PropUiQIntegerCtrl::setupUi()
{
  PropUiQControl::setupUi();
  if (!m_bag)
    return false;
  auto* layout = setupRow();
  m_spinBox = new PropQSpinBox(this);
  m_spinBox->setObjectName(QStringLiteral("spinBox"));
  m_spinBox->disableMouseWheel(true);
  m_spinBox->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  PropUiEditCommitFilter::Edit rules;
  rules.restore = [this]() { m_spinBox->setValue(m_lastValue); };
  rules.moveOn = [this]() { focusNextChild(); };
  using Rule = PropUiEditCommitFilter::Rule;
  new PropUiEditCommitFilter(this, m_spinBox, Rule::SilenceWhileLeaving | Rule::RestoreOnEscape | Rule::MoveOnAfterReturn,
                             rules);
  // After the commit rules, so it sees each event first: what was typed is
  // read before the spin box cuts an unfinished text back to its last value.
  m_spinBox->installEventFilter(this);
  if (auto* edit = m_spinBox->findChild<QLineEdit*>())
  {
    if (m_options & PropUiOption::kElided)
    {
      new PropUiElidedLineEditFilter(edit);
      useToolTipFilter(edit);
    }
  }
  connect(m_spinBox.data(), QOverload<int>::of(&QSpinBox::valueChanged), this, &PropUiQIntegerCtrl::onSpinBoxValueChanged);
  connect(m_spinBox.data(), &QAbstractSpinBox::editingFinished, this, &PropUiQIntegerCtrl::onEditingFinished);
  layout->addWidget(m_spinBox);
  connect(m_spinBox.data(), &QAbstractSpinBox::editingFinished, this, &PropUiQIntegerCtrl::onUpdateDisplay);
  addActionsToolBar(layout);
  return true;
}

void PropUiQIntegerCtrl::updateUi()
{
  PropUiQControl::updateUi();
  showEditable(m_spinBox);
}

void PropUiQIntegerCtrl::updateData()
{
  PropUiQControl::updateData();
  if (!m_bag || !m_spinBox)
    return;
  // Setting the range or the value must not count as the user editing.
  const WidgetUpdateScope refreshing(this);
  PropVariant min, max;
  if (m_bag->getRange(m_index, m_element, min, max))
    m_spinBox->setRange(min.getInt32(), max.getInt32());
  else
    m_spinBox->setRange(std::numeric_limits<int>::min(), std::numeric_limits<int>::max());

  PropVariant value;
  if (readValue(value))
  {
    if (value.isVaries())
    {
      setVaries(true);
      m_lastValue = m_spinBox->value();
    }
    else if ((value.type() & PropVariant::kInt32) && !value.hasNoData())
    {
      setVaries(false);
      if (value.getInt32() != m_lastValue)
      {
        m_lastValue = value.getInt32();
        m_spinBox->setValue(m_lastValue);
      }
    }
  }
}

bool PropUiQIntegerCtrl::isVaries() const
{
  return m_spinBox && m_spinBox->isVaries();
}

void PropUiQIntegerCtrl::setVaries(bool varies)
{
  if (!m_spinBox || m_spinBox->isVaries() == varies)
    return;
  m_spinBox->setVariesFlag(varies);
  // The same value again makes the spin box render its text anew.
  m_spinBox->setValue(m_spinBox->value());
}

bool PropUiQIntegerCtrl::eventFilter(QObject* watched, QEvent* event)
{
  if (watched != m_spinBox || !m_spinBox || !m_bag)
    return PropUiQControl::eventFilter(watched, event);
  switch (event->type())
  {
  case QEvent::KeyPress:
  {
    const int key = static_cast<QKeyEvent*>(event)->key();
    // A refused Return stays with the field (a view does not close its editor): the text is there to correct.
    if ((key == Qt::Key_Return || key == Qt::Key_Enter) && !takeTypedText(true))
      return true;
    if (key == Qt::Key_Tab || key == Qt::Key_Backtab)
      takeTypedText(false);
    break;
  }
  case QEvent::FocusOut:
    if (static_cast<QFocusEvent*>(event)->reason() != Qt::PopupFocusReason && !isWindowGoingAway(m_spinBox))
      takeTypedText(false);
    break;
  default:
    break;
  }
  return PropUiQControl::eventFilter(watched, event);
}

bool PropUiQIntegerCtrl::takeTypedText(bool keepRefused)
{
  if (!m_spinBox || m_spinBox->hasAcceptableInput() ||
      (m_spinBox->isVaries() && m_spinBox->cleanText() == PropUiTexts::varies()))
    return true;
  PropUiTypedNumber reader(m_bag, m_index, m_element, PropUiTypedNumber::Kind::Whole, m_spinBox->locale());
  reader.setRange(m_spinBox->minimum(), m_spinBox->maximum());
  double number = 0.0;
  if (reader.readNumber(m_spinBox->cleanText(), number))
  {
    m_spinBox->setValue(int(number));
    return true;
  }
  showErrorMessage(toOdString(reader.refusal()));
  if (keepRefused)
    m_spinBox->selectAll();
  else
    m_spinBox->setValue(m_lastValue); // the spin box finishes the edit next, and finds nothing to write
  return false;
}

void PropUiQIntegerCtrl::onSpinBoxValueChanged(int)
{
  const WriteScope applying(this);
  // A step out of the varies state is a choice of value: write it now.
  // Typing waits for the edit to end, as it does for any value.
  if (applying.entered() && isVaries() && m_spinBox->isStepping())
    applyData();
}

void PropUiQIntegerCtrl::onEditingFinished()
{
  const WriteScope applying(this);
  if (applying.entered())
    applyData();
}

bool PropUiQIntegerCtrl::applyData()
{
  if (!m_bag || !m_spinBox)
    return false;
  const int current = m_spinBox->value();
  if (current == m_lastValue)
    return false;
  PropVariant value;
  value.setInt32(current);
  if (commitValue(value) == CommitResult::Written)
  {
    m_lastValue = m_spinBox->value();
    if (isVaries())
    {
      setVaries(false);
      PropUiQControl::setVaries(false);
    }
  }
  else
  {
    // Still varying if it was: the value put back is shown as "*varies*" again.
    m_spinBox->setValue(m_lastValue);
  }
  return true;
}

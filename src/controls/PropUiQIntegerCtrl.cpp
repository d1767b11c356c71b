#include "PropUiQIntegerCtrl.h"

#include "PropBag.h"
#include "PropUiActionToolButtonsCtrl.h"
#include "PropUiElidedLineEditFilter.h"
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTimer>
#include <limits>

PropUiQIntegerCtrl::PropUiQIntegerCtrl(QWidget* parent) : PropUiQControl(parent) {}

bool PropUiQIntegerCtrl::setupUi()
{
  PropUiQControl::setupUi();
  if (!m_bag)
    return false;
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  m_spinBox = new PropQSpinBox(this);
  m_spinBox->setObjectName(QStringLiteral("spinBox"));
  m_spinBox->disableMouseWheel(true);
  m_spinBox->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  m_spinBox->installEventFilter(this);
  if (auto* edit = m_spinBox->findChild<QLineEdit*>())
  {
    if (m_options & kElided)
    {
      new PropUiElidedLineEditFilter(edit);
      useToolTipFilter(edit);
    }
  }
  connect(m_spinBox.data(), QOverload<int>::of(&QSpinBox::valueChanged), this, &PropUiQIntegerCtrl::onSpinBoxValueChanged);
  connect(m_spinBox.data(), &QAbstractSpinBox::editingFinished, this, &PropUiQIntegerCtrl::onEditingFinished);
  layout->addWidget(m_spinBox);
  connect(m_spinBox.data(), &QAbstractSpinBox::editingFinished, this, &PropUiQIntegerCtrl::onUpdateDisplay);
  if (PropUiActionToolButtonsCtrl* toolbar = createActionsToolBar())
    layout->addWidget(toolbar);
  return true;
}

void PropUiQIntegerCtrl::updateUi()
{
  PropUiQControl::updateUi();
  if (m_bag && m_spinBox)
    m_spinBox->setEnabled(m_bag->isEditable(m_index, m_element));
}

void PropUiQIntegerCtrl::updateData()
{
  PropUiQControl::updateData();
  if (!m_bag || !m_spinBox)
    return;
  // Setting the range or the value must not count as the user editing.
  const bool wasApplying = m_applying;
  m_applying = true;
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
  m_applying = wasApplying;
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

void PropUiQIntegerCtrl::onSpinBoxValueChanged(int)
{
  if (m_applying)
    return;
  m_applying = true;
  // Stepping out of the varies state is a choice of value: write it now.
  if (isVaries())
  {
    setVaries(false);
    PropUiQControl::setVaries(false);
    applyData();
  }
  m_applying = false;
}

void PropUiQIntegerCtrl::onEditingFinished()
{
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
  if (validateAndWrite(value))
    m_lastValue = m_spinBox->value();
  else
    m_spinBox->setValue(m_lastValue);
  return true;
}

bool PropUiQIntegerCtrl::eventFilter(QObject* watched, QEvent* event)
{
  if (watched == m_spinBox && m_spinBox)
  {
    if (event->type() == QEvent::FocusIn)
      m_messagesSuppressed = false;
    else if (event->type() == QEvent::FocusOut)
      m_messagesSuppressed = true;
    else if (event->type() == QEvent::KeyPress)
    {
      auto* key = static_cast<QKeyEvent*>(event);
      if (key->key() == Qt::Key_Escape)
        m_spinBox->setValue(m_lastValue);
      else if (key->spontaneous() && (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter))
        QTimer::singleShot(0, this, [this]() { focusNextChild(); });
    }
  }
  return PropUiQControl::eventFilter(watched, event);
}

#include "PropUiButtonGroupCtrl.h"

#include "OdStringQt.h"
#include "PropBag.h"
#include "PropUiCollectorFocusPolicyFilter.h"
#include <QAbstractButton>
#include <QButtonGroup>
#include <QHBoxLayout>

PropUiButtonGroupCtrl::PropUiButtonGroupCtrl(QWidget* parent) : PropUiQControl(parent) {}

bool PropUiButtonGroupCtrl::setupUi()
{
  PropUiQControl::setupUi();
  auto* outer = new QHBoxLayout(this);
  outer->setContentsMargins(0, 0, 0, 0);
  outer->setSpacing(2);
  if (!(m_options & kNoFocusButtons))
  {
    setFocusPolicy(Qt::StrongFocus);
    new PropUiCollectorFocusPolicyFilter(this);
    useFocusReactor(this);
  }
  if (m_options & kAlignRight)
    outer->addSpacerItem(new QSpacerItem(0, 0, QSizePolicy::Expanding, QSizePolicy::Minimum));
  auto* inner = new QHBoxLayout;
  inner->setSpacing(0);
  outer->addLayout(inner);
  if (m_options & kAlignLeft)
    outer->addSpacerItem(new QSpacerItem(0, 0, QSizePolicy::Expanding, QSizePolicy::Minimum));
  m_buttonGroup = new QButtonGroup(this);
  m_buttonGroup->setExclusive(true);
  connect(m_buttonGroup.data(), QOverload<QAbstractButton*>::of(&QButtonGroup::buttonClicked), this, &PropUiButtonGroupCtrl::onButtonClicked);
  return true;
}

void PropUiButtonGroupCtrl::updateUi()
{
  PropUiQControl::updateUi();
}

QHBoxLayout* PropUiButtonGroupCtrl::buttonsLayout() const
{
  auto* outer = qobject_cast<QHBoxLayout*>(layout());
  if (!outer)
    return nullptr;
  QLayoutItem* item = outer->itemAt((m_options & kAlignRight) ? 1 : 0);
  return item ? qobject_cast<QHBoxLayout*>(item->layout()) : nullptr;
}

void PropUiButtonGroupCtrl::uncheck(QAbstractButton* button)
{
  if (!button->isChecked())
    return;
  const bool exclusive = m_buttonGroup && m_buttonGroup->exclusive();
  if (exclusive)
    m_buttonGroup->setExclusive(false);
  button->setChecked(false);
  if (exclusive)
    m_buttonGroup->setExclusive(true);
}

void PropUiButtonGroupCtrl::setCurrentBtn(QAbstractButton* button)
{
  if (button)
    button->setChecked(true);
}

void PropUiButtonGroupCtrl::updateData()
{
  PropUiQControl::updateData();
  QHBoxLayout* inner = buttonsLayout();
  if (!m_bag || !m_buttonGroup || !inner)
    return;
  OdStringArray texts;
  PropKeyArray keys;
  m_bag->getValueList(m_index, texts, keys);
  const int count = int(texts.size() < keys.size() ? texts.size() : keys.size());

  while (inner->count() > count)
  {
    QLayoutItem* item = inner->takeAt(count);
    if (auto* button = qobject_cast<QAbstractButton*>(item->widget()))
      removeBtn(button);
    delete item->widget();
    delete item;
  }
  while (inner->count() < count)
  {
    QAbstractButton* button = createBtn();
    useFocusReactor(button);
    if (m_options & kNoFocusButtons)
      button->setFocusPolicy(Qt::NoFocus);
    m_buttonGroup->addButton(button, -1);
    inner->addWidget(button);
  }
  const QList<QAbstractButton*> buttons = m_buttonGroup->buttons();
  for (int i = 0; i < buttons.size() && i < count; ++i)
    updateBtn(buttons[i], texts[unsigned(i)], keys[unsigned(i)]);

  PropVariant value;
  if (!m_bag->getValue(m_index, value) || value.isVaries())
    return;
  OdString text;
  if (!m_bag->getListText(m_index, value, text) && !m_bag->formatValue(m_index, m_element, value, text))
    return;
  // Matched by what the button reads, not by key: a button without text matches only an empty text.
  const QString wanted = toQString(text);
  for (QAbstractButton* button : buttons)
    if (button->text() == wanted)
    {
      setCurrentBtn(button);
      break;
    }
}

void PropUiButtonGroupCtrl::commitButton(QAbstractButton* button)
{
  if (!m_bag || !button || !button->isChecked())
    return;
  const auto key = m_buttonKeys.find(button);
  if (key == m_buttonKeys.end())
    return;
  PropVariant value;
  if (!m_bag->getListValue(m_index, key->second, value))
    return;
  OdString message;
  if (!m_bag->validate(m_index, m_element, value, message))
  {
    // The buttons stay as the user left them until the next update.
    showErrorMessage(message);
    return;
  }
  m_bag->setValue(m_index, value);
}

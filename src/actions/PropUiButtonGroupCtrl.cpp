#include "PropUiButtonGroupCtrl.h"

#include "OdStringQt.h"
#include "PropBag.h"
#include "PropUiQIcon.h"
#include "PropUiButtonRow_p.h"
#include "PropUiTextCaption_p.h"
#include <QAbstractButton>
#include <QButtonGroup>
#include <QHBoxLayout>

PropUiButtonGroupCtrl::PropUiButtonGroupCtrl(QWidget* parent) : PropUiQControl(parent) {}

bool PropUiButtonGroupCtrl::setupUi()
{
  PropUiQControl::setupUi();
  propui::buildButtonRow(this);
  m_buttonGroup = new QButtonGroup(this);
  m_buttonGroup->setExclusive(true);
  connect(m_buttonGroup.data(), QOverload<QAbstractButton*>::of(&QButtonGroup::buttonClicked), this,
          &PropUiButtonGroupCtrl::onButtonClicked);
  return true;
}

void PropUiButtonGroupCtrl::updateUi()
{
  PropUiQControl::updateUi();
}

QHBoxLayout* PropUiButtonGroupCtrl::buttonsLayout() const
{
  return propui::buttonRowOf(this, m_options);
}

void PropUiButtonGroupCtrl::uncheck(QAbstractButton* button)
{
  if (!button->isChecked() || button == m_refreshKeeps)
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

  // The checked button stays checked through the refresh, rather than going
  // off and on again, unless it turns out not to be the current one.
  const QPointer<QAbstractButton> wasChecked = m_buttonGroup->checkedButton();
  m_refreshKeeps = wasChecked;
  propui::fitButtonRow(this, inner, m_buttonGroup, count, [this]() { return createBtn(); },
                       [this](QAbstractButton* button) { removeBtn(button); });
  const QList<QAbstractButton*> buttons = m_buttonGroup->buttons();
  for (int i = 0; i < buttons.size() && i < count; ++i)
    updateBtn(buttons[i], texts[unsigned(i)], keys[unsigned(i)]);
  m_refreshKeeps = nullptr;

  // Checking the current button lets the exclusive group release the one
  // checked before; only a value that matches no button needs the release.
  QAbstractButton* current = currentButton(buttons);
  if (current)
    setCurrentBtn(current);
  if (wasChecked && wasChecked != current)
    uncheck(wasChecked);
}

QAbstractButton* PropUiButtonGroupCtrl::currentButton(const QList<QAbstractButton*>& buttons) const
{
  PropVariant value;
  if (!readValue(value, CommitTarget::WholeItem) || value.isVaries())
    return nullptr;
  OdString text;
  if (!m_bag->getListText(m_index, value, text) && !m_bag->formatValue(m_index, m_element, value, text))
    return nullptr;
  // Matched by what the button reads, not by key: a button without text matches only an empty text.
  for (QAbstractButton* button : buttons)
    if (propui::showsText(button->text(), text))
      return button;
  return nullptr;
}

void PropUiButtonGroupCtrl::showEntry(QAbstractButton* button, const OdString& text, unsigned long key)
{
  const bool tipShown = propui::showsText(button->toolTip(), text);
  const bool captionShown = (m_options & PropUiOption::kIconsOnly) || propui::showsText(button->text(), text);
  if (!tipShown || !captionShown)
  {
    const QString shown = toQString(text);
    if (!tipShown)
      button->setToolTip(shown);
    if (!captionShown)
      button->setText(shown);
  }
  uncheck(button);
  OdSharedPtr<PropIcon> icon;
  if (m_bag && m_bag->getIcon(m_index, key, icon))
    if (auto* qicon = dynamic_cast<PropUiQIcon*>(icon.get()))
      propui::setIconIfChanged(button, qicon->getIcon());
  m_buttonKeys[button] = key;
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
  // A listed value belongs to the item. After a refusal the buttons stay as
  // the user left them until the next update, unless the values differ.
  if (commitValue(value, CommitTarget::WholeItem) != CommitResult::Written)
    restoreVariesLook();
}

// Asked of the bag rather than remembered: by the time a click arrives the
// group has already checked the new button.
void PropUiButtonGroupCtrl::restoreVariesLook()
{
  PropVariant value;
  if (!m_bag || !m_buttonGroup || !readValue(value, CommitTarget::WholeItem) || !value.isVaries())
    return;
  for (QAbstractButton* button : m_buttonGroup->buttons())
    uncheck(button);
}

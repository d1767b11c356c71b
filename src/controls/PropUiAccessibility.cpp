#include "PropUiAccessibility.h"

#include "OdStringQt.h"
#include "PropUiAccessibleCheckBox.h"
#include "PropUiAccessibleComboBox.h"
#include "PropBag.h"
#include "PropUiQControl.h"
#include "PropUiQLabel.h"
#include "PropUiTexts.h"
#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QMetaObject>
#include <QPlainTextEdit>
#include <QTextDocument>
#include <QTextEdit>
#include <QVariant>
#include <exception>

namespace
{

// What this class gave a widget last, so a later update can tell its own
// text from one that a composite or the host set.
const char kOwnName[] = "_propui_accessibleName";
const char kOwnDescription[] = "_propui_accessibleDescription";

/** The innermost control a widget belongs to: composites leave their rows to the rows. */
const PropUiQControl* ownerOf(const QWidget* widget)
{
  for (const QObject* up = widget->parent(); up; up = up->parent())
    if (auto* control = qobject_cast<const PropUiQControl*>(up))
      return control;
  return nullptr;
}

/** Sets the text unless someone else set one; true when the widget carries ours. */
bool setOwn(QWidget* widget, const char* ownKey, const QString& current, const QString& wanted,
            void (QWidget::*setter)(const QString&))
{
  const QString own = widget->property(ownKey).toString();
  if (!current.isEmpty() && current != own)
    return false;
  if (current != wanted)
    (widget->*setter)(wanted);
  if (own != wanted)
    widget->setProperty(ownKey, wanted);
  return true;
}

} // namespace

PropUiAccessibility::PropUiAccessibility(PropUiQControl* control) : m_control(control)
{
  PropUiAccessibleCheckBox::install();
  PropUiAccessibleComboBox::install();
}

void PropUiAccessibility::forgetTexts()
{
  m_textsKnown = false;
}

void PropUiAccessibility::schedule()
{
  if (m_pending)
    return;
  m_pending = true;
  // Queued on the control: a control deleted first takes the update with it.
  QMetaObject::invokeMethod(
    m_control,
    [this]() {
      m_pending = false;
      update();
    },
    Qt::QueuedConnection);
}

void PropUiAccessibility::update()
{
  if (!m_control->propBag())
    return;
  if (!m_textsKnown)
  {
    // Runs from the event loop: whatever a host's bag throws stays here.
    try
    {
      readTexts();
    }
    catch (const std::exception& error)
    {
      qWarning("PropWidgets: the item's caption could not be read (%s)", error.what());
      return;
    }
    catch (...)
    {
      qWarning("PropWidgets: the item's caption could not be read");
      return;
    }
  }
  const bool varies = m_control->isVaries();
  const QList<QWidget*> widgets = m_control->findChildren<QWidget*>();
  for (QWidget* widget : widgets)
    if (widget->focusPolicy() != Qt::NoFocus && ownerOf(widget) == m_control)
      describe(widget, varies);
  tieCaption();
}

void PropUiAccessibility::readTexts()
{
  PropBag* bag = m_control->propBag();
  const int index = m_control->itemIndex();
  OdString name;
  m_caption = bag->getName(index, name) ? toQString(name) : QString();
  if (m_control->isPropertyElement())
  {
    PropKeyArray keys;
    OdStringArray captions;
    bag->getElements(index, keys, captions);
    for (unsigned int i = 0; i < keys.size() && i < captions.size(); ++i)
      if (keys[i] == m_control->element())
      {
        const QString element = toQString(captions[i]);
        if (!element.isEmpty())
          m_caption = m_caption.isEmpty() ? element : m_caption + QLatin1Char(' ') + element;
        break;
      }
  }
  OdString description;
  m_description = bag->getDescription(index, description) ? toQString(description) : QString();
  m_textsKnown = true;
}

void PropUiAccessibility::describe(QWidget* widget, bool varies) const
{
  const QString name = nameOf(widget);
  if (!name.isEmpty())
    setOwn(widget, kOwnName, widget->accessibleName(), name, &QWidget::setAccessibleName);
  setOwn(widget, kOwnDescription, widget->accessibleDescription(),
         announcement(m_description, varies, isReadOnly(widget)), &QWidget::setAccessibleDescription);
}

// A button of a row (a choice, an action) is told apart from its neighbours
// by its own text; a check box's text is the value it shows, not a name.
QString PropUiAccessibility::nameOf(const QWidget* widget) const
{
  auto* button = qobject_cast<const QAbstractButton*>(widget);
  if (!button || qobject_cast<const QCheckBox*>(button))
    return m_caption;
  QString own = QString(button->text()).remove(QLatin1Char('&'));
  if (own.isEmpty() && !Qt::mightBeRichText(button->toolTip()))
    own = button->toolTip();
  if (own.isEmpty() || own == m_caption)
    return m_caption;
  if (m_caption.isEmpty())
    return own;
  return tr("%1: %2", "accessible name of a button in a row: the item's caption, then the button's text")
    .arg(m_caption, own);
}

// A caption is the buddy of the control beside it that edits the same item,
// so that assistive technology reads it as that control's label.
void PropUiAccessibility::tieCaption() const
{
  auto* caption = qobject_cast<PropUiQLabel*>(m_control);
  QWidget* parent = caption ? caption->parentWidget() : nullptr;
  if (!parent)
    return;
  auto* label = caption->findChild<QLabel*>(QString(), Qt::FindDirectChildrenOnly);
  if (!label || label->buddy())
    return;
  const QList<PropUiQControl*> siblings = parent->findChildren<PropUiQControl*>(QString(), Qt::FindDirectChildrenOnly);
  for (PropUiQControl* sibling : siblings)
  {
    if (sibling == caption || qobject_cast<PropUiQLabel*>(sibling) || sibling->propBag() != caption->propBag() ||
        sibling->itemIndex() != caption->itemIndex() || sibling->isPropertyElement() != caption->isPropertyElement() ||
        (caption->isPropertyElement() && sibling->element() != caption->element()))
      continue;
    for (QWidget* widget : sibling->findChildren<QWidget*>())
      if (widget->focusPolicy() != Qt::NoFocus && ownerOf(widget) == sibling)
      {
        label->setBuddy(widget);
        return;
      }
  }
}

QString PropUiAccessibility::announcement(const QString& description, bool varies, bool readOnly)
{
  QStringList parts;
  if (!description.isEmpty())
    parts << description;
  if (varies)
    parts << PropUiTexts::varies();
  if (readOnly)
    parts << tr("read-only");
  return parts.join(QStringLiteral(", "));
}

bool PropUiAccessibility::isReadOnly(const QWidget* widget)
{
  if (!widget->isEnabled())
    return true;
  if (auto* edit = qobject_cast<const QLineEdit*>(widget))
    return edit->isReadOnly();
  if (auto* spinBox = qobject_cast<const QAbstractSpinBox*>(widget))
    return spinBox->isReadOnly();
  if (auto* text = qobject_cast<const QTextEdit*>(widget))
    return text->isReadOnly();
  if (auto* plain = qobject_cast<const QPlainTextEdit*>(widget))
    return plain->isReadOnly();
  return false;
}

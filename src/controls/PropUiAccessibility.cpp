#include "PropUiAccessibility_p.h"

#include "OdStringQt.h"
#include "PropUiAccessibleCheckBox_p.h"
#include "PropUiAccessibleComboBox_p.h"
#include "PropBag.h"
#include "PropUiTexts_p.h"
#include "PropWidgetsLogging_p.h"
#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QMetaObject>
#include <QHash>
#include <QSet>
#include <QPlainTextEdit>
#include <QTextDocument>
#include <QTextEdit>
#include <QVariant>
#include <algorithm>

namespace
{

using Subject = PropUiAccessibility::Subject;

/** The innermost control a widget belongs to: composites leave their rows to the rows. */
const QObject* ownerOf(const Subject& asking, const QWidget* widget)
{
  for (const QObject* up = widget->parent(); up; up = up->parent())
    if (asking.isControl(up))
      return up;
  return nullptr;
}

/** Sets the text unless someone else set one; `own` is what this class gave last. */
void setOwn(QWidget* widget, QString& own, const QString& current, const QString& wanted,
            void (QWidget::*setter)(const QString&))
{
  if (!current.isEmpty() && current != own)
    return;
  if (current != wanted)
    (widget->*setter)(wanted);
  own = wanted;
}

// Controls waiting for their update. A panel builds thousands of controls in
// one event: one posted call serves them all, and a control going away
// before then only leaves this set, where a posted event of its own would
// make Qt search the whole event queue for it.
QSet<PropUiAccessibility*>& pending()
{
  static QSet<PropUiAccessibility*> waiting;
  return waiting;
}

bool callPosted = false;

// Captions whose editor was not there yet when they looked for it: only
// while one waits does a new editor look for its caption.
QSet<const Subject*>& captionsWaiting()
{
  static QSet<const Subject*> waiting;
  return waiting;
}

/** What a control edits: a caption is tied to the control beside it that edits the same. */
struct Edited
{
  const PropBag* bag;
  int index;
  bool isElement;
  unsigned long element;

  explicit Edited(const PropUiAccessibility::Binding& binding)
    : bag(binding.bag), index(binding.index), isElement(binding.isElement),
      element(binding.isElement ? binding.element : 0)
  {
  }
  bool operator==(const Edited& other) const
  {
    return bag == other.bag && index == other.index && isElement == other.isElement && element == other.element;
  }
};

uint qHash(const Edited& edited, uint seed = 0)
{
  return ::qHash(quintptr(edited.bag), seed) ^ ::qHash(edited.index) ^ ::qHash(quint64(edited.element));
}

using ByItem = QHash<Edited, QVector<const Subject*> >;

/** The controls among a widget's direct children, in order, by what they edit. */
struct Row
{
  ByItem captions;
  ByItem editors;
};

// A control not bound yet edits nothing that a bound caption could name.
Row controlsIn(const Subject& asking, const QWidget* parent)
{
  Row row;
  for (const QWidget* child : parent->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly))
    if (const Subject* sibling = asking.subjectOf(child))
      (sibling->isCaption() ? row.captions : row.editors)[Edited(sibling->binding())].append(sibling);
  return row;
}

// While the waiting updates run, the controls of one panel share one look
// at the panel's children: looking anew for each caption would cost the
// square of the rows. Forgotten as soon as any control goes away.
QHash<const QWidget*, Row>* rowsByPanel = nullptr;

Row siblingsOf(const Subject& control)
{
  const QWidget* parent = control.widget()->parentWidget();
  if (!rowsByPanel)
    return controlsIn(control, parent);
  auto known = rowsByPanel->find(parent);
  if (known == rowsByPanel->end())
    known = rowsByPanel->insert(parent, controlsIn(control, parent));
  return *known;
}

/** The widget of a control that a caption names: its first focusable one of its own. */
QWidget* firstEditor(const Subject& control)
{
  const QWidget* self = control.widget();
  for (QWidget* widget : self->findChildren<QWidget*>())
    if (widget->focusPolicy() != Qt::NoFocus && ownerOf(control, widget) == self)
      return widget;
  return nullptr;
}

QLabel* untiedLabelOf(const Subject& caption)
{
  auto* label = caption.widget()->findChild<QLabel*>(QString(), Qt::FindDirectChildrenOnly);
  return label && !label->buddy() ? label : nullptr;
}

} // namespace

PropUiAccessibility::PropUiAccessibility(const Subject& subject) : m_subject(subject)
{
  PropUiAccessibleCheckBox::install();
  PropUiAccessibleComboBox::install();
}

PropUiAccessibility::~PropUiAccessibility()
{
  if (m_pending)
    pending().remove(this);
  captionsWaiting().remove(&m_subject);
  if (rowsByPanel)
    rowsByPanel->clear();
}

void PropUiAccessibility::forgetTexts()
{
  m_textsKnown = false;
}

void PropUiAccessibility::rebuilt()
{
  m_textsKnown = false;
  m_captionSought = false;
  captionsWaiting().remove(&m_subject);
}

void PropUiAccessibility::languageChanged()
{
  ++m_texts;
  schedule();
}

void PropUiAccessibility::schedule()
{
  if (m_pending)
    return;
  m_pending = true;
  pending().insert(this);
  if (callPosted || !QCoreApplication::instance())
    return;
  callPosted = true;
  QMetaObject::invokeMethod(QCoreApplication::instance(), &PropUiAccessibility::runPosted, Qt::QueuedConnection);
}

void PropUiAccessibility::runPosted()
{
  callPosted = false;
  runWaiting();
}

// Showing a panel lays out every row before any posted call runs, and a
// caption tied to its editor after that asks its row for a new layout: a
// posted request per row, each searching the whole queue. Before the first
// layout a tie asks for nothing, so the first control to be polished runs
// every update that is waiting.
void PropUiAccessibility::polished()
{
  if (m_pending && !rowsByPanel)
    runWaiting();
}

void PropUiAccessibility::runWaiting()
{
  // An update may delete another control or schedule one anew: each is taken out of the set before it runs.
  const QList<PropUiAccessibility*> waiting = pending().values();
  QHash<const QWidget*, Row> rows;
  rowsByPanel = &rows;
  for (PropUiAccessibility* accessibility : waiting)
    if (pending().remove(accessibility))
    {
      accessibility->m_pending = false;
      accessibility->update();
    }
  rowsByPanel = nullptr;
}

void PropUiAccessibility::update()
{
  if (!m_subject.binding().bag)
    return;
  if (!m_textsKnown)
  {
    // Runs from the event loop: whatever a host's bag throws stays here.
    try
    {
      readTexts();
    }
    catch (...)
    {
      propui::warnCaught("the item's caption could not be read");
      return;
    }
  }
  const bool varies = m_subject.showsVaries();
  const QWidget* control = m_subject.widget();
  const QList<QWidget*> widgets = control->findChildren<QWidget*>();
  // Widgets gone since the last update (a row that lost buttons) drop out
  // here; one that takes no focus just now keeps what it was given.
  QVector<Given> given;
  for (QWidget* widget : widgets)
  {
    if (ownerOf(m_subject, widget) != control)
      continue;
    if (widget->focusPolicy() != Qt::NoFocus)
      given.append(describe(widget, varies));
    else if (const Given* earlier = givenTo(widget))
      given.append(*earlier);
  }
  m_given = given;
  if (m_subject.isCaption())
    tieCaption();
  else
    tieToCaption();
}

void PropUiAccessibility::readTexts()
{
  const Binding binding = m_subject.binding();
  PropBag* bag = binding.bag;
  const int index = binding.index;
  OdString name;
  QString caption = bag->getName(index, name) ? toQString(name) : QString();
  if (binding.isElement)
  {
    PropKeyArray keys;
    OdStringArray captions;
    bag->getElements(index, keys, captions);
    for (unsigned int i = 0; i < keys.size() && i < captions.size(); ++i)
      if (keys[i] == binding.element)
      {
        const QString element = toQString(captions[i]);
        if (!element.isEmpty())
          caption = caption.isEmpty() ? element : caption + QLatin1Char(' ') + element;
        break;
      }
  }
  OdString text;
  const QString description = bag->getDescription(index, text) ? toQString(text) : QString();
  if (caption != m_caption || description != m_description)
  {
    m_caption = caption;
    m_description = description;
    ++m_texts;
  }
  m_textsKnown = true;
}

const PropUiAccessibility::Given* PropUiAccessibility::givenTo(const QWidget* widget) const
{
  const auto found =
    std::find_if(m_given.cbegin(), m_given.cend(), [widget](const Given& g) { return g.widget == widget; });
  return found != m_given.cend() ? &*found : nullptr;
}

PropUiAccessibility::Given PropUiAccessibility::describe(QWidget* widget, bool varies) const
{
  Given now{widget, QString(), QString(), m_texts, varies, isReadOnly(widget), QString(), QString()};
  auto* button = qobject_cast<const QAbstractButton*>(widget);
  if (button && !qobject_cast<const QCheckBox*>(button))
  {
    now.buttonText = button->text();
    now.buttonTip = button->toolTip();
  }
  const Given* earlier = givenTo(widget);
  if (earlier && unchanged(*earlier, now))
    return *earlier;
  if (earlier)
  {
    now.name = earlier->name;
    now.description = earlier->description;
  }
  const QString name = nameOf(widget);
  if (!name.isEmpty())
    setOwn(widget, now.name, widget->accessibleName(), name, &QWidget::setAccessibleName);
  setOwn(widget, now.description, widget->accessibleDescription(), announcement(m_description, varies, now.readOnly),
         &QWidget::setAccessibleDescription);
  return now;
}

// A refresh mostly changes only the value: when nothing that the texts are
// made from changed, and the widget still carries them, there is nothing to do.
bool PropUiAccessibility::unchanged(const Given& earlier, const Given& now) const
{
  return earlier.texts == now.texts && earlier.varies == now.varies && earlier.readOnly == now.readOnly &&
         earlier.buttonText == now.buttonText && earlier.buttonTip == now.buttonTip &&
         now.widget->accessibleName() == earlier.name && now.widget->accessibleDescription() == earlier.description;
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
  QLabel* label = untiedLabelOf(m_subject);
  if (!label)
  {
    captionsWaiting().remove(&m_subject);
    return;
  }
  // It looked already and found no editor: an editor that comes later ties it.
  if (captionsWaiting().contains(&m_subject))
    return;
  if (m_subject.widget()->parentWidget())
    for (const Subject* sibling : siblingsOf(m_subject).editors.value(Edited(m_subject.binding())))
      if (QWidget* editor = firstEditor(*sibling))
      {
        label->setBuddy(editor);
        captionsWaiting().remove(&m_subject);
        return;
      }
  captionsWaiting().insert(&m_subject);
}

// The same tie from the editor's side, for a caption that was updated
// before its editor was made.
void PropUiAccessibility::tieToCaption()
{
  if (m_captionSought || !m_subject.widget()->parentWidget())
    return;
  m_captionSought = true;
  if (captionsWaiting().isEmpty())
    return;
  const QVector<const Subject*> captions = siblingsOf(m_subject).captions.value(Edited(m_subject.binding()));
  QWidget* editor = captions.isEmpty() ? nullptr : firstEditor(m_subject);
  for (const Subject* caption : captions)
    if (QLabel* label = editor ? untiedLabelOf(*caption) : nullptr)
    {
      label->setBuddy(editor);
      captionsWaiting().remove(caption);
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

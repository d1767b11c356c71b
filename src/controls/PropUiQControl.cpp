#include "PropUiQControl.h"
#include "PropUiQControl_p.h"

#include "HostDocManager.h"
#include "PropBag.h"
#include "PropUiOptions.h"
#include "PropUiActionToolButtonsCtrl.h"
#include "PropUiActionsContextMenu_p.h"
#include "PropUiCommonToolTipFilter.h"
#include "PropUiFocusReactorFilter.h"
#include "PropUiQDefaultFormatter.h"
#include "PropUiQFormatter.h"
#include "PropUiQEventFilter.h"
#include "PropUiRedirectFocusPolicyFilter.h"
#include "PropUiWindowState_p.h"
#include "QHostMessageBoxOd.h"
#include <QApplication>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QTimer>

PropUiQControlPrivate::PropUiQControlPrivate(PropUiQControl* control) : q(control), accessibility(*this) {}

QWidget* PropUiQControlPrivate::widget() const
{
  return q;
}

PropUiAccessibility::Binding PropUiQControlPrivate::binding() const
{
  return {q->propBag(), q->itemIndex(), q->isPropertyElement(), q->element()};
}

bool PropUiQControlPrivate::showsVaries() const
{
  return q->isVaries();
}

bool PropUiQControlPrivate::isCaption() const
{
  return q->inherits("PropUiQLabel");
}

bool PropUiQControlPrivate::isControl(const QObject* object) const
{
  return qobject_cast<const PropUiQControl*>(object) != nullptr;
}

const PropUiAccessibility::Subject* PropUiQControlPrivate::subjectOf(const QObject* object) const
{
  auto* control = qobject_cast<const PropUiQControl*>(object);
  return control ? control->d : nullptr;
}

PropUiQControl::PropUiQControl(QWidget* parent) : PropUiQWidget(parent) {}

PropUiQControlPrivate* PropUiQControl::ensurePrivate()
{
  if (!d)
    d = new PropUiQControlPrivate(this);
  return d;
}

bool PropUiQControl::isClosing() const
{
  return d && d->closing;
}

// Toolbar, filters and formatter are Qt children; the bag is never ours.
// Qt destroys the children after this body, and a child that has the focus
// is told that it lost it; a control shown as a window of its own is hidden
// first, and its children hear of it. By then the derived
// control is gone and the bag may be too, so such children are cut off
// first: an unfinished edit is dropped, not committed. Otherwise nothing a
// child or its filters act on reaches them before Qt has cut their
// connections itself, and a panel torn down row by row does not search
// every row's children.
// A control that never had a private part was never bound: nothing it
// would commit reaches a bag, closing or not.
PropUiQControl::~PropUiQControl()
{
  if (d)
    d->closing = true;
  if ((isWindow() && isVisible()) || holdsFocus())
    disarmChildren();
  m_bag = nullptr;
  delete d;
  d = nullptr;
}

bool PropUiQControl::holdsFocus() const
{
  // The window's own focus widget too: an inactive window gives it the focus back.
  for (const QWidget* focus : {QApplication::focusWidget(), window()->focusWidget()})
    if (focus && (focus == this || isAncestorOf(focus)))
      return true;
  return false;
}

// Both scopes hold the one applying flag of the contract: a refresh blocks a
// write as much as another write does.
PropUiQControl::WriteScope::WriteScope(PropUiQControl* control)
  : m_control(control), m_held(!control->m_applying), m_entered(m_held && !propui::isWindowGoingAway(control))
{
  m_control->m_applying = true;
}

PropUiQControl::WriteScope::~WriteScope()
{
  if (m_held)
    m_control->m_applying = false;
}

PropUiQControl::WidgetUpdateScope::WidgetUpdateScope(PropUiQControl* control)
  : m_control(control), m_held(!control->m_applying)
{
  m_control->m_applying = true;
}

PropUiQControl::WidgetUpdateScope::~WidgetUpdateScope()
{
  if (m_held)
    m_control->m_applying = false;
}

bool PropUiQControl::isWindowGoingAway(const QWidget* widget)
{
  return propui::isWindowGoingAway(widget);
}

void PropUiQControl::disarmChildren()
{
  // The filters that report to the host go first, while the focus may still move.
  delete m_focusReactorFilter;
  m_focusReactorFilter = nullptr;
  delete m_toolTipFilter;
  m_toolTipFilter = nullptr;
  const QList<QObject*> descendants = findChildren<QObject*>();
  for (QObject* child : descendants)
  {
    child->removeEventFilter(this);
    // A filter the set-up made for one of its editors (commit rules call
    // back into the derived control) hears nothing from that editor any more.
    QObject* holder = child->parent();
    if (!child->isWidgetType() && holder != this)
      holder->removeEventFilter(child);
    if (!qobject_cast<PropUiQFormatter*>(child))
      child->blockSignals(true);
    // Filters of nested controls (the rows of a composite) ask the bag too.
    if (auto* filter = qobject_cast<PropUiQEventFilter*>(child))
      filter->setPropBagItem(nullptr, -1);
  }
}

void PropUiQControl::clearBuiltUi()
{
  disarmChildren();
  if (d)
    d->toolTipWidgets.clear();
  delete layout();
  QList<QPointer<QObject> > built;
  for (QObject* child : children())
    if (!qobject_cast<PropUiQFormatter*>(child))
      built.append(child);
  for (const QPointer<QObject>& child : built)
    delete child.data();
}

bool PropUiQControl::setupUi()
{
  // A second set-up rebuilds: one set of children, whatever the first one made.
  PropUiQControlPrivate* p = ensurePrivate();
  if (p->setUp)
    clearBuiltUi();
  p->setUp = true;
  PropUiActionsContextMenu::install();
  if (m_actionsToolbar)
    m_actionsToolbar->setupUi();
  // The derived control builds its children after this: name them once it has.
  p->accessibility.rebuilt();
  p->accessibility.schedule();
  return true;
}

void PropUiQControl::updateUi()
{
  if (m_actionsToolbar)
    m_actionsToolbar->updateUi();
  updateToolTip();
  // Caption, description or editability may have changed with the item; a
  // control without its private part was never bound and names nothing.
  if (d)
  {
    d->accessibility.forgetTexts();
    d->accessibility.schedule();
  }
}

void PropUiQControl::setPropBagItem(PropBag* bag, int index)
{
  if (m_formatter)
    m_formatter->setPropBag(bag);
  if (m_actionsToolbar)
    m_actionsToolbar->setPropBagItem(bag, index);
  if (m_focusReactorFilter)
    m_focusReactorFilter->setPropBagItem(bag, index);
  if (m_toolTipFilter)
    m_toolTipFilter->setPropBagItem(bag, index);
  m_bag = bag;
  m_index = index;
  m_isPropertyElement = false;
  ensurePrivate()->accessibility.rebuilt();
}

void PropUiQControl::setPropBagItem(PropBag* bag, int index, unsigned long element)
{
  if (m_formatter)
    m_formatter->setPropBag(bag);
  if (m_actionsToolbar)
    m_actionsToolbar->setPropBagItem(bag, index, element);
  if (m_focusReactorFilter)
    m_focusReactorFilter->setPropBagItem(bag, index, element);
  if (m_toolTipFilter)
    m_toolTipFilter->setPropBagItem(bag, index, element);
  m_bag = bag;
  m_index = index;
  m_element = element;
  m_isPropertyElement = true;
  ensurePrivate()->accessibility.rebuilt();
}

void PropUiQControl::disableActionsToolbar(bool disable)
{
  m_actionsToolbarDisabled = disable;
}

void PropUiQControl::updateData()
{
  if (m_actionsToolbar)
    m_actionsToolbar->updateData();
  // The derived control shows the varies state after this call returns.
  if (d)
    d->accessibility.schedule();
}

bool PropUiQControl::event(QEvent* event)
{
  if (d && event->type() == QEvent::Polish)
    d->accessibility.polished();
  else if (d && event->type() == QEvent::LanguageChange)
    d->accessibility.languageChanged();
  return PropUiQWidget::event(event);
}

int PropUiQControl::getOptions() const
{
  return m_options;
}

void PropUiQControl::setOptions(int options)
{
  m_options = options;
}

void PropUiQControl::onUpdateDisplay()
{
  if (HostDocManager())
    HostUpdateDisplay();
}

bool PropUiQControl::isVaries() const
{
  return false;
}

void PropUiQControl::setVaries(bool) {}

// Most controls show what the bag formats and never ask: the default
// formatter is made by the first caller.
PropUiQFormatter* PropUiQControl::getFormatter() const
{
  if (m_formatter || (d && d->formatterReplaced))
    return m_formatter;
  auto* self = const_cast<PropUiQControl*>(this);
  self->m_formatter = new PropUiQDefaultFormatter(self);
  self->m_formatter->setPropBag(m_bag);
  return m_formatter;
}

void PropUiQControl::setFormatter(PropUiQFormatter* formatter)
{
  ensurePrivate()->formatterReplaced = true;
  m_formatter = formatter;
}

// A layout made with the control as its parent posts the control a layout
// request. The control has a polish request waiting since it was made, so
// Qt searches the whole queue of posted events for a request to merge with:
// over a panel that costs the square of its rows. Invalidated while it has
// no parent, the layout posts nothing; showing the control activates it.
//
// The layout keeps no minimum size on the control either: the layout the
// control sits in asks it for its minimum anyway, and storing one costs each
// control an extra block of widget data.
void PropUiQControl::adopt(QLayout* layout)
{
  layout->setSizeConstraint(QLayout::SetNoConstraint);
  layout->invalidate();
  setLayout(layout);
  // Shown already (set up again in place): laid out as Qt would have.
  if (isVisible())
    QCoreApplication::postEvent(this, new QEvent(QEvent::LayoutRequest));
}

QHBoxLayout* PropUiQControl::setupRow(int spacing)
{
  auto* row = adoptLayout(new QHBoxLayout);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(spacing);
  return row;
}

void PropUiQControl::addActionsToolBar(QBoxLayout* row)
{
  if (PropUiActionToolButtonsCtrl* toolbar = createActionsToolBar())
    row->addWidget(toolbar, 0);
}

// A text stays readable and selectable when the item may not be changed;
// every other editor is greyed.
void PropUiQControl::showEditable(QWidget* editor)
{
  if (!m_bag || !editor)
    return;
  const bool editable = m_bag->isEditable(m_index, m_element);
  if (auto* edit = qobject_cast<QLineEdit*>(editor))
    edit->setReadOnly(!editable);
  else
    editor->setEnabled(editable);
}

void PropUiQControl::setTabStop(bool hasTarget)
{
  if (!hasTarget && focusPolicy() != Qt::NoFocus)
  {
    PropUiQControlPrivate* p = ensurePrivate();
    p->lentFocusPolicy = focusPolicy();
    p->focusWithdrawn = true;
    setFocusPolicy(Qt::NoFocus);
  }
  else if (hasTarget && d && d->focusWithdrawn)
  {
    d->focusWithdrawn = false;
    setFocusPolicy(d->lentFocusPolicy);
  }
}

PropUiActionToolButtonsCtrl* PropUiQControl::createActionsToolBar()
{
  if (m_actionsToolbar)
  {
    delete m_actionsToolbar.data();
    m_actionsToolbar = nullptr;
  }
  if (!m_bag || !(m_bag->getFlags(m_index) & PropItemFlag::kHasActions))
    return nullptr;
  if (!m_actionsToolbarDisabled)
  {
    auto* toolbar = new PropUiActionToolButtonsCtrl(this);
    toolbar->setObjectName(QStringLiteral("actionsToolbar"));
    toolbar->setOptions(PropUiOption::kNoFocusButtons);
    toolbar->setPropBagItem(m_bag, m_index, m_element);
    toolbar->setupUi();
    toolbar->updateUi();
    m_actionsToolbar = toolbar;
  }
  return m_actionsToolbar ? m_actionsToolbar.data() : nullptr;
}

bool PropUiQControl::readValue(PropVariant& value) const
{
  return readValue(value, CommitTarget::Binding);
}

bool PropUiQControl::readValue(PropVariant& value, CommitTarget target) const
{
  if (!m_bag)
    return false;
  return m_isPropertyElement && target == CommitTarget::Binding ? m_bag->getElementValue(m_index, m_element, value)
                                                                : m_bag->getValue(m_index, value);
}

PropUiQControl::CommitResult PropUiQControl::commitValue(const PropVariant& value, CommitTarget target,
                                                         RefusalMessage refusal)
{
  return commit(m_element, m_isPropertyElement && target == CommitTarget::Binding, value, refusal);
}

PropUiQControl::CommitResult PropUiQControl::commitElementValue(unsigned long element, const PropVariant& value,
                                                                RefusalMessage refusal)
{
  return commit(element, true, value, refusal);
}

PropUiQControl::CommitResult PropUiQControl::commit(unsigned long element, bool writeElement, const PropVariant& value,
                                                    RefusalMessage refusal)
{
  if (!m_bag || isClosing())
    return CommitResult::Unbound;
  OdString message;
  if (!m_bag->validate(m_index, element, value, message))
  {
    if (refusal == RefusalMessage::Error)
      showErrorMessage(message);
    else
      showInfoMessage(message);
    return CommitResult::Refused;
  }
  const bool written = writeElement ? m_bag->setElementValue(m_index, element, value) : m_bag->setValue(m_index, value);
  return written ? CommitResult::Written : CommitResult::NotWritten;
}

bool PropUiQControl::showInfoMessage(const OdString& message)
{
  return postMessage(message, false);
}

bool PropUiQControl::showErrorMessage(const OdString& message)
{
  return postMessage(message, true);
}

// The box must not open inside the focus or key event that caused the write.
bool PropUiQControl::postMessage(const OdString& message, bool error)
{
  if (m_messagesSuppressed || message.isEmpty())
    return false;
  const OdString text = message;
  // The field being edited is the one with the focus now, in the event that made the write.
  QWidget* focus = QApplication::focusWidget();
  const QPointer<QWidget> field = focus && (focus == this || isAncestorOf(focus)) ? focus : this;
  // A control deleted before the message's turn takes its message with it.
  QTimer::singleShot(0, this, [text, error, field]() {
    if (error)
      host_qt_ui::QHostMessageBoxOd::critical(text, host_qt_ui::QHostMessageBoxOd::Ok, field);
    else
      host_qt_ui::QHostMessageBoxOd::information(text, host_qt_ui::QHostMessageBoxOd::Ok, field);
  });
  return true;
}

void PropUiQControl::useFocusReactor(QWidget* widget)
{
  if (!m_focusReactorFilter)
  {
    m_focusReactorFilter = new PropUiFocusReactorFilter(this);
    installEventFilter(m_focusReactorFilter);
    if (m_bag)
    {
      if (m_isPropertyElement)
        m_focusReactorFilter->setPropBagItem(m_bag, m_index, m_element);
      else
        m_focusReactorFilter->setPropBagItem(m_bag, m_index);
    }
  }
  if (widget && widget != this)
    widget->installEventFilter(m_focusReactorFilter);
}

void PropUiQControl::useFocusRedirect(QWidget* widget, QWidget* target)
{
  QWidget* owner = target ? target : this;
  auto* filter = new PropUiRedirectFocusPolicyFilter(owner);
  filter->setup(widget, owner);
}

void PropUiQControl::useToolTipFilter(QWidget* widget)
{
  if (!widget || !(m_options & PropUiOption::kToolTipFilter))
    return;
  if (m_toolTipFilter)
    widget->installEventFilter(m_toolTipFilter);
  else if (widget != this)
    ensurePrivate()->toolTipWidgets.append(widget);
}

// An item without a description has no tip to show: the filter, which would
// also clear a tip the widget has of its own, waits until the item has one.
void PropUiQControl::updateToolTip()
{
  if (m_toolTipFilter)
  {
    m_toolTipFilter->update();
    return;
  }
  if (!m_bag || !(m_options & PropUiOption::kToolTipFilter))
    return;
  OdString description;
  if (!m_bag->getDescription(m_index, description) || description.isEmpty())
    return;
  auto* filter = new PropUiCommonToolTipFilter(this);
  if (m_isPropertyElement)
    filter->setPropBagItem(m_bag, m_index, m_element);
  else
    filter->setPropBagItem(m_bag, m_index);
  filter->setDescription(description);
  m_toolTipFilter = filter;
  if (!d)
    return;
  for (const QPointer<QWidget>& widget : qAsConst(d->toolTipWidgets))
    if (widget)
      widget->installEventFilter(filter);
  d->toolTipWidgets.clear();
}

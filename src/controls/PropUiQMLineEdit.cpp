#include "PropUiQMLineEdit.h"

#include "OdStringQt.h"
#include "PropBag.h"
#include "PropItemType.h"
#include "PropUiQLabel.h"
#include "PropUiRefresh_p.h"
#include "QHostSpinBox.h"
#include "hostPropEditorReactor.h"
#include <QFormLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QTimer>

template class PropUiQMLineEdit<PropUiQDoubleCtrl>;
template class PropUiQMLineEdit<PropUiQDistanceCtrl>;
template class PropUiQMLineEdit<PropUiQAngleCtrl>;
template class PropUiQMLineEdit<PropUiQIntegerCtrl>;
template class PropUiQMLineEdit<PropUiQTextCtrl>;

namespace
{

/** The group selector: in a scrolling panel the wheel belongs to the panel, never to the group. */
class PropGroupSpinBox : public host_qt_ui_core::QHostSpinBox
{
public:
  explicit PropGroupSpinBox(QWidget* parent) : QHostSpinBox(parent) { disableMouseWheel(true); }
};

} // namespace

PropUiQMLineEditBase::PropUiQMLineEditBase(QWidget* parent, RowFactory makeRow)
  : PropUiQControl(parent), m_makeRow(std::move(makeRow))
{
}

bool PropUiQMLineEditBase::setupUi()
{
  PropUiQControl::setupUi();
  // The base's set-up took away the rows of an earlier one.
  m_rows.clear();
  if (!m_bag)
    return false;

  auto* outer = setupRow();
  auto* form = new QFormLayout;
  form->setLabelAlignment(Qt::AlignRight | Qt::AlignHCenter | Qt::AlignVCenter);
  form->setContentsMargins(0, 0, 0, 0);
  form->setHorizontalSpacing(4);
  form->setVerticalSpacing(2);

  const int groups = m_bag->getGroupCount(m_index);
  if (groups > 0)
  {
    auto* caption = new PropUiQLabel(this);
    caption->setPropBagItem(m_bag, m_index);
    caption->setupUi();
    auto* spinBox = new PropGroupSpinBox(this);
    spinBox->setObjectName(QStringLiteral("groupSpinBox"));
    spinBox->setWrapping(true);
    spinBox->setRange(1, groups);
    spinBox->setValue(1);
    spinBox->installEventFilter(this);
    connect(spinBox, QOverload<int>::of(&QSpinBox::valueChanged), this, &PropUiQMLineEditBase::onGroupChanged);
    m_groupSpinBox = spinBox;
    form->addRow(caption, spinBox);
  }

  PropKeyArray elements;
  OdStringArray captions;
  m_bag->getElements(m_index, elements, captions);
  for (unsigned int i = 0; i < elements.size(); ++i)
  {
    auto* caption = new PropUiQLabel(this);
    caption->setPropBagItem(m_bag, m_index, elements[i]);
    caption->setupUi();
    caption->setText(i < captions.size() ? toQString(captions[i]) : QString());
    PropUiQControl* row = m_makeRow(this);
    row->setPropBagItem(m_bag, m_index, elements[i]);
    row->setupUi();
    form->addRow(caption, row);
    m_rows.append(row);
  }
  outer->addLayout(form);
  return !m_rows.isEmpty();
}

void PropUiQMLineEditBase::updateUi()
{
  PropUiQControl::updateUi();
  for (PropUiQControl* row : m_rows)
    row->updateUi();
}

void PropUiQMLineEditBase::updateData()
{
  PropUiQControl::updateData();
  for (PropUiQControl* row : m_rows)
    row->updateData();
}

unsigned long PropUiQMLineEditBase::firstElementOfGroup() const
{
  const int group = m_groupSpinBox ? m_groupSpinBox->value() : 1;
  return static_cast<unsigned long>(group - 1) * static_cast<unsigned long>(m_rows.size());
}

void PropUiQMLineEditBase::onGroupChanged()
{
  // Groups are consecutive runs of as many elements as there are rows.
  const unsigned long first = firstElementOfGroup();
  for (int i = 0; i < m_rows.size(); ++i)
  {
    m_rows[i]->setPropBagItem(m_bag, m_index, first + static_cast<unsigned long>(i));
    m_rows[i]->updateUi();
    propui::refreshQuietly(m_rows[i]);
  }
}

bool PropUiQMLineEditBase::eventFilter(QObject* watched, QEvent* event)
{
  if (watched == m_groupSpinBox && m_groupSpinBox && m_bag)
  {
    const bool focusIn = event->type() == QEvent::FocusIn;
    if (focusIn || event->type() == QEvent::FocusOut)
    {
      if (hostPropEditorReactor* reactor = m_bag->getReactor(m_index))
      {
        PropItemType* type = m_bag->getItemType(m_index);
        reactor->focusChanged(type ? type->typeId() : 0, firstElementOfGroup(), focusIn);
      }
    }
    else if (event->type() == QEvent::KeyPress)
    {
      auto* key = static_cast<QKeyEvent*>(event);
      if (key->spontaneous() && (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter))
        QTimer::singleShot(0, this, [this]() { focusNextChild(); });
    }
  }
  return PropUiQControl::eventFilter(watched, event);
}

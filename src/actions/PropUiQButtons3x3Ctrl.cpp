#include "PropUiQButtons3x3Ctrl.h"

#include "PropUiButtonRow_p.h"
#include "PropUiTextCaption_p.h"
#include "PropUiCollectorFocusPolicyFilter.h"

#include "OdError.h"
#include "OdStringQt.h"
#include "PropBag.h"
#include "PropUiQIcon.h"
#include <QGridLayout>
#include <QFocusEvent>
#include <QToolButton>

PropUiQButtons3x3Ctrl::PropUiQButtons3x3Ctrl(QWidget* parent) : PropUiQControl(parent) {}

bool PropUiQButtons3x3Ctrl::setupUi()
{
  PropUiQControl::setupUi();
  m_buttonGroup = new QButtonGroup(this);
  m_buttonGroup->setExclusive(true);
  connect(m_buttonGroup.data(), &QButtonGroup::idClicked, this, &PropUiQButtons3x3Ctrl::onIdClicked);
  auto* grid = adoptLayout(new QGridLayout);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setHorizontalSpacing(4);
  grid->setVerticalSpacing(2);
  for (int row = 0; row < 3; ++row)
    for (int column = 0; column < 3; ++column)
    {
      auto* cell = new QToolButton(this);
      cell->setObjectName(QStringLiteral("cell%1").arg(row * 3 + column));
      cell->setCheckable(true);
      grid->addWidget(cell, row, column);
      m_buttonGroup->addButton(cell, -1);
      cell->installEventFilter(this);
    }
  // The cells stay together at the left; the rest of a wide row is empty.
  grid->setColumnStretch(3, 1);
  return true;
}

bool PropUiQButtons3x3Ctrl::eventFilter(QObject* watched, QEvent* event)
{
  if (event->type() == QEvent::FocusIn && watched->parent() == this)
    PropUiCollectorFocusPolicyFilter::passTabToCheckedButton(qobject_cast<QAbstractButton*>(watched),
                                                             static_cast<QFocusEvent*>(event)->reason(), this);
  return PropUiQControl::eventFilter(watched, event);
}

void PropUiQButtons3x3Ctrl::updateUi()
{
  PropUiQControl::updateUi();
}

void PropUiQButtons3x3Ctrl::updateData()
{
  PropUiQControl::updateData();
  if (!m_bag || !m_buttonGroup)
    return;
  OdStringArray texts;
  PropKeyArray keys;
  m_bag->getValueList(m_index, texts, keys);
  if (texts.size() < 9 || keys.size() < 9)
    throw OdError_InvalidIndex();
  refreshCells(texts, keys);
}

void PropUiQButtons3x3Ctrl::refreshCells(const OdStringArray& texts, const PropKeyArray& keys)
{
  const QList<QAbstractButton*> cells = m_buttonGroup->buttons();
  for (int i = 0; i < 9 && i < cells.size(); ++i)
  {
    QAbstractButton* cell = cells[i];
    if (!propui::showsText(cell->toolTip(), texts[unsigned(i)]))
      cell->setToolTip(toQString(texts[unsigned(i)]));
    OdSharedPtr<PropIcon> icon;
    if (m_bag->getIcon(m_index, keys[unsigned(i)], icon))
      if (auto* qicon = dynamic_cast<PropUiQIcon*>(icon.get()))
        propui::setIconIfChanged(cell, qicon->getIcon());
    PropVariant value;
    if (m_bag->getListValue(m_index, keys[unsigned(i)], value) && (value.type() & PropVariant::kInt32) &&
        m_buttonGroup->id(cell) != value.getInt32())
      m_buttonGroup->setId(cell, value.getInt32());
  }

  // A varying selection has no one cell to mark. Only cells whose state
  // changes are touched: a refresh does not flip the current cell off and on.
  // Checking the marked cell makes the exclusive group release the one
  // checked before; only when none is marked must a cell be let go by hand.
  PropVariant current;
  QAbstractButton* marked = nullptr;
  if (readValue(current, CommitTarget::WholeItem) && !current.isVaries())
    marked = m_buttonGroup->button(current.getInt32());
  if (marked && !marked->isChecked())
    marked->setChecked(true);
  QAbstractButton* stale = m_buttonGroup->checkedButton();
  if (stale && stale != marked)
  {
    m_buttonGroup->setExclusive(false);
    stale->setChecked(false);
    m_buttonGroup->setExclusive(true);
  }
}

void PropUiQButtons3x3Ctrl::onIdClicked(int id)
{
  if (!m_bag)
    return;
  PropVariant value;
  value.setInt32(id);
  // Each cell stands for one listed value of the item: the whole item is written.
  if (commitValue(value, CommitTarget::WholeItem) != CommitResult::Written)
    restoreVariesLook();
}

void PropUiQButtons3x3Ctrl::restoreVariesLook()
{
  PropVariant value;
  if (!m_bag || !m_buttonGroup || !readValue(value, CommitTarget::WholeItem) || !value.isVaries())
    return;
  // An exclusive group keeps its checked button; it lets go only while not exclusive.
  m_buttonGroup->setExclusive(false);
  for (QAbstractButton* cell : m_buttonGroup->buttons())
    cell->setChecked(false);
  m_buttonGroup->setExclusive(true);
}

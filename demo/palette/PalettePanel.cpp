#include "PalettePanel.h"

#include "OdError.h"
#include "OdStringQt.h"
#include "PropBag.h"
#include "PropUiQLabel.h"
#include "PropUiQWidget.h"
#include "PropUiRegistry.h"
#include <QGridLayout>
#include <QLabel>

namespace
{

/** A control that cannot show its item (a kind that rejects the bag's list) stays empty rather than end the host. */
void refreshControl(PropUiQWidget* control, bool setUp = false)
{
  try
  {
    if (setUp)
      control->setupUi();
    control->updateUi();
    control->updateData();
  }
  catch (const OdError& error)
  {
    qWarning("palette: %s cannot show its item: %s", control->metaObject()->className(),
             qPrintable(toQString(error.description())));
  }
}

} // namespace

PalettePanel::PalettePanel(QWidget* parent) : QScrollArea(parent)
{
  setObjectName(QStringLiteral("panel"));
  setWidgetResizable(true);
  setFrameShape(QFrame::NoFrame);
}

void PalettePanel::setBag(PropBag* bag)
{
  m_bag = bag;
  m_controls.clear();
  // The old rows may be in the middle of a commit (a selection change on focus out): let them finish.
  if (QWidget* old = takeWidget())
  {
    old->hide();
    old->deleteLater();
  }
  auto* rows = new QWidget(this);
  rows->setObjectName(QStringLiteral("rows"));
  auto* grid = new QGridLayout(rows);
  grid->setColumnStretch(1, 1);
  int row = 0;
  QString category;
  const int count = bag ? bag->getItemCount() : 0;
  for (int i = 0; i < count; ++i)
  {
    OdString itemCategory;
    if (bag->getCategory(i, itemCategory) && toQString(itemCategory) != category)
    {
      category = toQString(itemCategory);
      auto* heading = new QLabel(category, rows);
      QFont bold = heading->font();
      bold.setBold(true);
      heading->setFont(bold);
      grid->addWidget(heading, row++, 0, 1, 2);
    }
    PropUiQWidget* control = propUiCreateWidget(bag->getControlGuid(i), int(bag->getFlags(i)));
    m_controls.append(control);
    if (!control)
      continue;
    control->setParent(rows);
    control->setPropBagItem(bag, i);
    refreshControl(control, true);
    auto* caption = new PropUiQLabel(rows);
    caption->setPropBagItem(bag, i);
    caption->setupUi();
    grid->addWidget(caption, row, 0);
    grid->addWidget(control, row++, 1);
  }
  grid->setRowStretch(row, 1);
  setWidget(rows);
}

void PalettePanel::refresh()
{
  for (const auto& control : qAsConst(m_controls))
    if (control)
      refreshControl(control);
}

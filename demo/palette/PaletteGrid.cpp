#include "PaletteGrid.h"

#include "PropUiQStandardFormatter.h"
#include "PropUiQtMVCFactories.h"
#include <QHeaderView>

PaletteGrid::PaletteGrid(QWidget* parent) : QTreeView(parent)
{
  setObjectName(QStringLiteral("grid"));
  setAccessibleName(tr("Property grid"));
  setModel(hostCreatePropUiItemModel(&m_group, this));
  setItemDelegate(hostCreatePropUiItemDelegate(&m_group, this));
  m_formatter = propUiCreateStandardFormatter(this);
  m_group.setFormatter(m_formatter);
  // Not on a change of the current row: arrowing through the rows would put
  // each row's editor in the way of the next arrow. Return edits as F2 does.
  setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::SelectedClicked |
                  QAbstractItemView::EditKeyPressed | QAbstractItemView::AnyKeyPressed);
  connect(this, &QAbstractItemView::activated, this, [this](const QModelIndex& index) { edit(index); });
  setAlternatingRowColors(true);
  setUniformRowHeights(true);
  // Wide enough for a dash pattern; square icons keep their own size.
  setIconSize(QSize(40, 16));
  header()->hide();
  header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
  header()->setStretchLastSection(true);
}

PaletteGrid::~PaletteGrid()
{
  // The model and delegate outlive this body as children: unbind them before the group goes.
  m_group.setPropBag(nullptr);
}

void PaletteGrid::setBag(PropBag* bag)
{
  if (m_formatter)
    m_formatter->setPropBag(bag);
  m_group.setPropBag(bag);
}

void PaletteGrid::refresh()
{
  m_group.itemChanged(-1);
}

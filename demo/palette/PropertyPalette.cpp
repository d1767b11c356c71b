#include "PropertyPalette.h"

#include "DrawingEntity.h"
#include "DrawingPropertyBag.h"
#include "PaletteGrid.h"
#include "PalettePanel.h"
#include <QLabel>
#include <QTabWidget>
#include <QTimer>
#include <QVBoxLayout>

PropertyPalette::PropertyPalette(DrawingPropertyBag* bag, QWidget* parent) : QWidget(parent), m_bag(bag)
{
  setObjectName(QStringLiteral("palette"));
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  m_count = new QLabel(this);
  m_count->setObjectName(QStringLiteral("selectionCount"));
  m_count->setMargin(4);
  layout->addWidget(m_count);
  m_tabs = new QTabWidget(this);
  m_tabs->setObjectName(QStringLiteral("forms"));
  m_tabs->setAccessibleName(tr("Palette form"));
  m_tabs->setDocumentMode(true);
  m_panel = new PalettePanel(m_tabs);
  m_panel->setAccessibleName(tr("Property panel"));
  m_grid = new PaletteGrid(m_tabs);
  m_tabs->addTab(m_panel, tr("Controls"));
  m_tabs->addTab(m_grid, tr("Grid"));
  layout->addWidget(m_tabs, 1);
  if (m_bag)
    m_bag->setChangeListener([this](bool sameItems) { onBagChanged(sameItems); });
  rebuild();
}

PropertyPalette::~PropertyPalette()
{
  if (m_bag)
    m_bag->setChangeListener(nullptr);
}

void PropertyPalette::rebuild()
{
  m_rebuildPending = false;
  m_refreshPending = false;
  m_panel->setBag(m_bag);
  m_grid->setBag(m_bag);
  m_grid->expandAll();
  showCount();
}

void PropertyPalette::refresh()
{
  m_refreshPending = false;
  m_panel->refresh();
  m_grid->refresh();
}

void PropertyPalette::onBagChanged(bool sameItems)
{
  // The change comes in the middle of a control's commit or an undo: the forms follow once it is over.
  if (!sameItems && !m_rebuildPending)
  {
    m_rebuildPending = true;
    QTimer::singleShot(0, this, [this]() {
      if (m_rebuildPending)
        rebuild();
    });
  }
  else if (sameItems && !m_refreshPending && !m_rebuildPending)
  {
    m_refreshPending = true;
    QTimer::singleShot(0, this, [this]() {
      if (m_refreshPending)
        refresh();
    });
  }
}

void PropertyPalette::showCount()
{
  const int count = m_bag ? m_bag->selection().size() : 0;
  QString text = count == 0 ? tr("No selection") : count == 1 ? tr("1 object selected") : tr("%1 objects selected").arg(count);
  EntityKind kind;
  if (m_bag && m_bag->shownKind(kind))
    text = tr("%1 objects selected, %2 shown").arg(count).arg(m_bag->shownCount());
  if (m_count->text() != text)
    m_count->setText(text);
}

PalettePanel* PropertyPalette::panel() const
{
  return m_panel;
}

PaletteGrid* PropertyPalette::grid() const
{
  return m_grid;
}

void PropertyPalette::setForm(int form)
{
  m_tabs->setCurrentIndex(form);
}

int PropertyPalette::form() const
{
  return m_tabs->currentIndex();
}

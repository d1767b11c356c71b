#include "DemoWindow.h"

#include "DemoBag.h"
#include "HostQtStyleManager.h"
#include "OdError.h"
#include "OdStringQt.h"
#include "PropUiQCheckBox.h"
#include "PropUiQIntegerCtrl.h"
#include "PropUiQLabel.h"
#include "PropUiQLineEdit.h"
#include "PropUiQWidget.h"
#include "PropUiQStandardFormatter.h"
#include "PropUiQtMVCFactories.h"
#include "PropUiRegistry.h"
#include "QHostCheckBox.h"
#include <QApplication>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QHeaderView>
#include <QScrollArea>
#include <QSplitter>
#include <QTreeView>
#include <QTime>
#include <QTimer>
#include <QVBoxLayout>

DemoWindow::DemoWindow(DemoBag* bag, QWidget* parent) : QWidget(parent), m_bag(bag)
{
  setWindowTitle(tr("Properties"));
  auto* layout = new QVBoxLayout(this);

  auto* header = new QHBoxLayout;
  auto* title = new QLabel(tr("<b>Wheel hub</b> &nbsp;·&nbsp; 3 objects selected"), this);
  header->addWidget(title, 1);
  auto* mixed = new host_qt_ui_core::QHostCheckBox(this);
  mixed->setObjectName(QStringLiteral("mixedSwitch"));
  mixed->enableSwitchMode(true);
  mixed->setText(tr("Mixed selection"));
  mixed->setToolTip(tr("The selected objects hold different values: every control shows its varies state"));
  m_mixedSwitch = mixed;
  header->addWidget(mixed);
  m_themeBox = new QComboBox(this);
  m_themeBox->setObjectName(QStringLiteral("theme"));
  m_themeBox->addItem(tr("Dark"), 0);
  m_themeBox->addItem(tr("Light"), 1);
  m_themeBox->setCurrentIndex(hostGetQtStyleManager()->theme() == 0 ? 0 : 1);
  header->addWidget(m_themeBox);
  layout->addLayout(header);

  auto* views = new QSplitter(Qt::Horizontal, this);
  views->setObjectName(QStringLiteral("views"));
  views->setChildrenCollapsible(false);
  auto* scroll = new QScrollArea(views);
  scroll->setObjectName(QStringLiteral("panel"));
  scroll->setWidgetResizable(true);
  scroll->setFrameShape(QFrame::StyledPanel);
  views->addWidget(scroll);
  m_gridView = new QTreeView(views);
  m_gridView->setObjectName(QStringLiteral("grid"));
  m_gridView->setAccessibleName(tr("Property grid"));
  views->addWidget(m_gridView);
  views->setStretchFactor(0, 1);
  views->setStretchFactor(1, 1);
  layout->addWidget(views, 3);

  m_log = new QPlainTextEdit(this);
  m_log->setObjectName(QStringLiteral("log"));
  m_log->setReadOnly(true);
  m_log->setMaximumBlockCount(500);
  m_log->setPlaceholderText(tr("Writes the bag accepts or refuses appear here."));
  m_log->setFixedHeight(fontMetrics().lineSpacing() * 6 + 12);
  layout->addWidget(m_log);
  m_status = new QLabel(this);
  layout->addWidget(m_status);

  buildRows();
  scroll->setWidget(m_rows);
  buildGrid();
  showRedraws();

  connect(mixed, &QCheckBox::toggled, this, &DemoWindow::setMixed);
  connect(m_themeBox, QOverload<int>::of(&QComboBox::activated), this,
          [this](int row) { setTheme(m_themeBox->itemData(row).toInt()); });
  resize(1040, 760);
}

void DemoWindow::buildRows()
{
  auto* rows = new QWidget;
  rows->setObjectName(QStringLiteral("rows"));
  m_grid = new QGridLayout(rows);
  m_grid->setContentsMargins(6, 6, 6, 6);
  m_grid->setHorizontalSpacing(8);
  m_grid->setVerticalSpacing(4);
  m_grid->setColumnStretch(1, 1);
  m_controls.clear();

  int row = 0;
  for (int i = 0; i < m_bag->getItemCount(); ++i)
  {
    PropUiQWidget* control = propUiCreateWidget(m_bag->getControlGuid(i), int(m_bag->getFlags(i)));
    if (!control)
      continue; // no control is registered for this kind
    control->setParent(rows);
    control->setPropBagItem(m_bag, i);
    control->setupUi();
    control->setProperty("demoItem", i);
    m_controls.append(control);
    refreshControl(control);

    if (m_bag->kindOf(i) == DemoBag::Caption)
    {
      // Section captions span the panel and read as headings.
      QFont bold = control->font();
      bold.setBold(true);
      control->setFont(bold);
      if (auto* label = control->findChild<QLabel*>())
        label->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
      if (row > 0)
        m_grid->setRowMinimumHeight(row++, 6);
      m_grid->addWidget(control, row++, 0, 1, 2);
      continue;
    }
    auto* caption = new PropUiQLabel(rows);
    caption->setPropBagItem(m_bag, i);
    caption->setupUi();
    m_grid->addWidget(caption, row, 0);
    m_grid->addWidget(control, row++, 1);
  }
  m_grid->setRowStretch(row, 1);
  m_rows = rows;
}

void DemoWindow::buildGrid()
{
  // The grid a host builds beside its panel: the item model and the standard delegate, bound
  // through the group to the same bag, so an edit in either view refreshes the other.
  QAbstractItemModel* model = hostCreatePropUiItemModel(&m_gridGroup, m_gridView);
  QAbstractItemDelegate* delegate = hostCreatePropUiItemDelegate(&m_gridGroup, m_gridView);
  m_gridFormatter = propUiCreateStandardFormatter(m_gridView);
  m_gridFormatter->setPropBag(m_bag);
  m_gridView->setModel(model);
  m_gridView->setItemDelegate(delegate);
  m_gridView->setEditTriggers(QAbstractItemView::AllEditTriggers);
  m_gridView->setAlternatingRowColors(true);
  m_gridView->setUniformRowHeights(true);
  // Wide enough for a dash pattern; square icons keep their own size.
  m_gridView->setIconSize(QSize(40, 16));
  m_gridView->header()->hide();
  // A section is a heading, not a property: its caption spans the row, as it does in the panel.
  connect(model, &QAbstractItemModel::modelReset, this, &DemoWindow::spanSectionRows);
  m_gridGroup.setFormatter(m_gridFormatter);
  m_gridGroup.setPropBag(m_bag);
  spanSectionRows();
  m_gridView->expandAll();
  m_gridView->header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
  m_gridView->header()->setStretchLastSection(true);
}

void DemoWindow::spanSectionRows()
{
  // The grid's rows are the bag's items, in order; a reset forgets the spans with its indexes.
  const int rows = m_gridView->model()->rowCount();
  for (int row = 0; row < rows; ++row)
    m_gridView->setFirstColumnSpanned(row, QModelIndex(), m_bag->kindOf(row) == DemoBag::Caption);
}

void DemoWindow::refreshControl(PropUiQWidget* control)
{
  try
  {
    control->updateUi();
    control->updateData();
  }
  catch (const OdError& error)
  {
    // A control may reject what the bag lists (a grid needs nine entries): say so, keep going.
    appendLog(tr("%1 cannot show its item: %2").arg(QString::fromLatin1(control->metaObject()->className()),
                                                      toQString(error.description())),
              false);
  }
}

void DemoWindow::refresh()
{
  for (const auto& control : m_controls)
    if (control)
      refreshControl(control);
  m_gridGroup.itemChanged(-1);
}

void DemoWindow::scheduleRefresh()
{
  // As a host does when its data changed: every control re-reads, after the current event.
  if (m_refreshPending)
    return;
  m_refreshPending = true;
  QTimer::singleShot(0, this, [this]() {
    m_refreshPending = false;
    refresh();
  });
}

PropUiQWidget* DemoWindow::controlOf(const QString& caption) const
{
  const int index = m_bag->findItem(toOdString(caption));
  for (const auto& control : m_controls)
    if (control && index >= 0 && control->property("demoItem").toInt() == index)
      return control;
  return nullptr;
}

void DemoWindow::demonstrateEdits()
{
  if (auto* radius = qobject_cast<PropUiQLineEdit*>(controlOf(tr("Radius"))))
  {
    radius->lineEdit()->setText(QStringLiteral("0"));
    radius->applyData();
    radius->lineEdit()->setText(QStringLiteral("2*6.5"));
    radius->applyData();
  }
  if (auto* segments = qobject_cast<PropUiQIntegerCtrl*>(controlOf(tr("Segments"))))
  {
    segments->spinBox()->setValue(33);
    segments->applyData();
    segments->spinBox()->setValue(32);
    segments->applyData();
  }
  if (auto* visible = qobject_cast<PropUiQCheckBox*>(controlOf(tr("Visible"))))
    visible->checkBox()->click();
  // Message boxes and the refresh come after the current event.
  QApplication::processEvents();
  QApplication::processEvents();
}

void DemoWindow::setMixed(bool mixed)
{
  m_bag->setMixed(mixed);
  if (m_mixedSwitch->isChecked() != mixed)
    m_mixedSwitch->setChecked(mixed);
  refresh();
}

void DemoWindow::setTheme(int theme)
{
  hostGetQtStyleManager()->setTheme(theme);
  m_themeBox->setCurrentIndex(theme == 0 ? 0 : 1);
  // Controls take their theme colours when they are built.
  auto* scroll = findChild<QScrollArea*>(QStringLiteral("panel"));
  delete scroll->takeWidget();
  buildRows();
  scroll->setWidget(m_rows);
}

void DemoWindow::appendLog(const QString& line, bool accepted)
{
  const QString mark = accepted ? QStringLiteral("<span style='color:#3fa96b'>&#10003;</span>")
                                : QStringLiteral("<span style='color:#e0555a'>&#10007;</span>");
  m_log->appendHtml(QStringLiteral("%1 %2 &nbsp;%3")
                      .arg(QTime::currentTime().toString(QStringLiteral("HH:mm:ss")), mark, line.toHtmlEscaped()));
}

void DemoWindow::countRedraw()
{
  ++m_redraws;
  showRedraws();
}

void DemoWindow::showRedraws()
{
  m_status->setText(tr("Drawing redrawn %1 times").arg(m_redraws));
}

bool DemoWindow::saveScreenshot(const QString& path)
{
  show();
  QApplication::processEvents();
  const int natural = m_rows->sizeHint().height();
  auto* scroll = findChild<QScrollArea*>(QStringLiteral("panel"));
  const int extra = height() - scroll->viewport()->height();
  resize(width(), natural + extra + 4);
  QApplication::processEvents();
  return grab().save(path);
}

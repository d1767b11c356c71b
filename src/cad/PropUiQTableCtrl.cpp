#include "PropUiQTableCtrl.h"

#include "OdStringQt.h"
#include "PropBag.h"
#include "PropUiCompositeForm_p.h"
#include "PropUiQStringTableModel.h"
#include "PropUiTexts_p.h"
#include <QHeaderView>
#include <QVBoxLayout>

namespace
{

QStringList textsOf(const OdStringArray& array)
{
  QStringList texts;
  texts.reserve(int(array.size()));
  for (const OdString& text : array)
    texts.append(toQString(text));
  return texts;
}

bool isStringArray(const PropVariant& value)
{
  return value.isArray() && value.scalarType() == PropVariant::kString;
}

} // namespace

PropUiQTableCtrl::PropUiQTableCtrl(QWidget* parent) : PropUiQControl(parent) {}

bool PropUiQTableCtrl::setupUi()
{
  PropUiQControl::setupUi();
  if (!m_bag)
    return false;
  auto* layout = adoptLayout(new QVBoxLayout);
  layout->setContentsMargins(0, 0, 0, 0);
  auto* view = new QTableView(this);
  view->setObjectName(QStringLiteral("table"));
  view->setAccessibleName(PropUiCompositeForm::itemName(m_bag, m_index));
  view->horizontalHeader()->setStretchLastSection(true);
  auto* model = new PropUiQStringTableModel(view);
  view->setModel(model);
  connect(model, &PropUiQStringTableModel::dataChanged, this, &PropUiQTableCtrl::onDataChanged);
  m_view = view;
  layout->addWidget(view);
  return true;
}

PropUiQStringTableModel* PropUiQTableCtrl::tableModel() const
{
  return m_view ? qobject_cast<PropUiQStringTableModel*>(m_view->model()) : nullptr;
}

void PropUiQTableCtrl::updateUi()
{
  PropUiQControl::updateUi();
  updateEditTriggers();
}

void PropUiQTableCtrl::updateEditTriggers()
{
  if (!m_view || !m_bag)
    return;
  const bool editable = !m_varies && m_bag->isEditable(m_index, m_element);
  m_view->setEditTriggers(editable ? QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed |
                                       QAbstractItemView::AnyKeyPressed
                                   : QAbstractItemView::NoEditTriggers);
}

void PropUiQTableCtrl::updateData()
{
  PropUiQControl::updateData();
  if (!m_bag || !tableModel())
    return;
  PropVariant value;
  if (!readValue(value) || value.hasNoData())
    return;
  if (value.isVaries())
  {
    setVaries(true);
    return;
  }
  if (!isStringArray(value))
    return;
  const QStringList cells = textsOf(value.getStringArray());
  int rows = 0;
  int columns = 0;
  if (!readShape(rows, columns, cells.size()))
    return;
  const bool wasVaries = m_varies;
  m_varies = false;
  showCells(cells, rows, columns);
  if (wasVaries)
    updateEditTriggers();
}

bool PropUiQTableCtrl::readShape(int& rows, int& columns, int cellCount)
{
  PropVariant r;
  PropVariant c;
  const unsigned int integers = PropVariant::kInt16 | PropVariant::kInt32 | PropVariant::kInt64;
  const bool shaped = m_bag->getElementValue(m_index, kRowsElement, r) &&
                      m_bag->getElementValue(m_index, kColumnsElement, c) && !r.isArray() && !c.isArray() &&
                      (r.scalarType() & integers) && (c.scalarType() & integers);
  if (!shaped)
  {
    rows = cellCount;
    columns = 1;
    return cellCount <= kMaxCells;
  }
  const qint64 wantedRows = r.getInt64();
  const qint64 wantedColumns = c.getInt64();
  if (wantedRows < 0 || wantedColumns < 0 || wantedRows * wantedColumns > kMaxCells)
    return false;
  rows = int(wantedRows);
  columns = int(wantedColumns);
  return true;
}

QStringList PropUiQTableCtrl::readLabels(unsigned long element)
{
  PropVariant labels;
  if (!m_bag->getElementValue(m_index, element, labels) || !isStringArray(labels))
    return QStringList();
  return textsOf(labels.getStringArray());
}

void PropUiQTableCtrl::showCells(const QStringList& cells, int rows, int columns)
{
  PropUiQStringTableModel* model = tableModel();
  m_shown = cells;
  // Every cell the shape names exists, so that an edit writes a whole table.
  while (m_shown.size() < rows * columns)
    m_shown.append(QString());
  const WidgetUpdateScope showing(this);
  if (model->cells() != m_shown || model->rowCount() != rows || model->columnCount() != columns)
    model->setCells(m_shown, rows, columns);
  // Every header change lays the header views out again; a refresh mostly brings the same labels.
  const QStringList columnLabels = readLabels(kColumnLabelsElement);
  if (columnLabels != model->headers(Qt::Horizontal))
    model->setHeaders(columnLabels, Qt::Horizontal);
  const QStringList rowLabels = readLabels(kRowLabelsElement);
  if (rowLabels != model->headers(Qt::Vertical))
    model->setHeaders(rowLabels, Qt::Vertical);
}

bool PropUiQTableCtrl::isVaries() const
{
  return m_varies;
}

void PropUiQTableCtrl::setVaries(bool varies)
{
  PropUiQStringTableModel* model = tableModel();
  if (!model)
    return;
  m_varies = varies;
  if (varies)
  {
    const int rows = qMax(model->rowCount(), 1);
    const int columns = qMax(model->columnCount(), 1);
    const WidgetUpdateScope showing(this);
    QStringList cells;
    cells.reserve(rows * columns);
    for (int i = 0; i < rows * columns; ++i)
      cells.append(PropUiTexts::varies());
    model->setCells(cells, rows, columns);
    m_shown.clear();
  }
  updateEditTriggers();
}

void PropUiQTableCtrl::onDataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight, const QVector<int>&)
{
  if (isApplying() || !topLeft.isValid() || topLeft != bottomRight)
    return;
  const WriteScope applying(this);
  if (applying.entered())
    applyCell(topLeft);
}

bool PropUiQTableCtrl::applyCell(const QModelIndex& cell)
{
  PropUiQStringTableModel* model = tableModel();
  if (!m_bag || !model || m_varies || !cell.isValid() || cell.model() != model)
    return false;
  const int number = model->cellIndex(cell);
  if (number < 0 || number >= m_shown.size())
    return false;
  const QString text = model->data(cell, Qt::EditRole).toString();
  if (text == m_shown[number])
    return false;
  auto restore = [&]() {
    const WidgetUpdateScope restoring(this);
    model->setData(cell, m_shown[number], Qt::EditRole);
    return false;
  };
  PropVariant parsed;
  if (!m_bag->parseValue(m_index, static_cast<unsigned long>(number), toOdString(text.trimmed()), parsed))
    return restore();
  // The bag may tidy the text (units, case); what it formats is what the cell holds.
  OdString tidy;
  QString cellText = text.trimmed();
  if (parsed.scalarType() == PropVariant::kString && !parsed.isArray())
    cellText = toQString(parsed.getString());
  else if (m_bag->formatValue(m_index, static_cast<unsigned long>(number), parsed, tidy))
    cellText = toQString(tidy);
  else
    return restore();
  OdStringArray table;
  for (int i = 0; i < m_shown.size(); ++i)
    table.append(toOdString(i == number ? cellText : m_shown[i]));
  PropVariant value;
  value.setStringArray(table);
  if (commitValue(value, CommitTarget::WholeItem) != CommitResult::Written)
    return restore();
  m_shown[number] = cellText;
  if (cellText != text)
  {
    const WidgetUpdateScope tidying(this);
    model->setData(cell, cellText, Qt::EditRole);
  }
  return true;
}

#include "PropUiQMultiTextComboCtrl.h"

#include "OdStringQt.h"
#include "PropBag.h"
#include "PropUiCompositeForm_p.h"
#include "PropUiTexts_p.h"
#include "PropUiVariantConverter_p.h"
#include "QHostComboBox.h"
#include <QAbstractItemView>
#include <QHBoxLayout>
#include <QMouseEvent>
#include <QStandardItemModel>
#include <QStylePainter>
#include <functional>

namespace
{

/**
 * A combo whose popup stays open while entries are ticked, that shows a
 * summary instead of a current entry, and that says when its popup closes.
 */
class CheckListCombo : public host_qt_ui_core::QHostComboBox
{
public:
  explicit CheckListCombo(QWidget* parent) : QHostComboBox(parent)
  {
    // A combo comes with a model of this kind; a new one would go in before the popup's view exists,
    // which would keep a selection model for the old one.
    if (!qobject_cast<QStandardItemModel*>(model()))
      setModel(new QStandardItemModel(this));
  }
  // A popup torn down with the combo is not the user closing it.
  ~CheckListCombo() override { popupClosed = nullptr; }

  void setSummary(const QString& text, bool placeholder)
  {
    if (text == m_summary && placeholder == m_placeholder)
      return;
    m_summary = text;
    m_placeholder = placeholder;
    update();
  }

  void showPopup() override
  {
    // Asking for the view builds the whole popup: a panel of these controls pays that only for
    // the one the user opens. Installing again keeps one filter.
    view()->viewport()->installEventFilter(this);
    QHostComboBox::showPopup();
  }

  void hidePopup() override
  {
    QHostComboBox::hidePopup();
    if (popupClosed)
      popupClosed();
  }

  std::function<void()> popupClosed;

protected:
  bool eventFilter(QObject* watched, QEvent* event) override
  {
    // A release on an entry ticks it; the popup stays for the next one.
    if (watched == view()->viewport() && event->type() == QEvent::MouseButtonRelease)
    {
      const QModelIndex index = view()->indexAt(static_cast<QMouseEvent*>(event)->pos());
      auto* model = qobject_cast<QStandardItemModel*>(this->model());
      if (QStandardItem* item = model ? model->itemFromIndex(index) : nullptr)
        item->setCheckState(item->checkState() == Qt::Checked ? Qt::Unchecked : Qt::Checked);
      return true;
    }
    return QHostComboBox::eventFilter(watched, event);
  }

  void paintEvent(QPaintEvent*) override
  {
    QStylePainter painter(this);
    QStyleOptionComboBox option;
    initStyleOption(&option);
    painter.drawComplexControl(QStyle::CC_ComboBox, option);
    const QRect text = style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this);
    option.currentIcon = QIcon();
    option.currentText = fontMetrics().elidedText(m_summary, Qt::ElideRight, text.width());
    if (m_placeholder)
      option.palette.setColor(QPalette::ButtonText, option.palette.color(QPalette::PlaceholderText));
    painter.drawControl(QStyle::CE_ComboBoxLabel, option);
  }

private:
  QString m_summary;
  bool m_placeholder = false;
};

bool isInteger(const PropVariant& value)
{
  const unsigned int integers = PropVariant::kInt16 | PropVariant::kInt32 | PropVariant::kInt64 | PropVariant::kUInt64;
  return !value.isArray() && (value.scalarType() & integers);
}

/** An empty array of the value's kind, for a choice of nothing. */
PropVariant emptyArrayLike(const PropVariant& value)
{
  PropVariant empty;
  switch (value.scalarType())
  {
  case PropVariant::kInt16:
  case PropVariant::kInt32: empty.setInt32Array(OdInt32Array()); break;
  case PropVariant::kDouble: empty.setDoubleArray(OdDoubleArray()); break;
  default: empty.setStringArray(OdStringArray()); break;
  }
  return empty;
}

} // namespace

PropUiQMultiTextComboCtrl::PropUiQMultiTextComboCtrl(QWidget* parent) : PropUiQControl(parent) {}

PropUiQMultiTextComboCtrl::~PropUiQMultiTextComboCtrl()
{
  // The combo outlives this part of the control by the base's destruction.
  if (m_combo)
    static_cast<CheckListCombo*>(m_combo.data())->popupClosed = nullptr;
}

bool PropUiQMultiTextComboCtrl::setupUi()
{
  PropUiQControl::setupUi();
  m_values.clear();
  m_names.clear();
  m_chosen.clear();
  if (!m_bag)
    return false;
  auto* layout = setupRow(-1);
  auto* combo = new CheckListCombo(this);
  combo->setObjectName(QStringLiteral("combo"));
  combo->setAccessibleName(PropUiCompositeForm::itemName(m_bag, m_index));
  combo->disableMouseWheel(true);
  combo->popupClosed = [this]() { onPopupClosed(); };
  m_combo = combo;
  layout->addWidget(combo);
  readEntries();
  return true;
}

QStandardItemModel* PropUiQMultiTextComboCtrl::entries() const
{
  return m_combo ? qobject_cast<QStandardItemModel*>(m_combo->model()) : nullptr;
}

void PropUiQMultiTextComboCtrl::readEntries()
{
  QStandardItemModel* model = entries();
  OdStringArray names;
  PropKeyArray keys;
  if (!model || !m_bag->getValueList(m_index, names, keys))
    return;
  for (unsigned int i = 0; i < names.size() && i < keys.size(); ++i)
  {
    PropVariant value;
    if (!m_bag->getListValue(m_index, keys[i], value))
      continue;
    auto* item = new QStandardItem(toQString(names[i]));
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsUserCheckable);
    item->setCheckState(Qt::Unchecked);
    model->appendRow(item);
    m_names.append(toQString(names[i]));
    m_values.append(value);
  }
  m_chosen.fill(false, m_values.size());
}

void PropUiQMultiTextComboCtrl::updateUi()
{
  PropUiQControl::updateUi();
  showEditable(m_combo);
}

void PropUiQMultiTextComboCtrl::updateData()
{
  PropUiQControl::updateData();
  PropVariant value;
  if (!m_combo || !readValue(value) || value.hasNoData())
    return;
  if (value.isVaries())
  {
    // Its kind still tells a set of flags from a list, for the next write.
    m_lastValue = value;
    setVaries(true);
    return;
  }
  QVector<bool> chosen(m_values.size(), false);
  if (isInteger(value))
  {
    const OdUInt64 flags = value.getUInt64();
    for (int i = 0; i < m_values.size(); ++i)
    {
      const OdUInt64 bits = m_values[i].getUInt64();
      chosen[i] = isInteger(m_values[i]) && bits != 0 && (flags & bits) == bits;
    }
  }
  else if (value.isArray())
  {
    const QVariantList held = PropUiVariantConverter::toQVariant(value).toList();
    for (int i = 0; i < m_values.size(); ++i)
      chosen[i] = held.contains(PropUiVariantConverter::toQVariant(m_values[i]));
  }
  else
  {
    return;
  }
  m_lastValue = value;
  m_varies = false;
  m_chosen = chosen;
  showChosen(chosen);
}

void PropUiQMultiTextComboCtrl::showChosen(const QVector<bool>& chosen)
{
  QStandardItemModel* model = entries();
  if (!model)
    return;
  // The summary is made on the way, as summary() would make it from the boxes.
  QString text;
  bool first = true;
  for (int i = 0; i < model->rowCount(); ++i)
  {
    QStandardItem* item = model->item(i);
    bool on = item->checkState() == Qt::Checked;
    if (i < chosen.size() && on != chosen[i])
    {
      on = chosen[i];
      item->setCheckState(on ? Qt::Checked : Qt::Unchecked);
    }
    if (!on || i >= m_names.size())
      continue;
    if (!first)
      text += QLatin1String(", ");
    text += m_names[i];
    first = false;
  }
  static_cast<CheckListCombo*>(m_combo.data())->setSummary(m_varies ? PropUiTexts::varies() : text, m_varies);
  const QString tip = m_varies ? QString() : text;
  if (m_combo->toolTip() != tip)
    m_combo->setToolTip(tip);
}

QString PropUiQMultiTextComboCtrl::summary() const
{
  QStringList names;
  const QVector<bool> now = ticked();
  for (int i = 0; i < now.size() && i < m_names.size(); ++i)
    if (now[i])
      names << m_names[i];
  return names.join(QStringLiteral(", "));
}

QVector<bool> PropUiQMultiTextComboCtrl::ticked() const
{
  QVector<bool> now;
  if (QStandardItemModel* model = entries())
    for (int i = 0; i < model->rowCount(); ++i)
      now.append(model->item(i)->checkState() == Qt::Checked);
  return now;
}

void PropUiQMultiTextComboCtrl::setChosen(int row, bool chosen)
{
  QStandardItemModel* model = entries();
  if (model && row >= 0 && row < model->rowCount())
    model->item(row)->setCheckState(chosen ? Qt::Checked : Qt::Unchecked);
}

bool PropUiQMultiTextComboCtrl::isChosen(int row) const
{
  return ticked().value(row);
}

bool PropUiQMultiTextComboCtrl::isVaries() const
{
  return m_varies;
}

void PropUiQMultiTextComboCtrl::setVaries(bool varies)
{
  if (!m_combo)
    return;
  m_varies = varies;
  if (varies)
    m_chosen.fill(false, m_values.size());
  showChosen(m_chosen);
}

bool PropUiQMultiTextComboCtrl::makeValue(const QVector<bool>& chosen, PropVariant& value) const
{
  // Never read as either form: there is no kind to write the choice as.
  if (!isInteger(m_lastValue) && !m_lastValue.isArray())
    return false;
  if (isInteger(m_lastValue))
  {
    OdUInt64 flags = 0;
    for (int i = 0; i < chosen.size() && i < m_values.size(); ++i)
      if (chosen[i])
      {
        if (!isInteger(m_values[i]))
          return false;
        flags |= m_values[i].getUInt64();
      }
    switch (m_lastValue.scalarType())
    {
    case PropVariant::kInt16: value.setInt16(OdInt16(flags)); break;
    case PropVariant::kInt32: value.setInt32(OdInt32(flags)); break;
    case PropVariant::kInt64: value.setInt64(OdInt64(flags)); break;
    default: value.setUInt64(flags); break;
    }
    return true;
  }
  QVariantList list;
  for (int i = 0; i < chosen.size() && i < m_values.size(); ++i)
    if (chosen[i])
      list.append(PropUiVariantConverter::toQVariant(m_values[i]));
  if (list.isEmpty())
  {
    value = emptyArrayLike(m_lastValue);
    return true;
  }
  return PropUiVariantConverter::toPropVariant(list, value);
}

bool PropUiQMultiTextComboCtrl::applyData()
{
  if (!m_bag || !m_combo)
    return false;
  const QVector<bool> now = ticked();
  // Varying, nothing ticked is no choice at all; otherwise an unchanged choice writes nothing.
  if (m_varies ? !now.contains(true) : now == m_chosen)
  {
    showChosen(m_chosen);
    return false;
  }
  PropVariant value;
  if (!makeValue(now, value) || commitValue(value) != CommitResult::Written)
  {
    showChosen(m_chosen);
    return false;
  }
  m_chosen = now;
  m_varies = false;
  m_lastValue = value;
  showChosen(now);
  return true;
}

void PropUiQMultiTextComboCtrl::onPopupClosed()
{
  const WriteScope applying(this);
  if (applying.entered())
    applyData();
}

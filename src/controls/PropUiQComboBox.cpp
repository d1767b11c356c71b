#include "PropUiQComboBox.h"

#include "OdStringQt.h"
#include "PropBag.h"
#include "PropItemType.h"
#include "PropMathValidator.h"
#include "PropUiOptions.h"
#include "PropUiQFormatter.h"
#include "PropUiTexts_p.h"
#include "QHostComboBrowseFilter.h"
#include <QDoubleValidator>
#include <QHBoxLayout>
#include <QIntValidator>
#include <QLineEdit>
#include <QPixmap>

namespace
{

QIcon iconOf(const QVariant& decoration)
{
  if (decoration.canConvert<QIcon>() && decoration.userType() == qMetaTypeId<QIcon>())
    return decoration.value<QIcon>();
  if (decoration.userType() == qMetaTypeId<QPixmap>())
    return QIcon(decoration.value<QPixmap>());
  return QIcon();
}

/** The validator for typed values of a numeric item type, or null for other types. */
QValidator* numberValidatorFor(const PropItemType* type)
{
  const QLocale c(QLocale::C, QLocale::AnyCountry);
  QValidator* numbers = nullptr;
  const PropNumberKind kind = propNumberKindOf(type);
  if (kind == PropNumberKind::Integer)
    numbers = new QIntValidator;
  else if (kind == PropNumberKind::Real)
    numbers = new QDoubleValidator;
  if (numbers)
    numbers->setLocale(c);
  return numbers;
}

} // namespace

PropUiQComboBox::PropUiQComboBox(QWidget* parent) : PropUiQControl(parent) {}

bool PropUiQComboBox::setupUi()
{
  PropUiQControl::setupUi();
  if (!m_bag)
    return false;
  buildComboRow(true, 0);
  return true;
}

void PropUiQComboBox::buildComboRow(bool typed, int stretch, const std::function<void()>& prepare)
{
  QHBoxLayout* layout = setupRow();
  m_combo = new host_qt_ui_core::QHostComboBox(this);
  m_combo->setObjectName(QStringLiteral("combo"));
  host_qt_ui_core::QHostComboBrowseFilter::install(m_combo);
  m_combo->disableMouseWheel(true);
  m_combo->setMaxVisibleItems(30);
  if (prepare)
    prepare();
  useFocusReactor(m_combo);
  useFocusRedirect(m_combo, nullptr);
  if (typed && (m_bag->getFlags(m_index) & PropItemFlag::kEditableList))
    m_combo->setEditableWithCompleter(true);
  if (PropItemType* type = typed ? m_bag->getItemType(m_index) : nullptr)
  {
    if (QValidator* numbers = numberValidatorFor(type))
    {
      auto* validator = new PropMathValidator(m_combo);
      validator->setNumberValidator(numbers);
      validator->setPropBagItem(m_bag, m_index, m_element);
      m_combo->setValidator(validator);
    }
  }
  connect(m_combo.data(), QOverload<int>::of(&QComboBox::activated), this, &PropUiQComboBox::onActivated);
  addItems();
  m_combo->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  layout->addWidget(m_combo, stretch);
  addActionsToolBar(layout);
}

void PropUiQComboBox::addItems()
{
  PropUiQFormatter* formatter = getFormatter();
  if (!m_bag || !formatter || !m_combo)
    return;
  OdStringArray names;
  PropKeyArray keys;
  if (!m_bag->getValueList(m_index, names, keys))
    return;
  const OdUInt64Array& ids = keys;
  const PropVariant none;
  const QStringList texts = formatter->getValueListTexts(m_index, none, names, ids);
  const QVariantList icons = formatter->getValueListIcons(m_index, none, names, ids);
  for (unsigned int i = 0; i < ids.size(); ++i)
    m_combo->addItem(iconOf(icons.value(int(i))), texts.value(int(i)), QVariant::fromValue<qulonglong>(ids[i]));
}

int PropUiQComboBox::addTempItem(const PropVariant& value)
{
  if (!m_bag || !m_combo)
    return -1;
  OdString text;
  if (!m_bag->formatValue(m_index, m_element, value, text))
    return -1;
  PropUiQFormatter* formatter = getFormatter();
  const QIcon icon = formatter ? iconOf(formatter->getIcon(m_index, value)) : QIcon();
  m_combo->addItem(icon, toQString(text));
  return m_combo->findData(toQString(text), Qt::DisplayRole, Qt::MatchFixedString);
}

bool PropUiQComboBox::removeTempItem(int index)
{
  if (!m_combo || index < 0 || index >= m_combo->count() || m_combo->itemData(index, Qt::UserRole).isValid())
    return false;
  m_combo->removeItem(index);
  return true;
}

void PropUiQComboBox::dropStaleTempItem()
{
  if (m_combo && m_lastIndex != m_combo->currentIndex())
    removeTempItem(m_lastIndex);
}

void PropUiQComboBox::updateData()
{
  PropUiQControl::updateData();
  if (!m_bag || !m_combo)
    return;
  PropVariant value;
  if (!readValue(value, CommitTarget::WholeItem))
    return;
  if (value.isVaries())
  {
    setVaries(true);
  }
  else
  {
    OdString text;
    if (m_bag->getListText(m_index, value, text) || m_bag->formatValue(m_index, m_element, value, text))
    {
      if (isVaries())
        setVaries(false);
      int found = m_combo->findTextFast(toQString(text));
      if (found < 0)
        found = addTempItem(value);
      if (found >= 0)
        m_combo->setCurrentIndex(found);
    }
  }
  dropStaleTempItem();
  m_lastIndex = m_combo->currentIndex();
}

void PropUiQComboBox::onActivated(int index)
{
  if (!m_bag || !m_combo)
    return;
  const bool wasVaries = isVaries();
  if (wasVaries)
    setVaries(false);
  const QVariant id = m_combo->itemData(index, Qt::UserRole);
  if (!id.isValid())
  {
    // A temporary entry stands for the value already there.
    if (wasVaries)
      setVaries(true);
    return;
  }
  PropVariant value;
  if (!m_bag->getListValue(m_index, static_cast<unsigned long>(id.toULongLong()), value))
  {
    revertChoice(wasVaries);
    return;
  }
  // A listed value belongs to the item, so a choice writes the whole item.
  if (commitValue(value, CommitTarget::WholeItem, RefusalMessage::Information) != CommitResult::Written)
  {
    revertChoice(wasVaries);
    return;
  }
  dropStaleTempItem();
  m_lastIndex = m_combo->currentIndex();
}

void PropUiQComboBox::revertChoice(bool wasVaries)
{
  if (!m_combo)
    return;
  if (wasVaries)
    setVaries(true);
  else
    m_combo->setCurrentIndex(m_lastIndex);
}

void PropUiQComboBox::onEditingFinished() {}

void PropUiQComboBox::updateUi()
{
  PropUiQControl::updateUi();
  showEditable(m_combo);
}

bool PropUiQComboBox::isVaries() const
{
  if (!m_combo)
    return false;
  if (m_combo->isEditable() && m_combo->lineEdit())
    return !m_combo->lineEdit()->placeholderText().isEmpty();
  return !m_combo->placeholderText().isEmpty();
}

void PropUiQComboBox::setVaries(bool varies)
{
  if (!m_combo)
    return;
  const QString placeholder = varies ? PropUiTexts::varies() : QString();
  if (m_combo->isEditable() && m_combo->lineEdit())
  {
    if (varies)
      m_combo->lineEdit()->clear();
    m_combo->lineEdit()->setPlaceholderText(placeholder);
  }
  else
  {
    m_combo->setPlaceholderText(placeholder);
  }
  if (varies)
    m_combo->setCurrentIndex(-1);
}

#include "RecordingBag.h"

#include "OdStringQt.h"

int RecordingBag::addItem(const QString& name, const PropVariant& value)
{
  Item item;
  item.name = name;
  item.description = name + QStringLiteral(" description");
  item.value = value;
  m_items.append(item);
  return m_items.size() - 1;
}

int RecordingBag::count(const QString& prefix) const
{
  int n = 0;
  for (const QString& call : calls)
    if (call.startsWith(prefix + QLatin1Char('(')))
      ++n;
  return n;
}

QString RecordingBag::textOf(const PropVariant& value)
{
  switch (value.scalarType())
  {
  case PropVariant::kBool: return value.getBool() ? QStringLiteral("Yes") : QStringLiteral("No");
  case PropVariant::kInt16:
  case PropVariant::kInt32:
  case PropVariant::kInt64: return QString::number(value.getInt64());
  case PropVariant::kUInt64: return QString::number(value.getUInt64());
  case PropVariant::kDouble: return QString::number(value.getDouble(), 'g', 12);
  case PropVariant::kString: return toQString(value.getString());
  default: return QString();
  }
}

int RecordingBag::getItemCount()
{
  record(QStringLiteral("getItemCount()"));
  return m_items.size();
}

PropItemType* RecordingBag::getItemType(int index)
{
  record(QStringLiteral("getItemType(%1)").arg(index));
  return known(index) ? m_items[index].type : nullptr;
}

bool RecordingBag::isEditable(int index, unsigned long element)
{
  record(QStringLiteral("isEditable(%1,%2)").arg(index).arg(element));
  return known(index) && m_items[index].editable;
}

bool RecordingBag::getName(int index, OdString& name)
{
  record(QStringLiteral("getName(%1)").arg(index));
  if (!known(index))
    return false;
  name = toOdString(m_items[index].name);
  return true;
}

bool RecordingBag::getDescription(int index, OdString& description)
{
  record(QStringLiteral("getDescription(%1)").arg(index));
  if (!known(index) || !m_items[index].hasDescription)
    return false;
  description = toOdString(m_items[index].description);
  return true;
}

unsigned int RecordingBag::getFlags(int index)
{
  record(QStringLiteral("getFlags(%1)").arg(index));
  return known(index) ? m_items[index].flags : 0;
}

OdGUID RecordingBag::getControlGuid(int index)
{
  record(QStringLiteral("getControlGuid(%1)").arg(index));
  return known(index) ? m_items[index].guid : OdGUID();
}

bool RecordingBag::validate(int index, unsigned long element, const PropVariant& value, OdString& message)
{
  record(QStringLiteral("validate(%1,%2)").arg(index).arg(element));
  if (!known(index))
    return false;
  Q_UNUSED(value);
  if (m_items[index].acceptValidate)
    return true;
  message = toOdString(m_items[index].validateMessage);
  return false;
}

bool RecordingBag::getRange(int index, unsigned long element, PropVariant& min, PropVariant& max)
{
  record(QStringLiteral("getRange(%1,%2)").arg(index).arg(element));
  if (!known(index) || !m_items[index].hasRange)
    return false;
  min = m_items[index].min;
  max = m_items[index].max;
  return true;
}

bool RecordingBag::formatValue(int index, unsigned long element, const PropVariant& value, OdString& text)
{
  record(QStringLiteral("formatValue(%1,%2)").arg(index).arg(element));
  if (!known(index))
    return false;
  if (format)
    return format(index, value, text);
  if (value.scalarType() == PropVariant::kEmpty)
    return false;
  text = toOdString(textOf(value));
  return true;
}

bool RecordingBag::parseValue(int index, unsigned long element, const OdString& text, PropVariant& value)
{
  record(QStringLiteral("parseValue(%1,%2)").arg(index).arg(element));
  parsedTexts.append(text);
  if (!known(index))
    return false;
  if (parse)
    return parse(index, text, value);
  const QString s = toQString(text);
  bool ok = true;
  switch (m_items[index].value.scalarType())
  {
  case PropVariant::kInt32: value.setInt32(s.toInt(&ok)); break;
  case PropVariant::kDouble: value.setDouble(s.toDouble(&ok)); break;
  case PropVariant::kBool: value.setBool(s == QStringLiteral("Yes")); break;
  default: value.setString(text); break;
  }
  return ok;
}

bool RecordingBag::getValue(int index, PropVariant& value)
{
  record(QStringLiteral("getValue(%1)").arg(index));
  if (!known(index) || !m_items[index].readable)
    return false;
  value = m_items[index].value;
  return true;
}

bool RecordingBag::setValue(int index, const PropVariant& value)
{
  record(QStringLiteral("setValue(%1)").arg(index));
  if (!known(index) || !m_items[index].acceptWrite)
    return false;
  written.append(value);
  m_items[index].value = value;
  return true;
}

unsigned int RecordingBag::getActions(int index, unsigned long element, PropActionArray& actions)
{
  record(QStringLiteral("getActions(%1,%2)").arg(index).arg(element));
  actions.clear();
  if (!known(index))
    return 0;
  for (const auto& action : m_items[index].actions)
    actions.append(action);
  return actions.size();
}

bool RecordingBag::executeAction(int index, PropAction* action)
{
  record(QStringLiteral("executeAction(%1)").arg(index));
  executed.append(action);
  return known(index) && m_items[index].executeResult;
}

bool RecordingBag::getValueList(int index, OdStringArray& names, PropKeyArray& keys)
{
  record(QStringLiteral("getValueList(%1)").arg(index));
  if (!known(index) || m_items[index].listNames.isEmpty())
    return false;
  for (int i = 0; i < m_items[index].listNames.size(); ++i)
  {
    names.append(toOdString(m_items[index].listNames[i]));
    keys.append(i < m_items[index].listKeys.size() ? m_items[index].listKeys[i] : static_cast<unsigned long>(i));
  }
  return true;
}

bool RecordingBag::getListValue(int index, unsigned long id, PropVariant& value)
{
  record(QStringLiteral("getListValue(%1,%2)").arg(index).arg(id));
  if (!known(index) || !m_items[index].listValues.contains(id))
    return false;
  value = m_items[index].listValues.value(id);
  return true;
}

bool RecordingBag::getIcon(int index, unsigned long value, OdSharedPtr<PropIcon>& icon)
{
  record(QStringLiteral("getIcon(%1,%2)").arg(index).arg(value));
  if (!known(index) || !m_items[index].icons.contains(value))
    return false;
  icon = OdSharedPtr<PropIcon>(new PropUiQIcon(m_items[index].icons.value(value)));
  return true;
}

bool RecordingBag::getListText(int index, const PropVariant& value, OdString& text)
{
  record(QStringLiteral("getListText(%1)").arg(index));
  if (!known(index) || !m_items[index].hasListText)
    return false;
  const Item& item = m_items[index];
  for (auto it = item.listValues.begin(); it != item.listValues.end(); ++it)
  {
    const int pos = item.listKeys.indexOf(it.key());
    const int at = pos >= 0 ? pos : int(it.key());
    if (it.value() == value && at >= 0 && at < item.listNames.size())
    {
      text = toOdString(item.listNames[at]);
      return true;
    }
  }
  return false;
}

unsigned int RecordingBag::getElements(int index, PropKeyArray& elements, OdStringArray& captions)
{
  record(QStringLiteral("getElements(%1)").arg(index));
  if (!known(index))
    return 0;
  for (int i = 0; i < m_items[index].elements.size(); ++i)
  {
    elements.append(m_items[index].elements[i]);
    captions.append(toOdString(m_items[index].elementCaptions.value(i)));
  }
  return elements.size();
}

bool RecordingBag::getElementValue(int index, unsigned long element, PropVariant& value)
{
  record(QStringLiteral("getElementValue(%1,%2)").arg(index).arg(element));
  if (!known(index) || !m_items[index].readable || !m_items[index].elementValues.contains(element))
    return false;
  value = m_items[index].elementValues.value(element);
  return true;
}

bool RecordingBag::setElementValue(int index, unsigned long element, const PropVariant& value)
{
  record(QStringLiteral("setElementValue(%1,%2)").arg(index).arg(element));
  if (!known(index) || !m_items[index].acceptWrite)
    return false;
  written.append(value);
  m_items[index].elementValues[element] = value;
  return true;
}

int RecordingBag::getElementCount(int index)
{
  record(QStringLiteral("getElementCount(%1)").arg(index));
  return known(index) ? m_items[index].elementCount : -1;
}

int RecordingBag::getGroupCount(int index)
{
  record(QStringLiteral("getGroupCount(%1)").arg(index));
  return known(index) ? m_items[index].groupCount : 0;
}

PropBagCtx* RecordingBag::getContext()
{
  record(QStringLiteral("getContext()"));
  return context;
}

hostPropEditorReactor* RecordingBag::getReactor(int index)
{
  record(QStringLiteral("getReactor(%1)").arg(index));
  return known(index) ? m_items[index].reactor : nullptr;
}

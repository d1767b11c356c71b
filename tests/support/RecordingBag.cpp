#include "RecordingBag.h"

#include "OdStringQt.h"
#include <QFile>
#include <QTest>
#include <QTextStream>

// With PROP_BAG_TRACE naming a file, every bag appends the calls it saw, so
// that two runs of the suite can be compared call by call after a refactoring.
RecordingBag::~RecordingBag()
{
  const QString path = qEnvironmentVariable("PROP_BAG_TRACE");
  if (path.isEmpty())
    return;
  QFile file(path);
  if (!file.open(QIODevice::Append | QIODevice::Text))
    return;
  QTextStream out(&file);
  out << QCoreApplication::applicationName() << "::" << QTest::currentTestFunction() << '['
      << QTest::currentDataTag() << "] " << m_trace.join(QLatin1Char(' ')) << '\n';
}

int RecordingBag::addItem(const QString& name, const PropVariant& value)
{
  Item item;
  item.name = name;
  item.description = name + QStringLiteral(" description");
  item.value = value;
  m_items.append(item);
  return m_items.size() - 1;
}

void RecordingBag::record(const QString& what)
{
  calls.append(what);
  m_trace.append(what);
}

RecordingBag::Item* RecordingBag::call(const char* name, int index)
{
  record(QStringLiteral("%1(%2)").arg(QLatin1String(name)).arg(index));
  return known(index) ? &m_items[index] : nullptr;
}

RecordingBag::Item* RecordingBag::call(const char* name, int index, unsigned long element)
{
  record(QStringLiteral("%1(%2,%3)").arg(QLatin1String(name)).arg(index).arg(element));
  return known(index) ? &m_items[index] : nullptr;
}

int RecordingBag::count(const QString& prefix) const
{
  int n = 0;
  for (const QString& made : calls)
    if (made.startsWith(prefix + QLatin1Char('(')))
      ++n;
  return n;
}

QString RecordingBag::textOf(const PropVariant& value)
{
  const unsigned int kind = value.scalarType();
  if (kind & PropVariant::kBool)
    return value.getBool() ? QStringLiteral("Yes") : QStringLiteral("No");
  if (kind & (PropVariant::kInt16 | PropVariant::kInt32 | PropVariant::kInt64))
    return QString::number(value.getInt64());
  if (kind & PropVariant::kUInt64)
    return QString::number(value.getUInt64());
  if (kind & PropVariant::kDouble)
    return QString::number(value.getDouble(), 'g', 12);
  if (kind & PropVariant::kString)
    return toQString(value.getString());
  return QString();
}

int RecordingBag::getItemCount()
{
  record(QStringLiteral("getItemCount()"));
  return m_items.size();
}

PropItemType* RecordingBag::getItemType(int index)
{
  const Item* item = call("getItemType", index);
  return item ? item->type : nullptr;
}

bool RecordingBag::isEditable(int index, unsigned long element)
{
  const Item* item = call("isEditable", index, element);
  return item && item->editable;
}

bool RecordingBag::getName(int index, OdString& name)
{
  const Item* item = call("getName", index);
  if (item)
    name = toOdString(item->name);
  return item;
}

bool RecordingBag::getDescription(int index, OdString& description)
{
  const Item* item = call("getDescription", index);
  if (!item || !item->hasDescription)
    return false;
  description = toOdString(item->description);
  return true;
}

unsigned int RecordingBag::getFlags(int index)
{
  const Item* item = call("getFlags", index);
  return item ? item->flags : 0;
}

OdGUID RecordingBag::getControlGuid(int index)
{
  const Item* item = call("getControlGuid", index);
  return item ? item->guid : OdGUID();
}

bool RecordingBag::validate(int index, unsigned long element, const PropVariant&, OdString& message)
{
  const Item* item = call("validate", index, element);
  if (!item)
    return false;
  if (duringValidate)
    duringValidate();
  if (!item->acceptValidate)
    message = toOdString(item->validateMessage);
  return item->acceptValidate;
}

bool RecordingBag::getRange(int index, unsigned long element, PropVariant& min, PropVariant& max)
{
  const Item* item = call("getRange", index, element);
  if (!item || !item->hasRange)
    return false;
  min = item->min;
  max = item->max;
  return true;
}

bool RecordingBag::formatValue(int index, unsigned long element, const PropVariant& value, OdString& text)
{
  if (!call("formatValue", index, element))
    return false;
  if (format)
    return format(index, value, text);
  const QString shown = textOf(value);
  if (shown.isNull())
    return false;
  text = toOdString(shown);
  return true;
}

bool RecordingBag::parseValue(int index, unsigned long element, const OdString& text, PropVariant& value)
{
  const Item* item = call("parseValue", index, element);
  parsedTexts.append(text);
  if (!item)
    return false;
  if (parse)
    return parse(index, text, value);
  const QString s = toQString(text);
  bool ok = true;
  const unsigned int kind = item->value.scalarType();
  if (kind & PropVariant::kInt32)
    value.setInt32(s.toInt(&ok));
  else if (kind & PropVariant::kDouble)
    value.setDouble(s.toDouble(&ok));
  else if (kind & PropVariant::kBool)
    value.setBool(s == QStringLiteral("Yes"));
  else
    value.setString(text);
  return ok;
}

bool RecordingBag::getValue(int index, PropVariant& value)
{
  const Item* item = call("getValue", index);
  if (!item || !item->readable)
    return false;
  value = item->value;
  return true;
}

bool RecordingBag::setValue(int index, const PropVariant& value)
{
  Item* item = call("setValue", index);
  if (!item || !item->acceptWrite)
    return false;
  written.append(value);
  item->value = value;
  return true;
}

unsigned int RecordingBag::getActions(int index, unsigned long element, PropActionArray& actions)
{
  const Item* item = call("getActions", index, element);
  actions.clear();
  if (item)
    for (const auto& action : item->actions)
      actions.append(action);
  return actions.size();
}

bool RecordingBag::executeAction(int index, PropAction* action)
{
  const Item* item = call("executeAction", index);
  executed.append(action);
  return item && item->executeResult;
}

bool RecordingBag::getValueList(int index, OdStringArray& names, PropKeyArray& keys)
{
  const Item* item = call("getValueList", index);
  if (!item || item->listNames.isEmpty())
    return false;
  for (int i = 0; i < item->listNames.size(); ++i)
  {
    names.append(toOdString(item->listNames[i]));
    keys.append(i < item->listKeys.size() ? item->listKeys[i] : static_cast<unsigned long>(i));
  }
  return true;
}

bool RecordingBag::getListValue(int index, unsigned long id, PropVariant& value)
{
  const Item* item = call("getListValue", index, id);
  if (!item || !item->listValues.contains(id))
    return false;
  value = item->listValues.value(id);
  return true;
}

bool RecordingBag::getIcon(int index, unsigned long value, OdSharedPtr<PropIcon>& icon)
{
  const Item* item = call("getIcon", index, value);
  if (!item || !item->icons.contains(value))
    return false;
  icon = OdSharedPtr<PropIcon>(new PropUiQIcon(item->icons.value(value)));
  return true;
}

bool RecordingBag::getListText(int index, const PropVariant& value, OdString& text)
{
  const Item* item = call("getListText", index);
  if (!item || !item->hasListText)
    return false;
  for (auto it = item->listValues.begin(); it != item->listValues.end(); ++it)
  {
    const int pos = item->listKeys.indexOf(it.key());
    const int at = pos >= 0 ? pos : int(it.key());
    if (it.value() == value && at >= 0 && at < item->listNames.size())
    {
      text = toOdString(item->listNames[at]);
      return true;
    }
  }
  return false;
}

unsigned int RecordingBag::getElements(int index, PropKeyArray& elements, OdStringArray& captions)
{
  const Item* item = call("getElements", index);
  if (!item)
    return 0;
  for (int i = 0; i < item->elements.size(); ++i)
  {
    elements.append(item->elements[i]);
    captions.append(toOdString(item->elementCaptions.value(i)));
  }
  return elements.size();
}

bool RecordingBag::getElementValue(int index, unsigned long element, PropVariant& value)
{
  const Item* item = call("getElementValue", index, element);
  if (!item || !item->readable || !item->elementValues.contains(element))
    return false;
  value = item->elementValues.value(element);
  return true;
}

bool RecordingBag::setElementValue(int index, unsigned long element, const PropVariant& value)
{
  Item* item = call("setElementValue", index, element);
  if (!item || !item->acceptWrite)
    return false;
  written.append(value);
  item->elementValues[element] = value;
  return true;
}

int RecordingBag::getElementCount(int index)
{
  const Item* item = call("getElementCount", index);
  return item ? item->elementCount : -1;
}

int RecordingBag::getGroupCount(int index)
{
  const Item* item = call("getGroupCount", index);
  return item ? item->groupCount : 0;
}

PropBagCtx* RecordingBag::getContext()
{
  record(QStringLiteral("getContext()"));
  return context;
}

hostPropEditorReactor* RecordingBag::getReactor(int index)
{
  const Item* item = call("getReactor", index);
  return item ? item->reactor : nullptr;
}

#include "PropUiVariantConverter_p.h"

#include "OdStringQt.h"
#include <QStringList>

namespace
{

struct KindRow
{
  int qtType;
  unsigned int kind;
};

const KindRow kKinds[] = {
  {QMetaType::Bool, PropVariant::kBool},         {QMetaType::Short, PropVariant::kInt16},
  {QMetaType::Int, PropVariant::kInt32},         {QMetaType::LongLong, PropVariant::kInt64},
  {QMetaType::ULongLong, PropVariant::kUInt64},  {QMetaType::Double, PropVariant::kDouble},
  {QMetaType::QString, PropVariant::kString},
};

QVariant scalar(const PropVariant& value, unsigned int kind)
{
  switch (kind)
  {
  case PropVariant::kBool: return QVariant(value.getBool());
  case PropVariant::kInt16: return QVariant::fromValue<short>(value.getInt16());
  case PropVariant::kInt32: return QVariant(int(value.getInt32()));
  case PropVariant::kInt64: return QVariant(qlonglong(value.getInt64()));
  case PropVariant::kUInt64: return QVariant(qulonglong(value.getUInt64()));
  case PropVariant::kDouble: return QVariant(value.getDouble());
  case PropVariant::kString: return QVariant(toQString(value.getString()));
  default: return QVariant();
  }
}

template <class Array, class Convert>
QVariantList listOf(const Array& array, Convert convert)
{
  QVariantList list;
  list.reserve(int(array.size()));
  for (const auto& entry : array)
    list.append(convert(entry));
  return list;
}

QVariant array(const PropVariant& value, unsigned int kind)
{
  switch (kind)
  {
  case PropVariant::kBool: return listOf(value.getBoolArray(), [](bool b) { return QVariant(b); });
  case PropVariant::kInt16:
  case PropVariant::kInt32: return listOf(value.getInt32Array(), [](OdInt32 i) { return QVariant(int(i)); });
  case PropVariant::kInt64: return listOf(value.getInt64Array(), [](OdInt64 i) { return QVariant(qlonglong(i)); });
  case PropVariant::kUInt64:
    return listOf(value.getUInt64Array(), [](OdUInt64 i) { return QVariant(qulonglong(i)); });
  case PropVariant::kDouble: return listOf(value.getDoubleArray(), [](double d) { return QVariant(d); });
  case PropVariant::kString:
  {
    QStringList texts;
    for (const OdString& text : value.getStringArray())
      texts.append(toQString(text));
    return texts;
  }
  default: return QVariant();
  }
}

bool setScalar(const QVariant& value, unsigned int kind, PropVariant& out)
{
  switch (kind)
  {
  case PropVariant::kBool: out.setBool(value.toBool()); return true;
  case PropVariant::kInt16: out.setInt16(OdInt16(value.value<short>())); return true;
  case PropVariant::kInt32: out.setInt32(value.toInt()); return true;
  case PropVariant::kInt64: out.setInt64(value.toLongLong()); return true;
  case PropVariant::kUInt64: out.setUInt64(value.toULongLong()); return true;
  case PropVariant::kDouble: out.setDouble(value.toDouble()); return true;
  case PropVariant::kString: out.setString(toOdString(value.toString())); return true;
  default: return false;
  }
}

template <class Array, class Convert>
Array arrayOf(const QVariantList& list, Convert convert)
{
  Array array;
  for (const QVariant& entry : list)
    array.append(convert(entry));
  return array;
}

bool setArray(const QVariantList& list, unsigned int kind, PropVariant& out)
{
  PropVariant made;
  switch (kind)
  {
  case PropVariant::kBool:
    made.OdVariant::setBoolArray(arrayOf<OdBoolArray>(list, [](const QVariant& v) { return v.toBool(); }));
    made.setType(PropVariant::kBool | PropVariant::kArray);
    break;
  case PropVariant::kInt16:
  case PropVariant::kInt32:
    made.setInt32Array(arrayOf<OdInt32Array>(list, [](const QVariant& v) { return OdInt32(v.toInt()); }));
    break;
  case PropVariant::kInt64:
    made.OdVariant::setInt64Array(arrayOf<OdInt64Array>(list, [](const QVariant& v) { return OdInt64(v.toLongLong()); }));
    made.setType(PropVariant::kInt64 | PropVariant::kArray);
    break;
  case PropVariant::kUInt64:
    made.OdVariant::setUInt64Array(
      arrayOf<OdUInt64Array>(list, [](const QVariant& v) { return OdUInt64(v.toULongLong()); }));
    made.setType(PropVariant::kUInt64 | PropVariant::kArray);
    break;
  case PropVariant::kDouble:
    made.setDoubleArray(arrayOf<OdDoubleArray>(list, [](const QVariant& v) { return v.toDouble(); }));
    break;
  case PropVariant::kString:
    made.setStringArray(arrayOf<OdStringArray>(list, [](const QVariant& v) { return toOdString(v.toString()); }));
    break;
  default: return false;
  }
  out = made;
  return true;
}

} // namespace

unsigned int PropUiVariantConverter::kindOf(int qtType)
{
  for (const KindRow& row : kKinds)
    if (row.qtType == qtType)
      return row.kind;
  return 0;
}

QVariant PropUiVariantConverter::toQVariant(const PropVariant& value)
{
  if (value.isVaries() || value.hasNoData())
    return QVariant();
  const unsigned int kind = value.scalarType();
  return value.isArray() ? array(value, kind) : scalar(value, kind);
}

bool PropUiVariantConverter::toPropVariant(const QVariant& value, PropVariant& out)
{
  const int type = value.userType();
  if (type == QMetaType::QStringList)
    return setArray(value.toList(), PropVariant::kString, out);
  if (type != QMetaType::QVariantList)
    return setScalar(value, kindOf(type), out);
  const QVariantList list = value.toList();
  // An empty list has no kind of its own; an empty selection is still a list of names.
  unsigned int kind = list.isEmpty() ? unsigned(PropVariant::kString) : kindOf(list.first().userType());
  for (const QVariant& entry : list)
    if (kindOf(entry.userType()) != kind)
      return false;
  return setArray(list, kind, out);
}

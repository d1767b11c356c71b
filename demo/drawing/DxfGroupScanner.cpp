#include "DxfGroupScanner.h"

#include "DxfStrings.h"
#include <QCoreApplication>
#include <algorithm>
#include <cmath>
#include <limits>

namespace
{

QString tr(const char* text)
{
  return QCoreApplication::translate("DxfGroupScanner", text);
}

// Beyond this, sums and products of a few coordinates overflow to infinity,
// which no file can hold; and no drawing measures anything this large.
constexpr double kLargestNumber = 1e100;

enum class ValueKind
{
  Text,
  Real,
  Integer,
  Integer64
};

/** What the file format says a group's value is. */
ValueKind kindOf(int code)
{
  const auto in = [code](int first, int last) { return code >= first && code <= last; };
  if (in(10, 59) || in(110, 149) || in(210, 239) || in(460, 469) || in(1010, 1059))
    return ValueKind::Real;
  if (in(160, 169) || in(450, 459))
    return ValueKind::Integer64;
  if (in(60, 99) || in(170, 179) || in(270, 299) || in(370, 389) || in(400, 409) || in(420, 429) || in(440, 449)
      || in(1060, 1071))
    return ValueKind::Integer;
  return ValueKind::Text;
}

/** A value as a message quotes it: a long one cut short. */
QString quoted(const std::string& value)
{
  const QString text = QString::fromLatin1(QByteArray::fromStdString(value)).trimmed();
  return text.size() > 40 ? text.left(37) + QStringLiteral("...") : text;
}

bool isDigit(char c)
{
  return c >= '0' && c <= '9';
}

/**
 * Whether @p text is a decimal number as dxflib reads one (a comma may stand
 * for the point): dxflib reads "nan", "0x10" or "1e" as zero or less than the
 * file says, so those are not numbers here.
 */
bool isDecimal(const QByteArray& text)
{
  int i = 0;
  const int n = text.size();
  if (i < n && (text[i] == '+' || text[i] == '-'))
    ++i;
  int digits = 0;
  while (i < n && isDigit(text[i]))
    ++i, ++digits;
  if (i < n && (text[i] == '.' || text[i] == ','))
    ++i;
  while (i < n && isDigit(text[i]))
    ++i, ++digits;
  if (digits == 0)
    return false;
  if (i < n && (text[i] == 'e' || text[i] == 'E'))
  {
    ++i;
    if (i < n && (text[i] == '+' || text[i] == '-'))
      ++i;
    if (i == n || !isDigit(text[i]))
      return false;
    while (i < n && isDigit(text[i]))
      ++i;
  }
  return i == n;
}

bool isWhole(const QByteArray& text)
{
  const int start = !text.isEmpty() && (text[0] == '+' || text[0] == '-') ? 1 : 0;
  return text.size() > start && std::all_of(text.begin() + start, text.end(), isDigit);
}

bool isPrintableAscii(const std::string& value)
{
  return std::all_of(value.begin(), value.end(), [](char c) { return c >= 0x20 && c < 0x7F; });
}

} // namespace

DxfGroupScanner::DxfGroupScanner(const QByteArray& data) : m_data(data), m_lineCount(int(data.count('\n')) + 1) {}

bool DxfGroupScanner::next(DxfGroup& group)
{
  if (m_done || !m_fault.isEmpty())
    return false;
  QByteArray codeLine;
  QByteArray valueLine;
  if (!readLine(codeLine))
    return false;
  group.line = m_line;
  // dxflib takes the code with blanks around it, and a value without them
  bool ok = false;
  group.code = codeLine.trimmed().toInt(&ok);
  if (!ok || group.code < 0 || group.code > 1071)
    return fail(tr("\"%1\" is not a group code").arg(quoted(codeLine.toStdString())));
  if (!readLine(valueLine))
    return false;
  while (valueLine.endsWith('\r'))
    valueLine.chop(1);
  group.value = valueLine.toStdString();
  if (!checkValue(group))
    return false;
  if (group.code == 9 || group.code == 0)
    m_inVariable = group.code == 9;
  if (group.code == 0)
  {
    m_object = group.value;
    // what follows the end (a DOS end-of-file mark, padding) is no part of the drawing
    m_done = group.value == "EOF";
  }
  return true;
}

bool DxfGroupScanner::readLine(QByteArray& line)
{
  if (m_pos >= m_data.size())
    return false;
  int end = m_data.indexOf('\n', m_pos);
  if (end < 0)
    end = m_data.size();
  ++m_line;
  line = m_data.mid(m_pos, end - m_pos);
  m_pos = end + 1;
  if (line.size() > kMaxLineLength)
    return fail(tr("the line is longer than %1 characters").arg(kMaxLineLength));
  if (line.contains('\0'))
    return fail(tr("the line holds a zero byte, which no text file does"));
  return true;
}

bool DxfGroupScanner::checkValue(const DxfGroup& group)
{
  const QByteArray text = QByteArray::fromStdString(group.value).replace(',', '.').trimmed();
  switch (kindOf(group.code))
  {
  case ValueKind::Real:
  {
    if (!isDecimal(text))
      return fail(tr("group %1 holds \"%2\", which is not a number").arg(group.code).arg(quoted(group.value)));
    bool ok = false;
    const double value = text.toDouble(&ok);
    // Qt fails a number too small for a double, and reads it as zero, as dxflib does
    ok = ok || value == 0.0;
    // a header variable means nothing to the drawing, and some programs keep huge ones there
    if (!ok || !std::isfinite(value) || (std::abs(value) > kLargestNumber && !m_inVariable))
      return fail(tr("group %1 holds %2, more than a drawing can measure").arg(group.code).arg(quoted(group.value)));
    return true;
  }
  case ValueKind::Integer:
  case ValueKind::Integer64:
  {
    bool ok = isWhole(text);
    const qlonglong value = ok ? text.toLongLong(&ok) : 0;
    if (!ok)
      return fail(tr("group %1 holds \"%2\", which is not a whole number").arg(group.code).arg(quoted(group.value)));
    if (kindOf(group.code) == ValueKind::Integer
        && (value < std::numeric_limits<int>::min() || value > std::numeric_limits<int>::max()))
      return fail(tr("group %1 holds %2, out of its range").arg(group.code).arg(quoted(group.value)));
    // dxflib makes room for as many points as these counts say before it reads one
    const bool isCount = (m_object == "LWPOLYLINE" && group.code == 90)
                         || (m_object == "SPLINE" && group.code >= 72 && group.code <= 74)
                         || (m_object == "LEADER" && group.code == 76);
    if (isCount && value > (m_lineCount - m_line) / 2)
      return fail(tr("group %1 counts %2 points, more than the rest of the file holds").arg(group.code).arg(value));
    return true;
  }
  case ValueKind::Text:
    break;
  }
  // Names and texts are saved with their characters beyond ASCII escaped, seven bytes each:
  // what opens must save into lines that open again. A multi-line text is saved in pieces.
  const bool kept = group.code == 1 || group.code == 2 || group.code == 3 || group.code == 6 || group.code == 8;
  if (kept && m_object != "MTEXT" && !isPrintableAscii(group.value)
      && toDxfString(fromDxfString(group.value)).size() > std::size_t(kMaxLineLength))
    return fail(tr("group %1 holds a text too long to be saved again").arg(group.code));
  return true;
}

bool DxfGroupScanner::fail(const QString& fault)
{
  m_fault = fault;
  return false;
}

#include "DxfGroupScanner.h"

#include <QCoreApplication>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>

namespace
{

// lupdate reads the texts of a class that declares its context, and not those of a free function
struct DxfGroupScannerTexts
{
  Q_DECLARE_TR_FUNCTIONS(DxfGroupScanner)
};

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
QString quoted(std::string_view value)
{
  const QString text = QString::fromLatin1(value.data(), int(value.size())).trimmed();
  return text.size() > 40 ? text.left(37) + QStringLiteral("...") : text;
}

bool isDigit(char c)
{
  return c >= '0' && c <= '9';
}

bool isBlank(char c)
{
  return c == ' ' || c == '\t' || c == '\r';
}

std::string_view trimmed(std::string_view text)
{
  while (!text.empty() && isBlank(text.front()))
    text.remove_prefix(1);
  while (!text.empty() && isBlank(text.back()))
    text.remove_suffix(1);
  return text;
}

/**
 * Whether @p text is a decimal number (a comma may stand for the point):
 * "nan", "0x10" or "1e" are not numbers of a drawing.
 */
bool isDecimal(std::string_view text)
{
  std::size_t i = 0;
  const std::size_t n = text.size();
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

bool isWhole(std::string_view text)
{
  const std::size_t start = !text.empty() && (text[0] == '+' || text[0] == '-') ? 1 : 0;
  if (text.size() <= start)
    return false;
  for (std::size_t i = start; i < text.size(); ++i)
    if (!isDigit(text[i]))
      return false;
  return true;
}

/** Reads a checked decimal; from_chars takes neither a plus sign nor a comma. */
double decimalOf(std::string_view text)
{
  char buffer[64];
  if (text.size() < sizeof buffer && (text.front() == '+' || text.find(',') != std::string_view::npos))
  {
    std::size_t n = 0;
    for (char c : text)
      if (c != '+' || n > 0)
        buffer[n++] = c == ',' ? '.' : c;
    text = std::string_view(buffer, n);
  }
  double value = 0.0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
  // a number too small for a double is zero to a drawing
  if (result.ec == std::errc::result_out_of_range)
    return std::abs(value) < 1.0 ? 0.0 : std::numeric_limits<double>::infinity();
  return value;
}

} // namespace

DxfGroupScanner::DxfGroupScanner(const QByteArray& data, int begin, int end)
    : m_data(data.constData()), m_pos(begin), m_end(end < 0 ? int(data.size()) : end)
{
}

bool DxfGroupScanner::holdsNumber(int code)
{
  return kindOf(code) != ValueKind::Text;
}

bool DxfGroupScanner::next(DxfGroup& group)
{
  if (m_done || !m_fault.isEmpty())
    return false;
  group.begin = m_pos;
  std::string_view codeLine;
  if (!readLine(codeLine))
    return false;
  group.line = m_line;
  const std::string_view code = trimmed(codeLine);
  int value = -1;
  const auto parsed = std::from_chars(code.data(), code.data() + code.size(), value);
  if (code.empty() || parsed.ptr != code.data() + code.size() || parsed.ec != std::errc() || value < 0 || value > 1071)
    return fail(DxfGroupScannerTexts::tr("\"%1\" is not a group code").arg(quoted(codeLine)));
  group.code = value;
  std::string_view valueLine;
  if (!readLine(valueLine))
    return false;
  while (!valueLine.empty() && valueLine.back() == '\r')
    valueLine.remove_suffix(1);
  group.value = valueLine;
  group.end = m_pos;
  if (!checkValue(group))
    return false;
  if (group.code == 9 || group.code == 0)
    m_inVariable = group.code == 9;
  // what follows the end (a DOS end-of-file mark, padding) is no part of the drawing
  if (group.code == 0 && group.value == "EOF")
    m_done = true;
  return true;
}

bool DxfGroupScanner::readLine(std::string_view& line)
{
  if (m_pos >= m_end)
    return false;
  const char* start = m_data + m_pos;
  const void* found = std::memchr(start, '\n', std::size_t(m_end - m_pos));
  const int end = found ? int(static_cast<const char*>(found) - m_data) : m_end;
  ++m_line;
  line = std::string_view(start, std::size_t(end - m_pos));
  m_pos = std::min(end + 1, m_end);
  if (line.size() > std::size_t(kMaxLineLength))
    return fail(DxfGroupScannerTexts::tr("the line is longer than %1 characters").arg(kMaxLineLength));
  if (std::memchr(line.data(), 0, line.size()))
    return fail(DxfGroupScannerTexts::tr("the line holds a zero byte, which no text file does"));
  return true;
}

bool DxfGroupScanner::checkValue(DxfGroup& group)
{
  group.number = 0.0;
  const ValueKind kind = kindOf(group.code);
  if (kind == ValueKind::Text)
    return true;
  const std::string_view text = trimmed(group.value);
  if (kind == ValueKind::Real)
  {
    if (!isDecimal(text))
      return fail(DxfGroupScannerTexts::tr("group %1 holds \"%2\", which is not a number").arg(group.code).arg(quoted(group.value)));
    const double value = decimalOf(text);
    // a header variable means nothing to the drawing, and some programs keep huge ones there
    if (!std::isfinite(value) || (std::abs(value) > kLargestNumber && !m_inVariable))
      return fail(DxfGroupScannerTexts::tr("group %1 holds %2, more than a drawing can measure").arg(group.code).arg(quoted(group.value)));
    group.number = value;
    return true;
  }
  long long value = 0;
  bool ok = isWhole(text);
  if (ok)
  {
    const std::string_view digits = text.front() == '+' ? text.substr(1) : text;
    ok = std::from_chars(digits.data(), digits.data() + digits.size(), value).ec == std::errc();
  }
  if (!ok)
    return fail(DxfGroupScannerTexts::tr("group %1 holds \"%2\", which is not a whole number").arg(group.code).arg(quoted(group.value)));
  if (kind == ValueKind::Integer && (value < std::numeric_limits<int>::min() || value > std::numeric_limits<int>::max()))
    return fail(DxfGroupScannerTexts::tr("group %1 holds %2, out of its range").arg(group.code).arg(quoted(group.value)));
  group.number = double(value);
  return true;
}

bool DxfGroupScanner::fail(const QString& fault)
{
  m_fault = fault;
  return false;
}

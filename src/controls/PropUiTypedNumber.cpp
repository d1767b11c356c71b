#include "PropUiTypedNumber_p.h"

#include "OdStringQt.h"
#include "PropBag.h"
#include <QRegularExpression>
#include <cmath>
#include <limits>
#include <muParser.h>

namespace
{

// Only what an arithmetic expression is made of; anything else (a unit, a
// variable, a comparison) is not ours to guess at, and muparser knows more.
bool looksLikeArithmetic(const QString& text)
{
  static const QRegularExpression pattern(
    QStringLiteral("^(?:\\s|[0-9-+*/^().]|abs|e|ln|log|a?(?:sin|cos|tan))+$"));
  return pattern.match(text).hasMatch();
}

double log10Of(double value)
{
  return std::log10(value);
}

// A value read as a plain number, whatever its type word: the bag may give a
// number field an integer and a whole-number field a double.
bool numberOf(const PropVariant& value, double& number)
{
  if (value.isArray() || value.isVaries() || value.hasNoData())
    return false;
  switch (value.scalarType())
  {
  case PropVariant::kDouble:
    number = value.getDouble();
    return true;
  case PropVariant::kInt16:
  case PropVariant::kInt32:
  case PropVariant::kInt64:
    number = value.getDouble();
    return true;
  default:
    return false;
  }
}

} // namespace

PropUiTypedNumber::PropUiTypedNumber(PropBag* bag, int index, unsigned long element, Kind kind, const QLocale& locale)
  : m_bag(bag), m_index(index), m_element(element), m_kind(kind), m_locale(locale),
    m_minimum(std::numeric_limits<qint32>::min()), m_maximum(std::numeric_limits<qint32>::max())
{
}

void PropUiTypedNumber::setRange(qint64 minimum, qint64 maximum)
{
  m_minimum = minimum;
  m_maximum = maximum;
}

bool PropUiTypedNumber::read(const QString& typed, PropVariant& value)
{
  m_refusal.clear();
  m_evaluated = false;
  const QString text = typed.trimmed();
  double number = 0.0;
  PropVariant parsed;
  if (bagReads(text, parsed, number))
  {
    if (!takes(number))
      return refuse();
    value = parsed;
    return true;
  }
  if (!evaluateTyped(text, number))
    return refuse();
  const QString plain = m_kind == Kind::Whole ? QString::number(qint64(number))
                                              : QString::number(number, 'g', QLocale::FloatingPointShortest);
  double again = 0.0;
  if (!bagReads(plain, parsed, again) || !takes(again))
    return refuse();
  value = parsed;
  m_evaluated = true;
  return true;
}

bool PropUiTypedNumber::readNumber(const QString& typed, double& number)
{
  m_refusal.clear();
  m_evaluated = false;
  const QString text = typed.trimmed();
  PropVariant parsed;
  if (bagReads(text, parsed, number))
    return takes(number) || refuse();
  if (!evaluateTyped(text, number))
    return refuse();
  m_evaluated = true;
  return true;
}

bool PropUiTypedNumber::bagReads(const QString& text, PropVariant& value, double& number) const
{
  if (!m_bag)
    return false;
  PropVariant parsed;
  if (!m_bag->parseValue(m_index, m_element, toOdString(text), parsed))
    return false;
  double read = 0.0;
  if (!numberOf(parsed, read))
  {
    // Not a number, but the bag's own reading of its own kind of value (a
    // point, a scale): it is the bag's to judge.
    if (m_kind == Kind::Real && !parsed.isVaries() && !parsed.hasNoData())
    {
      value = parsed;
      number = 0.0;
      return true;
    }
    return false;
  }
  value = parsed;
  number = read;
  return true;
}

bool PropUiTypedNumber::evaluateTyped(const QString& text, double& number)
{
  QString expression = text;
  // A QChar from Qt 5, a QString from Qt 6, where a separator may be longer than one character.
  const QString group(m_locale.groupSeparator());
  const QString decimal(m_locale.decimalPoint());
  const QString point(QLatin1Char('.'));
  // "." is a decimal point in every locale here; a group separator other
  // than "." would be a guess between a thousand and a decimal.
  if (!group.isEmpty() && group != point && group != decimal && expression.contains(group))
    return false;
  if (!decimal.isEmpty() && decimal != point)
    expression.replace(decimal, point);
  return evaluate(expression, number) && takes(number);
}

bool PropUiTypedNumber::evaluate(const QString& expression, double& result)
{
  if (expression.trimmed().isEmpty() || !looksLikeArithmetic(expression))
    return false;
  try
  {
    mu::Parser parser;
    // As on a calculator's keys: log is to base 10, ln the natural one.
    parser.DefineFun("log", log10Of);
    parser.SetExpr(expression.toStdString());
    const double value = parser.Eval();
    if (!std::isfinite(value))
      return false;
    result = value;
    return true;
  }
  catch (const mu::Parser::exception_type&)
  {
    return false;
  }
  catch (const std::exception&)
  {
    return false;
  }
}

bool PropUiTypedNumber::takes(double number) const
{
  if (!std::isfinite(number))
    return false;
  if (m_kind == Kind::Real)
    return true;
  return number == std::trunc(number) && number >= double(m_minimum) && number <= double(m_maximum);
}

bool PropUiTypedNumber::refuse()
{
  if (m_kind == Kind::Whole)
    m_refusal = tr("Enter a whole number from %1 to %2, or an expression such as 10*2.")
                  .arg(m_locale.toString(m_minimum), m_locale.toString(m_maximum));
  else
    m_refusal = tr("Enter a number or an expression such as 10*2.");
  return false;
}

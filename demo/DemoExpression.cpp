#include "DemoExpression.h"

#include <cmath>

namespace
{

const double kPi = 3.14159265358979323846;

class Parser
{
public:
  explicit Parser(const QString& text) : m_text(text) {}

  bool parse(double& result)
  {
    if (!expression(result))
      return false;
    skipSpaces();
    return m_pos == m_text.size() && std::isfinite(result);
  }

private:
  void skipSpaces()
  {
    while (m_pos < m_text.size() && m_text[m_pos].isSpace())
      ++m_pos;
  }
  bool take(QChar c)
  {
    skipSpaces();
    if (m_pos < m_text.size() && m_text[m_pos] == c)
    {
      ++m_pos;
      return true;
    }
    return false;
  }

  bool expression(double& value)
  {
    if (!term(value))
      return false;
    for (;;)
    {
      double rhs = 0;
      if (take(QLatin1Char('+')))
      {
        if (!term(rhs))
          return false;
        value += rhs;
      }
      else if (take(QLatin1Char('-')))
      {
        if (!term(rhs))
          return false;
        value -= rhs;
      }
      else
        return true;
    }
  }

  bool term(double& value)
  {
    if (!power(value))
      return false;
    for (;;)
    {
      double rhs = 0;
      if (take(QLatin1Char('*')))
      {
        if (!power(rhs))
          return false;
        value *= rhs;
      }
      else if (take(QLatin1Char('/')))
      {
        if (!power(rhs) || rhs == 0.0)
          return false;
        value /= rhs;
      }
      else
        return true;
    }
  }

  bool power(double& value)
  {
    if (!unary(value))
      return false;
    if (take(QLatin1Char('^')))
    {
      double exponent = 0;
      if (!power(exponent))
        return false;
      value = std::pow(value, exponent);
    }
    return true;
  }

  bool unary(double& value)
  {
    if (take(QLatin1Char('-')))
    {
      if (!unary(value))
        return false;
      value = -value;
      return true;
    }
    if (take(QLatin1Char('+')))
      return unary(value);
    return primary(value);
  }

  bool primary(double& value)
  {
    skipSpaces();
    if (take(QLatin1Char('(')))
      return expression(value) && take(QLatin1Char(')'));
    const int start = m_pos;
    while (m_pos < m_text.size() && m_text[m_pos].isLetter())
      ++m_pos;
    if (m_pos > start)
      return function(m_text.mid(start, m_pos - start), value);
    while (m_pos < m_text.size() && (m_text[m_pos].isDigit() || m_text[m_pos] == QLatin1Char('.')))
      ++m_pos;
    if (m_pos < m_text.size() && (m_text[m_pos] == QLatin1Char('e') || m_text[m_pos] == QLatin1Char('E')))
    {
      int p = m_pos + 1;
      if (p < m_text.size() && (m_text[p] == QLatin1Char('-') || m_text[p] == QLatin1Char('+')))
        ++p;
      if (p < m_text.size() && m_text[p].isDigit())
      {
        m_pos = p;
        while (m_pos < m_text.size() && m_text[m_pos].isDigit())
          ++m_pos;
      }
    }
    bool ok = false;
    value = m_text.mid(start, m_pos - start).toDouble(&ok);
    return ok;
  }

  bool function(const QString& name, double& value)
  {
    double argument = 0;
    if (!take(QLatin1Char('(')) || !expression(argument) || !take(QLatin1Char(')')))
      return false;
    const double radians = argument * kPi / 180.0;
    if (name == QLatin1String("abs"))
      value = std::fabs(argument);
    else if (name == QLatin1String("sqrt") && argument >= 0)
      value = std::sqrt(argument);
    else if (name == QLatin1String("sin"))
      value = std::sin(radians);
    else if (name == QLatin1String("cos"))
      value = std::cos(radians);
    else if (name == QLatin1String("tan"))
      value = std::tan(radians);
    else if (name == QLatin1String("ln") && argument > 0)
      value = std::log(argument);
    else if (name == QLatin1String("log") && argument > 0)
      value = std::log10(argument);
    else
      return false;
    return true;
  }

  QString m_text;
  int m_pos = 0;
};

} // namespace

bool evaluateExpression(const QString& text, double& result)
{
  double value = 0;
  if (text.trimmed().isEmpty() || !Parser(text).parse(value))
    return false;
  result = value;
  return true;
}

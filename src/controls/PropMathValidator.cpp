#include "PropMathValidator.h"

#include <QDoubleValidator>
#include <QRegularExpressionValidator>

PropMathValidator::PropMathValidator(QObject* parent) : QValidator(parent) {}

// Only fixup needs it, and most number fields never call fixup: a panel of
// thousands of fields makes it for the few that do.
QRegularExpressionValidator* PropMathValidator::expressionValidator() const
{
  if (!m_expressionValidator)
    m_expressionValidator = new QRegularExpressionValidator(
      QRegularExpression(QStringLiteral("(?:/s|[0-9-+*/^().,]|abs|e|ln|log|a?(?:sin|cos|tan))+")),
      const_cast<PropMathValidator*>(this));
  return m_expressionValidator;
}

void PropMathValidator::setNumberValidator(QValidator* validator)
{
  if (validator == m_numberValidator)
    return;
  delete m_numberValidator;
  m_numberValidator = validator;
  if (m_numberValidator)
    m_numberValidator->setParent(this);
}

void PropMathValidator::setPropBagItem(PropBag* bag, int index, unsigned long element)
{
  m_bag = bag;
  m_index = index;
  m_element = element;
}

// A key is never dropped for leaving the text unfinished ("10*" on the way
// to "10*2", a letter of a unit the bag knows): the field reads the whole
// text when the edit ends, and says then what it cannot take.
QValidator::State PropMathValidator::validate(QString& input, int& pos) const
{
  if (!m_numberValidator)
    return Acceptable;
  const State state = m_numberValidator->validate(input, pos);
  return state == Invalid ? Intermediate : state;
}

void PropMathValidator::fixup(QString& input) const
{
  if (input.isEmpty())
    return;
  expressionValidator()->fixup(input);
  // Qt 6 gives QDoubleValidator a fixup that Qt 5 lacks: with the C locale it takes
  // the comma of "3,5" for a group separator and rewrites the text as "3.5e+01".
  // The field reads a decimal comma in its own locale when the edit ends, so on
  // both majors only a whole-number validator tidies the text.
  if (m_numberValidator && !qobject_cast<QDoubleValidator*>(m_numberValidator))
    m_numberValidator->fixup(input);
}

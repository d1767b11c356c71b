#include "PropMathValidator.h"

#include <QRegularExpressionValidator>

PropMathValidator::PropMathValidator(QObject* parent)
  : QValidator(parent),
    m_expressionValidator(new QRegularExpressionValidator(
      QRegularExpression(QStringLiteral("(?:/s|[0-9-+*/^().,]|abs|e|ln|log|a?(?:sin|cos|tan))+")), this))
{
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

QValidator::State PropMathValidator::validate(QString& input, int& pos) const
{
  return m_numberValidator ? m_numberValidator->validate(input, pos) : Acceptable;
}

void PropMathValidator::fixup(QString& input) const
{
  if (input.isEmpty())
    return;
  m_expressionValidator->fixup(input);
  if (m_numberValidator)
    m_numberValidator->fixup(input);
}

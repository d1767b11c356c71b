#pragma once

#include "PropWidgetsExport.h"
#include <QValidator>

class PropBag;
class QRegularExpressionValidator;

/**
 * The validator of the number editors. A plain number its number validator
 * accepts is acceptable; anything else is unfinished rather than invalid, so
 * no key is dropped and arithmetic can be typed: the field reads it when the
 * edit ends. The expression validator it carries only tidies input in fixup.
 */
class PROPWIDGETS_EXPORT PropMathValidator : public QValidator
{
  Q_OBJECT

public:
  explicit PropMathValidator(QObject* parent = nullptr);

  /** Takes the validator over as a child; null accepts everything. */
  void setNumberValidator(QValidator* validator);
  QValidator* numberValidator() const { return m_numberValidator; }
  /** Made on the first call. */
  QRegularExpressionValidator* expressionValidator() const;

  /** The item whose editor the validator serves. */
  void setPropBagItem(PropBag* bag, int index, unsigned long element);
  PropBag* propBag() const { return m_bag; }
  int itemIndex() const { return m_index; }
  unsigned long element() const { return m_element; }

  State validate(QString& input, int& pos) const override;
  void fixup(QString& input) const override;

private:
  mutable QRegularExpressionValidator* m_expressionValidator = nullptr;
  QValidator* m_numberValidator = nullptr;
  PropBag* m_bag = nullptr;
  int m_index = -1;
  unsigned long m_element = 0;
};

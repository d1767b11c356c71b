#pragma once

#include "PropVariant.h"
#include <QCoreApplication>
#include <QLocale>
#include <QString>

class PropBag;

/**
 * What a person typed into a number field, read the way the person meant it.
 *
 * The bag reads the text first, as typed: a host may know units or a syntax
 * of its own. What it does not read, and what is arithmetic (+ - * / ^,
 * parentheses, abs, ln, log, sin, cos, tan and their inverses), is worked out
 * here and handed to the bag again as a plain number in the C locale. Either
 * way the field's locale may write the decimal point as it likes; a thousands
 * separator is refused rather than guessed at. Nothing that is not a finite
 * number comes out, and what cannot be read comes with the words that say
 * what can.
 */
class PropUiTypedNumber
{
  Q_DECLARE_TR_FUNCTIONS(PropUiTypedNumber)

public:
  /** Real numbers, or whole numbers within a range. */
  enum class Kind
  {
    Real,
    Whole
  };

  PropUiTypedNumber(PropBag* bag, int index, unsigned long element, Kind kind, const QLocale& locale = QLocale());

  /** The whole numbers the field takes; the full 32-bit range unless told. */
  void setRange(qint64 minimum, qint64 maximum);

  /** The value the bag made of the text; false when nothing the bag takes comes of it. */
  bool read(const QString& typed, PropVariant& value);
  /**
   * The number the text stands for, for a field whose values are its own
   * (a spin box): the bag's reading when it has one, the arithmetic's otherwise.
   */
  bool readNumber(const QString& typed, double& number);

  /** Why the last text was not taken, in words for the person who typed it. */
  QString refusal() const { return m_refusal; }
  /** Whether the last text taken was arithmetic rather than a value the bag read as typed. */
  bool wasEvaluated() const { return m_evaluated; }

  /**
   * The value of an arithmetic expression written with "." as the decimal
   * point; false for anything else, and for a result that is not finite.
   */
  static bool evaluate(const QString& expression, double& result);

private:
  bool bagReads(const QString& text, PropVariant& value, double& number) const;
  bool evaluateTyped(const QString& text, double& number);
  bool refuse();
  bool takes(double number) const;

  PropBag* m_bag;
  int m_index;
  unsigned long m_element;
  Kind m_kind;
  QLocale m_locale;
  qint64 m_minimum;
  qint64 m_maximum;
  QString m_refusal;
  bool m_evaluated = false;
};

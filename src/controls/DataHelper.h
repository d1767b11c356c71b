#pragma once

#include "PropWidgetsExport.h"
#include <QString>

class QComboBox;

/**
 * The last committed state of a text combo: the entry's index, or, when no
 * entry was committed (a negative index), the text that was typed.
 */
class PROPWIDGETS_EXPORT DataHelper
{
public:
  /** Stores the index, and the text only when the index is negative. */
  void init(int index, const QString& text);
  void setIndex(int index) { m_index = index; }
  void setText(const QString& text) { m_text = text; }
  void clear();
  /** Shows the committed state in the combo again. */
  void restore(QComboBox* combo) const;

  int index() const { return m_index; }
  QString text() const { return m_text; }

private:
  int m_index = -1;
  QString m_text;
};

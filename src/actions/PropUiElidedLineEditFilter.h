#pragma once

#include "PropUiQEventFilter.h"
#include <map>

class QLineEdit;
class QTextLayout;

/**
 * While a line edit lacks focus, paints its text cut at the right with an
 * ellipsis instead of scrolled, so a long value still reads from its start.
 */
class PROPWIDGETS_EXPORT PropUiElidedLineEditFilter : public PropUiQEventFilter
{
  Q_OBJECT

public:
  /** Installs itself on the line edit. */
  explicit PropUiElidedLineEditFilter(QLineEdit* lineEdit);
  ~PropUiElidedLineEditFilter() override;

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  QRect contentsRect(QLineEdit* edit) const;
  void prepareLayout(QLineEdit* edit);
  void paint(QLineEdit* edit);

  std::map<QLineEdit*, QTextLayout*> m_layouts;
};

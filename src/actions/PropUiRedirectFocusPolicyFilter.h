#pragma once

#include "PropUiQEventFilter.h"
#include <QPointer>
#include <QWidget>

/**
 * Keeps a control reachable by the keyboard while its inner editor is
 * disabled: the editor's focus policy is lent to the target meanwhile.
 */
class PROPWIDGETS_EXPORT PropUiRedirectFocusPolicyFilter : public PropUiQEventFilter
{
  Q_OBJECT

public:
  explicit PropUiRedirectFocusPolicyFilter(QWidget* parent);

  /** Watches `watched` on behalf of `target`, giving back what was lent to an earlier target. */
  void setup(QWidget* watched, QWidget* target);

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  void lend();
  void restore();

  QPointer<QWidget> m_watched;
  QPointer<QWidget> m_target;
  bool m_active = false;
  bool m_policyLent = false;
  Qt::FocusPolicy m_savedPolicy = Qt::NoFocus;
};

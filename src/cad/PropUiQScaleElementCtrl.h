#pragma once

#include "PropUiQDoubleCtrl.h"

/**
 * One number of a 2D scale. While the scale is locked (uniform), an edit of
 * either number writes the whole scale with both numbers equal; unlocked, it
 * writes its own element like any line edit.
 */
class PROPWIDGETS_EXPORT PropUiQScaleElementCtrl : public PropUiQDoubleCtrl
{
  Q_OBJECT

public:
  explicit PropUiQScaleElementCtrl(QWidget* parent = nullptr);

  bool applyData() override;

  bool isNonUniform() const { return m_nonUniform; }
  void setNonUniform(bool nonUniform) { m_nonUniform = nonUniform; }

Q_SIGNALS:
  /** Both numbers were written: the other element shows a stale number until it is read again. */
  void uniformWritten();

private:
  bool m_nonUniform = false;
};

#pragma once

#include "PropWidgetsExport.h"
#include "QHostSpinBox.h"

/** The integer control's spin box: it can show "*varies*" in place of a number. */
class PROPWIDGETS_EXPORT PropQSpinBox : public host_qt_ui_core::QHostSpinBox
{
  Q_OBJECT

public:
  explicit PropQSpinBox(QWidget* parent = nullptr);

  bool isVaries() const { return m_varies; }
  /** Only the flag: the caller re-renders the text. */
  void setVariesFlag(bool varies) { m_varies = varies; }

protected:
  void focusOutEvent(QFocusEvent* event) override;
  QValidator::State validate(QString& input, int& pos) const override;
  int valueFromText(const QString& text) const override;
  QString textFromValue(int value) const override;

private:
  bool m_varies = false;
};

#pragma once

#include "PropWidgetsExport.h"
#include "QHostSpinBox.h"

/**
 * The integer control's spin box: it can show "*varies*" in place of a
 * number, dimmed as the theme dims placeholders. What is typed stays as
 * typed until the edit ends, so the control can read arithmetic and say why
 * it does not take a text.
 */
class PROPWIDGETS_EXPORT PropQSpinBox : public host_qt_ui_core::QHostSpinBox
{
  Q_OBJECT

public:
  explicit PropQSpinBox(QWidget* parent = nullptr);

  bool isVaries() const { return m_varies; }
  /** Only the flag and its colour: the caller re-renders the text. */
  void setVariesFlag(bool varies);

  /** The value is being changed by a step (arrows, Page keys, wheel), not by typing. */
  bool isStepping() const { return m_stepping; }

  void stepBy(int steps) override;

protected:
  void focusOutEvent(QFocusEvent* event) override;
  QValidator::State validate(QString& input, int& pos) const override;
  int valueFromText(const QString& text) const override;
  QString textFromValue(int value) const override;

  void changeEvent(QEvent* event) override;

private:
  void applyVariesLook();

  bool m_varies = false;
  bool m_stepping = false;
};

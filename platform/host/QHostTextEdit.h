#pragma once

#include "QHostLineEdit.h"

namespace host_qt_ui
{

/** The host's editor for free text: a single line with a few text options. */
class HOST_EXPORT QHostTextEdit : public host_qt_ui_core::QHostLineEdit
{
  Q_OBJECT

public:
  enum TextOption
  {
    /** A double click selects the whole text. */
    SelectOnDoubleClick = 0x1,
    /** Pasted line breaks and tabs become single spaces. */
    FlattenPastedLines = 0x2
  };

  explicit QHostTextEdit(QWidget* parent = nullptr);

  /** Callers may pass a whole option word; bits other than the text options are ignored. */
  void setTextOptions(int options);
  int textOptions() const { return m_textOptions; }

  /** Text as it would be inserted by a paste. */
  static QString flattened(const QString& text);

protected:
  void keyPressEvent(QKeyEvent* event) override;

private:
  int m_textOptions = 0;
};

} // namespace host_qt_ui

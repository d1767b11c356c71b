#pragma once

#include "PropWidgetsExport.h"
#include <QDateEdit>

/**
 * The date control's editor: it can show "*varies*", dimmed as the theme
 * dims placeholders, and then takes no typing. Typing replaces the whole
 * date: it may be typed in the locale's short form or as yyyy-MM-dd, and is
 * read when the edit ends (Enter or leaving the field). The wheel is left
 * to the panel around it.
 */
class PROPWIDGETS_EXPORT PropQDateEdit : public QDateEdit
{
  Q_OBJECT

public:
  explicit PropQDateEdit(QWidget* parent = nullptr);

  bool isVaries() const { return m_varies; }
  /** Only the flag and its colour: the caller re-renders the text. */
  void setVariesFlag(bool varies);

  /** While varying nothing typed is valid: a date comes only from the popup. */
  QValidator::State validate(QString& input, int& pos) const override;

  /** The date a typed text means, in any of the forms taken; invalid when it means none. */
  QDate dateFromTyped(const QString& text) const;
  /** The user is typing a date that has not been read yet. */
  bool isTyping() const { return m_typing; }

Q_SIGNALS:
  /** A typed text that is no possible date was dropped as the edit ended. */
  void typedDateRefused(const QString& text);
  /** The focus came back from a popup: the calendar, or the edit's menu. */
  void returnedFromPopup();

protected:
  void focusOutEvent(QFocusEvent* event) override;
  QDateTime dateTimeFromText(const QString& text) const override;
  QString textFromDateTime(const QDateTime& dateTime) const override;

  void focusInEvent(QFocusEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void changeEvent(QEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

private:
  /** Reads what was typed: takes the date, or reports the text and shows the date again. */
  void finishTyping();
  void applyVariesLook();

  bool m_varies = false;
  bool m_typing = false;
};

#pragma once

#include "PropWidgetsExport.h"
#include <QDateEdit>

/** The date control's editor: it can show "*varies*", and then takes no typing. */
class PROPWIDGETS_EXPORT PropQDateEdit : public QDateEdit
{
  Q_OBJECT

public:
  explicit PropQDateEdit(QWidget* parent = nullptr);

  bool isVaries() const { return m_varies; }
  /** Only the flag: the caller re-renders the text. */
  void setVariesFlag(bool varies) { m_varies = varies; }

  /** While varying nothing typed is valid: a date comes only from the popup. */
  QValidator::State validate(QString& input, int& pos) const override;

protected:
  void focusOutEvent(QFocusEvent* event) override;
  QDateTime dateTimeFromText(const QString& text) const override;
  QString textFromDateTime(const QDateTime& dateTime) const override;

private:
  bool m_varies = false;
};

#pragma once

#include "PropUiQControl.h"
#include <QPointer>

#include <QLineEdit>

/**
 * A single-line editor of one item. The bag formats and parses the text, so
 * units, precision and expressions follow the host; the control keeps the
 * last text it showed and puts it back whenever an edit is refused.
 */
class PROPWIDGETS_EXPORT PropUiQLineEdit : public PropUiQControl
{
  Q_OBJECT

public:
  /** Option bit: the unfocused text is elided and the description is the tool tip. */
  static constexpr int kElided = 0x10000;

  explicit PropUiQLineEdit(QWidget* parent = nullptr);

  bool setupUi() override;
  void updateUi() override;
  void updateData() override;
  bool isVaries() const override;
  void setVaries(bool varies) override;

  /** Parses, validates and writes the edited text; false when nothing was written. */
  virtual bool applyData();
  virtual void onEditingFinished();

  QLineEdit* lineEdit() const { return m_edit; }
  QString lastText() const { return m_lastText; }

protected:
  /** Builds the control around the given edit (which it takes over). */
  bool setupWithEdit(QLineEdit* edit);
  bool eventFilter(QObject* watched, QEvent* event) override;

  QString m_lastText;
  QPointer<QLineEdit> m_edit;

private:
  void restoreLastText();
  void commitWithEnter();
};

#pragma once

#include "PropUiQControl.h"
#include <QLineEdit>
#include <QPointer>
#include <functional>

/**
 * A single-line editor of one item. The bag formats and parses the text, so
 * units, precision and expressions follow the host; the control keeps the
 * last text it showed and puts it back whenever an edit is refused.
 */
class PROPWIDGETS_EXPORT PropUiQLineEdit : public PropUiQControl
{
  Q_OBJECT

public:
  explicit PropUiQLineEdit(QWidget* parent = nullptr);

  bool setupUi() override;
  void updateUi() override;
  void updateData() override;
  bool isVaries() const override;
  void setVaries(bool varies) override;

  /** Parses, validates and writes the edited text; false when nothing was written. */
  virtual bool applyData();

public Q_SLOTS:
  virtual void onEditingFinished();

public:
  QLineEdit* lineEdit() const { return m_edit; }
  QString lastText() const { return m_lastText; }

protected:
  /** Sets the control up around the edit that makeEdit builds as a child of the control. */
  bool setupWithEdit(const std::function<QLineEdit*(QWidget*)>& makeEdit);

  /**
   * Reads the edit's text as the bag takes it: a number field reads arithmetic
   * too (evaluated tells), and says why when it cannot read the text.
   */
  bool readTypedValue(PropVariant& value, bool& evaluated);
  /** After a refused edit: a number field keeps what was typed for the user at it to correct; otherwise the confirmed text is back. */
  void refuseEdit();
  /** After a written edit: what the field shows becomes the confirmed text; arithmetic gives way to its value. */
  void confirmEdit(const PropVariant& written, bool evaluated);

  QString m_lastText;
  QPointer<QLineEdit> m_edit;

private:
  void restoreLastText();
  void commitWithEnter();

  /** The last commit was refused: the focus stays after Return, so the user can put the value right. */
  bool m_refused = false;
};

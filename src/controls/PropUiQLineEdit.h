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

  QString m_lastText;
  QPointer<QLineEdit> m_edit;

private:
  void restoreLastText();
  void commitWithEnter();

  /** The last Return was refused: the focus stays, so the user can put the value right. */
  bool m_refused = false;
};

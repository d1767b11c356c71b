#pragma once

#include "DataHelper.h"
#include "PropUiQComboBox.h"

/**
 * The combo form of a value item: choose one of the listed values or, when
 * the item allows it, type a value of your own, which the bag parses like a
 * line edit's text.
 */
class PROPWIDGETS_EXPORT PropUiQTextComboCtrl : public PropUiQComboBox
{
  Q_OBJECT

public:
  explicit PropUiQTextComboCtrl(QWidget* parent = nullptr);

  bool setupUi() override;
  void updateData() override;
  void addItems() override;

public Q_SLOTS:
  void onActivated(int index) override;
  void onEditingFinished() override;

public:
  /** Parses, validates and writes a typed text that is not one of the entries. */
  virtual bool applyData();

  const DataHelper& committed() const { return m_committed; }
  /** After a refused choice the control takes no more choices or typed values, until it is made anew. */
  bool isInert() const { return m_inert; }

private:
  /** Leaves the varies look; true when it was shown. */
  bool leaveVaries();
  /** Shows the committed state again, or the varies look when that is what was shown. */
  void restoreCommitted(bool wasVaries);
  void commitWithEnter();
  bool acceptable() const;
  bool readTyped(const QString& text, PropVariant& value);

  DataHelper m_committed;
  bool m_inert = false;
};

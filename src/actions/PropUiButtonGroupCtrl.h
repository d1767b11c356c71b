#pragma once

#include "PropUiQControl.h"
#include <QPointer>
#include <map>

class QAbstractButton;
#include <QButtonGroup>
class QHBoxLayout;

/**
 * An enumerated item as a row of mutually exclusive buttons, one per entry
 * of the bag's list. The current entry is found by its display text.
 */
class PROPWIDGETS_EXPORT PropUiButtonGroupCtrl : public PropUiQControl
{
  Q_OBJECT

public:
  explicit PropUiButtonGroupCtrl(QWidget* parent = nullptr);

  bool setupUi() override;
  void updateUi() override;
  void updateData() override;

  /** Marks the button of the current value. */
  virtual void setCurrentBtn(QAbstractButton* button);

public Q_SLOTS:
  virtual void onButtonClicked(QAbstractButton* button) = 0;

public:
  /** A new button whose parent is the control. */
  virtual QAbstractButton* createBtn() = 0;
  /** Shows the entry on the button, unchecked, and remembers its key. */
  virtual void updateBtn(QAbstractButton* button, const OdString& text, unsigned long key) = 0;
  /** Forgets the button's key. */
  virtual void removeBtn(QAbstractButton* button) = 0;

  QButtonGroup* buttonGroup() const { return m_buttonGroup; }

protected:
  QHBoxLayout* buttonsLayout() const;
  /** Unchecks a button even while it is the exclusive group's checked one. */
  void uncheck(QAbstractButton* button);
  /** Shows an entry on a tool or push button: caption (unless icons only), tool tip, picture, key. */
  void showEntry(QAbstractButton* button, const OdString& text, unsigned long key);
  /** The button that reads as the item's value; null while the value varies or matches none. */
  QAbstractButton* currentButton(const QList<QAbstractButton*>& buttons) const;
  /** Writes the value of the clicked button's entry. */
  void commitButton(QAbstractButton* button);
  /** After a refused click: while the item's values still differ, no button is checked. */
  void restoreVariesLook();

  QPointer<QButtonGroup> m_buttonGroup;
  std::map<QAbstractButton*, unsigned long> m_buttonKeys;
  /** During a refresh, the checked button that uncheck leaves alone until the current one is known. */
  QAbstractButton* m_refreshKeeps = nullptr;
};

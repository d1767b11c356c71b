#pragma once

#include "PropUiQControl.h"
#include "PropVariant.h"
#include "QHostComboBox.h"
#include <QPointer>
#include <functional>

/**
 * A choice item: the bag lists the values, the formatter gives their texts
 * and pictures, and choosing an entry writes the value behind it. A current
 * value that is not in the list shows as a temporary entry, which carries no
 * key, until the next commit or read.
 */
class PROPWIDGETS_EXPORT PropUiQComboBox : public PropUiQControl
{
  Q_OBJECT

public:
  explicit PropUiQComboBox(QWidget* parent = nullptr);

  bool setupUi() override;
  void updateUi() override;
  void updateData() override;
  bool isVaries() const override;
  void setVaries(bool varies) override;

  /** Appends an entry per listed value: text, picture and the value's key as user data. */
  virtual void addItems();
  /** Appends an entry without a key that shows the value; its index, or -1. */
  virtual int addTempItem(const PropVariant& value);
  /** Removes the entry only when it is a temporary one. */
  virtual bool removeTempItem(int index);

public Q_SLOTS:
  virtual void onActivated(int index);
  virtual void onEditingFinished();

public:
  host_qt_ui_core::QHostComboBox* comboBox() const { return m_combo; }
  int lastCommittedIndex() const { return m_lastIndex; }

protected:
  /** Takes the entry at the last committed index out if it is temporary and no longer shown. */
  void dropStaleTempItem();
  /**
   * Builds the row: the combo, filled, then the item's actions toolbar.
   * Typing follows the item's flags and number kind only when `typed`;
   * `prepare` adjusts the combo before its entries go in.
   */
  void buildComboRow(bool typed, int stretch, const std::function<void()>& prepare = {});
  /**
   * Shows again what was there before a choice the bag did not take: the
   * varies look when the selection varied, else the last committed entry.
   */
  void revertChoice(bool wasVaries);

  int m_lastIndex = -1;
  QPointer<host_qt_ui_core::QHostComboBox> m_combo;
};

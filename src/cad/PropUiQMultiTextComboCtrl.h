#pragma once

#include "PropUiQControl.h"
#include "PropVariant.h"
#include <QComboBox>
#include <QPointer>
#include <QVector>

class QStandardItemModel;

/**
 * Several entries of an item's list chosen at once (the object snaps in
 * force, the layers to plot). The popup lists the bag's entries with a
 * check box each; the closed combo shows the chosen names joined by ", "
 * (elided to fit), or "*varies*". What was ticked is validated and written
 * when the popup closes; a refusal puts the previous choice back.
 *
 * Two forms of value are understood: an integer is a set of flags, and an
 * entry is chosen when all its bits are set (a change writes the or of the
 * chosen entries' values); an array is a list of chosen entries' values (a
 * change writes the chosen values, in the list's order, as an array of the
 * same kind).
 */
class PROPWIDGETS_EXPORT PropUiQMultiTextComboCtrl : public PropUiQControl
{
  Q_OBJECT

public:
  explicit PropUiQMultiTextComboCtrl(QWidget* parent = nullptr);
  ~PropUiQMultiTextComboCtrl() override;

  bool setupUi() override;
  void updateUi() override;
  void updateData() override;
  bool isVaries() const override;
  void setVaries(bool varies) override;

  /** Validates and writes what is ticked; false when nothing was written. */
  virtual bool applyData();

public Q_SLOTS:
  virtual void onPopupClosed();

public:
  QComboBox* comboBox() const { return m_combo; }
  /** The text the closed combo shows, before eliding. */
  QString summary() const;
  /** Ticks or clears the entry at row, as a click in the popup does. */
  void setChosen(int row, bool chosen);
  bool isChosen(int row) const;

private:
  void readEntries();
  void showChosen(const QVector<bool>& chosen);
  QVector<bool> ticked() const;
  bool makeValue(const QVector<bool>& chosen, PropVariant& value) const;
  QStandardItemModel* entries() const;

  QPointer<QComboBox> m_combo;
  /** The value behind each entry, in the list's order. */
  QVector<PropVariant> m_values;
  QStringList m_names;
  /** The item's value as last read, whose kind a write keeps. */
  PropVariant m_lastValue;
  /** The choice as last read or written: what a refusal puts back. */
  QVector<bool> m_chosen;
  bool m_varies = false;
};

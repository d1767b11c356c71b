#pragma once

#include "PropUiQAngleCtrl.h"
#include "PropUiQControl.h"
#include "PropUiQDistanceCtrl.h"
#include "PropUiQDoubleCtrl.h"
#include "PropUiQIntegerCtrl.h"
#include "PropUiQTextCtrl.h"
#include <QPointer>
#include <QVector>
#include <functional>

namespace host_qt_ui_core
{
class QHostSpinBox;
}

/**
 * The body of the multi-line edits, common to every row type: one captioned
 * row per element of a composite item and, for an item with groups of
 * elements, a group selector above the rows.
 */
class PROPWIDGETS_EXPORT PropUiQMLineEditBase : public PropUiQControl
{
  Q_OBJECT

public:
  bool setupUi() override;
  void updateUi() override;
  void updateData() override;
  bool eventFilter(QObject* watched, QEvent* event) override;

public Q_SLOTS:
  /** Shows the group the selector names: row i edits element (group - 1) * rows + i. */
  virtual void onGroupChanged();

public:
  host_qt_ui_core::QHostSpinBox* groupSpinBox() const { return m_groupSpinBox; }
  int rowCount() const { return m_rows.size(); }
  PropUiQControl* rowAt(int i) const { return m_rows.value(i); }

protected:
  typedef std::function<PropUiQControl*(QWidget*)> RowFactory;
  PropUiQMLineEditBase(QWidget* parent, RowFactory makeRow);

private:
  unsigned long firstElementOfGroup() const;

  int m_reserved = 0;
  QPointer<host_qt_ui_core::QHostSpinBox> m_groupSpinBox;
  QVector<PropUiQControl*> m_rows;
  RowFactory m_makeRow;
};

/** A composite item edited one element per row, each row a control of type T. */
template <class T>
class PropUiQMLineEdit : public PropUiQMLineEditBase
{
public:
  explicit PropUiQMLineEdit(QWidget* parent = nullptr)
    : PropUiQMLineEditBase(parent, [](QWidget* p) -> PropUiQControl* { return new T(p); })
  {
  }
  T* row(int i) const { return static_cast<T*>(rowAt(i)); }
};

extern template class PROPWIDGETS_EXPORT PropUiQMLineEdit<PropUiQDoubleCtrl>;
extern template class PROPWIDGETS_EXPORT PropUiQMLineEdit<PropUiQDistanceCtrl>;
extern template class PROPWIDGETS_EXPORT PropUiQMLineEdit<PropUiQAngleCtrl>;
extern template class PROPWIDGETS_EXPORT PropUiQMLineEdit<PropUiQIntegerCtrl>;
extern template class PROPWIDGETS_EXPORT PropUiQMLineEdit<PropUiQTextCtrl>;

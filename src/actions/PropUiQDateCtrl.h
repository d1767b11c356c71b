#pragma once

#include "PropQDateEdit.h"
#include "PropUiQControl.h"
#include <QDate>
#include <QPointer>

class PropUiEditCommitFilter;

/**
 * A date item, carried by the bag as a "dd.MM.yyyy" string, in a date edit
 * with a calendar popup. A date is written when the edit ends (Enter,
 * leaving the field) or the calendar closes on it, once.
 */
class PROPWIDGETS_EXPORT PropUiQDateCtrl : public PropUiQControl
{
  Q_OBJECT

public:
  explicit PropUiQDateCtrl(QWidget* parent = nullptr);

  bool setupUi() override;
  void updateUi() override;
  void updateData() override;
  bool isVaries() const override;
  void setVaries(bool varies) override;
  /** Escape and Enter handling, for a host that installs the control on its edit. */
  bool eventFilter(QObject* watched, QEvent* event) override;

  virtual bool applyData();

public Q_SLOTS:
  virtual void onDateChanged(const QDate& date);

public:
  PropQDateEdit* dateEdit() const { return m_dateEdit; }

  /** The property system's form of a date. */
  static QString dateFormat();

protected:
  QDate m_lastDate;
  QPointer<PropQDateEdit> m_dateEdit;

private Q_SLOTS:
  void onEditEnded();
  void onTypedDateRefused(const QString& text);

private:
  bool isPopupOpen() const;

  QPointer<PropUiEditCommitFilter> m_keys;
};

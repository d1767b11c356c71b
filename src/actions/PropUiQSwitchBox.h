#pragma once

#include "PropUiQControl.h"
#include "QHostCheckBox.h"
#include <QPointer>

/** A boolean item as an on/off switch. While the values differ the knob rests in the middle, greyed. */
class PROPWIDGETS_EXPORT PropUiQSwitchBox : public PropUiQControl
{
  Q_OBJECT

public:
  explicit PropUiQSwitchBox(QWidget* parent = nullptr);

  bool setupUi() override;
  void updateUi() override;
  void updateData() override;
  bool isVaries() const override;
  void setVaries(bool varies) override;

public Q_SLOTS:
  virtual void onClicked(bool checked);

public:
  host_qt_ui_core::QHostCheckBox* checkBox() const { return m_checkBox; }

protected:
  QPointer<host_qt_ui_core::QHostCheckBox> m_checkBox;
  bool m_lastChecked = false;
  bool m_varies = false;
};

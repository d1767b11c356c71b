#pragma once

#include "PropUiQControl.h"
#include "QHostCheckBox.h"
#include <QPointer>

/** A boolean item as a check box; a selection that disagrees shows partially checked. */
class PROPWIDGETS_EXPORT PropUiQCheckBox : public PropUiQControl
{
  Q_OBJECT

public:
  explicit PropUiQCheckBox(QWidget* parent = nullptr);

  bool setupUi() override;
  void updateUi() override;
  void updateData() override;
  bool isVaries() const override;
  void setVaries(bool varies) override;

public Q_SLOTS:
  /** Writes the state the user clicked, or falls back to the last confirmed one. */
  virtual void onClicked(bool checked);

public:
  host_qt_ui_core::QHostCheckBox* checkBox() const { return m_checkBox; }

protected:
  QPointer<host_qt_ui_core::QHostCheckBox> m_checkBox;
  Qt::CheckState m_lastState = Qt::Unchecked;
};

#pragma once

#include "PropQSpinBox.h"
#include "PropUiQControl.h"
#include <QPointer>

/**
 * A 32-bit integer in a spin box, within the bag's range. Typing writes when
 * editing finishes; stepping out of the varies state writes at once.
 */
class PROPWIDGETS_EXPORT PropUiQIntegerCtrl : public PropUiQControl
{
  Q_OBJECT

public:
  explicit PropUiQIntegerCtrl(QWidget* parent = nullptr);

  bool setupUi() override;
  void updateUi() override;
  void updateData() override;
  bool isVaries() const override;
  void setVaries(bool varies) override;
  /** Refuses, with a message naming the range, a typed number out of range when the edit ends. */
  bool eventFilter(QObject* watched, QEvent* event) override;

  /** Validates and writes the spin box's value; false when unbound or unchanged. */
  virtual bool applyData();

public Q_SLOTS:
  virtual void onSpinBoxValueChanged(int value);
  virtual void onEditingFinished();

public:
  PropQSpinBox* spinBox() const { return m_spinBox; }

protected:
  /** The value the bag last confirmed. */
  int m_lastValue = 0;
  QPointer<PropQSpinBox> m_spinBox;

private:
  /**
   * Puts the number the typed text stands for into the spin box, before the
   * spin box finishes the edit. False when the text stands for no whole
   * number in range: the user is told, and unless keepRefused the confirmed
   * value is put back.
   */
  bool takeTypedText(bool keepRefused);
};

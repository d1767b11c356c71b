#pragma once

#include "PropQSliderBox.h"
#include "PropUiQControl.h"
#include <QPointer>

/**
 * A 32-bit integer on a theme-coloured slider. It writes when the handle is
 * released, never while dragging, and when the keys that moved it are let
 * go. When the values vary it shows "*varies*" in place of a number.
 */
class PROPWIDGETS_EXPORT PropUiQSliderCtrl : public PropUiQControl
{
  Q_OBJECT

public:
  explicit PropUiQSliderCtrl(QWidget* parent = nullptr);

  bool setupUi() override;
  void updateUi() override;
  void updateData() override;
  bool isVaries() const override;
  void setVaries(bool varies) override;

  PropQSliderBox* slider() const { return m_slider; }

protected:
  /** The value the bag last confirmed. */
  int m_lastValue = 0;
  QPointer<PropQSliderBox> m_slider;

private Q_SLOTS:
  void onSliderReleased();

private:
  void setBoundedRange(int min, int max);
};

#pragma once

#include "PropQSliderBox.h"
#include "PropUiQControl.h"
#include <QPointer>

/**
 * A 32-bit integer on a theme-coloured slider. It writes when the handle is
 * released, never while dragging; it shows no varies state.
 */
class PROPWIDGETS_EXPORT PropUiQSliderCtrl : public PropUiQControl
{
  Q_OBJECT

public:
  explicit PropUiQSliderCtrl(QWidget* parent = nullptr);

  bool setupUi() override;
  void updateUi() override;
  void updateData() override;

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

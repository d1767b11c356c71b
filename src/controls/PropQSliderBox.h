#pragma once

#include "PropWidgetsExport.h"
#include <QSlider>

/**
 * A flat slider that prints its value on itself. Only the handle can be
 * dragged: a click on the groove goes to the parent and never pages.
 */
class PROPWIDGETS_EXPORT PropQSliderBox : public QSlider
{
  Q_OBJECT

public:
  explicit PropQSliderBox(QWidget* parent = nullptr);

protected:
  void mousePressEvent(QMouseEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
};

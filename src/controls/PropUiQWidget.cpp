#include "PropUiQWidget.h"

PropUiQWidget::PropUiQWidget(QWidget* parent) : QWidget(parent) {}

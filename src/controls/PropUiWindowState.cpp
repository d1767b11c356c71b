#include "PropUiWindowState_p.h"

#include <QWidget>

namespace propui
{

bool isWindowGoingAway(const QWidget* widget)
{
  const QWidget* window = widget ? widget->window() : nullptr;
  // Hidden already asked for, but still shown: between setVisible(false) and its end.
  return window && window->testAttribute(Qt::WA_WState_Hidden) && window->testAttribute(Qt::WA_WState_Visible);
}

} // namespace propui

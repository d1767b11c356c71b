#pragma once

#include <QIcon>

/** The pictures of the sample bag's commands, drawn for 1x and 2x screens. */
namespace DemoIcons
{

QIcon zoomTo();
QIcon selectSimilar();
QIcon isolate();
QIcon matchProperties();
QIcon resetAll();
QIcon resetToOne();

} // namespace DemoIcons

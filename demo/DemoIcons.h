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
/** A letter on a coloured tile: a choice among named styles. */
QIcon letter(const QString& letter, const QColor& color);
/** A dot in one of the nine cells of a square, 0 to 8 row by row: a justification. */
QIcon cell(int index);

} // namespace DemoIcons

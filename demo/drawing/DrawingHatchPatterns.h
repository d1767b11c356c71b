#pragma once

#include "DrawingEntity.h"
#include <QString>
#include <QStringList>
#include <vector>

/** The names of the hatch patterns a person can pick, SOLID first. */
QStringList hatchPatternNames();

/**
 * The line families of the pattern @p name (case does not matter) as a hatch
 * record carries them: at @p scale and turned by @p angleDegrees, with the
 * offset from one line to the next in drawing units along the drawing's axes.
 * Empty for SOLID and for a name the table does not know. Lengths are in
 * millimetres at scale 1 (the ANSI patterns' 1/8 inch is 3.175).
 */
std::vector<DrawingHatchLine> hatchPatternLines(const QString& name, double scale, double angleDegrees);

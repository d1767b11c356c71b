#pragma once

#include "DrawingEntity.h"
#include <QPainterPath>
#include <vector>

/** The loops of a hatch as one outline in drawing coordinates; what it encloses by the odd-even rule is hatched. */
QPainterPath hatchLoopsPath(const std::vector<DrawingHatchLoop>& loops);

/**
 * Adds to @p lines the pattern lines of @p families (drawing units) inside
 * @p loops, cut into their dashes. Returns false, adding nothing, when that
 * takes more than @p maxPieces lines or dashes: a pattern far too fine for
 * its area, which would cost more than it shows.
 */
bool addHatchPatternLines(QPainterPath& lines, const QPainterPath& loops, const std::vector<DrawingHatchLine>& families,
                          int maxPieces);

#pragma once

#include <QPainterPath>
#include <vector>

/**
 * @p outline cut into the dashes of @p pattern (dashes positive, gaps
 * negative, 0 a dot), in the outline's units. The dashes of a curve are
 * pieces of that curve, so that a dashed circle stays a circle at any zoom.
 * Each subpath starts the pattern afresh. When the pattern would make more
 * than @p maxDashes pieces, or has no length, the outline is returned whole.
 */
QPainterPath dashedPath(const QPainterPath& outline, const std::vector<double>& pattern, double maxDashes);

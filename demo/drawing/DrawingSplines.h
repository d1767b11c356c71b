#pragma once

#include <QPainterPath>

struct DrawingEntity;

/**
 * The curve of the spline @p e (kind Spline) in drawing coordinates: the
 * rational B-spline of its control points, knots and weights, finely sampled;
 * through its fit points when it has no control points. Knots or weights that
 * do not fit the control points are replaced by clamped uniform knots and
 * weights of 1. Empty when there is nothing to draw.
 */
QPainterPath splinePath(const DrawingEntity& e);

#pragma once

#include "DrawingEntity.h"
#include <QPainterPath>
#include <QPolygonF>
#include <vector>

/** Adds an arc of the drawing (Y up, counter-clockwise positive), a line to its start unless @p moveFirst. */
void addDrawingArc(QPainterPath& path, const QPointF& centre, double radius, double startDegrees, double sweepDegrees,
                   bool moveFirst);

/** Adds the segment from the path's current point @p from to @p to, an arc when @p bulge is not 0. */
void addBulgeSegment(QPainterPath& path, const QPointF& from, const QPointF& to, double bulge);

/** Adds vertices joined by segments with a bulge each (0 when missing), back to the first when @p closed. */
void addBulgedPolyline(QPainterPath& path, const std::vector<DrawingPoint>& points, const std::vector<double>& bulges,
                       bool closed);

/** The ellipse or elliptical arc @p e (kind Ellipse) in drawing coordinates; empty when its axes are not. */
QPainterPath ellipsePath(const DrawingEntity& e);

/**
 * @p path as polygons that stay close to its curves at any size: Qt flattens
 * curves to within a fixed distance in the path's units, which leaves a
 * circle of radius 1 a diamond.
 */
QList<QPolygonF> smoothPolygons(const QPainterPath& path);

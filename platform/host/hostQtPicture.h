#pragma once

#include "HostExport.h"
#include <QColor>
#include <QIcon>
#include <QPainter>
#include <functional>

/**
 * A picture drawn by code, as an icon holding it at device pixel ratio 1 and
 * 2, so that it stays sharp on a high-density screen. The painter draws in
 * logical pixels inside the rectangle it is given.
 */
HOST_EXPORT QIcon hostQtPicture(const QSize& size, const std::function<void(QPainter&, const QRectF&)>& draw);

/** The colour line pictures are drawn with: the theme's text colour, readable on the theme's base. */
HOST_EXPORT QColor hostQtPictureInk();

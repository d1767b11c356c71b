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

/**
 * The picture hostQtPicture would paint, painted only the first time this
 * key, size and ink are asked for. The key names everything else the
 * drawing depends on; both device pixel ratios are in every picture, so the
 * ratio is no part of it. Few pictures are kept: the oldest go when many
 * true colours or dash patterns come and go.
 */
HOST_EXPORT QIcon hostQtKeptPicture(const QByteArray& key, const QSize& size, const QColor& ink,
                                    const std::function<void(QPainter&, const QRectF&)>& draw);

/** The colour line pictures are drawn with: the theme's text colour, readable on the theme's base. */
HOST_EXPORT QColor hostQtPictureInk();

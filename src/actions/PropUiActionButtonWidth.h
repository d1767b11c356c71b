#pragma once

#include <QString>

class QAbstractButton;

namespace propui
{

/** The side of an action button that shows only a picture. */
const int kActionButtonSize = 15;

/**
 * Fixes an action button's width to its caption, with room for a picture
 * pictureWidth wide beside it and at least minimumWidth; without a caption,
 * to kActionButtonSize. Every refresh asks, and measuring the caption was
 * most of a refresh: it is measured again only when the caption, the font or
 * the picture changed.
 */
void fitActionButtonWidth(QAbstractButton* button, const QString& caption, int pictureWidth, int minimumWidth);

} // namespace propui

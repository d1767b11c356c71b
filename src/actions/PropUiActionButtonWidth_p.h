#pragma once

#include <QString>

class QIcon;

class QAbstractButton;

namespace propui
{

/** The side of an action button that shows only a picture. */
const int kActionButtonSize = 15;

/**
 * Fixes an action button's width to what it shows: to its caption, when a
 * tool button shows it as text or a push button has one, with room for a
 * push button's picture beside it; otherwise to kActionButtonSize. Measuring
 * a caption is the dearest part of a refresh: callers ask only when the
 * caption, the picture, the font or the style changed.
 */
void fitActionButtonWidth(QAbstractButton* button);

/**
 * The picture of an action that brings none of its own, in the current
 * theme. Every refresh of such an action asks for it.
 */
const QIcon& stockActionPicture();

} // namespace propui

#pragma once

#include "HostExport.h"
#include "OdArray.h"
#include "OdCmColor.h"
#include <QColor>
#include <QIcon>
#include <QString>

// The host's colours: the user's custom colours, shared by every colour
// picker of the process, and how a colour looks and is called on screen.

/**
 * Remembers a colour the user picked. ByLayer, ByBlock and a colour already
 * remembered are not added again; the oldest goes when the list is full.
 */
HOST_EXPORT void hostAddCustomColor(const OdCmColor& color);
/** The remembered colours, oldest first. */
HOST_EXPORT void hostGetCustomColors(OdArray<OdCmColor>& colors);
HOST_EXPORT void hostClearCustomColors();
/** How many colours are remembered at most. */
constexpr int kHostMaxCustomColors = 16;

/** A swatch of the colour, w by h logical pixels, sharp at device pixel ratio 2. */
HOST_EXPORT QIcon hostQtGetColorIcon(const OdCmColor& color, int w, int h);
/** The colour on screen; ByLayer and ByBlock have none of their own and give an invalid QColor. */
HOST_EXPORT QColor hostQtColor(const OdCmColor& color);
/** "ByLayer", "Red", "Colour 30", "255,128,0", or a book colour's name. */
HOST_EXPORT QString hostQtColorName(const OdCmColor& color);

#pragma once

// How a drawing attribute's value looks wherever it is shown. A control's
// picker and a grid's cell take their texts and pictures from here, and
// ByLayer and the default lineweight are resolved through the bag's context
// here alone, so that a panel and a grid over one bag cannot disagree.
// Not API: a host sees the controls and the formatters.

#include "OdCmColor.h"
#include "OdDbLineWeight.h"
#include "OdDbObjectId.h"
#include <QIcon>
#include <QString>
#include <QVariant>

class OdDbLayerTableRecord;
class OdGUID;
class PropBag;
class PropVariant;

/** What an entry or a cell shows for a value: its text and its picture (null for none). */
struct PropUiDrawingLook
{
  /** The picture as a formatter hands it out: invalid for none. */
  QVariant icon() const { return picture.isNull() ? QVariant() : QVariant(picture); }

  QString text;
  QIcon picture;
};

namespace propui
{

/** Whether controls of the GUID are the colour, lineweight, linetype or layer pickers, whose values look as here. */
bool isDrawingAttribute(const OdGUID& guid);

/** The colour ByLayer is drawn with on the item: the layer's, when the bag's context resolves it, else none. */
OdCmColor byLayerColor(PropBag* bag, int item);
/** The width ByLayer is drawn with: the layer's (Default as it stands), when the context resolves it, else none. */
OdDb::LineWeight byLayerLineweight(PropBag* bag, int item);
/** The width Default is drawn with: the context's answer, else the drawing's default, else 0.25 mm. */
OdDb::LineWeight defaultLineweight(PropBag* bag, int item);
/** The linetype ByLayer is drawn with: the layer's, when the context resolves it, else the null id (a plain line). */
OdDbObjectId byLayerLinetype(PropBag* bag, int item);

/** A layer's entry: its colour as the viewport shows it, then whether it is on, frozen and locked. */
QIcon layerPicture(const OdDbLayerTableRecord& layer, const OdDbObjectId& viewport);

/**
 * The look of the item's value as its control shows it with its usual
 * options. A value the picker does not list shows the bag's text and no
 * picture; a value that is no colour shows as the default colour does.
 */
PropUiDrawingLook colorLook(PropBag* bag, int item, const PropVariant& value);
PropUiDrawingLook lineweightLook(PropBag* bag, int item, const PropVariant& value);
PropUiDrawingLook linetypeLook(PropBag* bag, int item, const PropVariant& value);
PropUiDrawingLook layerLook(PropBag* bag, int item, const PropVariant& value);

} // namespace propui

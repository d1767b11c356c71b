#pragma once

// How captions from the bag are shown on buttons and boxes; not API.

class OdString;
class PropBag;
class QAbstractButton;
class QString;

namespace propui
{

/** Shows the item's listed text on the box when the list holds exactly one entry. */
void showListedCaption(PropBag* bag, int index, QAbstractButton* box);

/**
 * Whether a widget already shows the bag's text. Compared in place: a refresh
 * mostly finds every entry as it was, and converting each one to compare it
 * would cost as much as showing it again.
 */
bool showsText(const QString& shown, const OdString& text);

} // namespace propui

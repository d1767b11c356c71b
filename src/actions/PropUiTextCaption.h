#pragma once

// The caption rule the text check box and the text switch share; not API.

class PropBag;
class QAbstractButton;

namespace propui
{

/** Shows the item's listed text on the box when the list holds exactly one entry. */
void showListedCaption(PropBag* bag, int index, QAbstractButton* box);

} // namespace propui

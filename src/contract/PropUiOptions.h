#pragma once

/**
 * The option word and the item flags, named.
 *
 * A host passes an option word to propUiCreateWidget/propUiCreateEditor. The
 * factory reads its own bits and hands the control the rest (or a fixed
 * word); the control reads its family's bits. Several families give the
 * same bit different meanings (0x10000 elides a line edit but left-aligns a
 * button row), because each control only ever reads its own.
 *
 * Item flags are what PropBag::getFlags answers for an item. A host may pass
 * an item's flags as the option word: the bag then chooses, item by item,
 * how its control looks, without the host keeping a second table.
 */
namespace PropUiOption
{

// Read by the built-in factories.
/** Value kinds: a combo over the item's listed values instead of the kind's own editor. */
constexpr int kTextCombo = 0x2;
/** The integer kind takes this bit, like kTextCombo, as a request for the combo. */
constexpr int kIntegerTextCombo = 0x4;
/** Line-edit kinds: one row per element of a composite item. */
constexpr int kMultiLine = 0x8;

// Read by every control.
/** The tool tip follows the item's description. Every factory keeps the caller's bit. */
constexpr int kToolTipFilter = 0x40;
/** The control's buttons take no focus (the actions toolbar beside an editor). */
constexpr int kNoFocusButtons = 0x1000000;

// Line edits, the integer control and the text combo.
/** The unfocused text is cut at the right with an ellipsis; the description is the tool tip. */
constexpr int kElided = 0x10000;

// Button rows (choices and actions) and switches.
/** The buttons sit at the left; the rest of the row is empty. */
constexpr int kAlignLeft = 0x10000;
/** The buttons sit at the right. */
constexpr int kAlignRight = 0x20000;
/** Push and tool buttons show only their pictures; the captions go to the tool tips. */
constexpr int kIconsOnly = 0x40000;

// The text control (handed on to its edit as text options).
/** A double click selects the whole text. */
constexpr int kSelectAllOnDoubleClick = 0x1;
/** Pasted line breaks become blanks. */
constexpr int kFlattenPastedLines = 0x2;

// The 3D coordinates.
/** Only X and Y are shown; the points are still stored as three numbers. */
constexpr int kTwoAxes = 0x1;

// The list control.
/** Each row has a check box mirroring a boolean the bag keeps per element. */
constexpr int kListCheckBoxes = 0x10000;
/** Rows show a pin that a click toggles; pinning is reported to the item's reactor. */
constexpr int kListPins = 0x20000;
/** An unpinned row shows its pin only under the mouse. */
constexpr int kListPinOnHover = 0x40000;
// Drawing-attribute controls. The whole word is also handed to the host's
// picker, whose own bits say which entries it lists.
/** Colour, lineweight, linetype: the ByLayer entry shows what ByLayer stands for on the edited item. */
constexpr int kResolveByLayer = 0x1;
/** Colour, lineweight, linetype: the picker lists ByBlock. */
constexpr int kByBlockEntry = 0x2;
/** Lineweight: the Default entry shows the width that Default stands for. */
constexpr int kResolveByDefault = 0x4;
/** Linetype: the picker's last entry ("Other...") opens its chooser and is no value to write. */
constexpr int kLinetypeChooserLast = 0x4;
/** Colour: the picker's last entry ("Select Colour...") opens its chooser and is no value to write. */
constexpr int kColorChooserLast = 0x8;
/** Arrowhead: the picker's last entry is "User Arrow...", a chooser of the drawing's blocks. */
constexpr int kArrowUserArrow = 0x1;
/** Arrowhead: the picker lists the drawing's own arrow blocks after the standard ones. */
constexpr int kArrowDrawingBlocks = 0x2;

// The words the drawing-attribute factories give their controls, whatever the caller asked.
constexpr int kColorDefaults = kResolveByLayer | kByBlockEntry | kColorChooserLast;
constexpr int kArrowheadDefaults = kArrowUserArrow | kArrowDrawingBlocks;
constexpr int kLinetypeDefaults = kResolveByLayer | kByBlockEntry | kLinetypeChooserLast;
constexpr int kLineweightDefaults = kResolveByLayer | kByBlockEntry | kResolveByDefault;

} // namespace PropUiOption

namespace PropItemFlag
{

/** The item offers actions: its control shows them in a toolbar beside the editor. */
constexpr unsigned int kHasActions = 0x1;
/** The item's value is one of its listed choices: a grid shows the choice's text and picture. */
constexpr unsigned int kChoice = 0x2;
/** A combo box over the item may be typed into, with completion. */
constexpr unsigned int kEditableList = 0x4;
/** The item's value is shown with the position of its element (a grid asks the formatter so). */
constexpr unsigned int kIndexed = 0x8;
/** A check box shows the item's caption as its own text. */
constexpr unsigned int kCaptionOnCheckBox = 0x10;

} // namespace PropItemFlag

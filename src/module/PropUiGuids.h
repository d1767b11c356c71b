#pragma once

#include "OdGUID.h"
#include "PropWidgetsExport.h"

// The editor kinds of the built-in controls. Items name their editor by one of
// these, and item types report them too (combo boxes pick validators by them).
extern PROPWIDGETS_EXPORT const OdGUID PropUiGuidEmpty;
extern PROPWIDGETS_EXPORT const OdGUID PropUiGuidActionToolButtons;
extern PROPWIDGETS_EXPORT const OdGUID PropUiGuidActionPushButtons;
extern PROPWIDGETS_EXPORT const OdGUID PropUiGuidLabel;
extern PROPWIDGETS_EXPORT const OdGUID PropUiGuidDouble;
extern PROPWIDGETS_EXPORT const OdGUID PropUiGuidDistance;
extern PROPWIDGETS_EXPORT const OdGUID PropUiGuidAngle;
extern PROPWIDGETS_EXPORT const OdGUID PropUiGuidDoubleAlt;
extern PROPWIDGETS_EXPORT const OdGUID PropUiGuidText;
extern PROPWIDGETS_EXPORT const OdGUID PropUiGuidInteger;
extern PROPWIDGETS_EXPORT const OdGUID PropUiGuidTextCombo;
extern PROPWIDGETS_EXPORT const OdGUID PropUiGuidLayer;
extern PROPWIDGETS_EXPORT const OdGUID PropUiGuidColor;
extern PROPWIDGETS_EXPORT const OdGUID PropUiGuidLinetype;
extern PROPWIDGETS_EXPORT const OdGUID PropUiGuidLineweight;
extern PROPWIDGETS_EXPORT const OdGUID PropUiGuidArrowhead;
extern PROPWIDGETS_EXPORT const OdGUID PropUiGuidCoords2d;
extern PROPWIDGETS_EXPORT const OdGUID PropUiGuidCoords2dAlt;
extern PROPWIDGETS_EXPORT const OdGUID PropUiGuidScale2d;
extern PROPWIDGETS_EXPORT const OdGUID PropUiGuidCoords3d;
extern PROPWIDGETS_EXPORT const OdGUID PropUiGuidCoords3dAlt;
extern PROPWIDGETS_EXPORT const OdGUID PropUiGuidBool;
extern PROPWIDGETS_EXPORT const OdGUID PropUiGuidBoolText;
extern PROPWIDGETS_EXPORT const OdGUID PropUiGuidSwitch;
extern PROPWIDGETS_EXPORT const OdGUID PropUiGuidTextSwitch;
extern PROPWIDGETS_EXPORT const OdGUID PropUiGuidVariant;
extern PROPWIDGETS_EXPORT const OdGUID PropUiGuidList;
extern PROPWIDGETS_EXPORT const OdGUID PropUiGuidTable;
extern PROPWIDGETS_EXPORT const OdGUID PropUiGuidPushButtons;
extern PROPWIDGETS_EXPORT const OdGUID PropUiGuidToolButtons;
extern PROPWIDGETS_EXPORT const OdGUID PropUiGuidRadioButtons;
extern PROPWIDGETS_EXPORT const OdGUID PropUiGuidButtons3x3;
extern PROPWIDGETS_EXPORT const OdGUID PropUiGuidSlider;
extern PROPWIDGETS_EXPORT const OdGUID PropUiGuidMultiTextCombo;
extern PROPWIDGETS_EXPORT const OdGUID PropUiGuidDate;

#include "PropUiBuiltinFactories_p.h"

#include "PropUiActionPushButtonsCtrl.h"
#include "PropUiActionToolButtonsCtrl.h"
#include "PropUiQArrowheadCtrl.h"
#include "PropUiQColorCtrl.h"
#include "PropUiQLayerCtrl.h"
#include "PropUiQLinetypeCtrl.h"
#include "PropUiQLineweightCtrl.h"
#include "PropUiFactories_p.h"
#include "PropUiGuids.h"
#include "PropUiQAngleCtrl.h"
#include "PropUiQButtons3x3Ctrl.h"
#include "PropUiQCheckBox.h"
#include "PropUiQCoords2d.h"
#include "PropUiQCoords3d.h"
#include "PropUiQControl.h"
#include "PropUiQDateCtrl.h"
#include "PropUiQDistanceCtrl.h"
#include "PropUiQDoubleCtrl.h"
#include "PropUiQIntegerCtrl.h"
#include "PropUiQLabel.h"
#include "PropUiQListCtrl.h"
#include "PropUiQMLineEdit.h"
#include "PropUiQMultiTextComboCtrl.h"
#include "PropUiQPushButtonsCtrl.h"
#include "PropUiQRadioButtonsCtrl.h"
#include "PropUiQScale2d.h"
#include "PropUiQSliderCtrl.h"
#include "PropUiQSwitchBox.h"
#include "PropUiQTableCtrl.h"
#include "PropUiQTextCheckBox.h"
#include "PropUiQTextComboCtrl.h"
#include "PropUiQTextCtrl.h"
#include "PropUiQTextSwitchBox.h"
#include "PropUiQToolButtonsCtrl.h"
#include "PropUiRegistry.h"

using namespace propui;

namespace
{

// The variant kind is never a combo.
typedef void NoTextCombo;
typedef PropUiQTextComboCtrl TextCombo;

typedef PlainFactory<PropUiQControl> PropUiEmptyControlFactory;
typedef PassOptionsFactory<PropUiActionToolButtonsCtrl> PropUiActionToolButtonsCtrlFactory;
typedef PassOptionsFactory<PropUiActionPushButtonsCtrl> PropUiActionPushButtonsCtrlFactory;
typedef PlainFactory<PropUiQLabel> PropUiQLabelCtrlFactory;
typedef LineEditFactory<PropUiQDoubleCtrl, PropUiQMLineEdit<PropUiQDoubleCtrl>, TextCombo, PropUiOption::kTextCombo> PropUiQDoubleCtrlFactory;
// An item view edits a composite coordinate one element at a time, as a distance.
typedef LineEditFactory<PropUiQDistanceCtrl, PropUiQMLineEdit<PropUiQDistanceCtrl>, TextCombo, PropUiOption::kTextCombo, PropUiQDistanceCtrl>
  PropUiQDistanceCtrlFactory;
typedef LineEditFactory<PropUiQAngleCtrl, PropUiQMLineEdit<PropUiQAngleCtrl>, TextCombo, PropUiOption::kTextCombo> PropUiQAngleCtrlFactory;
typedef LineEditFactory<PropUiQTextCtrl, PropUiQMLineEdit<PropUiQTextCtrl>, TextCombo, PropUiOption::kTextCombo> PropUiQTextCtrlFactory;
typedef LineEditFactory<PropUiQIntegerCtrl, PropUiQMLineEdit<PropUiQIntegerCtrl>, TextCombo, PropUiOption::kTextCombo | PropUiOption::kIntegerTextCombo> PropUiQIntegerCtrlFactory;
typedef PlainFactory<PropUiQTextComboCtrl> PropUiQTextComboCtrlFactory;
typedef PlainFactory<PropUiQLayerCtrl> PropUiQLayerCtrlFactory;
typedef FixedOptionsFactory<PropUiQColorCtrl, PropUiOption::kColorDefaults> PropUiQColorCtrlFactory;
typedef FixedOptionsFactory<PropUiQLinetypeCtrl, PropUiOption::kLinetypeDefaults> PropUiQLinetypeCtrlFactory;
typedef FixedOptionsFactory<PropUiQLineweightCtrl, PropUiOption::kLineweightDefaults> PropUiQLineweightCtrlFactory;
typedef FixedOptionsFactory<PropUiQArrowheadCtrl, PropUiOption::kArrowheadDefaults> PropUiQArrowheadCtrlFactory;
// In a cell, a point or a scale is edited one element at a time, as a distance.
typedef CellEditorFactory<PropUiQCoords2d, PropUiQDistanceCtrl> PropUiQCoords2dCtrlFactory;
typedef CellEditorFactory<PropUiQScale2d, PropUiQDistanceCtrl> PropUiQScale2dCtrlFactory;
typedef CellEditorFactory<PropUiQCoords3d, PropUiQDistanceCtrl> PropUiQCoords3dCtrlFactory;
typedef ChoiceFactory<PropUiQCheckBox, TextCombo, false> PropUiQBoolCtrlFactory;
typedef ChoiceFactory<PropUiQTextCheckBox, TextCombo, false> PropUiQBoolTextCtrlFactory;
typedef ChoiceFactory<PropUiQSwitchBox, TextCombo, true> PropUiQSwitchCtrlFactory;
typedef ChoiceFactory<PropUiQTextSwitchBox, TextCombo, true> PropUiQTextSwitchCtrlFactory;
typedef LineEditFactory<PropUiQTextCtrl, PropUiQMLineEdit<PropUiQTextCtrl>, NoTextCombo, 0, PropUiQTextCtrl> PropUiQVariantCtrlFactory;
typedef PassOptionsFactory<PropUiQListCtrl, true> PropUiQListCtrlFactory;
typedef PassOptionsFactory<PropUiQPushButtonsCtrl> PropUiQPushButtonsCtrlFactory;
typedef PassOptionsFactory<PropUiQToolButtonsCtrl> PropUiQToolButtonsCtrlFactory;
typedef PassOptionsFactory<PropUiQRadioButtonsCtrl> PropUiQRadioButtonsCtrlFactory;
// In an item view these are the same controls, built bare.
typedef PlainFactory<PropUiQButtons3x3Ctrl, true> PropUiQButtons3x3CtrlFactory;
typedef PlainFactory<PropUiQSliderCtrl, true> PropUiQSliderCtrlFactory;
typedef PlainFactory<PropUiQDateCtrl, true> PropUiQDateCtrlFactory;
typedef PlainFactory<PropUiQTableCtrl, true> PropUiQTableCtrlFactory;
typedef PlainFactory<PropUiQMultiTextComboCtrl, true> PropUiQMultiTextComboCtrlFactory;

} // namespace

void registerBuiltinFactories()
{
  propUiRegisterWidget(PropUiGuidEmpty, new PropUiEmptyControlFactory);
  propUiRegisterWidget(PropUiGuidActionToolButtons, new PropUiActionToolButtonsCtrlFactory);
  propUiRegisterWidget(PropUiGuidActionPushButtons, new PropUiActionPushButtonsCtrlFactory);
  propUiRegisterWidget(PropUiGuidLabel, new PropUiQLabelCtrlFactory);
  propUiRegisterWidget(PropUiGuidDouble, new PropUiQDoubleCtrlFactory);
  propUiRegisterWidget(PropUiGuidDistance, new PropUiQDistanceCtrlFactory);
  propUiRegisterWidget(PropUiGuidAngle, new PropUiQAngleCtrlFactory);
  propUiRegisterWidget(PropUiGuidDoubleAlt, new PropUiQDoubleCtrlFactory);
  propUiRegisterWidget(PropUiGuidText, new PropUiQTextCtrlFactory);
  propUiRegisterWidget(PropUiGuidInteger, new PropUiQIntegerCtrlFactory);
  propUiRegisterWidget(PropUiGuidTextCombo, new PropUiQTextComboCtrlFactory);
  propUiRegisterWidget(PropUiGuidLayer, new PropUiQLayerCtrlFactory);
  propUiRegisterWidget(PropUiGuidColor, new PropUiQColorCtrlFactory);
  propUiRegisterWidget(PropUiGuidLinetype, new PropUiQLinetypeCtrlFactory);
  propUiRegisterWidget(PropUiGuidLineweight, new PropUiQLineweightCtrlFactory);
  propUiRegisterWidget(PropUiGuidArrowhead, new PropUiQArrowheadCtrlFactory);
  propUiRegisterWidget(PropUiGuidCoords2d, new PropUiQCoords2dCtrlFactory);
  propUiRegisterWidget(PropUiGuidCoords2dAlt, new PropUiQCoords2dCtrlFactory);
  propUiRegisterWidget(PropUiGuidScale2d, new PropUiQScale2dCtrlFactory);
  propUiRegisterWidget(PropUiGuidCoords3d, new PropUiQCoords3dCtrlFactory);
  propUiRegisterWidget(PropUiGuidCoords3dAlt, new PropUiQCoords3dCtrlFactory);
  propUiRegisterWidget(PropUiGuidBool, new PropUiQBoolCtrlFactory);
  propUiRegisterWidget(PropUiGuidBoolText, new PropUiQBoolTextCtrlFactory);
  propUiRegisterWidget(PropUiGuidSwitch, new PropUiQSwitchCtrlFactory);
  propUiRegisterWidget(PropUiGuidTextSwitch, new PropUiQTextSwitchCtrlFactory);
  propUiRegisterWidget(PropUiGuidVariant, new PropUiQVariantCtrlFactory);
  propUiRegisterWidget(PropUiGuidList, new PropUiQListCtrlFactory);
  propUiRegisterWidget(PropUiGuidTable, new PropUiQTableCtrlFactory);
  propUiRegisterWidget(PropUiGuidPushButtons, new PropUiQPushButtonsCtrlFactory);
  propUiRegisterWidget(PropUiGuidToolButtons, new PropUiQToolButtonsCtrlFactory);
  propUiRegisterWidget(PropUiGuidRadioButtons, new PropUiQRadioButtonsCtrlFactory);
  propUiRegisterWidget(PropUiGuidButtons3x3, new PropUiQButtons3x3CtrlFactory);
  propUiRegisterWidget(PropUiGuidSlider, new PropUiQSliderCtrlFactory);
  propUiRegisterWidget(PropUiGuidMultiTextCombo, new PropUiQMultiTextComboCtrlFactory);
  propUiRegisterWidget(PropUiGuidDate, new PropUiQDateCtrlFactory);
}

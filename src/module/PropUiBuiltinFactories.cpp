#include "PropUiBuiltinFactories.h"

#include "PropUiActionPushButtonsCtrl.h"
#include "PropUiActionToolButtonsCtrl.h"
#include "PropUiFactories.h"
#include "PropUiGuids.h"
#include "PropUiQAngleCtrl.h"
#include "PropUiQControl.h"
#include "PropUiQDistanceCtrl.h"
#include "PropUiQDoubleCtrl.h"
#include "PropUiQIntegerCtrl.h"
#include "PropUiQLabel.h"
#include "PropUiQMLineEdit.h"
#include "PropUiQSliderCtrl.h"
#include "PropUiQTextCtrl.h"
#include "PropUiRegistry.h"

using namespace propui;

namespace
{

// The value kinds have no text-combo form yet: only their own and the multi-line controls.
typedef void NoTextCombo;

typedef PlainFactory<PropUiQControl> PropUiEmptyControlFactory;
typedef PassOptionsFactory<PropUiActionToolButtonsCtrl> PropUiActionToolButtonsCtrlFactory;
typedef PassOptionsFactory<PropUiActionPushButtonsCtrl> PropUiActionPushButtonsCtrlFactory;
typedef PlainFactory<PropUiQLabel> PropUiQLabelCtrlFactory;
typedef LineEditFactory<PropUiQDoubleCtrl, PropUiQMLineEdit<PropUiQDoubleCtrl>, NoTextCombo, 0x2> PropUiQDoubleCtrlFactory;
// An item view edits a composite coordinate one element at a time, as a distance.
typedef LineEditFactory<PropUiQDistanceCtrl, PropUiQMLineEdit<PropUiQDistanceCtrl>, NoTextCombo, 0x2, PropUiQDistanceCtrl>
  PropUiQDistanceCtrlFactory;
typedef LineEditFactory<PropUiQAngleCtrl, PropUiQMLineEdit<PropUiQAngleCtrl>, NoTextCombo, 0x2> PropUiQAngleCtrlFactory;
typedef LineEditFactory<PropUiQTextCtrl, PropUiQMLineEdit<PropUiQTextCtrl>, NoTextCombo, 0x2> PropUiQTextCtrlFactory;
typedef LineEditFactory<PropUiQIntegerCtrl, PropUiQMLineEdit<PropUiQIntegerCtrl>, NoTextCombo, 0x2 | 0x4> PropUiQIntegerCtrlFactory;
typedef LineEditFactory<PropUiQTextCtrl, PropUiQMLineEdit<PropUiQTextCtrl>, NoTextCombo, 0, PropUiQTextCtrl> PropUiQVariantCtrlFactory;
typedef PlainFactory<PropUiQSliderCtrl> PropUiQSliderCtrlFactory;

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
  propUiRegisterWidget(PropUiGuidVariant, new PropUiQVariantCtrlFactory);
  propUiRegisterWidget(PropUiGuidSlider, new PropUiQSliderCtrlFactory);
}

#include "PropUiBuiltinFactories.h"

#include "PropUiActionPushButtonsCtrl.h"
#include "PropUiActionToolButtonsCtrl.h"
#include "PropUiFactories.h"
#include "PropUiGuids.h"
#include "PropUiQControl.h"
#include "PropUiRegistry.h"

using namespace propui;

typedef PlainFactory<PropUiQControl> PropUiEmptyControlFactory;
typedef PassOptionsFactory<PropUiActionToolButtonsCtrl> PropUiActionToolButtonsCtrlFactory;
typedef PassOptionsFactory<PropUiActionPushButtonsCtrl> PropUiActionPushButtonsCtrlFactory;

void registerBuiltinFactories()
{
  propUiRegisterWidget(PropUiGuidEmpty, new PropUiEmptyControlFactory);
  propUiRegisterWidget(PropUiGuidActionToolButtons, new PropUiActionToolButtonsCtrlFactory);
  propUiRegisterWidget(PropUiGuidActionPushButtons, new PropUiActionPushButtonsCtrlFactory);
}

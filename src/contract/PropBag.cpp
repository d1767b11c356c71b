#include "PropBag.h"

#include "PropAction.h"
#include "PropIcon.h"

PropBag::~PropBag() = default;

bool PropBag::getBagName(OdString&) { return false; }
int PropBag::findItem(const OdString&) { return -1; }
PropItemType* PropBag::getItemType(int) { return nullptr; }
bool PropBag::isEditable(int, unsigned long) { return true; }
bool PropBag::isVisible(int) { return true; }
bool PropBag::getName(int, OdString&) { return false; }
bool PropBag::getCategory(int, OdString&) { return false; }
bool PropBag::getDescription(int, OdString&) { return false; }
unsigned int PropBag::getFlags(int) { return 0; }
OdGUID PropBag::getControlGuid(int) { return OdGUID(); }
bool PropBag::validate(int, unsigned long, const PropVariant&, OdString&) { return true; }
bool PropBag::getRange(int, unsigned long, PropVariant&, PropVariant&) { return false; }
bool PropBag::formatValue(int, unsigned long, const PropVariant&, OdString&) { return false; }
bool PropBag::parseValue(int, unsigned long, const OdString&, PropVariant&) { return false; }
unsigned int PropBag::getActions(int, unsigned long, PropActionArray& actions) { actions.clear(); return 0; }
bool PropBag::executeAction(int, PropAction*) { return false; }
bool PropBag::getValueList(int, OdStringArray&, PropKeyArray&) { return false; }
bool PropBag::getListValue(int, unsigned long, PropVariant&) { return false; }
bool PropBag::getIcon(int, unsigned long, OdSharedPtr<PropIcon>&) { return false; }
bool PropBag::getListText(int, const PropVariant&, OdString&) { return false; }
unsigned int PropBag::getElements(int, PropKeyArray&, OdStringArray&) { return 0; }
bool PropBag::getElementValue(int, unsigned long, PropVariant&) { return false; }
bool PropBag::setElementValue(int, unsigned long, const PropVariant&) { return false; }
int PropBag::getElementCount(int) { return -1; }
int PropBag::getGroupCount(int) { return 0; }
PropBagCtx* PropBag::getContext() { return nullptr; }
hostPropEditorReactor* PropBag::getReactor(int) { return nullptr; }

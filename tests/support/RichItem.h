#pragma once

#include "PropUiOptions.h"
#include "PropUiRegistry.h"
#include "RecordingBag.h"
#include "TestValues.h"

/**
 * Adds an item every kind can show: a number with a list of nine, three
 * elements, two groups and two actions.
 */
inline int addRichItem(RecordingBag& bag, const QString& caption, const QString& description = QString(),
                       bool varies = false)
{
  const int item = bag.addItem(caption, intValue(5, varies));
  RecordingBag::Item& it = bag.item(item);
  it.description = description;
  it.flags = PropItemFlag::kHasActions | PropItemFlag::kEditableList;
  for (int i = 0; i < 9; ++i)
  {
    it.listNames << QStringLiteral("Entry %1").arg(i);
    it.listKeys << unsigned(i);
    it.listValues[unsigned(i)] = intValue(i);
  }
  it.elements = {0, 1, 2};
  it.elementCaptions = QStringList{QStringLiteral("Front"), QStringLiteral("Middle"), QStringLiteral("Back")};
  for (unsigned long e = 0; e < 3; ++e)
    it.elementValues[e] = intValue(int(e) + 1, varies);
  it.groupCount = 2;
  it.actions = {OdSharedPtr<PropAction>(new TestAction(QStringLiteral("Reset"))),
                OdSharedPtr<PropAction>(new TestAction(QStringLiteral("Pick")))};
  return item;
}

/** A control of the registered kind, bound as a host binds it; null for a kind nobody registered. */
inline PropUiQWidget* boundKind(const OdGUID& guid, RecordingBag& bag, int item, int options = 0)
{
  PropUiQWidget* control = propUiCreateWidget(guid, PropUiOption::kToolTipFilter | options);
  if (!control)
    return nullptr;
  control->setPropBagItem(&bag, item);
  control->setupUi();
  control->updateUi();
  control->updateData();
  return control;
}

#pragma once

#include "PropUiQDefaultFormatter.h"

/**
 * A layer's name and picture as the layer control lists them: its colour in
 * the drawing's active viewport, whether it is on, frozen and locked. A layer
 * the drawing does not hold, or any layer without a drawing context, shows
 * the bag's text and no icon.
 */
class PROPWIDGETS_EXPORT PropUiQLayerFormatter : public PropUiQDefaultFormatter
{
  Q_OBJECT

public:
  explicit PropUiQLayerFormatter(QObject* parent);

  QString getText(int item, const PropVariant& value) override;
  QString getChoiceText(int item, const PropVariant& value, OdUInt64 sub) override;
  QVariant getIcon(int item, const PropVariant& value) override;
  QVariant getChoiceIcon(int item, const PropVariant& value, OdUInt64 sub) override;
  /** Each key is taken as a layer's handle. */
  QVariantList getValueListIcons(int item, const PropVariant& value, const OdStringArray& names,
                                 const OdUInt64Array& values) override;
};

#pragma once

#include "PropUiQDefaultFormatter.h"

/**
 * The bag's texts; the layer's colour, as the drawing's active viewport
 * shows it, as the icon. Without a drawing context, no icon.
 */
class PROPWIDGETS_EXPORT PropUiQLayerFormatter : public PropUiQDefaultFormatter
{
  Q_OBJECT

public:
  explicit PropUiQLayerFormatter(QObject* parent);

  QVariant getIcon(int item, const PropVariant& value) override;
  QVariant getChoiceIcon(int item, const PropVariant& value, OdUInt64 sub) override;
  /** Each key is taken as a layer's handle. */
  QVariantList getValueListIcons(int item, const PropVariant& value, const OdStringArray& names,
                                 const OdUInt64Array& values) override;
};

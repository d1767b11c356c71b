#pragma once

// Between Qt's values and the property system's; not part of the library's API.

#include "PropVariant.h"
#include "PropWidgetsExport_p.h"
#include <QVariant>

/**
 * Converts between QVariant and PropVariant by one table of kinds:
 *
 *   QVariant          PropVariant kind
 *   bool              kBool
 *   short             kInt16
 *   int               kInt32
 *   qlonglong         kInt64
 *   qulonglong        kUInt64
 *   double            kDouble
 *   QString           kString
 *
 * A list converts to the array of its entries' kind when every entry has
 * the same kind (a QStringList to a string array); an array converts to a
 * QVariantList (a string array to a QStringList). The platform keeps no
 * 16-bit array, so a list of shorts becomes a 32-bit array. Values that vary,
 * carry no data or have a kind outside the table have no Qt form.
 */
class PROPWIDGETS_TEST_EXPORT PropUiVariantConverter
{
public:
  /** The Qt form of the value; invalid when it has none. */
  static QVariant toQVariant(const PropVariant& value);
  /** False, leaving out alone, for a value outside the table or a list of mixed kinds. */
  static bool toPropVariant(const QVariant& value, PropVariant& out);
  /** The PropVariant kind of a Qt type, 0 when the table has none. */
  static unsigned int kindOf(int qtType);
};

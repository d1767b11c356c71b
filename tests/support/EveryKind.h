#pragma once

#include "PropUiGuids.h"
#include <QTest>

Q_DECLARE_METATYPE(OdGUID)

/**
 * One data row per editor kind the library names, for tests that must hold
 * for every control: a kind without a registered factory makes no control
 * and its row skips, so a control joins these tests by being registered.
 */
inline void addEveryKindRows()
{
  QTest::addColumn<OdGUID>("guid");
  const struct
  {
    const char* name;
    const OdGUID& guid;
  } kinds[] = {
    {"empty", PropUiGuidEmpty},         {"action tool buttons", PropUiGuidActionToolButtons},
    {"action push buttons", PropUiGuidActionPushButtons}, {"label", PropUiGuidLabel},
    {"double", PropUiGuidDouble},       {"distance", PropUiGuidDistance},
    {"angle", PropUiGuidAngle},         {"double alt", PropUiGuidDoubleAlt},
    {"text", PropUiGuidText},           {"integer", PropUiGuidInteger},
    {"text combo", PropUiGuidTextCombo}, {"layer", PropUiGuidLayer},
    {"color", PropUiGuidColor},         {"linetype", PropUiGuidLinetype},
    {"lineweight", PropUiGuidLineweight}, {"arrowhead", PropUiGuidArrowhead},
    {"coords 2d", PropUiGuidCoords2d},  {"coords 2d alt", PropUiGuidCoords2dAlt},
    {"scale 2d", PropUiGuidScale2d},    {"coords 3d", PropUiGuidCoords3d},
    {"coords 3d alt", PropUiGuidCoords3dAlt}, {"bool", PropUiGuidBool},
    {"bool text", PropUiGuidBoolText},  {"switch", PropUiGuidSwitch},
    {"text switch", PropUiGuidTextSwitch}, {"variant", PropUiGuidVariant},
    {"list", PropUiGuidList},           {"table", PropUiGuidTable},
    {"push buttons", PropUiGuidPushButtons}, {"tool buttons", PropUiGuidToolButtons},
    {"radio buttons", PropUiGuidRadioButtons}, {"3x3", PropUiGuidButtons3x3},
    {"slider", PropUiGuidSlider},       {"multi text combo", PropUiGuidMultiTextCombo},
    {"date", PropUiGuidDate},
  };
  for (const auto& kind : kinds)
    QTest::newRow(kind.name) << kind.guid;
}

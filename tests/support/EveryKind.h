#pragma once

#include "PropUiGuids.h"
#include <QTest>
#include <vector>

Q_DECLARE_METATYPE(OdGUID)

/** An editor kind the library names, as tests and benchmarks list it. */
struct NamedKind
{
  const char* name;
  const OdGUID& guid;
};

/**
 * Every editor kind the library names: a kind without a registered factory
 * makes no control and is skipped by whoever walks the list, so a control
 * joins the tests and benchmarks by being registered.
 */
inline const std::vector<NamedKind>& everyKind()
{
  static const std::vector<NamedKind> kinds = {
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
  return kinds;
}

/** One data row per kind of everyKind(), for tests that must hold for every control. */
inline void addEveryKindRows()
{
  QTest::addColumn<OdGUID>("guid");
  for (const NamedKind& kind : everyKind())
    QTest::newRow(kind.name) << kind.guid;
}

#pragma once

namespace OdDb
{

/** Line widths in hundredths of a millimetre, and the three that defer to something else. */
enum LineWeight
{
  kLnWt000 = 0,
  kLnWt005 = 5,
  kLnWt009 = 9,
  kLnWt013 = 13,
  kLnWt015 = 15,
  kLnWt018 = 18,
  kLnWt020 = 20,
  kLnWt025 = 25,
  kLnWt030 = 30,
  kLnWt035 = 35,
  kLnWt040 = 40,
  kLnWt050 = 50,
  kLnWt053 = 53,
  kLnWt060 = 60,
  kLnWt070 = 70,
  kLnWt080 = 80,
  kLnWt090 = 90,
  kLnWt100 = 100,
  kLnWt106 = 106,
  kLnWt120 = 120,
  kLnWt140 = 140,
  kLnWt158 = 158,
  kLnWt200 = 200,
  kLnWt211 = 211,
  kLnWtByLayer = -1,
  kLnWtByBlock = -2,
  kLnWtByLwDefault = -3
};

/** The widths a drawing may use, thinnest first (ByLayer, ByBlock and Default are not among them). */
constexpr LineWeight kStandardLineWeights[] = {
  kLnWt000, kLnWt005, kLnWt009, kLnWt013, kLnWt015, kLnWt018, kLnWt020, kLnWt025,
  kLnWt030, kLnWt035, kLnWt040, kLnWt050, kLnWt053, kLnWt060, kLnWt070, kLnWt080,
  kLnWt090, kLnWt100, kLnWt106, kLnWt120, kLnWt140, kLnWt158, kLnWt200, kLnWt211};

/** Whether the number is one of the weights above or ByLayer, ByBlock or Default. */
constexpr bool isLineWeight(int value)
{
  if (value == kLnWtByLayer || value == kLnWtByBlock || value == kLnWtByLwDefault)
    return true;
  for (LineWeight w : kStandardLineWeights)
    if (w == value)
      return true;
  return false;
}

} // namespace OdDb

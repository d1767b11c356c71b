#include "DrawingHatchPatterns.h"

#include <QtMath>
#include <cmath>
#include <vector>

namespace {

/** One family in the pattern's own frame: the offset is along (x) and across (y) the line. */
struct PatternFamily
{
  double angle;
  double baseX;
  double baseY;
  double along;
  double across;
  std::vector<double> dashes;
};

struct Pattern
{
  const char* name;
  std::vector<PatternFamily> families;
};

constexpr double kInch = 25.4;
constexpr double kEighth = kInch / 8.0;
// How far along the X axis a 45-degree line must start to lie one eighth of an inch beside another.
const double kEighthAcross45 = kEighth * std::sqrt(2.0);

const std::vector<Pattern>& patterns()
{
  static const std::vector<Pattern> table = {
    {"SOLID", {}},
    // Iron, brick, stone masonry: 45-degree lines an eighth of an inch apart.
    {"ANSI31", {{45, 0, 0, 0, kEighth, {}}}},
    // Steel: pairs of 45-degree lines, an eighth apart, the pairs three eighths apart.
    {"ANSI32", {{45, 0, 0, 0, 3 * kEighth, {}}, {45, kEighthAcross45, 0, 0, 3 * kEighth, {}}}},
    // Bronze, brass, copper: a full line and a dashed one, alternating an eighth apart.
    {"ANSI33",
     {{45, 0, 0, 0, 2 * kEighth, {}}, {45, kEighthAcross45, 0, 0, 2 * kEighth, {kEighth, -kEighth / 2}}}},
    // Plastic, rubber: groups of four lines, the groups six eighths apart.
    {"ANSI34",
     {{45, 0, 0, 0, 6 * kEighth, {}},
      {45, kEighthAcross45, 0, 0, 6 * kEighth, {}},
      {45, 2 * kEighthAcross45, 0, 0, 6 * kEighth, {}},
      {45, 3 * kEighthAcross45, 0, 0, 6 * kEighth, {}}}},
    // Fire brick, refractory: a full line and a dash-dot one.
    {"ANSI35",
     {{45, 0, 0, 0, 2 * kEighth, {}},
      {45, kEighthAcross45, 0, 0, 2 * kEighth, {2.5 * kEighth, -kEighth / 2, 0, -kEighth / 2}}}},
    // Marble, slate, glass: dash-dot lines whose dashes shift from one line to the next.
    {"ANSI36", {{45, 0, 0, 1.75 * kEighth, kEighth, {2.5 * kEighth, -kEighth / 2, 0, -kEighth / 2}}}},
    // Lead, zinc, magnesium, insulation: 45-degree lines crossed at right angles.
    {"ANSI37", {{45, 0, 0, 0, kEighth, {}}, {135, 0, 0, 0, kEighth, {}}}},
    // Aluminium: 45-degree lines crossed by dashed ones.
    {"ANSI38", {{45, 0, 0, 0, kEighth, {}}, {135, 0, 0, 2 * kEighth, kEighth, {2.5 * kEighth, -1.5 * kEighth}}}},
    {"LINE", {{0, 0, 0, 0, kEighth, {}}}},
    {"NET", {{0, 0, 0, 0, kEighth, {}}, {90, 0, 0, 0, kEighth, {}}}},
    // Three families at 60 degrees to each other.
    {"NET3", {{0, 0, 0, 0, kEighth, {}}, {60, 0, 0, 0, kEighth, {}}, {120, 0, 0, 0, kEighth, {}}}},
    {"DASH", {{0, 0, 0, 0, kEighth, {kEighth, -kEighth}}}},
    // Dots a sixteenth of an inch apart on rows half of that apart, each row shifted by half a step.
    {"DOTS", {{0, 0, 0, kEighth / 4, kEighth / 2, {0, -kEighth / 2}}}},
  };
  return table;
}

DrawingPoint rotated(double x, double y, double degrees)
{
  const double c = std::cos(qDegreesToRadians(degrees));
  const double s = std::sin(qDegreesToRadians(degrees));
  return {x * c - y * s, x * s + y * c, 0.0};
}

} // namespace

QStringList hatchPatternNames()
{
  QStringList names;
  for (const Pattern& pattern : patterns())
    names.append(QString::fromLatin1(pattern.name));
  return names;
}

std::vector<DrawingHatchLine> hatchPatternLines(const QString& name, double scale, double angleDegrees)
{
  std::vector<DrawingHatchLine> lines;
  if (!std::isfinite(scale) || scale <= 0.0 || !std::isfinite(angleDegrees))
    return lines;
  for (const Pattern& pattern : patterns()) {
    if (name.compare(QLatin1String(pattern.name), Qt::CaseInsensitive) != 0)
      continue;
    for (const PatternFamily& family : pattern.families) {
      DrawingHatchLine line;
      line.angle = std::fmod(family.angle + angleDegrees, 360.0);
      line.base = rotated(family.baseX * scale, family.baseY * scale, angleDegrees);
      line.offset = rotated(family.along * scale, family.across * scale, family.angle + angleDegrees);
      for (double dash : family.dashes)
        line.dashes.push_back(dash * scale);
      lines.push_back(std::move(line));
    }
    break;
  }
  return lines;
}

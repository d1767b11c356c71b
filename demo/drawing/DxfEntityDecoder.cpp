#include "DxfEntityDecoder.h"

#include "DxfStrings.h"
#include <algorithm>
#include <charconv>
#include <limits>
#include <cmath>

namespace
{

// Angles that went through radians on their way to the file come back off by
// an ulp; the tenth decimal is far finer than any drawing needs.
double snappedDegrees(double degrees)
{
  return std::round(degrees * 1e10) / 1e10;
}

double degreesOf(double radians)
{
  return snappedDegrees(radians * 180.0 / M_PI);
}

QString textOf(std::string_view value)
{
  return fromDxfString(std::string(value));
}

/** A text's style as the model names it: Standard is no name. */
QString styleOf(std::string_view value)
{
  const QString name = textOf(value).trimmed();
  return name.compare(QLatin1String("Standard"), Qt::CaseInsensitive) == 0 ? QString() : name;
}

/** The groups of one record, walked in order. */
class GroupCursor
{
public:
  GroupCursor(const std::vector<DxfGroup>& groups, std::size_t first, std::size_t end)
      : m_groups(groups), m_at(first), m_end(end)
  {
  }
  bool atEnd() const { return m_at >= m_end; }
  const DxfGroup& peek() const { return m_groups[m_at]; }
  const DxfGroup& take() { return m_groups[m_at++]; }
  /** The next group when it has @p code (then taken), else null. */
  const DxfGroup* takeIf(int code) { return !atEnd() && peek().code == code ? &m_groups[m_at++] : nullptr; }
  double real(int code, double fallback = 0.0)
  {
    const DxfGroup* g = takeIf(code);
    return g ? g->number : fallback;
  }
private:
  const std::vector<DxfGroup>& m_groups;
  std::size_t m_at;
  std::size_t m_end;
};

constexpr int kFlattenSteps = 16;

void addArc(std::vector<DrawingPoint>& points, const DrawingPoint& centre, DrawingPoint major, double ratio,
            double start, double end, bool counterClockwise)
{
  if (!counterClockwise)
  {
    // a clockwise edge is coded with its angles mirrored
    std::swap(start, end);
    start = -start;
    end = -end;
  }
  while (end < start)
    end += 2 * M_PI;
  const DrawingPoint minor{-major.y * ratio, major.x * ratio, 0.0};
  for (int i = 0; i <= kFlattenSteps; ++i)
  {
    const double t = counterClockwise ? start + (end - start) * i / kFlattenSteps
                                      : end - (end - start) * i / kFlattenSteps;
    const double c = std::cos(t);
    const double s = counterClockwise ? std::sin(t) : -std::sin(t);
    points.push_back({centre.x + major.x * c + minor.x * s, centre.y + major.y * c + minor.y * s, 0.0});
  }
}

/** A B-spline's points at even steps of its knots (de Boor), or its control points when the knots do not fit. */
void addSpline(std::vector<DrawingPoint>& points, int degree, const std::vector<double>& knots,
               const std::vector<DrawingPoint>& control, const std::vector<double>& weights)
{
  const int n = int(control.size());
  if (degree < 1 || n <= degree || int(knots.size()) != n + degree + 1)
  {
    points.insert(points.end(), control.begin(), control.end());
    return;
  }
  const double first = knots[std::size_t(degree)];
  const double last = knots[std::size_t(n)];
  const int steps = kFlattenSteps * (n - degree);
  for (int i = 0; i <= steps; ++i)
  {
    const double t = first + (last - first) * i / steps;
    int span = degree;
    while (span < n - 1 && t >= knots[std::size_t(span + 1)])
      ++span;
    std::vector<double> x(std::size_t(degree + 1)), y(x.size()), w(x.size());
    for (int j = 0; j <= degree; ++j)
    {
      const std::size_t k = std::size_t(span - degree + j);
      w[std::size_t(j)] = k < weights.size() && weights[k] > 0 ? weights[k] : 1.0;
      x[std::size_t(j)] = control[k].x * w[std::size_t(j)];
      y[std::size_t(j)] = control[k].y * w[std::size_t(j)];
    }
    for (int r = 1; r <= degree; ++r)
      for (int j = degree; j >= r; --j)
      {
        const std::size_t left = std::size_t(span - degree + j);
        const double denominator = knots[left + std::size_t(degree - r + 1)] - knots[left];
        const double a = denominator == 0 ? 0.0 : (t - knots[left]) / denominator;
        const std::size_t jj = std::size_t(j);
        x[jj] = (1 - a) * x[jj - 1] + a * x[jj];
        y[jj] = (1 - a) * y[jj - 1] + a * y[jj];
        w[jj] = (1 - a) * w[jj - 1] + a * w[jj];
      }
    const double weight = w.back() == 0 ? 1.0 : w.back();
    points.push_back({x.back() / weight, y.back() / weight, 0.0});
  }
}

/** Adds @p p unless it repeats the last point (edges share their ends). */
void addPoint(std::vector<DrawingPoint>& points, const DrawingPoint& p)
{
  if (points.empty() || points.back() != p)
    points.push_back(p);
}

DrawingPoint flat(GroupCursor& cursor, int code)
{
  DrawingPoint p;
  p.x = cursor.real(code);
  p.y = cursor.real(code + 10);
  return p;
}

double distance(const DrawingPoint& a, const DrawingPoint& b)
{
  return std::hypot(a.x - b.x, a.y - b.y);
}

/**
 * Joins the flattened edges end to end. Writers list a loop's edges in any
 * order and direction; taken as they come, a triangle's three lines can
 * become a figure whose pattern lines cancel out.
 */
void chainEdges(std::vector<std::vector<DrawingPoint>> pieces, DrawingHatchLoop& loop)
{
  pieces.erase(std::remove_if(pieces.begin(), pieces.end(), [](const auto& piece) { return piece.empty(); }),
               pieces.end());
  std::vector<bool> used(pieces.size(), false);
  for (std::size_t taken = 0; taken < pieces.size(); ++taken)
  {
    std::size_t best = 0;
    bool reverse = false;
    if (taken > 0)
    {
      double nearest = std::numeric_limits<double>::infinity();
      const DrawingPoint end = loop.points.back();
      for (std::size_t i = 0; i < pieces.size(); ++i)
      {
        if (used[i])
          continue;
        if (const double d = distance(end, pieces[i].front()); d < nearest)
        {
          nearest = d;
          best = i;
          reverse = false;
        }
        if (const double d = distance(end, pieces[i].back()); d < nearest)
        {
          nearest = d;
          best = i;
          reverse = true;
        }
      }
    }
    used[best] = true;
    std::vector<DrawingPoint>& piece = pieces[best];
    if (reverse)
      std::reverse(piece.begin(), piece.end());
    for (const DrawingPoint& p : piece)
      addPoint(loop.points, p);
  }
}

/** One edge loop: lines, arcs, elliptic arcs and splines, flattened to points. */
void decodeEdges(GroupCursor& cursor, DrawingHatchLoop& loop)
{
  const DxfGroup* count = cursor.takeIf(93);
  const int edges = count ? count->integer() : 0;
  std::vector<std::vector<DrawingPoint>> pieces;
  for (int i = 0; i < edges; ++i)
  {
    const DxfGroup* type = cursor.takeIf(72);
    if (!type)
      break;
    pieces.emplace_back();
    std::vector<DrawingPoint>& piece = pieces.back();
    switch (type->integer())
    {
    case 1:
    {
      const DrawingPoint start = flat(cursor, 10);
      const DrawingPoint end = flat(cursor, 11);
      addPoint(piece, start);
      addPoint(piece, end);
      break;
    }
    case 2:
    {
      const DrawingPoint centre = flat(cursor, 10);
      const double radius = cursor.real(40);
      const double start = cursor.real(50) * M_PI / 180;
      const double end = cursor.real(51) * M_PI / 180;
      const bool ccw = cursor.real(73, 1) != 0;
      addArc(piece, centre, {radius, 0, 0}, 1.0, start, end, ccw);
      break;
    }
    case 3:
    {
      const DrawingPoint centre = flat(cursor, 10);
      const DrawingPoint major = flat(cursor, 11);
      const double ratio = cursor.real(40, 1);
      const double start = cursor.real(50) * M_PI / 180;
      const double end = cursor.real(51) * M_PI / 180;
      const bool ccw = cursor.real(73, 1) != 0;
      addArc(piece, centre, major, ratio, start, end, ccw);
      break;
    }
    case 4:
    {
      const int degree = int(cursor.real(94, 3));
      const bool rational = cursor.real(73) != 0;
      cursor.takeIf(74);
      const int knotCount = int(cursor.real(95));
      const int controlCount = int(cursor.real(96));
      std::vector<double> knots;
      std::vector<DrawingPoint> control;
      std::vector<double> weights;
      for (int k = 0; k < knotCount && !cursor.atEnd() && cursor.peek().code == 40; ++k)
        knots.push_back(cursor.take().number);
      for (int c = 0; c < controlCount && !cursor.atEnd() && cursor.peek().code == 10; ++c)
      {
        control.push_back(flat(cursor, 10));
        if (rational || (!cursor.atEnd() && cursor.peek().code == 42))
          weights.push_back(cursor.real(42, 1));
      }
      std::vector<DrawingPoint> spline;
      addSpline(spline, degree, knots, control, weights);
      for (const DrawingPoint& p : spline)
        addPoint(piece, p);
      // fit points and end tangents repeat what the control points say
      if (const DxfGroup* fit = cursor.takeIf(97))
        for (int f = 0; f < fit->integer() && !cursor.atEnd() && cursor.peek().code == 11; ++f)
          flat(cursor, 11);
      if (cursor.takeIf(12))
        cursor.takeIf(22);
      if (cursor.takeIf(13))
        cursor.takeIf(23);
      break;
    }
    default:
      i = edges;
      break;
    }
  }
  chainEdges(std::move(pieces), loop);
  if (loop.points.size() > 1 && loop.points.front() == loop.points.back())
    loop.points.pop_back();
}

/** A hatch's boundaries and pattern, in the order the record codes them. */
void decodeHatch(GroupCursor& cursor, DrawingEntity& e)
{
  DrawingEntityDetail& d = e.editDetails();
  // before the loops: elevation, extrusion, the pattern's name, solid fill, associativity
  while (!cursor.atEnd() && cursor.peek().code != 91)
  {
    const DxfGroup& g = cursor.take();
    if (g.code == 2)
      d.pattern = textOf(g.value);
    else if (g.code == 70)
      d.solidFill = g.integer() & 1;
  }
  const DxfGroup* loopCount = cursor.takeIf(91);
  const int loops = loopCount ? loopCount->integer() : 0;
  for (int l = 0; l < loops; ++l)
  {
    const DxfGroup* type = cursor.takeIf(92);
    if (!type)
      break;
    DrawingHatchLoop loop;
    if (type->integer() & 2)
    {
      const bool hasBulges = cursor.real(72) != 0;
      cursor.takeIf(73);
      const DxfGroup* count = cursor.takeIf(93);
      for (int v = 0; count && v < count->integer() && !cursor.atEnd() && cursor.peek().code == 10; ++v)
      {
        loop.points.push_back(flat(cursor, 10));
        loop.bulges.push_back(hasBulges ? cursor.real(42) : 0.0);
      }
    }
    else
      decodeEdges(cursor, loop);
    loop.bulges.resize(loop.points.size(), 0.0);
    if (const DxfGroup* sources = cursor.takeIf(97))
      for (int s = 0; s < sources->integer() && cursor.takeIf(330); ++s)
        ;
    d.loops.push_back(std::move(loop));
  }
  // after the loops: style, pattern type, then the pattern's angle, scale and lines
  while (!cursor.atEnd())
  {
    const DxfGroup& g = cursor.take();
    if (g.code == 52)
      d.patternAngle = g.number;
    else if (g.code == 41)
      d.patternScale = g.number;
    else if (g.code == 53)
    {
      DrawingHatchLine line;
      line.angle = g.number;
      line.base.x = cursor.real(43);
      line.base.y = cursor.real(44);
      line.offset.x = cursor.real(45);
      line.offset.y = cursor.real(46);
      const DxfGroup* dashes = cursor.takeIf(79);
      for (int i = 0; dashes && i < dashes->integer() && !cursor.atEnd() && cursor.peek().code == 49; ++i)
        line.dashes.push_back(cursor.take().number);
      d.patternLines.push_back(std::move(line));
    }
    else if (g.code == 47 || g.code == 98 || g.code >= 1000)
      break; // seed points and what follows are no part of the pattern
  }
}

void decodeText(GroupCursor cursor, DrawingEntity& e, bool attribute)
{
  e.points.assign(2, DrawingPoint());
  bool second = false;
  while (!cursor.atEnd())
  {
    const DxfGroup& g = cursor.take();
    switch (g.code)
    {
    case 10: e.points[0].x = g.number; break;
    case 20: e.points[0].y = g.number; break;
    case 30: e.points[0].z = g.number; break;
    case 11: e.points[1].x = g.number; second = true; break;
    case 21: e.points[1].y = g.number; break;
    case 31: e.points[1].z = g.number; break;
    case 40: e.height = g.number; break;
    case 1: e.text = textOf(g.value); break;
    case 2: if (attribute) e.blockName = textOf(g.value); break;
    case 50: e.rotation = snappedDegrees(g.number); break;
    case 41: e.widthFactor = g.number; break;
    case 51: e.oblique = g.number; break;
    case 7: e.style = styleOf(g.value); break;
    case 72: e.horizontalAlignment = g.integer(); break;
    case 73: if (!attribute) e.verticalAlignment = g.integer(); break;
    case 74: if (attribute) e.verticalAlignment = g.integer(); break;
    default: break;
    }
  }
  // the second point means something only for a text aligned other than left on the baseline
  if (!second || (e.horizontalAlignment == 0 && e.verticalAlignment == 0))
    e.points.resize(1);
}

} // namespace

quint64 DxfEntityDecoder::handleOf(std::string_view text)
{
  while (!text.empty() && (text.front() == ' ' || text.back() == ' ' || text.back() == '\t'))
    text = text.front() == ' ' ? text.substr(1) : text.substr(0, text.size() - 1);
  quint64 handle = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), handle, 16);
  return result.ec == std::errc() && result.ptr == text.data() + text.size() ? handle : 0;
}

OdCmColor DxfEntityDecoder::colorOf(int index, int trueColor)
{
  OdCmColor color(OdCmEntityColor::kByLayer);
  if (trueColor >= 0)
    color.setRGB(OdUInt8((trueColor >> 16) & 0xFF), OdUInt8((trueColor >> 8) & 0xFF), OdUInt8(trueColor & 0xFF));
  else if (index != -1 && index != 256)
  {
    const int aci = std::abs(index);
    if (aci == 0)
      color.setColorMethod(OdCmEntityColor::kByBlock);
    else if (aci < 256)
      color.setColorIndex(OdInt16(aci));
  }
  return color;
}

std::vector<int> DxfEntityDecoder::dimensionPointCodes(int dimensionType)
{
  switch (dimensionType & 0x0F)
  {
  case 2: return {13, 14, 10, 11, 15, 16};
  case 3:
  case 4: return {10, 15, 10, 11};
  case 5: return {13, 14, 10, 11, 15};
  default: return {13, 14, 10, 11};
  }
}

void DxfEntityDecoder::decode(const std::vector<DxfGroup>& record, DrawingEntity& e, DxfEntityNames& names) const
{
  const std::string_view type = record.empty() ? std::string_view() : record.front().value;
  // the record's own groups, up to its vertices or attributes, and before its extended data
  std::size_t end = 1;
  while (end < record.size() && record[end].code != 0)
    ++end;
  std::size_t ownEnd = 1;
  while (ownEnd < end && record[ownEnd].code != 1001)
    ++ownEnd;

  int color = -1;
  int trueColor = -1;
  // A damaged record may repeat a common group; the first is the one a save changes, so it is the one read.
  unsigned int seen = 0;
  const auto firstTime = [&seen](unsigned int bit) {
    const bool was = seen & (1u << bit);
    seen |= 1u << bit;
    return !was;
  };
  for (std::size_t i = 1; i < ownEnd; ++i)
  {
    const DxfGroup& g = record[i];
    switch (g.code)
    {
    case 5:
      if (firstTime(0))
        e.handle = handleOf(g.value);
      break;
    case 8:
      if (firstTime(1))
        names.layer = g.value;
      break;
    case 6:
      if (firstTime(2))
        names.linetype = g.value;
      break;
    case 62:
      if (firstTime(3))
        color = g.integer();
      break;
    case 420:
      if (firstTime(4))
        trueColor = g.integer();
      break;
    case 370:
      if (firstTime(5) && OdDb::isLineWeight(g.integer()))
        e.lineWeight = OdDb::LineWeight(g.integer());
      break;
    case 48:
      if (firstTime(6) && g.number > 0)
        e.linetypeScale = g.number;
      break;
    case 60:
      if (firstTime(7))
        e.visible = g.integer() == 0;
      break;
    case 67:
      if (firstTime(8))
        e.paperSpace = g.integer() != 0;
      break;
    default:
      break;
    }
  }
  e.color = colorOf(color, trueColor);

  // the kind's own groups: past the common ones, which no kind reads again
  GroupCursor all(record, 1, ownEnd);
  const auto each = [&](auto&& take) {
    for (std::size_t i = 1; i < ownEnd; ++i)
      take(record[i]);
  };
  if (type == "LINE")
  {
    e.kind = EntityKind::Line;
    e.points.assign(2, DrawingPoint());
    each([&](const DxfGroup& g) {
      switch (g.code)
      {
      case 10: e.points[0].x = g.number; break;
      case 20: e.points[0].y = g.number; break;
      case 30: e.points[0].z = g.number; break;
      case 11: e.points[1].x = g.number; break;
      case 21: e.points[1].y = g.number; break;
      case 31: e.points[1].z = g.number; break;
      default: break;
      }
    });
  }
  else if (type == "CIRCLE" || type == "ARC" || type == "POINT")
  {
    e.kind = type == "CIRCLE" ? EntityKind::Circle : type == "ARC" ? EntityKind::Arc : EntityKind::Point;
    e.points.assign(1, DrawingPoint());
    each([&](const DxfGroup& g) {
      switch (g.code)
      {
      case 10: e.points[0].x = g.number; break;
      case 20: e.points[0].y = g.number; break;
      case 30: e.points[0].z = g.number; break;
      case 40: e.radius = g.number; break;
      case 50: e.startAngle = g.number; break;
      case 51: e.endAngle = g.number; break;
      default: break;
      }
    });
    if (e.kind == EntityKind::Point)
      e.radius = e.startAngle = e.endAngle = 0.0;
  }
  else if (type == "LWPOLYLINE")
  {
    e.kind = EntityKind::Polyline;
    double elevation = 0.0;
    each([&](const DxfGroup& g) {
      switch (g.code)
      {
      case 70: e.closed = g.integer() & 1; break;
      case 38: elevation = g.number; break;
      case 10:
        e.points.push_back({g.number, 0.0, 0.0});
        e.bulges.push_back(0.0);
        break;
      case 20: if (!e.points.empty()) e.points.back().y = g.number; break;
      case 42: if (!e.bulges.empty()) e.bulges.back() = std::isfinite(g.number) ? g.number : 0.0; break;
      default: break;
      }
    });
    for (DrawingPoint& p : e.points)
      p.z = elevation;
  }
  else if (type == "POLYLINE")
  {
    int flags = 0;
    each([&](const DxfGroup& g) {
      if (g.code == 70)
        flags = g.integer();
    });
    // meshes and polyface meshes are surfaces, not outlines
    e.kind = flags & (16 | 64) ? EntityKind::Other : EntityKind::Polyline;
    e.typeName = QStringLiteral("POLYLINE");
    e.closed = flags & 1;
    if (e.kind == EntityKind::Polyline)
    {
      e.typeName.clear();
      for (std::size_t i = end; i < record.size(); ++i)
        if (record[i].code == 0 && record[i].value == "VERTEX")
        {
          DrawingPoint p;
          double bulge = 0.0;
          for (std::size_t j = i + 1; j < record.size() && record[j].code != 0; ++j)
          {
            const DxfGroup& g = record[j];
            if (g.code == 10) p.x = g.number;
            else if (g.code == 20) p.y = g.number;
            else if (g.code == 30) p.z = g.number;
            else if (g.code == 42 && std::isfinite(g.number)) bulge = g.number;
          }
          e.points.push_back(p);
          e.bulges.push_back(bulge);
        }
    }
  }
  else if (type == "TEXT")
  {
    e.kind = EntityKind::Text;
    decodeText(all, e, false);
  }
  else if (type == "MTEXT")
  {
    e.kind = EntityKind::MText;
    e.points.assign(1, DrawingPoint());
    std::string text;
    double dx = 0.0;
    double dy = 0.0;
    bool direction = false;
    each([&](const DxfGroup& g) {
      switch (g.code)
      {
      case 10: e.points[0].x = g.number; break;
      case 20: e.points[0].y = g.number; break;
      case 30: e.points[0].z = g.number; break;
      case 40: e.height = g.number; break;
      case 41: e.width = g.number; break;
      case 71: e.attachment = g.integer() >= 1 && g.integer() <= 9 ? g.integer() : 1; break;
      case 3:
      case 1: text += g.value; break;
      case 50: e.rotation = snappedDegrees(g.number); break;
      case 11: dx = g.number; direction = true; break;
      case 21: dy = g.number; break;
      case 7: e.style = styleOf(g.value); break;
      default: break;
      }
    });
    if (direction && (dx != 0 || dy != 0))
      e.rotation = degreesOf(std::atan2(dy, dx));
    e.text = fromDxfString(text);
  }
  else if (type == "INSERT")
  {
    e.kind = EntityKind::Insert;
    e.points.assign(1, DrawingPoint());
    each([&](const DxfGroup& g) {
      switch (g.code)
      {
      case 2: e.blockName = textOf(g.value); break;
      case 10: e.points[0].x = g.number; break;
      case 20: e.points[0].y = g.number; break;
      case 30: e.points[0].z = g.number; break;
      case 41: e.scale.x = g.number; break;
      case 42: e.scale.y = g.number; break;
      // some writers put a zero Z scale in flat drawings
      case 43: e.scale.z = g.number == 0 ? 1.0 : g.number; break;
      case 50: e.rotation = g.number; break;
      default: break;
      }
    });
    for (std::size_t i = end; i < record.size(); ++i)
      if (record[i].code == 0 && record[i].value == "ATTRIB")
      {
        std::size_t next = i + 1;
        while (next < record.size() && record[next].code != 0)
          ++next;
        std::vector<DxfGroup> attribute(record.begin() + std::ptrdiff_t(i), record.begin() + std::ptrdiff_t(next));
        DrawingEntity text;
        DxfEntityNames ignored;
        decode(attribute, text, ignored);
        e.editDetails().attributes.push_back(std::move(text));
      }
  }
  else if (type == "ATTRIB")
  {
    e.kind = EntityKind::Text;
    decodeText(all, e, true);
  }
  else if (type == "DIMENSION")
  {
    e.kind = EntityKind::Dimension;
    each([&](const DxfGroup& g) {
      if (g.code == 70)
        e.dimensionType = (g.integer() & 0x0F) == 6 ? 6 | (g.integer() & 64) : g.integer() & 0x0F;
      else if (g.code == 2)
        e.blockName = textOf(g.value);
      else if (g.code == 1)
        e.text = textOf(g.value);
      else if (g.code == 50)
        e.rotation = snappedDegrees(g.number);
      else if (g.code == 40)
        e.radius = g.number;
    });
    const std::vector<int> codes = dimensionPointCodes(e.dimensionType);
    e.points.assign(codes.size(), DrawingPoint());
    for (std::size_t k = 0; k < codes.size(); ++k)
      each([&](const DxfGroup& g) {
        if (g.code == codes[k]) e.points[k].x = g.number;
        else if (g.code == codes[k] + 10) e.points[k].y = g.number;
        else if (g.code == codes[k] + 20) e.points[k].z = g.number;
      });
    if ((e.dimensionType & 0x0F) != 3 && (e.dimensionType & 0x0F) != 4)
      e.radius = 0.0;
    if ((e.dimensionType & 0x0F) != 0)
      e.rotation = 0.0;
  }
  else if (type == "ELLIPSE")
  {
    e.kind = EntityKind::Ellipse;
    e.points.assign(2, DrawingPoint());
    e.endAngle = 360.0;
    each([&](const DxfGroup& g) {
      switch (g.code)
      {
      case 10: e.points[0].x = g.number; break;
      case 20: e.points[0].y = g.number; break;
      case 30: e.points[0].z = g.number; break;
      case 11: e.points[1].x = g.number; break;
      case 21: e.points[1].y = g.number; break;
      case 31: e.points[1].z = g.number; break;
      case 40: e.ratio = g.number; break;
      case 41: e.startAngle = degreesOf(g.number); break;
      case 42: e.endAngle = degreesOf(g.number); break;
      default: break;
      }
    });
  }
  else if (type == "SPLINE")
  {
    e.kind = EntityKind::Spline;
    DrawingEntityDetail& d = e.editDetails();
    each([&](const DxfGroup& g) {
      switch (g.code)
      {
      case 70: e.closed = g.integer() & 1; break;
      case 71: d.degree = g.integer(); break;
      case 40: d.knots.push_back(g.number); break;
      case 41: d.weights.push_back(g.number); break;
      case 10: e.points.push_back({g.number, 0.0, 0.0}); break;
      case 20: if (!e.points.empty()) e.points.back().y = g.number; break;
      case 30: if (!e.points.empty()) e.points.back().z = g.number; break;
      case 11: d.fitPoints.push_back({g.number, 0.0, 0.0}); break;
      case 21: if (!d.fitPoints.empty()) d.fitPoints.back().y = g.number; break;
      case 31: if (!d.fitPoints.empty()) d.fitPoints.back().z = g.number; break;
      default: break;
      }
    });
  }
  else if (type == "HATCH")
  {
    e.kind = EntityKind::Hatch;
    // the pattern's groups follow the common ones, which come first
    std::size_t first = 1;
    while (first < ownEnd && !(record[first].code == 100 && record[first].value == "AcDbHatch"))
      ++first;
    if (first == ownEnd)
      first = 1;
    GroupCursor cursor(record, first, ownEnd);
    decodeHatch(cursor, e);
  }
  else if (type == "SOLID" || type == "TRACE")
  {
    e.kind = type == "SOLID" ? EntityKind::Solid : EntityKind::Trace;
    e.points.assign(4, DrawingPoint());
    each([&](const DxfGroup& g) {
      if (g.code >= 10 && g.code <= 33 && g.code % 10 <= 3)
      {
        DrawingPoint& p = e.points[std::size_t(g.code % 10)];
        (g.code < 20 ? p.x : g.code < 30 ? p.y : p.z) = g.number;
      }
    });
  }
  else if (type == "IMAGE")
  {
    e.kind = EntityKind::Image;
    e.points.assign(3, DrawingPoint());
    DrawingEntityDetail& d = e.editDetails();
    each([&](const DxfGroup& g) {
      if (g.code >= 10 && g.code <= 32 && g.code % 10 <= 2)
      {
        DrawingPoint& p = e.points[std::size_t(g.code % 10)];
        (g.code < 20 ? p.x : g.code < 30 ? p.y : p.z) = g.number;
      }
      else if (g.code == 13)
        d.pixelsWide = g.number;
      else if (g.code == 23)
        d.pixelsHigh = g.number;
      else if (g.code == 340)
        names.imageDefinition = g.value;
    });
  }
  else
  {
    e.kind = EntityKind::Other;
    e.typeName = textOf(type);
  }
}

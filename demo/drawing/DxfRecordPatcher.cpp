#include "DxfRecordPatcher.h"

#include "DxfEntityDecoder.h"
#include "DxfGroupScanner.h"
#include "DxfStrings.h"
#include <QLocale>
#include <algorithm>
#include <cmath>

namespace
{

double numberOf(const QByteArray& text)
{
  QByteArray t = text.trimmed();
  t.replace(',', '.');
  return t.toDouble();
}

double radians(double degrees)
{
  return degrees * M_PI / 180.0;
}

bool contains(std::initializer_list<int> codes, int code)
{
  return std::find(codes.begin(), codes.end(), code) != codes.end();
}

/** A multi-line text's contents as records hold them: pieces of 250 bytes in groups 3, the rest in group 1. */
std::vector<QByteArray> textPieces(const QString& text)
{
  const QByteArray bytes = QByteArray::fromStdString(toDxfString(text));
  std::vector<QByteArray> pieces;
  int at = 0;
  while (bytes.size() - at > 250)
  {
    int size = 250;
    // an escape is not cut in two
    const int escape = bytes.lastIndexOf("\\U+", at + size - 1);
    if (escape > at + size - 7 && escape >= at)
      size = escape - at;
    pieces.push_back(bytes.mid(at, size));
    at += size;
  }
  pieces.push_back(bytes.mid(at));
  return pieces;
}

} // namespace

DxfRecordPatcher::DxfRecordPatcher(const QByteArray& bytes, int begin, int size, const QByteArray& version)
    : m_version(version)
{
  const int firstEnd = bytes.indexOf('\n', begin);
  m_lineEnd = firstEnd > 0 && bytes[firstEnd - 1] == '\r' ? QByteArray("\r\n") : QByteArray("\n");
  m_paddedCodes = begin < bytes.size() && bytes[begin] == ' ';
  DxfGroupScanner scanner(bytes, begin, begin + size);
  DxfGroup g;
  while (scanner.next(g))
  {
    Group group;
    group.code = g.code;
    group.raw = bytes.mid(g.begin, g.end - g.begin);
    const int codeEnd = group.raw.indexOf('\n');
    group.codeLine = group.raw.left(codeEnd);
    if (group.codeLine.endsWith('\r'))
      group.codeLine.chop(1);
    group.value = QByteArray(g.value.data(), int(g.value.size()));
    m_groups.push_back(std::move(group));
  }
}

QByteArray DxfRecordPatcher::numberText(double value)
{
  QByteArray text = QByteArray::number(value, 'g', QLocale::FloatingPointShortest);
  if (std::isfinite(value) && !text.contains('.') && !text.contains('e'))
    text += ".0";
  return text;
}

QByteArray DxfRecordPatcher::record() const
{
  QByteArray out;
  for (const Group& g : m_groups)
    out += g.raw.isEmpty() ? g.codeLine + m_lineEnd + g.value + m_lineEnd : g.raw;
  return out;
}

int DxfRecordPatcher::partCount() const
{
  return int(std::count_if(m_groups.begin(), m_groups.end(), [](const Group& g) { return g.code == 0; }));
}

DxfRecordPatcher::Part DxfRecordPatcher::part(int index) const
{
  int seen = -1;
  for (int i = 0; i < int(m_groups.size()); ++i)
    if (m_groups[std::size_t(i)].code == 0 && ++seen == index)
      return Part{i};
  return Part{int(m_groups.size())};
}

int DxfRecordPatcher::ownEnd(const Part& p) const
{
  int i = p.first + 1;
  while (i < int(m_groups.size()) && m_groups[std::size_t(i)].code != 0 && m_groups[std::size_t(i)].code < 1000)
    ++i;
  return i;
}

int DxfRecordPatcher::find(const Part& p, int code, int occurrence) const
{
  const int end = ownEnd(p);
  for (int i = p.first + 1; i < end; ++i)
    if (m_groups[std::size_t(i)].code == code && occurrence-- == 0)
      return i;
  return -1;
}

void DxfRecordPatcher::replace(int index, const QByteArray& value)
{
  Group& g = m_groups[std::size_t(index)];
  if (g.value == value)
    return;
  g.value = value;
  g.raw.clear();
}

void DxfRecordPatcher::insertAt(int index, int code, const QByteArray& value)
{
  Group g;
  g.code = code;
  g.codeLine = QByteArray::number(code);
  if (m_paddedCodes && g.codeLine.size() < 3)
    g.codeLine = QByteArray(3 - g.codeLine.size(), ' ') + g.codeLine;
  g.value = value;
  m_groups.insert(m_groups.begin() + index, std::move(g));
}

int DxfRecordPatcher::insert(const Part& p, int code, const QByteArray& value, std::initializer_list<int> after)
{
  // after the last of the groups that come before it; without one, at the end of the part's own groups
  const int end = ownEnd(p);
  int at = -1;
  for (int i = p.first + 1; i < end; ++i)
    if (contains(after, m_groups[std::size_t(i)].code))
      at = i + 1;
  if (at < 0)
    at = end;
  insertAt(at, code, value);
  return at;
}

void DxfRecordPatcher::setText(const Part& p, int code, const QByteArray& value, std::initializer_list<int> after,
                               int occurrence)
{
  const int found = find(p, code, occurrence);
  if (found >= 0)
    replace(found, value);
  else
    insert(p, code, value, after);
}

void DxfRecordPatcher::setNumber(const Part& p, int code, double value, std::initializer_list<int> after,
                                 int occurrence)
{
  const int found = find(p, code, occurrence);
  if (found >= 0)
  {
    if (numberOf(m_groups[std::size_t(found)].value) != value)
      replace(found, numberText(value));
  }
  else
    insert(p, code, numberText(value), after);
}

void DxfRecordPatcher::setInteger(const Part& p, int code, int value, std::initializer_list<int> after)
{
  const int found = find(p, code);
  const QByteArray text = m_paddedCodes ? QByteArray::number(value).rightJustified(6, ' ') : QByteArray::number(value);
  if (found < 0)
    insert(p, code, text, after);
  else if (m_groups[std::size_t(found)].value.trimmed().toInt() != value)
    replace(found, text);
}

void DxfRecordPatcher::setPoint(const Part& p, int code, const DrawingPoint& was, const DrawingPoint& now,
                                std::initializer_list<int> after, int occurrence)
{
  if (was.x != now.x || find(p, code, occurrence) < 0)
    setNumber(p, code, now.x, after, occurrence);
  if (was.y != now.y || find(p, code + 10, occurrence) < 0)
    setNumber(p, code + 10, now.y, {code}, occurrence);
  if (was.z != now.z)
    setNumber(p, code + 20, now.z, {code + 10}, occurrence);
}

void DxfRecordPatcher::remove(const Part& p, int code)
{
  for (int found = find(p, code); found >= 0; found = find(p, code))
    m_groups.erase(m_groups.begin() + found);
}

void DxfRecordPatcher::apply(const DrawingEntity& original, const DxfRecordNames& originalNames,
                             const DrawingEntity& edited, const DxfRecordNames& editedNames)
{
  if (m_groups.empty())
    return;
  const Part main = part(0);
  if (original.kind != edited.kind)
  {
    m_unkept << QStringLiteral("kind");
    return;
  }
  applyCommon(main, original, originalNames, edited, editedNames);
  const auto point = [&](std::size_t i) { return i < edited.points.size() ? edited.points[i] : DrawingPoint(); };
  const auto was = [&](std::size_t i) { return i < original.points.size() ? original.points[i] : DrawingPoint(); };
  switch (edited.kind)
  {
  case EntityKind::Line:
    setPoint(main, 10, was(0), point(0), {100, 39, 8});
    setPoint(main, 11, was(1), point(1), {30, 20, 10});
    break;
  case EntityKind::Point:
    setPoint(main, 10, was(0), point(0), {100, 39, 8});
    break;
  case EntityKind::Circle:
  case EntityKind::Arc:
    setPoint(main, 10, was(0), point(0), {100, 39, 8});
    if (original.radius != edited.radius)
      setNumber(main, 40, edited.radius, {30, 20, 10});
    if (edited.kind == EntityKind::Arc && original.startAngle != edited.startAngle)
      setNumber(main, 50, edited.startAngle, {100, 40});
    if (edited.kind == EntityKind::Arc && original.endAngle != edited.endAngle)
      setNumber(main, 51, edited.endAngle, {50});
    break;
  case EntityKind::Ellipse:
    setPoint(main, 10, was(0), point(0), {100, 8});
    setPoint(main, 11, was(1), point(1), {30, 20, 10});
    if (original.ratio != edited.ratio)
      setNumber(main, 40, edited.ratio, {31, 21, 11});
    if (original.startAngle != edited.startAngle)
      setNumber(main, 41, radians(edited.startAngle), {40});
    if (original.endAngle != edited.endAngle)
      setNumber(main, 42, radians(edited.endAngle), {41});
    break;
  case EntityKind::Solid:
  case EntityKind::Trace:
    for (std::size_t i = 0; i < 4; ++i)
    {
      const int code = 10 + int(i);
      setPoint(main, code, was(i), point(i), {code - 1 + 20, code - 1 + 10, code - 1, 100, 8});
    }
    break;
  case EntityKind::Image:
    for (std::size_t i = 0; i < 3; ++i)
      setPoint(main, 10 + int(i), was(i), point(i), {9 + int(i) + 20, 100});
    if (original.details().pixelsWide != edited.details().pixelsWide)
      setNumber(main, 13, edited.details().pixelsWide, {32, 22, 12});
    if (original.details().pixelsHigh != edited.details().pixelsHigh)
      setNumber(main, 23, edited.details().pixelsHigh, {13});
    if (original.details().imageFile != edited.details().imageFile)
      m_unkept << QStringLiteral("image file");
    break;
  case EntityKind::Text:
    applyText(main, original, edited, false);
    break;
  case EntityKind::MText:
    applyMText(main, original, edited);
    break;
  case EntityKind::Insert:
    if (original.blockName != edited.blockName)
      setText(main, 2, QByteArray::fromStdString(toDxfString(edited.blockName)), {100, 66, 8});
    setPoint(main, 10, was(0), point(0), {2});
    if (original.scale.x != edited.scale.x)
      setNumber(main, 41, edited.scale.x, {30, 20, 10});
    if (original.scale.y != edited.scale.y)
      setNumber(main, 42, edited.scale.y, {41, 30, 20, 10});
    if (original.scale.z != edited.scale.z)
      setNumber(main, 43, edited.scale.z, {42, 41, 30, 20, 10});
    if (original.rotation != edited.rotation)
      setNumber(main, 50, edited.rotation, {43, 42, 41, 30, 20, 10});
    applyAttributes(original, edited);
    break;
  case EntityKind::Dimension:
    applyDimension(main, original, edited);
    break;
  case EntityKind::Polyline:
    if (!m_groups.empty() && m_groups.front().value.trimmed() == "LWPOLYLINE")
      applyLightPolyline(main, original, edited);
    else
      applyPolyline(original, edited);
    break;
  case EntityKind::Spline:
    applySpline(main, original, edited);
    break;
  case EntityKind::Hatch:
    applyHatch(main, original, edited);
    break;
  case EntityKind::Other:
    break;
  }
}

void DxfRecordPatcher::applyCommon(const Part& p, const DrawingEntity& original, const DxfRecordNames& originalNames,
                                   const DrawingEntity& edited, const DxfRecordNames& editedNames)
{
  if (originalNames.layer.compare(editedNames.layer, Qt::CaseInsensitive) != 0)
    setText(p, 8, QByteArray::fromStdString(toDxfString(editedNames.layer)), {100, 67, 330, 5});
  if (originalNames.linetype.compare(editedNames.linetype, Qt::CaseInsensitive) != 0)
  {
    if (editedNames.linetype.compare(QLatin1String("BYLAYER"), Qt::CaseInsensitive) == 0)
      remove(p, 6);
    else
      setText(p, 6, QByteArray::fromStdString(toDxfString(editedNames.linetype)), {8});
  }
  if (original.color != edited.color)
  {
    const OdCmColor& c = edited.color;
    if (c.isByLayer())
    {
      remove(p, 420);
      remove(p, 62);
    }
    else if (c.isByBlock() || c.isByACI())
    {
      remove(p, 420);
      setInteger(p, 62, c.isByBlock() ? 0 : c.colorIndex(), {6, 8});
    }
    else
    {
      // older readers take the nearest palette colour, newer ones the true colour
      setInteger(p, 62, OdCmEntityColor::lookUpACI(c.red(), c.green(), c.blue()), {6, 8});
      if (holdsTrueColors(m_version))
        setInteger(p, 420, (c.red() << 16) | (c.green() << 8) | c.blue(), {62, 6, 8});
      else
        m_unkept << QStringLiteral("true colour");
    }
  }
  if (original.lineWeight != edited.lineWeight)
  {
    if (edited.lineWeight == OdDb::kLnWtByLayer)
      remove(p, 370);
    else if (holdsLineWeights(m_version))
      setInteger(p, 370, int(edited.lineWeight), {420, 62, 6, 8});
    else
      m_unkept << QStringLiteral("lineweight");
  }
  if (original.linetypeScale != edited.linetypeScale)
    setNumber(p, 48, edited.linetypeScale, {370, 420, 62, 6, 8});
  if (original.visible != edited.visible)
  {
    if (edited.visible)
      remove(p, 60);
    else
      setInteger(p, 60, 1, {48, 370, 420, 62, 6, 8});
  }
}

void DxfRecordPatcher::applyText(const Part& p, const DrawingEntity& original, const DrawingEntity& edited,
                                 bool attribute)
{
  const auto point = [](const DrawingEntity& e, std::size_t i) {
    return i < e.points.size() ? e.points[i] : DrawingPoint();
  };
  setPoint(p, 10, point(original, 0), point(edited, 0), {100, 39, 8});
  if (original.height != edited.height)
    setNumber(p, 40, edited.height, {30, 20, 10});
  if (original.text != edited.text)
    setText(p, 1, QByteArray::fromStdString(toDxfString(edited.text)), {40, 30, 20});
  if (original.rotation != edited.rotation)
    setNumber(p, 50, edited.rotation, {1, 40});
  if (original.widthFactor != edited.widthFactor)
    setNumber(p, 41, edited.widthFactor, {50, 1, 40});
  if (original.oblique != edited.oblique)
    setNumber(p, 51, edited.oblique, {41, 50, 1, 40});
  if (original.style != edited.style)
    setText(p, 7, QByteArray::fromStdString(toDxfString(edited.style.isEmpty() ? QStringLiteral("Standard") : edited.style)),
            {51, 41, 50, 1, 40});
  if (original.horizontalAlignment != edited.horizontalAlignment)
    setInteger(p, 72, edited.horizontalAlignment, {71, 7, 51, 41, 50, 1, 40});
  if (edited.points.size() > 1 && (original.points.size() < 2 || original.points[1] != edited.points[1]))
    setPoint(p, 11, point(original, 1), point(edited, 1), {72, 71, 7, 51, 41, 50, 1, 40});
  if (original.verticalAlignment != edited.verticalAlignment)
  {
    // a text's is the first group of its second AcDbText part; an attribute's follows its field length
    if (attribute)
      setInteger(p, 74, edited.verticalAlignment, {73, 70, 2});
    else
      setInteger(p, 73, edited.verticalAlignment, {100, 230, 220, 210, 31, 21, 11, 72});
  }
}

void DxfRecordPatcher::applyMText(const Part& p, const DrawingEntity& original, const DrawingEntity& edited)
{
  setPoint(p, 10, original.points.empty() ? DrawingPoint() : original.points[0],
           edited.points.empty() ? DrawingPoint() : edited.points[0], {100, 8});
  if (original.height != edited.height)
    setNumber(p, 40, edited.height, {30, 20, 10});
  if (original.width != edited.width)
    setNumber(p, 41, edited.width, {40, 30, 20, 10});
  if (original.attachment != edited.attachment)
    setInteger(p, 71, edited.attachment, {41, 40});
  if (original.text != edited.text)
  {
    int at = find(p, 3);
    if (at < 0)
      at = find(p, 1);
    if (at >= 0)
    {
      remove(p, 3);
      remove(p, 1);
    }
    else
    {
      at = insert(p, 1, QByteArray(), {72, 71, 41, 40});
      m_groups.erase(m_groups.begin() + at);
    }
    const std::vector<QByteArray> pieces = textPieces(edited.text);
    for (std::size_t i = 0; i < pieces.size(); ++i)
      insertAt(at + int(i), i + 1 == pieces.size() ? 1 : 3, pieces[i]);
  }
  if (original.style != edited.style)
    setText(p, 7, QByteArray::fromStdString(toDxfString(edited.style.isEmpty() ? QStringLiteral("Standard") : edited.style)),
            {1, 3, 72, 71});
  if (original.rotation != edited.rotation)
  {
    if (find(p, 11) >= 0)
    {
      setNumber(p, 11, std::cos(radians(edited.rotation)), {});
      setNumber(p, 21, std::sin(radians(edited.rotation)), {11});
    }
    else
      setNumber(p, 50, edited.rotation, {7, 1, 3});
  }
}

void DxfRecordPatcher::applyLightPolyline(const Part& p, const DrawingEntity& original, const DrawingEntity& edited)
{
  if (original.closed != edited.closed)
  {
    const int found = find(p, 70);
    const int flags = found >= 0 ? m_groups[std::size_t(found)].value.trimmed().toInt() : 0;
    setInteger(p, 70, edited.closed ? flags | 1 : flags & ~1, {90, 100});
  }
  const double elevation = edited.points.empty() ? 0.0 : edited.points[0].z;
  const double wasElevation = original.points.empty() ? 0.0 : original.points[0].z;
  if (elevation != wasElevation)
    setNumber(p, 38, elevation, {70, 90});
  if (original.points == edited.points && original.bulges == edited.bulges)
    return;
  const auto bulge = [](const DrawingEntity& e, std::size_t i) { return i < e.bulges.size() ? e.bulges[i] : 0.0; };
  if (original.points.size() == edited.points.size())
  {
    for (std::size_t i = 0; i < edited.points.size(); ++i)
    {
      const int x = find(p, 10, int(i));
      if (x < 0)
        break;
      if (original.points[i].x != edited.points[i].x)
        replace(x, numberText(edited.points[i].x));
      if (x + 1 < ownEnd(p) && m_groups[std::size_t(x + 1)].code == 20 && original.points[i].y != edited.points[i].y)
        replace(x + 1, numberText(edited.points[i].y));
      if (bulge(original, i) == bulge(edited, i))
        continue;
      // the vertex's groups run to the next vertex
      int end = x + 1;
      int found = -1;
      const auto ofVertex = [](int code) { return code == 20 || code == 40 || code == 41 || code == 42 || code == 91; };
      while (end < ownEnd(p) && ofVertex(m_groups[std::size_t(end)].code))
      {
        if (m_groups[std::size_t(end)].code == 42)
          found = end;
        ++end;
      }
      if (found >= 0)
        replace(found, numberText(bulge(edited, i)));
      else
        insertAt(end, 42, numberText(bulge(edited, i)));
    }
    return;
  }
  // another count of vertices: they are written anew where the old ones were
  int at = find(p, 10);
  for (int code : {10, 20, 40, 41, 42, 91})
    remove(p, code);
  if (at < 0 || at > ownEnd(p))
    at = ownEnd(p);
  for (std::size_t i = 0; i < edited.points.size(); ++i)
  {
    insertAt(at++, 10, numberText(edited.points[i].x));
    insertAt(at++, 20, numberText(edited.points[i].y));
    if (bulge(edited, i) != 0)
      insertAt(at++, 42, numberText(bulge(edited, i)));
  }
  setInteger(p, 90, int(edited.points.size()), {100, 8});
}

void DxfRecordPatcher::applyPolyline(const DrawingEntity& original, const DrawingEntity& edited)
{
  const Part main = part(0);
  if (original.closed != edited.closed)
  {
    const int found = find(main, 70);
    const int flags = found >= 0 ? m_groups[std::size_t(found)].value.trimmed().toInt() : 0;
    setInteger(main, 70, edited.closed ? flags | 1 : flags & ~1, {30, 20, 10, 66});
  }
  if (original.points.size() != edited.points.size())
  {
    if (original.points != edited.points)
      m_unkept << QStringLiteral("vertex count");
    return;
  }
  const auto bulge = [](const DrawingEntity& e, std::size_t i) { return i < e.bulges.size() ? e.bulges[i] : 0.0; };
  int vertex = 0;
  for (int i = 1; i < partCount(); ++i)
  {
    const Part v = part(i);
    if (m_groups[std::size_t(v.first)].value.trimmed() != "VERTEX")
      continue;
    const std::size_t k = std::size_t(vertex++);
    if (k >= edited.points.size())
      break;
    setPoint(v, 10, original.points[k], edited.points[k], {100, 8});
    if (bulge(original, k) != bulge(edited, k))
      setNumber(v, 42, bulge(edited, k), {41, 40, 30, 20, 10});
  }
}

void DxfRecordPatcher::applySpline(const Part& p, const DrawingEntity& original, const DrawingEntity& edited)
{
  if (original.closed != edited.closed)
  {
    const int found = find(p, 70);
    const int flags = found >= 0 ? m_groups[std::size_t(found)].value.trimmed().toInt() : 0;
    setInteger(p, 70, edited.closed ? flags | 1 : flags & ~1, {100, 8});
  }
  const DrawingEntityDetail& was = original.details();
  const DrawingEntityDetail& now = edited.details();
  if (original.points == edited.points && was.knots == now.knots && was.weights == now.weights
      && was.fitPoints == now.fitPoints && was.degree == now.degree)
    return;
  // knots, weights, control and fit points are written anew, in the order of the format, where they were
  if (was.degree != now.degree)
    setInteger(p, 71, now.degree, {70});
  setInteger(p, 72, int(now.knots.size()), {71, 70});
  setInteger(p, 73, int(edited.points.size()), {72});
  setInteger(p, 74, int(now.fitPoints.size()), {73});
  int at = -1;
  for (int code : {40, 41, 10, 11})
    if (const int found = find(p, code); found >= 0 && (at < 0 || found < at))
      at = found;
  for (int code : {40, 41, 10, 20, 30, 11, 21, 31})
    remove(p, code);
  if (at < 0)
  {
    at = find(p, 74) + 1;
    for (int code : {42, 43, 44})
      if (const int found = find(p, code); found >= at)
        at = found + 1;
  }
  for (double knot : now.knots)
    insertAt(at++, 40, numberText(knot));
  for (double weight : now.weights)
    insertAt(at++, 41, numberText(weight));
  for (const auto* points : {&edited.points, &now.fitPoints})
    for (const DrawingPoint& q : *points)
    {
      const int code = points == &edited.points ? 10 : 11;
      insertAt(at++, code, numberText(q.x));
      insertAt(at++, code + 10, numberText(q.y));
      insertAt(at++, code + 20, numberText(q.z));
    }
}

void DxfRecordPatcher::applyHatch(const Part& p, const DrawingEntity& original, const DrawingEntity& edited)
{
  const DrawingEntityDetail& was = original.details();
  const DrawingEntityDetail& now = edited.details();
  if (was.loops.size() != now.loops.size()
      || !std::equal(was.loops.begin(), was.loops.end(), now.loops.begin(),
                     [](const DrawingHatchLoop& a, const DrawingHatchLoop& b) {
                       return a.points == b.points && a.bulges == b.bulges;
                     }))
    m_unkept << QStringLiteral("hatch boundary");
  // the pattern's name and fill come first in the hatch's part; its angle and scale after the loops
  int marker = p.first;
  for (int i = p.first + 1; i < ownEnd(p); ++i)
    if (m_groups[std::size_t(i)].code == 100 && m_groups[std::size_t(i)].value.trimmed() == "AcDbHatch")
      marker = i;
  const Part hatch{marker};
  if (was.pattern != now.pattern)
    setText(hatch, 2, QByteArray::fromStdString(toDxfString(now.pattern)), {230, 220, 210, 30});
  if (was.solidFill != now.solidFill)
    setInteger(hatch, 70, now.solidFill ? 1 : 0, {2});
  const int style = find(hatch, 76);
  const Part after{style >= 0 ? style - 1 : marker};
  if (was.patternAngle != now.patternAngle)
    setNumber(after, 52, now.patternAngle, {76, 75});
  if (was.patternScale != now.patternScale)
    setNumber(after, 41, now.patternScale, {52, 76, 75});
  if (was.patternLines.size() != now.patternLines.size())
    return;
  for (std::size_t i = 0; i < now.patternLines.size(); ++i)
  {
    const DrawingHatchLine& a = was.patternLines[i];
    const DrawingHatchLine& b = now.patternLines[i];
    const int line = find(after, 53, int(i));
    if (line < 0)
      return;
    const Part l{line - 1};
    if (a.angle != b.angle)
      replace(line, numberText(b.angle));
    setPoint(l, 43, {a.base.x, 0, 0}, {b.base.x, 0, 0}, {53});
    setPoint(l, 44, {a.base.y, 0, 0}, {b.base.y, 0, 0}, {43});
    setPoint(l, 45, {a.offset.x, 0, 0}, {b.offset.x, 0, 0}, {44});
    setPoint(l, 46, {a.offset.y, 0, 0}, {b.offset.y, 0, 0}, {45});
    if (a.dashes.size() == b.dashes.size())
      for (std::size_t d = 0; d < b.dashes.size(); ++d)
        if (const int dash = find(l, 49, int(d)); dash >= 0 && a.dashes[d] != b.dashes[d])
          replace(dash, numberText(b.dashes[d]));
  }
}

void DxfRecordPatcher::applyDimension(const Part& p, const DrawingEntity& original, const DrawingEntity& edited)
{
  const std::vector<int> codes = DxfEntityDecoder::dimensionPointCodes(edited.dimensionType);
  if ((original.dimensionType & 0x4F) != (edited.dimensionType & 0x4F))
    m_unkept << QStringLiteral("dimension type");
  for (std::size_t i = 0; i < codes.size() && i < edited.points.size(); ++i)
  {
    // the radial kinds name group 10 twice: it is the second that edits it
    if (std::count(codes.begin(), codes.begin() + std::ptrdiff_t(i), codes[i]) > 0)
      continue;
    const DrawingPoint was = i < original.points.size() ? original.points[i] : DrawingPoint();
    setPoint(p, codes[i], was, edited.points[i], {});
  }
  if (original.text != edited.text)
    setText(p, 1, QByteArray::fromStdString(toDxfString(edited.text)), {72, 71, 70});
  if (original.rotation != edited.rotation)
    setNumber(p, 50, edited.rotation, {34, 24, 14});
  if (original.radius != edited.radius)
    setNumber(p, 40, edited.radius, {35, 25, 15});
}

void DxfRecordPatcher::applyAttributes(const DrawingEntity& original, const DrawingEntity& edited)
{
  const std::vector<DrawingEntity>& was = original.details().attributes;
  const std::vector<DrawingEntity>& now = edited.details().attributes;
  if (was.size() != now.size())
  {
    m_unkept << QStringLiteral("attribute count");
    return;
  }
  int index = 0;
  for (int i = 1; i < partCount() && std::size_t(index) < now.size(); ++i)
  {
    const Part a = part(i);
    if (m_groups[std::size_t(a.first)].value.trimmed() != "ATTRIB")
      continue;
    const DrawingEntity& before = was[std::size_t(index)];
    const DrawingEntity& after = now[std::size_t(index)];
    ++index;
    if (before.color != after.color || before.lineWeight != after.lineWeight || before.visible != after.visible
        || before.linetypeScale != after.linetypeScale)
      applyCommon(a, before, {}, after, {});
    applyText(a, before, after, true);
    if (before.blockName != after.blockName)
      setText(a, 2, QByteArray::fromStdString(toDxfString(after.blockName)), {100, 11, 72, 1});
  }
}

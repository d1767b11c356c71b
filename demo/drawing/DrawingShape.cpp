#include "DrawingShape.h"

#include "DrawingEntity.h"

#include "DrawingDocument.h"
#include "OdDbLayerTableRecord.h"
#include "OdDbLinetypeTableRecord.h"
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QPainter>
#include <QPainterPathStroker>
#include <QRegularExpression>
#include <QtMath>
#include <algorithm>
#include <cmath>

namespace
{

// Texts are laid out once in this font at a fixed size and scaled to their height.
constexpr double kFontPixels = 64.0;
// More dashes than this on one entity are a grey blur on screen; the outline is drawn solid instead.
constexpr double kMaxDashes = 20000.0;
// On screen, below these sizes in pixels an entity is drawn as a dot and a dash pattern as a solid line.
constexpr double kDotPixels = 2.0;
constexpr double kDashPixels = 6.0;

struct FontScale
{
  QFont font;
  double capHeight;
  double ascent;
};

const FontScale& fontScale()
{
  static const FontScale scale = [] {
    QFont font(QGuiApplication::font());
    font.setPixelSize(int(kFontPixels));
    const QFontMetricsF metrics(font);
    return FontScale{font, metrics.capHeight() > 0 ? metrics.capHeight() : kFontPixels * 0.7, metrics.ascent()};
  }();
  return scale;
}

/** What ByLayer and ByBlock resolve to at the current level of block nesting. */
struct Inherited
{
  QColor color;
  OdDbObjectId linetype;
  OdDb::LineWeight weight = OdDb::kLnWtByLwDefault;
  double linetypeScale = 1.0;
  OdDbObjectId layer;
};

QPointF at(const DrawingPoint& p)
{
  return QPointF(p.x, p.y);
}

DrawingPoint pointAt(const DrawingEntity& e, std::size_t index)
{
  return index < e.points.size() ? e.points[index] : DrawingPoint();
}

/** Adds an arc of the drawing (Y up, counter-clockwise positive) to a path in drawing coordinates. */
void addArc(QPainterPath& path, const QPointF& centre, double radius, double startDegrees, double sweepDegrees,
            bool moveFirst)
{
  const QRectF box(centre.x() - radius, centre.y() - radius, 2 * radius, 2 * radius);
  const double a = qDegreesToRadians(startDegrees);
  const QPointF start(centre.x() + radius * std::cos(a), centre.y() + radius * std::sin(a));
  if (moveFirst)
    path.moveTo(start);
  // QPainterPath counts angles with Y down; in drawing coordinates that flips their sign.
  // It counts quarter turns in an int, which a drawing's angle of many turns overflows.
  path.arcTo(box, -std::fmod(startDegrees, 360.0), -sweepDegrees);
}

void addBulge(QPainterPath& path, const QPointF& from, const QPointF& to, double bulge)
{
  const QPointF chord = to - from;
  const double length = std::hypot(chord.x(), chord.y());
  if (std::abs(bulge) < 1e-9 || length <= 0 || !std::isfinite(bulge))
  {
    path.lineTo(to);
    return;
  }
  const double sweep = 4.0 * std::atan(bulge);
  const QPointF normal(-chord.y() / length, chord.x() / length);
  const double offset = length / 2.0 * (1.0 - bulge * bulge) / (2.0 * bulge);
  const QPointF centre = (from + to) / 2.0 + normal * offset;
  const double radius = std::hypot(from.x() - centre.x(), from.y() - centre.y());
  const double start = qRadiansToDegrees(std::atan2(from.y() - centre.y(), from.x() - centre.x()));
  addArc(path, centre, radius, start, qRadiansToDegrees(sweep), false);
}

void addArrow(QPainterPath& path, const QPointF& tip, const QPointF& towards, double size)
{
  const QPointF d = towards - tip;
  const double length = std::hypot(d.x(), d.y());
  if (length <= 0)
    return;
  const QPointF u = d / length;
  const QPointF n(-u.y(), u.x());
  path.moveTo(tip);
  path.lineTo(tip + u * size + n * size / 6.0);
  path.lineTo(tip + u * size - n * size / 6.0);
  path.closeSubpath();
}

/** The outline cut into the pattern's dashes; all lengths in the path's own units. */
QPainterPath dashed(const QPainterPath& outline, const std::vector<double>& pattern)
{
  double period = 0;
  for (double d : pattern)
    period += std::abs(d);
  // each element of the pattern is a dash, or a gap, once per repetition
  if (pattern.empty() || period <= 0 || outline.length() / period * double(pattern.size()) > kMaxDashes)
    return outline;
  const double dot = period / 100.0;
  QPainterPath result;
  for (const QPolygonF& polygon : outline.toSubpathPolygons())
  {
    std::size_t index = 0;
    double left = pattern[0] == 0 ? dot : std::abs(pattern[0]);
    bool on = pattern[0] >= 0;
    for (int i = 1; i < polygon.size(); ++i)
    {
      QPointF from = polygon[i - 1];
      const QPointF to = polygon[i];
      double segment = QLineF(from, to).length();
      if (on)
        result.moveTo(from);
      while (segment > left)
      {
        const QPointF cut = from + (to - from) * (left / segment);
        if (on)
          result.lineTo(cut);
        segment -= left;
        from = cut;
        index = (index + 1) % pattern.size();
        on = pattern[index] >= 0;
        left = pattern[index] == 0 ? dot : std::abs(pattern[index]);
        if (on)
          result.moveTo(from);
      }
      left -= segment;
      if (on)
        result.lineTo(to);
    }
  }
  return result;
}

QString plainText(QString text, bool multiline)
{
  text.replace(QLatin1String("%%c"), QStringLiteral("\u00d8"), Qt::CaseInsensitive);
  text.replace(QLatin1String("%%d"), QStringLiteral("\u00b0"), Qt::CaseInsensitive);
  text.replace(QLatin1String("%%p"), QStringLiteral("\u00b1"), Qt::CaseInsensitive);
  if (!multiline)
    return text;
  static const QRegularExpression stacked(QStringLiteral("\\\\S([^^;]*)\\^([^;]*);"));
  static const QRegularExpression command(QStringLiteral("\\\\[ACcFfHhQTWp][^;]*;|\\\\[LlOoKk]|[{}]"));
  text.replace(QLatin1String("\\P"), QStringLiteral("\n"));
  text.replace(QLatin1String("\\~"), QStringLiteral(" "));
  text.replace(stacked, QStringLiteral("\\1/\\2"));
  text.remove(command);
  return text;
}

class Builder
{
public:
  Builder(const DrawingDocument& document, const DrawingLook& look,
          std::vector<DrawingStroke>& strokes, std::vector<DrawingTextRun>& texts)
      : m_document(document), m_db(document.database()), m_look(look), m_strokes(strokes), m_texts(texts)
  {
  }

  void add(const DrawingEntity& e, const QTransform& toScene, const Inherited& parent, int depth)
  {
    if (!e.visible || depth > DrawingDocument::kMaxBlockDepth)
      return;
    // an entity of a block on layer 0 takes the insert's layer
    const OdDbObjectId layerId = depth > 0 && e.layer == m_db.getLayerZeroId() ? parent.layer : e.layer;
    const OdDbLayerTableRecord* layer = m_db.openLayer(layerId);
    if (layer && (layer->isOff() || layer->isFrozen()))
      return;

    Inherited own;
    own.layer = layerId;
    own.color = colorOf(e.color, layer, parent);
    own.linetype = e.linetype == m_db.getLinetypeByLayerId() || e.linetype.isNull()
                       ? (layer ? layer->linetypeObjectId() : OdDbObjectId())
                   : e.linetype == m_db.getLinetypeByBlockId() ? parent.linetype
                                                               : e.linetype;
    own.weight = e.lineWeight == OdDb::kLnWtByLayer ? (layer ? layer->lineWeight() : OdDb::kLnWtByLwDefault)
                 : e.lineWeight == OdDb::kLnWtByBlock ? parent.weight
                                                      : e.lineWeight;
    own.linetypeScale = e.linetypeScale * parent.linetypeScale;

    QPainterPath path;
    switch (e.kind)
    {
    case EntityKind::Line:
      path.moveTo(at(pointAt(e, 0)));
      path.lineTo(at(pointAt(e, 1)));
      break;
    case EntityKind::Circle:
      path.addEllipse(at(pointAt(e, 0)), e.radius, e.radius);
      break;
    case EntityKind::Arc:
    {
      double sweep = std::fmod(e.endAngle - e.startAngle, 360.0);
      if (sweep <= 0)
        sweep += 360.0;
      addArc(path, at(pointAt(e, 0)), e.radius, e.startAngle, sweep, true);
      break;
    }
    case EntityKind::Polyline:
      addPolyline(path, e);
      break;
    case EntityKind::Text:
    case EntityKind::MText:
      addText(e, toScene, own.color);
      return;
    case EntityKind::Insert:
      addInsert(e, toScene, own, depth);
      return;
    case EntityKind::Dimension:
      addDimension(path, e, toScene, own.color);
      break;
    }
    addStroke(toScene.map(path), own);
  }

private:
  QColor colorOf(const OdCmColor& color, const OdDbLayerTableRecord* layer, const Inherited& parent) const
  {
    if (color.isByBlock())
      return parent.color;
    if (color.isByLayer())
      return layer ? colorOf(layer->color(), nullptr, parent) : m_look.ink;
    if (color.isByColor())
      return QColor(color.red(), color.green(), color.blue());
    const int index = color.colorIndex();
    if (index == OdCmEntityColor::kACIforeground || index <= 0 || index > 255)
      return m_look.ink;
    return QColor::fromRgb(OdCmEntityColor::lookUpRGB(OdUInt8(index)));
  }

  void addPolyline(QPainterPath& path, const DrawingEntity& e) const
  {
    if (e.points.empty())
      return;
    path.moveTo(at(e.points[0]));
    const std::size_t n = e.points.size();
    const std::size_t segments = e.closed ? n : n - 1;
    for (std::size_t i = 0; i < segments; ++i)
      addBulge(path, at(e.points[i]), at(e.points[(i + 1) % n]), i < e.bulges.size() ? e.bulges[i] : 0.0);
  }

  void addInsert(const DrawingEntity& e, const QTransform& toScene, const Inherited& own, int depth)
  {
    const auto found = m_document.blocks().find(e.blockName);
    if (found == m_document.blocks().end())
      return;
    const DrawingBlock& block = found->second;
    const DrawingPoint p = pointAt(e, 0);
    QTransform local;
    local.translate(p.x, p.y);
    local.rotate(e.rotation);
    local.scale(e.scale.x, e.scale.y);
    local.translate(-block.basePoint.x, -block.basePoint.y);
    const QTransform blockToScene = local * toScene;
    for (const DrawingEntity& child : block.entities)
      add(child, blockToScene, own, depth + 1);
  }

  /** Lays a text out with its baseline's left end at the origin of @p placement (drawing units). */
  void addTextLine(const QString& line, const QTransform& placement, double height, const QPointF& offset,
                   const QColor& color)
  {
    if (line.isEmpty() || height <= 0 || !std::isfinite(height))
      return;
    const FontScale& fs = fontScale();
    DrawingTextRun run;
    run.text.setTextFormat(Qt::PlainText);
    run.text.setText(line);
    run.text.setPerformanceHint(QStaticText::AggressiveCaching);
    run.text.prepare(QTransform(), fs.font);
    const double k = height / fs.capHeight;
    // font units (Y down, baseline at 0) to drawing units (Y up)
    run.transform = QTransform::fromTranslate(offset.x(), offset.y()) * QTransform::fromScale(k, -k) * placement;
    run.transform = QTransform::fromTranslate(0, -fs.ascent) * run.transform;
    run.color = color;
    const QSizeF size = run.text.size();
    run.box = run.transform.map(QPolygonF(QRectF(QPointF(0, 0), size)));
    m_texts.push_back(std::move(run));
  }

  void addText(const DrawingEntity& e, const QTransform& toScene, const QColor& color)
  {
    const DrawingPoint p = pointAt(e, 0);
    QTransform placement;
    placement.translate(p.x, p.y);
    placement.rotate(e.rotation);
    placement *= toScene;
    const QString text = plainText(e.text, e.kind == EntityKind::MText);
    if (e.kind == EntityKind::Text)
    {
      addTextLine(text, placement, e.height, QPointF(), color);
      return;
    }
    const FontScale& fs = fontScale();
    const QStringList lines = text.split(QLatin1Char('\n'));
    const double step = fs.capHeight * 5.0 / 3.0;
    double width = 0;
    const QFontMetricsF metrics(fs.font);
    for (const QString& line : lines)
      width = std::max(width, metrics.horizontalAdvance(line));
    const double top = -fs.capHeight;
    const double bottom = (lines.size() - 1) * step;
    const int column = (e.attachment - 1) % 3;
    const int row = (e.attachment - 1) / 3;
    const double dx = column == 0 ? 0 : column == 1 ? -width / 2 : -width;
    const double dy = row == 0 ? -top : row == 1 ? -(top + bottom) / 2 : -bottom;
    for (int i = 0; i < lines.size(); ++i)
      addTextLine(lines[i], placement, e.height, QPointF(dx, dy + i * step), color);
  }

  void addDimension(QPainterPath& path, const DrawingEntity& e, const QTransform& toScene, const QColor& color)
  {
    const QPointF p0 = at(pointAt(e, 0));
    const QPointF p1 = at(pointAt(e, 1));
    const QPointF line = at(pointAt(e, 2));
    QPointF textAt = at(pointAt(e, 3));
    double value = 0;
    double textAngle = 0;
    QString prefix;
    const int type = e.dimensionType & 0x0F;
    // the text height of the dimension style every saved drawing carries
    const double textHeight = 2.5;
    double size = textHeight;
    switch (type)
    {
    case 0:
    case 1:
    {
      QPointF u = type == 0 ? QPointF(std::cos(qDegreesToRadians(e.rotation)), std::sin(qDegreesToRadians(e.rotation)))
                            : p1 - p0;
      const double ul = std::hypot(u.x(), u.y());
      if (ul <= 0)
        return;
      u /= ul;
      const auto project = [&](const QPointF& p) { return line + u * QPointF::dotProduct(p - line, u); };
      const QPointF q0 = project(p0);
      const QPointF q1 = project(p1);
      value = std::abs(QPointF::dotProduct(p1 - p0, u));
      size = std::clamp(value / 5.0, 0.5, textHeight);
      for (const auto& [p, q] : {std::pair<QPointF, QPointF>{p0, q0}, {p1, q1}})
      {
        const QPointF d = q - p;
        const double dl = std::hypot(d.x(), d.y());
        path.moveTo(p + (dl > 0 ? d / dl * size * 0.25 : QPointF()));
        path.lineTo(q + (dl > 0 ? d / dl * size * 0.5 : QPointF()));
      }
      path.moveTo(q0);
      path.lineTo(q1);
      addArrow(path, q0, q1, size);
      addArrow(path, q1, q0, size);
      textAngle = qRadiansToDegrees(std::atan2(u.y(), u.x()));
      if (textAt == QPointF())
        textAt = (q0 + q1) / 2;
      break;
    }
    case 3:
    case 4:
    {
      value = QLineF(p0, p1).length();
      size = std::clamp(value / 3.0, 0.5, textHeight);
      path.moveTo(p0);
      path.lineTo(p1);
      addArrow(path, p1, p0, size);
      if (type == 3)
        addArrow(path, p0, p1, size);
      if (textAt != QPointF())
      {
        path.moveTo(p1);
        path.lineTo(textAt);
      }
      prefix = type == 3 ? QStringLiteral("\u00d8") : QStringLiteral("R");
      break;
    }
    case 2:
    case 5:
    {
      // angular: by three points the vertex is given, by two lines it is where they meet
      QPointF vertex = at(pointAt(e, 4));
      QPointF arcPoint = line;
      if (type == 2)
      {
        const QLineF first(p0, p1);
        const QLineF second(vertex, line);
        QPointF meet;
        if (first.intersects(second, &meet) == QLineF::NoIntersection)
          return;
        arcPoint = at(pointAt(e, 5));
        const QPointF a = p1;
        const QPointF b = line;
        vertex = meet;
        addAngle(path, vertex, a, b, arcPoint, value);
      }
      else
        addAngle(path, vertex, p0, p1, arcPoint, value);
      if (textAt == QPointF())
        textAt = arcPoint;
      break;
    }
    default:
    {
      path.moveTo(p0);
      path.lineTo(p1);
      value = (e.dimensionType & 64) ? p0.x() - line.x() : p0.y() - line.y();
      if (textAt == QPointF())
        textAt = p1;
      break;
    }
    }
    static const QRegularExpression trailingZeros(QStringLiteral("\\.?0+$"));
    const bool angular = type == 2 || type == 5;
    const QString measured = angular ? QString::number(value, 'f', 0) + QStringLiteral("\u00b0")
                                     : prefix + QString::number(value, 'f', 2).remove(trailingZeros);
    QString shown = e.text.isEmpty() ? measured : QString(e.text).replace(QLatin1String("<>"), measured);
    shown = plainText(shown, true);
    if (textAngle > 90.0 || textAngle <= -90.0)
      textAngle += 180.0;
    QTransform placement;
    placement.translate(textAt.x(), textAt.y());
    placement.rotate(textAngle);
    placement *= toScene;
    const FontScale& fs = fontScale();
    const double width = QFontMetricsF(fs.font).horizontalAdvance(shown);
    // lifted off the dimension line, centred on the text point
    addTextLine(shown, placement, textHeight, QPointF(-width / 2, -fs.capHeight * 0.3), color);
  }

  static void addAngle(QPainterPath& path, const QPointF& vertex, const QPointF& a, const QPointF& b,
                       const QPointF& arcPoint, double& degrees)
  {
    const double radius = QLineF(vertex, arcPoint).length();
    double start = qRadiansToDegrees(std::atan2(a.y() - vertex.y(), a.x() - vertex.x()));
    double end = qRadiansToDegrees(std::atan2(b.y() - vertex.y(), b.x() - vertex.x()));
    double sweep = std::fmod(end - start + 720.0, 360.0);
    if (sweep > 180.0)
    {
      std::swap(start, end);
      sweep = 360.0 - sweep;
    }
    degrees = sweep;
    if (radius <= 0)
      return;
    for (const double angle : {start, end})
    {
      const double r = qDegreesToRadians(angle);
      path.moveTo(vertex);
      path.lineTo(vertex + QPointF(std::cos(r), std::sin(r)) * radius * 1.05);
    }
    addArc(path, vertex, radius, start, sweep, true);
  }

  void addStroke(const QPainterPath& outline, const Inherited& style)
  {
    if (outline.isEmpty())
      return;
    double mm = style.weight >= 0 ? style.weight / 100.0
                                  : m_db.getLWDEFAULT() / 100.0;
    // what a screen cannot show thinner than a pixel is drawn at one pixel
    const double pixels = mm <= 0.25 ? 0.0 : mm * m_look.pixelsPerMm;
    std::vector<double> pattern;
    if (const OdDbLinetypeTableRecord* linetype = m_db.openLinetype(style.linetype))
      for (int i = 0; i < linetype->numDashes(); ++i)
        pattern.push_back(linetype->dashLengthAt(i) * style.linetypeScale);

    double period = 0;
    for (double d : pattern)
      period += std::abs(d);
    QPen pen(style.color, pixels, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    pen.setCosmetic(true);
    // A block's entities mostly share one look, and an insert of it draws them thousands of
    // times over: in one stroke they cost a path, not a path, two pens and a copy each.
    if (!m_strokes.empty() && m_strokes.back().pen == pen && m_strokes.back().period == period)
    {
      m_strokes.back().outline.addPath(outline);
      if (period > 0)
        m_strokes.back().dashed.addPath(dashed(outline, pattern));
      return;
    }

    DrawingStroke stroke;
    stroke.outline = outline;
    // a continuous line is never drawn dashed
    if (period > 0)
      stroke.dashed = dashed(outline, pattern);
    stroke.period = period;
    stroke.pen = pen;
    QColor glow = m_look.highlight;
    glow.setAlpha(150);
    stroke.glow = QPen(glow, std::max(pixels, 1.0) + 4.0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    stroke.glow.setCosmetic(true);
    m_strokes.push_back(std::move(stroke));
  }

  const DrawingDocument& m_document;
  const OdDbDatabase& m_db;
  const DrawingLook& m_look;
  std::vector<DrawingStroke>& m_strokes;
  std::vector<DrawingTextRun>& m_texts;
};

} // namespace

void DrawingShape::build(const DrawingDocument& document, const DrawingEntity& entity, const DrawingLook& look)
{
  m_strokes.clear();
  m_texts.clear();
  Inherited top;
  top.color = look.ink;
  top.linetype = document.database().getLinetypeContinuousId();
  top.layer = entity.layer;
  // the scene's Y axis points down, the drawing's up
  Builder(document, look, m_strokes, m_texts).add(entity, QTransform::fromScale(1, -1), top, 0);
  QRectF bounds;
  for (const DrawingStroke& s : m_strokes)
    bounds |= s.outline.controlPointRect();
  for (const DrawingTextRun& t : m_texts)
    bounds |= t.box.boundingRect();
  // a horizontal or vertical line has an empty box, which no rectangle test finds
  const double pad = std::max(bounds.width(), bounds.height()) * 1e-3 + 1e-6;
  m_bounds = bounds.adjusted(-pad, -pad, pad, pad);
  m_highlight = look.highlight;
  m_textHighlight = look.highlight;
  m_textHighlight.setAlpha(90);
}

bool DrawingShape::hits(const QPointF& point, double tolerance) const
{
  const QRectF near(point - QPointF(tolerance, tolerance), QSizeF(2 * tolerance, 2 * tolerance));
  if (!m_bounds.intersects(near))
    return false;
  for (const DrawingTextRun& t : m_texts)
    if (t.box.containsPoint(point, Qt::OddEvenFill))
      return true;
  QPainterPathStroker stroker;
  stroker.setWidth(2 * tolerance);
  for (const DrawingStroke& s : m_strokes)
    if (s.outline.controlPointRect().adjusted(-tolerance, -tolerance, tolerance, tolerance).contains(point)
        && stroker.createStroke(s.outline).contains(point))
      return true;
  return false;
}

QPainterPath DrawingShape::outline() const
{
  QPainterPath shape;
  for (const DrawingStroke& s : m_strokes)
    shape.addPath(s.outline);
  for (const DrawingTextRun& t : m_texts)
    shape.addPolygon(t.box);
  return shape;
}

void DrawingShape::paint(QPainter* painter, double lod, bool highlighted) const
{
  painter->setBrush(Qt::NoBrush);
  // an entity smaller than a pixel or two is a dot at this zoom, and drawn as one
  if (std::max(m_bounds.width(), m_bounds.height()) * lod < kDotPixels && !m_strokes.empty())
  {
    painter->setPen(highlighted ? m_strokes.front().glow : m_strokes.front().pen);
    painter->drawPoint(m_bounds.center());
    return;
  }
  if (highlighted)
    for (const DrawingStroke& s : m_strokes)
    {
      painter->setPen(s.glow);
      painter->drawPath(s.outline);
    }
  for (const DrawingStroke& s : m_strokes)
  {
    painter->setPen(s.pen);
    // dashes closer than a few pixels blur into a line anyway, and cost far more to draw
    painter->drawPath(s.period * lod < kDashPixels ? s.outline : s.dashed);
  }
  if (m_texts.empty())
    return;
  const QTransform base = painter->worldTransform();
  painter->setFont(fontScale().font);
  for (const DrawingTextRun& t : m_texts)
  {
    // a text smaller than a couple of pixels is drawn as the box it fills
    if (lod * std::sqrt(std::abs(t.transform.determinant())) * fontScale().capHeight < kDotPixels)
    {
      painter->setPen(highlighted ? m_highlight : t.color);
      painter->drawPolygon(t.box);
      continue;
    }
    if (highlighted)
    {
      painter->setPen(Qt::NoPen);
      painter->setBrush(m_textHighlight);
      painter->drawPolygon(t.box);
      painter->setBrush(Qt::NoBrush);
    }
    painter->setPen(t.color);
    painter->setWorldTransform(t.transform * base);
    painter->drawStaticText(QPointF(0, 0), t.text);
    painter->setWorldTransform(base);
  }
}

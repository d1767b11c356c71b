#include "DrawingShape.h"

#include "DrawingEntity.h"

#include "DrawingCurves.h"
#include "DrawingDashes.h"
#include "DrawingDocument.h"
#include "DrawingHatchFill.h"
#include "DrawingHatchPatterns.h"
#include "DrawingSplines.h"
#include "DrawingTextLayout.h"
#include "OdDbLayerTableRecord.h"
#include "OdDbLinetypeTableRecord.h"
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QPainter>
#include <QPainterPathStroker>
#include <QRegularExpression>
#include <limits>
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
// A hatch of more pattern lines and dashes than this is drawn as a tone of its colour.
constexpr int kMaxHatchPieces = 20000;
// A point mark whose size the drawing gives relative to the screen, which a shape built once cannot follow.
constexpr double kPointMarkSize = 2.5;
// Width factors and oblique angles beyond these are not a text's but a broken file's.
constexpr double kMaxWidthFactor = 100.0;
constexpr double kMaxOblique = 85.0;

struct FontScale
{
  QFont font;
  QFontMetricsF metrics;
  double capHeight;
  double ascent;
  double descent;
};

const FontScale& fontScale()
{
  static const FontScale scale = [] {
    QFont font(QGuiApplication::font());
    font.setPixelSize(int(kFontPixels));
    const QFontMetricsF metrics(font);
    return FontScale{font, metrics, metrics.capHeight() > 0 ? metrics.capHeight() : kFontPixels * 0.7, metrics.ascent(),
                     metrics.descent()};
  }();
  return scale;
}

/** How a text is drawn: its height and its style's or its own width factor and oblique angle (degrees). */
struct TextLook
{
  double height;
  double widthFactor;
  double oblique;
};

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
      addDrawingArc(path, at(pointAt(e, 0)), e.radius, e.startAngle, sweep, true);
      break;
    }
    case EntityKind::Polyline:
      addBulgedPolyline(path, e.points, e.bulges, e.closed);
      break;
    case EntityKind::Text:
      addText(e, toScene, own.color);
      return;
    case EntityKind::MText:
      addMText(e, toScene, own.color);
      return;
    case EntityKind::Insert:
      addInsert(e, toScene, own, depth);
      return;
    case EntityKind::Dimension:
      if (addDimensionBlock(e, toScene, own, depth))
        return;
      addDimension(path, e, toScene, own.color);
      break;
    case EntityKind::Ellipse:
      path = ellipsePath(e);
      break;
    case EntityKind::Spline:
      path = splinePath(e);
      break;
    case EntityKind::Point:
      addPoint(path, at(pointAt(e, 0)));
      break;
    case EntityKind::Solid:
    case EntityKind::Trace:
      addSolid(e, toScene, own);
      return;
    case EntityKind::Hatch:
      addHatch(e, toScene, own);
      return;
    case EntityKind::Image:
      addImage(path, e, toScene, own.color);
      break;
    case EntityKind::Other:
      return;
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

  void addInsert(const DrawingEntity& e, const QTransform& toScene, const Inherited& own, int depth)
  {
    // attributes are where the file puts them, not in the block, and take ByBlock from the insert
    for (const DrawingEntity& attribute : e.details().attributes)
      if (attribute.kind == EntityKind::Text)
        add(attribute, toScene, own, depth);
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

  /** Draws a dimension as the block of lines, arrows and text its file made for it; false when it has none. */
  bool addDimensionBlock(const DrawingEntity& e, const QTransform& toScene, const Inherited& own, int depth)
  {
    if (e.blockName.isEmpty())
      return false;
    const auto found = m_document.blocks().find(e.blockName);
    if (found == m_document.blocks().end() || found->second.entities.empty())
      return false;
    // the block is drawn where its entities are, as the file placed them for this dimension
    for (const DrawingEntity& child : found->second.entities)
      add(child, toScene, own, depth + 1);
    return true;
  }

  void addPoint(QPainterPath& path, const QPointF& p) const
  {
    const int mode = int(std::clamp(m_document.headerReal(QStringLiteral("$PDMODE"), 0.0), 0.0, 127.0));
    double size = m_document.headerReal(QStringLiteral("$PDSIZE"), 0.0);
    if (!(size > 0) || !std::isfinite(size))
      size = kPointMarkSize;
    const double r = size / 2;
    switch (mode & 7)
    {
    case 0:
      // a path drops a line to where it is, and a path of one point draws nothing
      path.moveTo(p);
      path.lineTo(p + QPointF(std::max(std::abs(p.x()), 1.0) * 1e-9, 0));
      break;
    case 2:
      path.moveTo(p - QPointF(r, 0));
      path.lineTo(p + QPointF(r, 0));
      path.moveTo(p - QPointF(0, r));
      path.lineTo(p + QPointF(0, r));
      break;
    case 3:
      path.moveTo(p - QPointF(r, r));
      path.lineTo(p + QPointF(r, r));
      path.moveTo(p - QPointF(r, -r));
      path.lineTo(p + QPointF(r, -r));
      break;
    case 4:
      path.moveTo(p);
      path.lineTo(p + QPointF(0, r));
      break;
    default:
      break;
    }
    if (mode & 32)
      path.addEllipse(p, r, r);
    if (mode & 64)
      path.addRect(QRectF(p - QPointF(r, r), QSizeF(size, size)));
  }

  void addSolid(const DrawingEntity& e, const QTransform& toScene, const Inherited& own)
  {
    if (e.points.size() < 3)
      return;
    // the file gives the corners in zigzag order: the third and fourth are swapped round the outline
    QPainterPath path;
    path.moveTo(at(e.points[0]));
    path.lineTo(at(e.points[1]));
    if (e.points.size() > 3)
      path.lineTo(at(e.points[3]));
    path.lineTo(at(e.points[2]));
    path.closeSubpath();
    addFill(toScene.map(path), own, QBrush(own.color), true);
  }

  void addHatch(const DrawingEntity& e, const QTransform& toScene, const Inherited& own)
  {
    const DrawingEntityDetail& detail = e.details();
    const QPainterPath loops = hatchLoopsPath(detail.loops);
    if (loops.isEmpty())
      return;
    if (detail.solidFill)
    {
      addFill(toScene.map(loops), own, QBrush(own.color), true);
      return;
    }
    std::vector<DrawingHatchLine> named;
    // by name, the patterns are in millimetres; a drawing in inches ($MEASUREMENT 0) has them in inches
    const bool inches = m_document.headerReal(QStringLiteral("$MEASUREMENT"), 1.0) == 0.0;
    if (detail.patternLines.empty())
      named = hatchPatternLines(detail.pattern, detail.patternScale / (inches ? 25.4 : 1.0), detail.patternAngle);
    const std::vector<DrawingHatchLine>& families = detail.patternLines.empty() ? named : detail.patternLines;
    QPainterPath lines;
    if (!families.empty() && addHatchPatternLines(lines, loops, families, kMaxHatchPieces))
    {
      // the pattern has dashes of its own; the hatch's linetype does not cut them again
      Inherited continuous = own;
      continuous.linetype = OdDbObjectId();
      addStroke(toScene.map(lines), continuous);
      return;
    }
    // lines too fine to count, or a pattern nobody can draw, read as a tone of the hatch's colour
    QColor tone = own.color;
    tone.setAlpha(70);
    addFill(toScene.map(loops), own, QBrush(tone), false);
  }

  void addImage(QPainterPath& path, const DrawingEntity& e, const QTransform& toScene, const QColor& color)
  {
    const DrawingEntityDetail& detail = e.details();
    const QPointF origin = at(pointAt(e, 0));
    const QPointF u = at(pointAt(e, 1)) * detail.pixelsWide;
    const QPointF v = at(pointAt(e, 2)) * detail.pixelsHigh;
    const double width = std::hypot(u.x(), u.y());
    const double height = std::hypot(v.x(), v.y());
    if (!(width > 0) || !(height > 0) || !std::isfinite(width * height))
      return;
    path.moveTo(origin);
    path.lineTo(origin + u);
    path.lineTo(origin + u + v);
    path.lineTo(origin + v);
    path.closeSubpath();
    // the picture itself is not loaded: the frame says which file it is
    const QString file = detail.imageFile.section(QRegularExpression(QStringLiteral("[/\\\\]")), -1);
    const FontScale& fs = fontScale();
    const double advance = fs.metrics.horizontalAdvance(file);
    if (file.isEmpty() || !(advance > 0))
      return;
    const double textHeight = std::min(height * 0.1, width * 0.9 * fs.capHeight / advance);
    QTransform placement;
    placement.translate(origin.x() + (u.x() + v.x()) / 2, origin.y() + (u.y() + v.y()) / 2);
    placement.rotate(qRadiansToDegrees(std::atan2(u.y(), u.x())));
    addTextLine(file, placement * toScene, textHeight, QPointF(-advance / 2, fs.capHeight / 2), color);
  }

  /**
   * Lays a text out with its baseline's left end at @p offset (font pixels, Y down, after the width
   * factor) from the origin of @p placement (drawing units), slanted by @p oblique degrees.
   */
  void addTextLine(const QString& line, const QTransform& placement, double height, const QPointF& offset,
                   const QColor& color, double widthFactor = 1.0, double oblique = 0.0)
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
    // font units (Y down, baseline at 0), narrowed and slanted, then to drawing units (Y up)
    const QTransform slant(widthFactor, 0, -std::tan(qDegreesToRadians(oblique)), 1, 0, 0);
    run.transform = QTransform::fromTranslate(0, -fs.ascent) * slant
                    * QTransform::fromTranslate(offset.x(), offset.y()) * QTransform::fromScale(k, -k) * placement;
    run.color = color;
    // the box of the advance, by which the text was placed, rather than of the laid out glyphs
    const QSizeF size(fs.metrics.horizontalAdvance(line), fs.ascent + fs.descent);
    run.box = run.transform.map(QPolygonF(QRectF(QPointF(0, 0), size)));
    m_texts.push_back(std::move(run));
  }

  const DrawingTextStyle* styleOf(const QString& name) const
  {
    const QString wanted = name.isEmpty() ? QStringLiteral("Standard") : name;
    const auto& styles = m_document.textStyles();
    const auto found = styles.find(wanted);
    if (found != styles.end())
      return &found->second;
    for (const auto& [styleName, style] : styles)
      if (styleName.compare(wanted, Qt::CaseInsensitive) == 0)
        return &style;
    return nullptr;
  }

  /**
   * A text's own width factor and oblique angle win over its style's, unless they are the defaults a
   * file leaves unwritten; a style's fixed height wins over a single-line text's own.
   */
  TextLook textLook(const DrawingEntity& e) const
  {
    TextLook look{e.height, 1.0, 0.0};
    if (const DrawingTextStyle* style = styleOf(e.style))
    {
      if (e.kind == EntityKind::Text && style->height > 0 && std::isfinite(style->height))
        look.height = style->height;
      look.widthFactor = style->widthFactor;
      look.oblique = style->oblique;
    }
    if (e.kind == EntityKind::Text && e.widthFactor != 1.0)
      look.widthFactor = e.widthFactor;
    if (e.kind == EntityKind::Text && e.oblique != 0.0)
      look.oblique = e.oblique;
    if (!(look.widthFactor > 1.0 / kMaxWidthFactor && look.widthFactor < kMaxWidthFactor))
      look.widthFactor = 1.0;
    look.oblique = std::remainder(look.oblique, 360.0);
    if (!(std::abs(look.oblique) < kMaxOblique))
      look.oblique = 0.0;
    return look;
  }

public:
  /** Where the point that an alignment names lies, from a text's first point along its baseline (x) and up (y). */
  QPointF alignmentOffset(const DrawingEntity& e, int horizontal, int vertical) const
  {
    const TextLook look = textLook(e);
    const FontScale& fs = fontScale();
    const double unit = look.height / fs.capHeight;
    const double length = fs.metrics.horizontalAdvance(drawnText(e.text)) * look.widthFactor * unit;
    const double x = horizontal == 1 || horizontal == 4 ? length / 2 : horizontal == 0 ? 0.0 : length;
    const int v = horizontal == 4 ? 2 : horizontal == 3 || horizontal == 5 ? 0 : vertical;
    const double y = v == 1 ? -fs.descent * unit : v == 2 ? look.height / 2 : v == 3 ? look.height : 0.0;
    return {x, y};
  }

private:
  void addText(const DrawingEntity& e, const QTransform& toScene, const QColor& color)
  {
    const QString text = drawnText(e.text);
    TextLook look = textLook(e);
    const FontScale& fs = fontScale();
    const double advance = fs.metrics.horizontalAdvance(text) * look.widthFactor;
    const int horizontal = e.horizontalAlignment;
    const int vertical = e.verticalAlignment;
    // left on the baseline is placed by the first point; every other alignment by the second
    const bool aligned = (horizontal != 0 || vertical != 0) && e.points.size() >= 2;
    QPointF anchor = at(pointAt(e, aligned ? 1 : 0));
    double rotation = e.rotation;
    QPointF offset;
    if (aligned && (horizontal == 3 || horizontal == 5))
    {
      // between the two points: aligned keeps the proportions and scales the height, fit stretches the width
      anchor = at(pointAt(e, 0));
      const QPointF along = at(pointAt(e, 1)) - anchor;
      const double length = std::hypot(along.x(), along.y());
      const double natural = advance * look.height / fs.capHeight;
      if (length > 0 && natural > 0 && std::isfinite(length / natural))
      {
        rotation = qRadiansToDegrees(std::atan2(along.y(), along.x()));
        if (horizontal == 3)
          look.height *= length / natural;
        else
          look.widthFactor *= length / natural;
      }
    }
    else if (aligned)
    {
      offset.setX(horizontal == 1 || horizontal == 4 ? -advance / 2 : horizontal == 2 ? -advance : 0.0);
      const int v = horizontal == 4 ? 2 : vertical;
      offset.setY(v == 1 ? -fs.descent : v == 2 ? fs.capHeight / 2 : v == 3 ? fs.capHeight : 0.0);
    }
    QTransform placement;
    placement.translate(anchor.x(), anchor.y());
    placement.rotate(rotation);
    addTextLine(text, placement * toScene, look.height, offset, color, look.widthFactor, look.oblique);
  }

  void addMText(const DrawingEntity& e, const QTransform& toScene, const QColor& color)
  {
    const TextLook look = textLook(e);
    if (!(look.height > 0) || !std::isfinite(look.height))
      return;
    const FontScale& fs = fontScale();
    const QFontMetricsF& metrics = fs.metrics;
    const double fontUnit = look.height / fs.capHeight * look.widthFactor;
    const double wrapAt = e.width > 0 && std::isfinite(e.width / fontUnit) ? e.width / fontUnit : 0.0;
    const QStringList lines = wrappedLines(drawnParagraphs(e.text), metrics, wrapAt);
    const DrawingPoint p = pointAt(e, 0);
    QTransform placement;
    placement.translate(p.x, p.y);
    placement.rotate(e.rotation);
    placement *= toScene;
    const double step = fs.capHeight * 5.0 / 3.0;
    const double top = -fs.capHeight;
    const double bottom = (lines.size() - 1) * step;
    const int attachment = std::clamp(e.attachment, 1, 9);
    const int column = (attachment - 1) % 3;
    const int row = (attachment - 1) / 3;
    const double dy = row == 0 ? -top : row == 1 ? -(top + bottom) / 2 : -bottom;
    for (int i = 0; i < lines.size(); ++i)
    {
      // each line is justified as the attachment says: left, centred or right of the insertion point
      const double width = metrics.horizontalAdvance(lines[i]) * look.widthFactor;
      const double dx = column == 0 ? 0 : column == 1 ? -width / 2 : -width;
      addTextLine(lines[i], placement, look.height, QPointF(dx, dy + i * step), color, look.widthFactor, look.oblique);
    }
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
    shown = drawnParagraphs(shown).join(QLatin1Char(' '));
    if (textAngle > 90.0 || textAngle <= -90.0)
      textAngle += 180.0;
    QTransform placement;
    placement.translate(textAt.x(), textAt.y());
    placement.rotate(textAngle);
    placement *= toScene;
    const FontScale& fs = fontScale();
    const double width = fs.metrics.horizontalAdvance(shown);
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
    addDrawingArc(path, vertex, radius, start, sweep, true);
  }

  // Pens are made once per look and shared, across shapes and per thread, as the canvas may build
  // its shapes in several: a QPen made from a colour allocates, a copy does not.
  QPen penOf(const Inherited& style)
  {
    double mm = style.weight >= 0 ? style.weight / 100.0 : m_db.getLWDEFAULT() / 100.0;
    // what a screen cannot show thinner than a pixel is drawn at one pixel
    const double pixels = mm <= 0.25 ? 0.0 : mm * m_look.pixelsPerMm;
    thread_local QPen shared{Qt::NoPen};
    if (pixels != shared.widthF() || style.color != shared.color() || shared.style() != Qt::SolidLine)
    {
      shared = QPen(style.color, pixels, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
      shared.setCosmetic(true);
    }
    return shared;
  }

  QPen glowOf(const QPen& pen)
  {
    const double width = std::max(pen.widthF(), 1.0) + 4.0;
    thread_local QPen sharedGlow{Qt::NoPen};
    if (width != sharedGlow.widthF() || m_look.highlight.rgb() != sharedGlow.color().rgb() || sharedGlow.style() != Qt::SolidLine)
    {
      QColor glow = m_look.highlight;
      glow.setAlpha(150);
      sharedGlow = QPen(glow, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
      sharedGlow.setCosmetic(true);
    }
    return sharedGlow;
  }

  /** The drawing's overall linetype scale, read once per shape and only for a dashed linetype. */
  double drawingLinetypeScale()
  {
    if (std::isnan(m_drawingLinetypeScale))
    {
      m_drawingLinetypeScale = m_document.headerReal(QStringLiteral("$LTSCALE"), 1.0);
      if (!(m_drawingLinetypeScale > 0) || !std::isfinite(m_drawingLinetypeScale))
        m_drawingLinetypeScale = 1.0;
    }
    return m_drawingLinetypeScale;
  }

  void addStroke(const QPainterPath& outline, const Inherited& style)
  {
    if (outline.isEmpty())
      return;
    std::vector<double> pattern;
    if (const OdDbLinetypeTableRecord* linetype = m_db.openLinetype(style.linetype))
      for (int i = 0; i < linetype->numDashes(); ++i)
        pattern.push_back(linetype->dashLengthAt(i) * style.linetypeScale * drawingLinetypeScale());

    double period = 0;
    for (double d : pattern)
      period += std::abs(d);
    if (!std::isfinite(period))
      period = 0;
    const QPen pen = penOf(style);
    // A block's entities mostly share one look, and an insert of it draws them thousands of
    // times over: in one stroke they cost a path, not a path, two pens and a copy each.
    if (!m_strokes.empty() && m_strokes.back().fill.style() == Qt::NoBrush && m_strokes.back().pen == pen
        && m_strokes.back().period == period)
    {
      m_strokes.back().outline.addPath(outline);
      if (period > 0)
        m_strokes.back().dashed.addPath(dashedPath(outline, pattern, kMaxDashes));
      return;
    }

    DrawingStroke stroke;
    stroke.outline = outline;
    // a continuous line is never drawn dashed
    if (period > 0)
      stroke.dashed = dashedPath(outline, pattern, kMaxDashes);
    stroke.period = period;
    stroke.pen = pen;
    stroke.glow = glowOf(pen);
    m_strokes.push_back(std::move(stroke));
  }

  /** An area filled with @p brush (odd-even), its outline drawn in the entity's pen when @p edged. */
  void addFill(const QPainterPath& area, const Inherited& style, const QBrush& brush, bool edged)
  {
    if (area.isEmpty())
      return;
    DrawingStroke stroke;
    stroke.outline = area;
    stroke.outline.setFillRule(Qt::OddEvenFill);
    stroke.fill = brush;
    stroke.pen = edged ? penOf(style) : QPen(Qt::NoPen);
    stroke.glow = glowOf(penOf(style));
    m_strokes.push_back(std::move(stroke));
  }

  const DrawingDocument& m_document;
  const OdDbDatabase& m_db;
  const DrawingLook& m_look;
  std::vector<DrawingStroke>& m_strokes;
  std::vector<DrawingTextRun>& m_texts;
  double m_drawingLinetypeScale = std::numeric_limits<double>::quiet_NaN();
};

} // namespace

DrawingPoint DrawingShape::textAlignmentPoint(const DrawingDocument& document, const DrawingEntity& text, int horizontal, int vertical)
{
  if (text.points.empty())
    return {};
  std::vector<DrawingStroke> strokes;
  std::vector<DrawingTextRun> texts;
  const QPointF offset = Builder(document, DrawingLook(), strokes, texts).alignmentOffset(text, horizontal, vertical);
  const double angle = qDegreesToRadians(text.rotation);
  const double c = std::cos(angle), s = std::sin(angle);
  const DrawingPoint& first = text.points.front();
  return {first.x + offset.x() * c - offset.y() * s, first.y + offset.x() * s + offset.y() * c, first.z};
}

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
  // A turned ellipse's control points are well outside it; other curves are arcs of circles, whose
  // control points stay close, and working out the exact box costs as much as building a line.
  const bool exact = entity.kind == EntityKind::Ellipse;
  for (const DrawingStroke& s : m_strokes)
    bounds |= exact ? s.outline.boundingRect() : s.outline.controlPointRect();
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
    if (s.fill.style() != Qt::NoBrush && s.outline.contains(point))
      return true;
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
    if (s.fill.style() != Qt::NoBrush)
    {
      painter->setBrush(s.fill);
      painter->drawPath(s.outline);
      painter->setBrush(Qt::NoBrush);
      continue;
    }
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

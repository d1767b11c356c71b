#include "DrawingDocument.h"
#include "DrawingHatchPatterns.h"
#include "DrawingShape.h"
#include "Drawings.h"
#include <QElapsedTimer>
#include <QPainter>
#include <QtTest>
#include <cmath>
#include <limits>

Q_DECLARE_METATYPE(DrawingEntity)

namespace
{

const double kNone = std::numeric_limits<double>::quiet_NaN();

DrawingEntity text(EntityKind kind, const QString& contents, double height, std::vector<DrawingPoint> points)
{
  DrawingEntity e = entityOf(kind, std::move(points));
  e.text = contents;
  e.height = height;
  return e;
}

/** What a shape covers in drawing coordinates (Y up), without the margin its bounds keep. */
QRectF extentOf(const DrawingShape& shape)
{
  const QRectF b = shape.bounds();
  const double pad = std::max(b.width(), b.height()) * 1e-3;
  return QRectF(QPointF(b.left() + pad, -b.bottom() + pad), QPointF(b.right() - pad, -b.top() - pad));
}

DrawingShape shapeOf(const DrawingDocument& document, const DrawingEntity& e)
{
  DrawingShape shape;
  shape.build(document, e, DrawingLook());
  return shape;
}

/** A document with the text styles, header variables and linetype the rows use. */
void prepare(DrawingDocument& document)
{
  document.textStyle(QStringLiteral("Standard"));
  document.textStyle(QStringLiteral("Narrow")).widthFactor = 0.5;
  document.textStyle(QStringLiteral("Tall")).height = 20.0;
  document.setHeaderReal(QStringLiteral("$PDMODE"), 3);
  document.setHeaderReal(QStringLiteral("$PDSIZE"), 2);
  document.block(QStringLiteral("*D1")).entities.push_back(entityOf(EntityKind::Line, {{0, -10, 0}, {50, -10, 0}}));
}

QPolygonF polygonOf(const std::vector<DrawingPoint>& points)
{
  QPolygonF polygon;
  for (const DrawingPoint& p : points)
    polygon << QPointF(p.x, p.y);
  return polygon;
}

} // namespace

class TestDrawingShapes : public QObject
{
  Q_OBJECT

private Q_SLOTS:
  // Texts and curves cover what they should, checked against geometry worked out by hand.
  void shapesCoverWhatTheyDraw_data()
  {
    QTest::addColumn<DrawingEntity>("entity");
    // what must cover, in drawing coordinates; NaN for a side the row does not check
    QTest::addColumn<double>("left");
    QTest::addColumn<double>("right");
    QTest::addColumn<double>("bottom");
    QTest::addColumn<double>("top");
    // the width and height against the same entity plain (style Standard, factor 1, left on the baseline)
    QTest::addColumn<double>("widthRatio");
    QTest::addColumn<double>("heightRatio");
    QTest::addColumn<double>("tolerance");

    const QString title = QStringLiteral("TITLE BLOCK");
    const auto aligned = [&](int h, int v) {
      DrawingEntity e = text(EntityKind::Text, title, 5, {{0, 0, 0}, {100, 50, 0}});
      e.horizontalAlignment = h;
      e.verticalAlignment = v;
      return e;
    };
    // a centred text's box is centred on the second point, whatever its first point says
    DrawingEntity centred = aligned(1, 0);
    QTest::newRow("centre") << centred << kNone << kNone << kNone << kNone << 1.0 << 1.0 << 0.5;
    QTest::newRow("right, bottom") << aligned(2, 1) << kNone << 100.0 << 50.0 << kNone << 1.0 << 1.0 << 0.3;
    DrawingEntity fit = aligned(5, 0);
    fit.points = {{10, 0, 0}, {210, 0, 0}};
    QTest::newRow("fit") << fit << 10.0 << 210.0 << kNone << kNone << kNone << 1.0 << 0.5;
    DrawingEntity alignedText = aligned(3, 0);
    alignedText.points = {{0, 0, 0}, {0, 300, 0}};
    QTest::newRow("aligned, upwards") << alignedText << kNone << kNone << 0.0 << 300.0 << kNone << kNone << 1.0;
    DrawingEntity narrow = text(EntityKind::Text, title, 5, {{0, 0, 0}});
    narrow.style = QStringLiteral("Narrow");
    QTest::newRow("style's width factor") << narrow << 0.0 << kNone << kNone << kNone << 0.5 << 1.0 << 0.3;
    DrawingEntity tall = narrow;
    tall.style = QStringLiteral("tall");
    tall.widthFactor = 2.0;
    QTest::newRow("style's height, own factor") << tall << 0.0 << kNone << kNone << kNone << 8.0 << 4.0 << 0.3;

    // a multi-line text wraps at its width, and its attachment point is where its box says
    DrawingEntity wrapped = text(EntityKind::MText, QStringLiteral("one two three four five six seven eight"), 5,
                                 {{0, 0, 0}});
    wrapped.width = 60;
    wrapped.attachment = 1;
    QTest::newRow("mtext wraps at its width") << wrapped << 0.0 << kNone << kNone << kNone << kNone << kNone << 0.3;
    DrawingEntity paragraphs = text(EntityKind::MText, QStringLiteral("{\\fArial|b1;\\H2x;TOP}\\PA\\~B\\Pbottom\\S1^2;"), 5,
                                    {{100, 50, 0}});
    paragraphs.attachment = 9;
    QTest::newRow("mtext bottom right") << paragraphs << kNone << 100.0 << kNone << kNone << kNone << kNone << 0.3;

    DrawingEntity ellipse = entityOf(EntityKind::Ellipse, {{10, 20, 0}, {4 * std::cos(M_PI / 6), 4 * std::sin(M_PI / 6), 0}});
    ellipse.ratio = 0.5;
    ellipse.endAngle = 360;
    // half the box of an ellipse of axes a and b turned by t: sqrt(a²cos²t + b²sin²t), and the same with sin and cos
    const double hx = std::sqrt(16 * 0.75 + 4 * 0.25);
    const double hy = std::sqrt(16 * 0.25 + 4 * 0.75);
    QTest::newRow("turned ellipse") << ellipse << 10 - hx << 10 + hx << 20 - hy << 20 + hy << kNone << kNone << 0.01;
    DrawingEntity quarter = entityOf(EntityKind::Ellipse, {{0, 0, 0}, {0, 4, 0}});
    quarter.ratio = 0.5;
    quarter.startAngle = 0;
    quarter.endAngle = 90;
    QTest::newRow("elliptical arc") << quarter << -2.0 << 0.0 << 0.0 << 4.0 << kNone << kNone << 0.01;
    // a rational quadratic with a middle weight of cos 45 degrees is exactly a quarter circle, here
    // from -45 to 45 degrees, which reaches x = 1 (without its weights it would bulge out to 1.06)
    const double c = std::sqrt(0.5);
    DrawingEntity circular = entityOf(EntityKind::Spline, {{c, -c, 0}, {std::sqrt(2.0), 0, 0}, {c, c, 0}});
    circular.editDetails().degree = 2;
    circular.editDetails().knots = {0, 0, 0, 2, 2, 2};
    circular.editDetails().weights = {1, c, 1};
    QTest::newRow("weighted spline") << circular << c << 1.0 << -c << c << kNone << kNone << 0.002;
    DrawingEntity bezier = entityOf(EntityKind::Spline, {{0, 0, 0}, {1, 2, 0}, {2, 0, 0}});
    bezier.editDetails().degree = 2;
    QTest::newRow("spline without knots") << bezier << 0.0 << 2.0 << 0.0 << 1.0 << kNone << kNone << 0.005;
    DrawingEntity fitted = entityOf(EntityKind::Spline, {});
    fitted.editDetails().fitPoints = {{0, 0, 0}, {5, 3, 0}, {10, 0, 0}};
    QTest::newRow("spline through fit points") << fitted << 0.0 << 10.0 << 0.0 << 3.0 << kNone << kNone << 0.01;
    QTest::newRow("point as a cross of $PDSIZE") << entityOf(EntityKind::Point, {{5, 5, 0}}) << 4.0 << 6.0 << 4.0 << 6.0
                                                  << kNone << kNone << 0.01;
    QTest::newRow("solid") << entityOf(EntityKind::Solid, {{0, 0, 0}, {4, 0, 0}, {0, 3, 0}, {4, 3, 0}}) << 0.0 << 4.0
                           << 0.0 << 3.0 << kNone << kNone << 0.01;
    DrawingEntity image = entityOf(EntityKind::Image, {{1, 1, 0}, {0.01, 0, 0}, {0, 0.01, 0}});
    image.editDetails().imageFile = QStringLiteral("C:\\parts\\photo.png");
    image.editDetails().pixelsWide = 400;
    image.editDetails().pixelsHigh = 300;
    // a dimension is drawn from the block its file made for it, not worked out again from its points
    DrawingEntity dimension = entityOf(EntityKind::Dimension, {{0, 0, 0}, {80, 0, 0}, {0, 20, 0}, {40, 20, 0}});
    dimension.blockName = QStringLiteral("*D1");
    QTest::newRow("dimension's block") << dimension << 0.0 << 50.0 << -10.0 << -10.0 << kNone << kNone << 0.01;
    // an insert's attributes are drawn where they are, even when its block is missing
    DrawingEntity insert = entityOf(EntityKind::Insert, {{0, 0, 0}});
    insert.blockName = QStringLiteral("MISSING");
    DrawingEntity attribute = aligned(2, 1);
    attribute.blockName = QStringLiteral("TAG");
    insert.editDetails().attributes = {attribute};
    QTest::newRow("insert's attribute") << insert << kNone << 100.0 << 50.0 << kNone << kNone << kNone << 0.3;
    QTest::newRow("image frame") << image << 1.0 << 5.0 << 1.0 << 4.0 << kNone << kNone << 0.01;
  }

  void shapesCoverWhatTheyDraw()
  {
    QFETCH(DrawingEntity, entity);
    QFETCH(double, left);
    QFETCH(double, right);
    QFETCH(double, bottom);
    QFETCH(double, top);
    QFETCH(double, widthRatio);
    QFETCH(double, heightRatio);
    QFETCH(double, tolerance);
    // GIVEN a drawing with styles and point settings
    DrawingDocument document;
    prepare(document);

    // WHEN the entity's shape is built
    const DrawingShape shape = shapeOf(document, entity);
    const QRectF extent = extentOf(shape);

    // THEN it covers what the row says
    QVERIFY(!shape.isEmpty());
    const auto near = [&](double actual, double expected) { return std::isnan(expected) || std::abs(actual - expected) <= tolerance; };
    const QString got = QStringLiteral("%1..%2 x %3..%4").arg(extent.left()).arg(extent.right()).arg(extent.top()).arg(extent.bottom());
    QVERIFY2(near(extent.left(), left) && near(extent.right(), right), qPrintable(got));
    QVERIFY2(near(extent.top(), bottom) && near(extent.bottom(), top), qPrintable(got));
    if (entity.kind == EntityKind::Text && entity.horizontalAlignment == 1)
      QVERIFY2(std::abs(extent.center().x() - 100.0) < tolerance, qPrintable(got));
    // a solid's corners come in zigzag order: taken in file order they would make a bow tie
    if (entity.kind == EntityKind::Solid)
      QVERIFY(shape.hits(QPointF(0.5, -1.5), 0.01));
    if (entity.kind == EntityKind::MText && entity.width > 0)
    {
      QVERIFY2(extent.right() <= entity.width && extent.right() > entity.width / 2, qPrintable(got));
      QVERIFY2(extent.height() > 3 * entity.height, qPrintable(got)); // more than one line
    }
    if (!std::isnan(widthRatio) || !std::isnan(heightRatio))
    {
      DrawingEntity plain = entity;
      plain.style.clear();
      plain.widthFactor = 1.0;
      plain.horizontalAlignment = plain.verticalAlignment = 0;
      const QRectF plainExtent = extentOf(shapeOf(document, plain));
      if (!std::isnan(widthRatio))
        QCOMPARE(qRound(extent.width() / plainExtent.width() * 100), qRound(widthRatio * 100));
      if (!std::isnan(heightRatio))
        QCOMPARE(qRound(extent.height() / plainExtent.height() * 100), qRound(heightRatio * 100));
    }
  }

  // GIVEN hatches over an L-shaped area with a square island, by the pattern lines they carry or by name
  // WHEN their shapes are built THEN every line lies inside the L and outside the island, and a pattern
  // far too fine for its area is built at once, as a tone
  void hatchLinesStayInsideTheirLoops_data()
  {
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<double>("scale");
    QTest::addColumn<bool>("fromRecord");
    QTest::addColumn<bool>("lines");
    QTest::newRow("ANSI31 by name") << QStringLiteral("ANSI31") << 1.0 << false << true;
    QTest::newRow("ANSI33 dashed, as recorded") << QStringLiteral("ANSI33") << 0.5 << true << true;
    QTest::newRow("NET3 turned") << QStringLiteral("net3") << 2.0 << false << true;
    QTest::newRow("solid") << QStringLiteral("SOLID") << 1.0 << false << false;
    QTest::newRow("far too fine") << QStringLiteral("ANSI37") << 1e-6 << false << false;
  }

  void hatchLinesStayInsideTheirLoops()
  {
    QFETCH(QString, pattern);
    QFETCH(double, scale);
    QFETCH(bool, fromRecord);
    QFETCH(bool, lines);
    DrawingDocument document;
    DrawingEntity hatch = entityOf(EntityKind::Hatch, {});
    DrawingEntityDetail& detail = hatch.editDetails();
    const std::vector<DrawingPoint> outer{{0, 0, 0}, {100, 0, 0}, {100, 40, 0}, {40, 40, 0}, {40, 100, 0}, {0, 100, 0}};
    const std::vector<DrawingPoint> island{{10, 10, 0}, {30, 10, 0}, {30, 30, 0}, {10, 30, 0}};
    detail.loops = {{outer, {}}, {island, {}}};
    detail.pattern = pattern;
    detail.solidFill = pattern == QLatin1String("SOLID");
    detail.patternScale = scale;
    detail.patternAngle = 15;
    if (fromRecord)
      detail.patternLines = hatchPatternLines(pattern, scale, 15);
    else
      QVERIFY(!hatchPatternLines(pattern, scale, 15).empty() || detail.solidFill);

    QElapsedTimer clock;
    clock.start();
    const DrawingShape shape = shapeOf(document, hatch);
    QVERIFY2(clock.elapsed() < 2000, "a hatch is built in a moment, however fine its pattern");

    const QRectF extent = extentOf(shape);
    QVERIFY(std::abs(extent.left()) < 0.6 && std::abs(extent.right() - 100) < 0.6);
    const QPainterPath drawn = shape.outline();
    if (!lines)
    {
      // a tone or a solid fill is the area itself, drawn up to its loops' edges
      QCOMPARE(drawn.elementCount(), int(outer.size() + island.size()) + 2);
      return;
    }
    const QPolygonF inside = polygonOf(outer);
    const QPolygonF hole = polygonOf(island);
    int segments = 0;
    for (int i = 1; i < drawn.elementCount(); ++i)
    {
      if (!drawn.elementAt(i).isLineTo())
        continue;
      const QPointF a = drawn.elementAt(i - 1);
      const QPointF b = drawn.elementAt(i);
      // the middle of each line in drawing coordinates
      const QPointF middle((a.x() + b.x()) / 2, -(a.y() + b.y()) / 2);
      QVERIFY2(inside.containsPoint(middle, Qt::OddEvenFill) && !hole.containsPoint(middle, Qt::OddEvenFill),
               qPrintable(QStringLiteral("%1, %2").arg(middle.x()).arg(middle.y())));
      ++segments;
    }
    QVERIFY(segments > 50);
  }

  // The real drawings' shapes are built in tst_DxfFiles' sweep over the parts library.
  void brokenEntitiesBuild()
  {
    DrawingDocument broken;
    broken.setHeaderReal(QStringLiteral("$PDMODE"), std::numeric_limits<double>::quiet_NaN());
    broken.setHeaderReal(QStringLiteral("$LTSCALE"), -1);
    for (const DrawingEntity& e : brokenEntities())
      shapeOf(broken, e);
  }
};

QTEST_MAIN(TestDrawingShapes)
#include "tst_DrawingShapes.moc"

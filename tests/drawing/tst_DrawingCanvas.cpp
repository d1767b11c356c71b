#include "DrawingCanvas.h"
#include "DrawingDocument.h"
#include "Drawings.h"
#include "HostQtStyleManager.h"
#include "OdDbLayerTableRecord.h"
#include <QSignalSpy>
#include <QtTest>
#include <tuple>

namespace
{

DrawingEntity lineOn(const OdDbObjectId& layer, quint64 handle, DrawingPoint a, DrawingPoint b)
{
  DrawingEntity e;
  e.kind = EntityKind::Line;
  e.handle = handle;
  e.layer = layer;
  e.points = {a, b};
  return e;
}

/**
 * Three lines apart on a 100 x 100 drawing: A along the bottom, B along the
 * top, C up the middle; and D, the diagonal, on a layer the row hides.
 */
enum : quint64
{
  A = 1,
  B = 2,
  C = 3,
  D = 4
};

void fillDocument(DrawingDocument& document, OdDbObjectId* hiddenLayer = nullptr, bool diagonalOnPaper = false)
{
  OdDbDatabase& db = document.database();
  const OdDbObjectId zero = db.getLayerZeroId();
  const OdDbObjectId other = db.addLayer(OdString(L"Other"));
  document.addEntity(lineOn(zero, A, {0, 0, 0}, {100, 0, 0}));
  document.addEntity(lineOn(zero, B, {0, 100, 0}, {100, 100, 0}));
  document.addEntity(lineOn(zero, C, {50, 10, 0}, {50, 90, 0}));
  DrawingEntity diagonal = lineOn(other, D, {0, 0, 0}, {100, 100, 0});
  // where an entity lies is the file's: a document takes it only with the entity
  diagonal.paperSpace = diagonalOnPaper;
  document.addEntity(diagonal);
  if (hiddenLayer)
    *hiddenLayer = other;
}

void send(QWidget* viewport, QEvent::Type type, const QPoint& pos, Qt::MouseButton button, Qt::MouseButtons buttons,
          Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
  QMouseEvent event(type, pos, viewport->mapToGlobal(pos), button, buttons, modifiers);
  QApplication::sendEvent(viewport, &event);
}

/** Presses the left button at @p from and moves to @p to, without letting go. */
void dragTo(DrawingCanvas& canvas, const QPoint& from, const QPoint& to, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
  QWidget* viewport = canvas.viewport();
  send(viewport, QEvent::MouseButtonPress, from, Qt::LeftButton, Qt::LeftButton, modifiers);
  send(viewport, QEvent::MouseMove, (from + to) / 2, Qt::NoButton, Qt::LeftButton, modifiers);
  send(viewport, QEvent::MouseMove, to, Qt::NoButton, Qt::LeftButton, modifiers);
}

void drag(DrawingCanvas& canvas, const QPoint& from, const QPoint& to, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
  dragTo(canvas, from, to, modifiers);
  send(canvas.viewport(), QEvent::MouseButtonRelease, to, Qt::LeftButton, Qt::NoButton, modifiers);
}

/** Where a point of the drawing is on the canvas's viewport. */
QPoint onScreen(const DrawingCanvas& canvas, double x, double y)
{
  return canvas.mapFromScene(QPointF(x, -y));
}

/** Shows the canvas at the given size; false when the platform would not. */
bool shown(DrawingCanvas& canvas, const QSize& size = QSize(400, 400))
{
  canvas.resize(size);
  canvas.show();
  return QTest::qWaitForWindowExposed(&canvas);
}

using Handles = QVector<quint64>;

/** Of the pixels around @p at, the lightness farthest from the paper's: a thin line falls between pixels. */
int inkNear(const QImage& image, const QPoint& at, int paper)
{
  int ink = paper;
  for (int dx = -2; dx <= 2; ++dx)
    for (int dy = -2; dy <= 2; ++dy)
    {
      const int l = image.pixelColor(at + QPoint(dx, dy)).lightness();
      if (std::abs(l - paper) > std::abs(ink - paper))
        ink = l;
    }
  return ink;
}

} // namespace

class TestDrawingCanvas : public QObject
{
  Q_OBJECT

private Q_SLOTS:
  void clicksAndRectanglesSelect()
  {
    // GIVEN a canvas over three lines
    DrawingDocument document;
    fillDocument(document);
    DrawingCanvas canvas(&document);
    QVERIFY(shown(canvas));
    QSignalSpy changes(&canvas, &DrawingCanvas::selectionChanged);
    QWidget* viewport = canvas.viewport();

    // WHEN a click lands a few pixels off A THEN A alone is selected
    QTest::mouseClick(viewport, Qt::LeftButton, Qt::NoModifier, onScreen(canvas, 30, 0) + QPoint(0, 3));
    QCOMPARE(canvas.selection(), Handles({A}));
    QCOMPARE(changes.count(), 1);

    // Shift+click adds B, and a second Shift+click on A takes it out again
    QTest::mouseClick(viewport, Qt::LeftButton, Qt::ShiftModifier, onScreen(canvas, 30, 100));
    QCOMPARE(canvas.selection(), Handles({A, B}));
    QTest::mouseClick(viewport, Qt::LeftButton, Qt::ShiftModifier, onScreen(canvas, 30, 0));
    QCOMPARE(canvas.selection(), Handles({B}));

    // a plain click on C replaces the selection; one well away from everything clears it
    QTest::mouseClick(viewport, Qt::LeftButton, Qt::NoModifier, onScreen(canvas, 50, 20));
    QCOMPARE(canvas.selection(), Handles({C}));
    QTest::mouseClick(viewport, Qt::LeftButton, Qt::NoModifier, onScreen(canvas, 25, 50));
    QCOMPARE(canvas.selection(), Handles());

    // a rectangle takes what it encloses whole: C and A, not B that it only crosses
    drag(canvas, onScreen(canvas, -5, 95), onScreen(canvas, 105, -5));
    QCOMPARE(canvas.selection(), Handles({A, C}));
    // with Shift it adds to what is selected
    drag(canvas, onScreen(canvas, -5, 105), onScreen(canvas, 105, 95), Qt::ShiftModifier);
    QCOMPARE(canvas.selection(), Handles({A, B, C}));

    // Escape clears, Ctrl+A selects everything
    QTest::keyClick(&canvas, Qt::Key_Escape);
    QCOMPARE(canvas.selection(), Handles());
    const int before = changes.count();
    QTest::keyClick(&canvas, Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(canvas.selection(), Handles({A, B, C, D}));
    QCOMPARE(changes.count(), before + 1);
    // selecting what is selected already is no change
    canvas.setSelection({A, B, C, D});
    QCOMPARE(changes.count(), before + 1);
  }

  void windowEnclosesCrossingTouches_data()
  {
    // a drag to the right is a window, one to the left a crossing; corners in drawing units
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QPointF>("from");
    QTest::addColumn<QPointF>("to");
    QTest::addColumn<bool>("selected");
    QTest::newRow("window round a circle") << "circle" << QPointF(25, 75) << QPointF(75, 25) << true;
    QTest::newRow("window cutting a circle") << "circle" << QPointF(25, 75) << QPointF(65, 25) << false;
    QTest::newRow("crossing cutting a circle") << "circle" << QPointF(65, 75) << QPointF(25, 25) << true;
    QTest::newRow("crossing inside a circle, off its outline") << "circle" << QPointF(55, 55) << QPointF(45, 45) << false;
    QTest::newRow("crossing over an arc") << "arc" << QPointF(70, 70) << QPointF(60, 62) << true;
    QTest::newRow("crossing in an arc's box, off the arc") << "arc" << QPointF(58, 58) << QPointF(52, 52) << false;
    QTest::newRow("crossing in a diagonal's box, off it") << "line" << QPointF(40, 70) << QPointF(20, 60) << false;
    QTest::newRow("crossing over a diagonal") << "line" << QPointF(60, 55) << QPointF(45, 45) << true;
    QTest::newRow("window over a diagonal") << "line" << QPointF(45, 55) << QPointF(60, 45) << false;
    QTest::newRow("crossing over a bulge's arc") << "polyline" << QPointF(53, 13) << QPointF(47, 8) << true;
    QTest::newRow("crossing inside a bulge, off it") << "polyline" << QPointF(52, 19) << QPointF(48, 16) << false;
    QTest::newRow("window round a polyline with a bulge") << "polyline" << QPointF(15, 85) << QPointF(85, 5) << true;
    QTest::newRow("window short of a polyline's bulge") << "polyline" << QPointF(15, 85) << QPointF(85, 15) << false;
  }

  void windowEnclosesCrossingTouches()
  {
    QFETCH(QString, kind);
    QFETCH(QPointF, from);
    QFETCH(QPointF, to);
    QFETCH(bool, selected);
    // GIVEN a frame round the drawing, which no row touches, and one entity inside it
    DrawingDocument document;
    const OdDbObjectId zero = document.database().getLayerZeroId();
    DrawingEntity frame = lineOn(zero, A, {0, 0, 0}, {0, 0, 0});
    frame.kind = EntityKind::Polyline;
    frame.closed = true;
    frame.points = {{0, 0, 0}, {100, 0, 0}, {100, 100, 0}, {0, 100, 0}};
    document.addEntity(frame);
    DrawingEntity e = lineOn(zero, B, {20, 20, 0}, {80, 80, 0});
    if (kind == QLatin1String("circle") || kind == QLatin1String("arc"))
    {
      e.kind = kind == QLatin1String("arc") ? EntityKind::Arc : EntityKind::Circle;
      e.points = {{50, 50, 0}};
      e.radius = 20;
      e.endAngle = 90;
    }
    else if (kind == QLatin1String("polyline"))
    {
      // a square whose bottom side bulges down by 10 (a bulge of 1/3 over 60)
      e.kind = EntityKind::Polyline;
      e.closed = true;
      e.points = {{20, 20, 0}, {80, 20, 0}, {80, 80, 0}, {20, 80, 0}};
      e.bulges = {1.0 / 3.0, 0, 0, 0};
    }
    document.addEntity(e);
    DrawingCanvas canvas(&document);
    QVERIFY(shown(canvas));
    QSignalSpy changes(&canvas, &DrawingCanvas::selectionChanged);

    // WHEN the window is dragged THEN it shows what it is before it is let go:
    // a window bluish, a crossing greenish, in either theme
    const QPoint press = onScreen(canvas, from.x(), from.y());
    const QPoint release = onScreen(canvas, to.x(), to.y());
    dragTo(canvas, press, release);
    const bool crossing = to.x() < from.x();
    for (int theme : {HostQtStyleManager::Dark, HostQtStyleManager::Light})
    {
      hostGetQtStyleManager()->setTheme(theme);
      const QImage image = canvas.viewport()->grab().toImage();
      const QColor inside = image.pixelColor(((press + release) / 2 + QPoint(1, 1)) * image.devicePixelRatio());
      QVERIFY2(inside != canvas.backgroundBrush().color(), qPrintable(inside.name()));
      QVERIFY2(crossing ? inside.green() > inside.blue() : inside.blue() > inside.green(), qPrintable(inside.name()));
    }
    QCOMPARE(changes.count(), 0);

    // AND when it is let go, the entity is selected as the row says, with one signal for the gesture
    send(canvas.viewport(), QEvent::MouseButtonRelease, release, Qt::LeftButton, Qt::NoButton);
    QCOMPARE(canvas.selection(), selected ? Handles({B}) : Handles());
    QCOMPARE(changes.count(), selected ? 1 : 0);
  }

  void clickPicksTheNearestWithinEightPixels_data()
  {
    // P runs along y = 0, Q 12 pixels above it, at any zoom; the click is the row's pixels above P
    QTest::addColumn<int>("notches");
    QTest::addColumn<int>("above");
    QTest::addColumn<quint64>("picked");
    for (int notches : {0, 12})
    {
      const QByteArray zoom = notches ? "zoomed in, " : "at extents, ";
      QTest::newRow(zoom + "7 px below P") << notches << -7 << quint64(A);
      QTest::newRow(zoom + "9 px below P") << notches << -9 << quint64(0);
      QTest::newRow(zoom + "5 px above P, 7 below Q") << notches << 5 << quint64(A);
      QTest::newRow(zoom + "7 px above P, 5 below Q") << notches << 7 << quint64(B);
      QTest::newRow(zoom + "22 px above P, 10 above Q") << notches << 22 << quint64(0);
    }
  }

  void clickPicksTheNearestWithinEightPixels()
  {
    QFETCH(int, notches);
    QFETCH(int, above);
    QFETCH(quint64, picked);
    DrawingDocument document;
    const OdDbObjectId zero = document.database().getLayerZeroId();
    document.addEntity(lineOn(zero, A, {0, 0, 0}, {100, 0, 0}));
    document.addEntity(lineOn(zero, B, {0, 10, 0}, {100, 10, 0}));
    DrawingCanvas canvas(&document);
    QVERIFY(shown(canvas));
    QWidget* viewport = canvas.viewport();
    const QPoint middle = viewport->rect().center();
    QWheelEvent wheel(middle, viewport->mapToGlobal(middle), QPoint(), QPoint(0, 120 * notches), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(viewport, &wheel);
    // Q goes 12 pixels above P, wherever the zoom put the drawing
    DrawingEntity q = *document.entity(B);
    const double y = canvas.mapToScene(QPoint(0, onScreen(canvas, 50, 0).y() - 12)).y();
    q.points = {{0, -y, 0}, {100, -y, 0}};
    document.replaceEntities({q});
    QVERIFY(std::abs(onScreen(canvas, 50, -y).y() - (onScreen(canvas, 50, 0).y() - 12)) <= 1);

    // the suite runs this test again on a screen of twice the pixels (QT_SCALE_FACTOR=2)
    QCOMPARE(canvas.devicePixelRatioF(), qEnvironmentVariableIntValue("QT_SCALE_FACTOR") == 2 ? 2.0 : 1.0);

    QSignalSpy changes(&canvas, &DrawingCanvas::selectionChanged);
    const QPoint click(middle.x(), onScreen(canvas, 50, 0).y() - above);
    QTest::mouseClick(viewport, Qt::LeftButton, Qt::NoModifier, click);
    QCOMPARE(canvas.selection(), picked ? Handles({picked}) : Handles());
    QCOMPARE(changes.count(), picked ? 1 : 0);
    // Shift+click on it again takes it out, with a signal of its own
    if (picked)
    {
      QTest::mouseClick(viewport, Qt::LeftButton, Qt::ShiftModifier, click);
      QCOMPARE(canvas.selection(), Handles());
      QCOMPARE(changes.count(), 2);
    }
  }

  void wheelZoomsAboutTheCursorAndTheViewPans()
  {
    DrawingDocument document;
    fillDocument(document);
    DrawingCanvas canvas(&document);
    QVERIFY(shown(canvas));
    QWidget* viewport = canvas.viewport();
    const auto near = [](const QPoint& a, const QPoint& b) { return (a - b).manhattanLength() <= 2; };

    // GIVEN a cursor off the centre WHEN the wheel turns two notches THEN what was under it still is
    const QPoint cursor(120, 260);
    const QPointF under = canvas.mapToScene(cursor);
    const double scale = canvas.transform().m11();
    QWheelEvent wheel(cursor, viewport->mapToGlobal(cursor), QPoint(), QPoint(0, 240), Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(viewport, &wheel);
    QVERIFY(qAbs(canvas.transform().m11() - scale * 1.44) < 1e-9);
    QVERIFY2(near(canvas.mapFromScene(under), cursor), "the point under the cursor moved");

    // a middle-button drag carries the drawing with the cursor
    const QPointF grabbed = canvas.mapToScene(QPoint(200, 200));
    send(viewport, QEvent::MouseButtonPress, QPoint(200, 200), Qt::MiddleButton, Qt::MiddleButton);
    send(viewport, QEvent::MouseMove, QPoint(230, 180), Qt::NoButton, Qt::MiddleButton);
    send(viewport, QEvent::MouseMove, QPoint(260, 150), Qt::NoButton, Qt::MiddleButton);
    send(viewport, QEvent::MouseButtonRelease, QPoint(260, 150), Qt::MiddleButton, Qt::NoButton);
    QVERIFY(near(canvas.mapFromScene(grabbed), QPoint(260, 150)));
    QCOMPARE(canvas.selection(), Handles());

    // the arrow keys look further that way
    const double left = canvas.mapToScene(viewport->rect().center()).x();
    QTest::keyClick(&canvas, Qt::Key_Right);
    QVERIFY(canvas.mapToScene(viewport->rect().center()).x() > left);

    // zoom to extents brings the whole drawing back
    canvas.zoomExtents();
    for (const QPointF& corner : {QPointF(0, 0), QPointF(100, -100)})
      QVERIFY(viewport->rect().contains(canvas.mapFromScene(corner)));
  }

  void coloursResolveThroughLayerAndInsert_data()
  {
    QTest::addColumn<QString>("how");
    QTest::addColumn<QColor>("expected");
    QTest::newRow("palette colour") << QStringLiteral("aci") << QColor(0, 0, 255);
    QTest::newRow("true colour") << QStringLiteral("true") << QColor(0x12, 0x34, 0xab);
    QTest::newRow("by layer") << QStringLiteral("layer") << QColor(255, 0, 0);
    QTest::newRow("by block, from the insert") << QStringLiteral("block") << QColor(0, 255, 0);
    QTest::newRow("by layer, smaller than a pixel") << QStringLiteral("dot") << QColor(255, 0, 0);
  }

  void coloursResolveThroughLayerAndInsert()
  {
    QFETCH(QString, how);
    QFETCH(QColor, expected);
    // GIVEN one thick horizontal line, coloured as the row says
    DrawingDocument document;
    OdDbDatabase& db = document.database();
    const OdDbObjectId red = db.addLayer(OdString(L"Red"));
    OdCmColor layerColor;
    layerColor.setColorIndex(1);
    db.openLayer(red)->setColor(layerColor);
    DrawingEntity line = lineOn(db.getLayerZeroId(), A, {0, 0, 0}, {100, 0, 0});
    line.lineWeight = OdDb::kLnWt140;
    if (how == QLatin1String("aci"))
      line.color.setColorIndex(5);
    else if (how == QLatin1String("true"))
      line.color.setRGB(0x12, 0x34, 0xab);
    else if (how == QLatin1String("layer"))
      line.layer = red;
    else if (how == QLatin1String("dot"))
    {
      // drawn as a dot of its colour, beside a line that sets the zoom
      line.layer = red;
      line.points = {{50, 0, 0}, {50.01, 0, 0}};
      document.addEntity(lineOn(db.getLayerZeroId(), C, {0, 40, 0}, {100, 40, 0}));
    }
    if (how == QLatin1String("block"))
    {
      db.addBlock(OdString(L"BAR"));
      line.color = OdCmColor(OdCmEntityColor::kByBlock);
      document.block(QStringLiteral("BAR")).entities.push_back(line);
      DrawingEntity insert;
      insert.kind = EntityKind::Insert;
      insert.handle = B;
      insert.layer = red;
      insert.blockName = QStringLiteral("BAR");
      insert.points = {{0, 0, 0}};
      insert.color.setColorIndex(3);
      document.addEntity(insert);
    }
    else
      document.addEntity(line);

    // WHEN it is drawn THEN the middle of the line has the colour, at any pixel ratio
    DrawingCanvas canvas(&document);
    QVERIFY(shown(canvas, QSize(300, 200)));
    const QImage image = canvas.viewport()->grab().toImage();
    const QPoint middle = onScreen(canvas, 50, 0) * image.devicePixelRatio();
    int nearest = 3 * 255;
    QColor drawn;
    for (int dx = -1; dx <= 1; ++dx)
      for (int dy = -1; dy <= 1; ++dy)
      {
        const QColor c = image.pixelColor(middle + QPoint(dx, dy));
        const int off = qAbs(c.red() - expected.red()) + qAbs(c.green() - expected.green()) + qAbs(c.blue() - expected.blue());
        if (off < nearest)
          std::tie(nearest, drawn) = std::make_pair(off, c);
      }
    QVERIFY2(nearest < 24, qPrintable(drawn.name()));
  }

  void smallEntitiesFollowTheSelectionAndTheDocument()
  {
    // GIVEN a drawing seen whole, of entities a few pixels across of every kind drawn
    // from their numbers, and one big line that sets the zoom
    DrawingDocument document;
    const OdDbObjectId zero = document.database().getLayerZeroId();
    document.addEntity(lineOn(zero, A, {0, 0, 0}, {1000, 0, 0}));
    DrawingEntity small = lineOn(zero, B, {100, 500, 0}, {104, 504, 0});
    document.addEntity(small);
    small.kind = EntityKind::Circle;
    small.handle = C;
    small.points = {{300, 500, 0}};
    small.radius = 2;
    document.addEntity(small);
    small.kind = EntityKind::Arc;
    small.handle = D;
    small.points = {{500, 500, 0}};
    small.startAngle = 0;
    small.endAngle = 180;
    document.addEntity(small);
    small.kind = EntityKind::Polyline;
    small.handle = 5;
    small.points = {{700, 500, 0}, {704, 500, 0}, {704, 504, 0}};
    small.closed = true;
    document.addEntity(small);
    // enough others that one change is worked into the tree, not the tree built anew
    for (int i = 0; i < 40; ++i)
      document.addEntity(lineOn(zero, 100 + i, {i * 20.0, 900, 0}, {i * 20.0 + 4, 900, 0}));
    DrawingCanvas canvas(&document);
    QVERIFY(shown(canvas, QSize(400, 300)));
    const QImage before = canvas.viewport()->grab().toImage();
    const int paper = before.pixelColor(2, 2).lightness();
    const auto inkAt = [&](const QImage& image, double x, double y) {
      return inkNear(image, onScreen(canvas, x, y) * image.devicePixelRatio(), paper);
    };
    for (double x : {102.0, 300.0, 500.0, 702.0})
      QVERIFY2(inkAt(before, x, 502) != paper, qPrintable(QString::number(x)));

    // WHEN everything is selected THEN each small entity changes colour; cleared, the drawing is as it was
    canvas.selectAll();
    const QImage selected = canvas.viewport()->grab().toImage();
    for (double x : {102.0, 300.0, 500.0, 702.0})
      QVERIFY2(inkAt(selected, x, 502) != inkAt(before, x, 502), qPrintable(QString::number(x)));
    canvas.setSelection({});
    QCOMPARE(canvas.viewport()->grab().toImage(), before);

    // WHEN the document moves the circle away THEN it is drawn and picked where it is now, not where it was
    document.changeEntities({C}, [](DrawingEntity& e, int) { e.points = {{300, 200, 0}}; });
    const QImage moved = canvas.viewport()->grab().toImage();
    QCOMPARE(inkAt(moved, 300, 502), paper);
    QVERIFY(inkAt(moved, 300, 202) != paper);
    QTest::mouseClick(canvas.viewport(), Qt::LeftButton, Qt::NoModifier, onScreen(canvas, 302, 200));
    QCOMPARE(canvas.selection(), Handles({C}));
    canvas.setSelection({});

    // WHEN it makes the polyline invisible THEN it is gone
    document.changeEntities({5}, [](DrawingEntity& e, int) { e.visible = false; });
    QCOMPARE(inkAt(canvas.viewport()->grab().toImage(), 702, 502), paper);
  }

  void degenerateEntitiesDoNotBreakTheCanvas()
  {
    // GIVEN entities a broken file or a careless host could leave, a block that inserts itself
    // and a block that does not exist
    DrawingDocument document;
    fillDocument(document);
    OdDbDatabase& db = document.database();
    std::vector<DrawingEntity> odd = brokenEntities();
    db.addBlock(OdString(L"LOOP"));
    DrawingEntity loop;
    loop.kind = EntityKind::Insert;
    loop.blockName = QStringLiteral("LOOP");
    loop.points = {{0, 0, 0}};
    document.block(QStringLiteral("LOOP")).entities.push_back(loop);
    odd.push_back(loop);
    loop.blockName = QStringLiteral("MISSING");
    odd.push_back(loop);
    for (DrawingEntity& e : odd)
      document.addEntity(e);

    // WHEN the canvas shows them, zooms, picks and selects THEN it stays usable
    DrawingCanvas canvas(&document);
    QVERIFY(shown(canvas, QSize(300, 300)));
    canvas.zoomExtents();
    canvas.viewport()->grab();
    QTest::mouseClick(canvas.viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(150, 150));
    drag(canvas, QPoint(5, 5), QPoint(295, 295));
    canvas.selectAll();
    QVERIFY(canvas.selection().contains(A));
  }

  void hiddenEntitiesAreNeitherDrawnNorPicked_data()
  {
    QTest::addColumn<QString>("how");
    QTest::newRow("layer frozen") << QStringLiteral("frozen");
    QTest::newRow("layer off") << QStringLiteral("off");
    QTest::newRow("entity invisible") << QStringLiteral("invisible");
    QTest::newRow("entity in paper space") << QStringLiteral("paper");
  }

  void hiddenEntitiesAreNeitherDrawnNorPicked()
  {
    QFETCH(QString, how);
    DrawingDocument document;
    OdDbObjectId layer;
    fillDocument(document, &layer, how == QLatin1String("paper"));
    if (how == QLatin1String("frozen"))
      document.database().openLayer(layer)->setIsFrozen(true);
    else if (how == QLatin1String("off"))
      document.database().openLayer(layer)->setIsOff(true);
    else if (how == QLatin1String("invisible"))
    {
      DrawingEntity d = *document.entity(D);
      d.visible = false;
      document.replaceEntities({d});
    }
    DrawingCanvas canvas(&document);
    QVERIFY(shown(canvas));

    // the diagonal is not where a click finds it, nor in a rectangle round everything, nor in Ctrl+A
    QTest::mouseClick(canvas.viewport(), Qt::LeftButton, Qt::NoModifier, onScreen(canvas, 70, 70));
    QCOMPARE(canvas.selection(), Handles());
    drag(canvas, onScreen(canvas, -10, 110), onScreen(canvas, 110, -10));
    QCOMPARE(canvas.selection(), Handles({A, B, C}));
    canvas.selectAll();
    QCOMPARE(canvas.selection(), Handles({A, B, C}));
    // nor drawn: the pixels along it are the background
    const QImage image = canvas.viewport()->grab().toImage();
    const QColor paper = canvas.backgroundBrush().color();
    QCOMPARE(inkNear(image, onScreen(canvas, 70, 70) * image.devicePixelRatio(), paper.lightness()), paper.lightness());
    QVERIFY(inkNear(image, onScreen(canvas, 50, 50) * image.devicePixelRatio(), paper.lightness()) != paper.lightness());
  }

  void colourSevenContrastsWithTheTheme_data()
  {
    QTest::addColumn<int>("theme");
    QTest::newRow("dark") << int(HostQtStyleManager::Dark);
    QTest::newRow("light") << int(HostQtStyleManager::Light);
  }

  void colourSevenContrastsWithTheTheme()
  {
    QFETCH(int, theme);
    DrawingDocument document;
    fillDocument(document);
    hostGetQtStyleManager()->setTheme(theme);
    DrawingCanvas canvas(&document);
    QVERIFY(shown(canvas));

    const QImage image = canvas.viewport()->grab().toImage();
    const int paper = image.pixelColor(onScreen(canvas, 25, 50)).lightness();
    const int ink = inkNear(image, onScreen(canvas, 50, 50) * image.devicePixelRatio(), paper);
    QCOMPARE(paper < 128, theme == HostQtStyleManager::Dark);
    QVERIFY2(std::abs(paper - ink) > 150, qPrintable(QStringLiteral("paper %1, ink %2").arg(paper).arg(ink)));
    hostGetQtStyleManager()->setTheme(HostQtStyleManager::Light);
  }
};

QTEST_MAIN(TestDrawingCanvas)
#include "tst_DrawingCanvas.moc"

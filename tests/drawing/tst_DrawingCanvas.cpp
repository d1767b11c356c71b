#include "DrawingCanvas.h"
#include "DrawingDocument.h"
#include "HostQtStyleManager.h"
#include "OdDbLayerTableRecord.h"
#include <QSignalSpy>
#include <QtTest>
#include <limits>

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

void fillDocument(DrawingDocument& document, OdDbObjectId* hiddenLayer = nullptr)
{
  OdDbDatabase& db = document.database();
  const OdDbObjectId zero = db.getLayerZeroId();
  const OdDbObjectId other = db.addLayer(OdString(L"Other"));
  document.addEntity(lineOn(zero, A, {0, 0, 0}, {100, 0, 0}));
  document.addEntity(lineOn(zero, B, {0, 100, 0}, {100, 100, 0}));
  document.addEntity(lineOn(zero, C, {50, 10, 0}, {50, 90, 0}));
  document.addEntity(lineOn(other, D, {0, 0, 0}, {100, 100, 0}));
  if (hiddenLayer)
    *hiddenLayer = other;
}

void send(QWidget* viewport, QEvent::Type type, const QPoint& pos, Qt::MouseButton button, Qt::MouseButtons buttons,
          Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
  QMouseEvent event(type, pos, viewport->mapToGlobal(pos), button, buttons, modifiers);
  QApplication::sendEvent(viewport, &event);
}

void drag(DrawingCanvas& canvas, const QPoint& from, const QPoint& to, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
  QWidget* viewport = canvas.viewport();
  send(viewport, QEvent::MouseButtonPress, from, Qt::LeftButton, Qt::LeftButton, modifiers);
  send(viewport, QEvent::MouseMove, (from + to) / 2, Qt::NoButton, Qt::LeftButton, modifiers);
  send(viewport, QEvent::MouseMove, to, Qt::NoButton, Qt::LeftButton, modifiers);
  send(viewport, QEvent::MouseButtonRelease, to, Qt::LeftButton, Qt::NoButton, modifiers);
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

  void movedEntityIsPickedWhereItIsNow()
  {
    DrawingDocument document;
    fillDocument(document);
    DrawingCanvas canvas(&document);
    QVERIFY(shown(canvas));
    const QPoint where = onScreen(canvas, 25, 50);

    DrawingEntity moved = *document.entity(C);
    moved.points = {{25, 10, 0}, {25, 90, 0}};
    document.replaceEntities({moved});
    QTest::mouseClick(canvas.viewport(), Qt::LeftButton, Qt::NoModifier, where);
    QCOMPARE(canvas.selection(), Handles({C}));
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

    // WHEN it is drawn THEN the middle of the line has the colour
    DrawingCanvas canvas(&document);
    QVERIFY(shown(canvas, QSize(300, 200)));
    const QImage image = canvas.viewport()->grab().toImage();
    const QColor drawn = image.pixelColor(onScreen(canvas, 50, 0));
    QVERIFY2(qAbs(drawn.red() - expected.red()) + qAbs(drawn.green() - expected.green())
                     + qAbs(drawn.blue() - expected.blue()) < 24,
             qPrintable(drawn.name()));
  }

  void degenerateEntitiesDoNotBreakTheCanvas()
  {
    // GIVEN entities a broken file or a careless host could leave: no points, no size,
    // numbers that are not numbers, a block that inserts itself, a block that does not exist
    DrawingDocument document;
    fillDocument(document);
    OdDbDatabase& db = document.database();
    const double nan = std::numeric_limits<double>::quiet_NaN();
    std::vector<DrawingEntity> odd;
    for (EntityKind kind : {EntityKind::Line, EntityKind::Circle, EntityKind::Arc, EntityKind::Polyline,
                            EntityKind::Text, EntityKind::MText, EntityKind::Insert, EntityKind::Dimension})
    {
      DrawingEntity e;
      e.kind = kind;
      odd.push_back(e);
      e.points = {{nan, 1, 0}, {2, nan, 0}, {1e300, -1e300, 0}};
      e.bulges = {1e12};
      e.radius = -5;
      e.height = nan;
      e.text = QStringLiteral("{\\fArial;\\S1^2;}\\P%%c");
      e.dimensionType = 2;
      odd.push_back(e);
    }
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
  }

  void hiddenEntitiesAreNeitherDrawnNorPicked()
  {
    QFETCH(QString, how);
    DrawingDocument document;
    OdDbObjectId layer;
    fillDocument(document, &layer);
    if (how == QLatin1String("frozen"))
      document.database().openLayer(layer)->setIsFrozen(true);
    else if (how == QLatin1String("off"))
      document.database().openLayer(layer)->setIsOff(true);
    else
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
    QCOMPARE(inkNear(image, onScreen(canvas, 70, 70), paper.lightness()), paper.lightness());
    QVERIFY(inkNear(image, onScreen(canvas, 50, 50), paper.lightness()) != paper.lightness());
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
    const int ink = inkNear(image, onScreen(canvas, 50, 50), paper);
    QCOMPARE(paper < 128, theme == HostQtStyleManager::Dark);
    QVERIFY2(std::abs(paper - ink) > 150, qPrintable(QStringLiteral("paper %1, ink %2").arg(paper).arg(ink)));
    hostGetQtStyleManager()->setTheme(HostQtStyleManager::Light);
  }
};

QTEST_MAIN(TestDrawingCanvas)
#include "tst_DrawingCanvas.moc"

#include "DrawingDocument.h"
#include "DrawingPropertyBag.h"
#include "MessageCatcher.h"
#include "OdStringQt.h"
#include "PaletteGrid.h"
#include "PalettePanel.h"
#include "PropUiQDistanceCtrl.h"
#include "PropVariantConversions.h"
#include "PropWidgetsEntry.h"
#include "OdRxModule.h"
#include "PropertyPalette.h"
#include <QUndoStack>
#include <QtTest>
#include <cmath>
#include <limits>

Q_DECLARE_METATYPE(PropVariant)

namespace
{

DrawingEntity entity(EntityKind kind, std::vector<DrawingPoint> points)
{
  DrawingEntity e;
  e.kind = kind;
  e.points = std::move(points);
  return e;
}

/**
 * One entity of every kind, two of some with values that differ in one
 * place only, so that a selection shows agreement and disagreement.
 */
struct Drawing
{
  DrawingDocument document;
  QUndoStack undo;
  quint64 line1, line2, circle, arc, polyline, text, mtext, insert, dimension;

  Drawing()
  {
    OdDbDatabase& db = document.database();
    db.addLayer(OdString(L"Walls"));
    line1 = document.addEntity(entity(EntityKind::Line, {{1, 2, 0}, {10, 2, 0}}));
    DrawingEntity second = entity(EntityKind::Line, {{1, 5, 0}, {4, 9, 0}});
    second.layer = db.getLayerId(OdString(L"Walls"));
    line2 = document.addEntity(second);
    DrawingEntity c = entity(EntityKind::Circle, {{0, 0, 0}});
    c.radius = 5;
    circle = document.addEntity(c);
    DrawingEntity a = entity(EntityKind::Arc, {{0, 0, 0}});
    a.radius = 2;
    a.startAngle = 0;
    a.endAngle = 90;
    arc = document.addEntity(a);
    DrawingEntity p = entity(EntityKind::Polyline, {{0, 0, 0}, {4, 0, 0}, {4, 3, 0}});
    p.bulges = {0, 0, 0};
    polyline = document.addEntity(p);
    DrawingEntity t = entity(EntityKind::Text, {{3, 3, 0}});
    t.height = 2.5;
    t.text = QStringLiteral("Hello");
    text = document.addEntity(t);
    DrawingEntity m = entity(EntityKind::MText, {{3, 8, 0}});
    m.height = 2.5;
    m.text = QStringLiteral("World");
    mtext = document.addEntity(m);
    DrawingEntity i = entity(EntityKind::Insert, {{7, 7, 0}});
    i.blockName = QStringLiteral("Door");
    i.rotation = 30;
    insert = document.addEntity(i);
    dimension = document.addEntity(entity(EntityKind::Dimension, {{0, 0, 0}, {3, 4, 0}, {0, 6, 0}}));
  }

  /** Every field of every entity, at full precision: equal texts mean equal drawings. */
  QString dump() const
  {
    QStringList lines;
    auto n = [](double d) { return QString::number(d, 'g', 17); };
    for (const DrawingEntity& e : document.entities())
    {
      QStringList f{QString::number(int(e.kind)), QString::number(e.handle), QString::number(e.layer.getHandle()),
                    QString::number(qulonglong(e.color.color())), QString::number(e.linetype.getHandle()),
                    QString::number(int(e.lineWeight)), n(e.linetypeScale), QString::number(e.visible)};
      for (const DrawingPoint& p : e.points)
        f << n(p.x) << n(p.y) << n(p.z);
      for (double b : e.bulges)
        f << n(b);
      f << QString::number(e.closed) << n(e.radius) << n(e.startAngle) << n(e.endAngle) << n(e.height) << n(e.rotation)
        << n(e.scale.x) << n(e.scale.y) << n(e.scale.z) << e.blockName << e.text << QString::number(e.dimensionType);
      lines << f.join(QLatin1Char(' '));
    }
    return lines.join(QLatin1Char('\n'));
  }
};

QStringList namesOf(DrawingPropertyBag& bag)
{
  QStringList names;
  for (int i = 0; i < bag.getItemCount(); ++i)
  {
    OdString name;
    bag.getName(i, name);
    names << toQString(name);
  }
  return names;
}

int itemNamed(DrawingPropertyBag& bag, const QString& name)
{
  return bag.findItem(toOdString(name));
}

PropVariant real(double d)
{
  PropVariant v;
  v.setDouble(d);
  return v;
}

const QStringList kGeneral{QStringLiteral("Layer"), QStringLiteral("Colour"), QStringLiteral("Linetype"),
                           QStringLiteral("Lineweight"), QStringLiteral("Linetype scale"), QStringLiteral("Visible")};

} // namespace

class TestDrawingPalette : public QObject
{
  Q_OBJECT

  QVector<quint64> handles(Drawing& d, const QString& which)
  {
    const QMap<QString, quint64> byName{{QStringLiteral("line1"), d.line1},   {QStringLiteral("line2"), d.line2},
                                        {QStringLiteral("circle"), d.circle}, {QStringLiteral("arc"), d.arc},
                                        {QStringLiteral("polyline"), d.polyline}, {QStringLiteral("text"), d.text},
                                        {QStringLiteral("mtext"), d.mtext},   {QStringLiteral("insert"), d.insert},
                                        {QStringLiteral("dimension"), d.dimension}};
    QVector<quint64> result;
    for (const QString& name : which.split(QLatin1Char('+')))
      result << byName.value(name);
    return result;
  }

private slots:
  void initTestCase()
  {
    QLocale::setDefault(QLocale::c());
    qRegisterMetaType<QVector<quint64> >();
    odrxCreateModuleObject()->initApp();
  }

  void cleanupTestCase() { odrxCreateModuleObject()->uninitApp(); }

  void onlySharedPropertiesShow_data()
  {
    QTest::addColumn<QString>("selection");
    QTest::addColumn<QStringList>("geometry");
    QTest::newRow("two lines") << "line1+line2" << QStringList{"Start point", "End point", "Length"};
    QTest::newRow("circle and arc") << "circle+arc" << QStringList{"Centre", "Radius", "Diameter"};
    QTest::newRow("arc alone") << "arc" << QStringList{"Centre", "Radius", "Diameter", "Start angle", "End angle", "Arc length"};
    QTest::newRow("text and insert") << "text+insert" << QStringList{"Position", "Rotation"};
    QTest::newRow("both texts") << "text+mtext" << QStringList{"Position", "Rotation", "Contents", "Height"};
    QTest::newRow("insert") << "insert" << QStringList{"Position", "Rotation", "Scale", "Block"};
    QTest::newRow("open polyline") << "polyline" << QStringList{"Vertices", "Length", "Closed"};
    QTest::newRow("dimension") << "dimension"
                               << QStringList{"First point", "Second point", "Dimension line", "Measurement", "Dimension text"};
    QTest::newRow("line and circle") << "line1+circle" << QStringList();
    QTest::newRow("every kind") << "line1+circle+arc+polyline+text+mtext+insert+dimension" << QStringList();
  }

  void onlySharedPropertiesShow()
  {
    QFETCH(QString, selection);
    QFETCH(QStringList, geometry);
    Drawing d;
    DrawingPropertyBag bag(&d.document, &d.undo);
    bag.setSelection(handles(d, selection));
    QCOMPARE(namesOf(bag), kGeneral + geometry);
  }

  void aClosedPolylineHasAnArea()
  {
    Drawing d;
    DrawingEntity closed = *d.document.entity(d.polyline);
    closed.closed = true;
    d.document.replaceEntities({closed});
    DrawingPropertyBag bag(&d.document, &d.undo);
    bag.setSelection({d.polyline});
    const int area = itemNamed(bag, QStringLiteral("Area"));
    QVERIFY(area >= 0);
    PropVariant v;
    QVERIFY(bag.getValue(area, v));
    QCOMPARE(v.getDouble(), 6.0);
    // A bulge of 1 turns the closing edge of this counter-clockwise outline into a half circle outside it.
    closed.bulges = {0, 0, 1};
    d.document.replaceEntities({closed});
    QVERIFY(bag.getValue(area, v));
    QVERIFY(qFuzzyCompare(v.getDouble(), 6.0 + M_PI * 2.5 * 2.5 / 2));
  }

  void valuesMergeAcrossTheSelection()
  {
    // GIVEN two lines that share their start's X and Z, not its Y, and sit on different layers
    Drawing d;
    DrawingPropertyBag bag(&d.document, &d.undo);
    bag.setSelection({d.line1, d.line2});
    const int start = itemNamed(bag, QStringLiteral("Start point"));
    QVector<bool> varies;
    QVector<double> shown;
    for (unsigned long e = 0; e < 3; ++e)
    {
      PropVariant v;
      QVERIFY(bag.getElementValue(start, e, v));
      varies << v.isVaries();
      shown << v.getDouble();
    }
    QCOMPARE(varies, (QVector<bool>{false, true, false}));
    QCOMPARE(shown[0], 1.0);
    // A point has no vertex picker; the whole point varies when any coordinate does.
    QCOMPARE(bag.getGroupCount(start), 0);
    PropVariant whole;
    QVERIFY(bag.getValue(start, whole) && whole.isVaries());

    PropVariant layer, color, length;
    QVERIFY(bag.getValue(itemNamed(bag, QStringLiteral("Layer")), layer));
    QVERIFY(bag.getValue(itemNamed(bag, QStringLiteral("Colour")), color));
    QVERIFY(bag.getValue(itemNamed(bag, QStringLiteral("Length")), length));
    QVERIFY(layer.isVaries());
    QVERIFY(!color.isVaries());
    QVERIFY(length.isVaries());
    // One line alone agrees with itself everywhere.
    bag.setSelection({d.line1});
    QVERIFY(bag.getValue(itemNamed(bag, QStringLiteral("Length")), length) && !length.isVaries());
    QCOMPARE(length.getDouble(), 9.0);
  }

  void polylinesShareTheirCommonVertices()
  {
    Drawing d;
    DrawingEntity longer = *d.document.entity(d.polyline);
    longer.handle = 0;
    longer.points.push_back({0, 3, 0});
    const quint64 second = d.document.addEntity(longer);
    DrawingPropertyBag bag(&d.document, &d.undo);
    bag.setSelection({d.polyline, second});
    const int vertices = itemNamed(bag, QStringLiteral("Vertices"));
    QCOMPARE(bag.getGroupCount(vertices), 3);
    PropKeyArray elements;
    OdStringArray captions;
    QCOMPARE(bag.getElements(vertices, elements, captions), 9u);
    QCOMPARE(toQString(captions[4]), QStringLiteral("Vertex 2 Y"));
  }

  void refusedWritesChangeNothing_data()
  {
    QTest::addColumn<QString>("selection");
    QTest::addColumn<QString>("item");
    QTest::addColumn<PropVariant>("value");
    QTest::addColumn<QString>("message"); // none: a read-only item, offered the value it shows
    PropVariant words;
    words.setString(OdString(L"big"));
    OdDoubleArray flat{0.0, 1.0};
    PropVariant flatScale;
    flatScale.setDoubleArray(flat);
    QTest::newRow("length") << "line1" << "Length" << PropVariant() << "";
    QTest::newRow("arc length") << "arc" << "Arc length" << PropVariant() << "";
    QTest::newRow("circumference") << "circle" << "Circumference" << PropVariant() << "";
    QTest::newRow("measurement") << "dimension" << "Measurement" << PropVariant() << "";
    QTest::newRow("block") << "insert" << "Block" << PropVariant() << "";
    QTest::newRow("radius zero") << "circle+arc" << "Radius" << real(0) << "The radius must be greater than zero.";
    QTest::newRow("radius negative") << "circle" << "Radius" << real(-1) << "The radius must be greater than zero.";
    QTest::newRow("diameter zero") << "circle" << "Diameter" << real(0) << "The diameter must be greater than zero.";
    QTest::newRow("text height zero") << "text+mtext" << "Height" << real(0) << "The text height must be greater than zero.";
    QTest::newRow("text height negative") << "text" << "Height" << real(-2) << "The text height must be greater than zero.";
    QTest::newRow("linetype scale zero") << "line1" << "Linetype scale" << real(0)
                                         << "The linetype scale must be greater than zero.";
    QTest::newRow("scale zero") << "insert" << "Scale" << flatScale << "A scale cannot be zero.";
    QTest::newRow("radius not a number") << "circle" << "Radius" << real(std::nan(""))
                                         << "Radius must lie between -1e100 and 1e100.";
    QTest::newRow("rotation infinite") << "text" << "Rotation" << real(std::numeric_limits<double>::infinity())
                                       << "Rotation must lie between -1e100 and 1e100.";
    // Finite, but the circle's area would not be.
    QTest::newRow("radius too large") << "circle" << "Radius" << real(1e308) << "Radius must lie between -1e100 and 1e100.";
    QTest::newRow("radius as text") << "circle" << "Radius" << words << "Radius takes a number.";
  }

  void refusedWritesChangeNothing()
  {
    QFETCH(QString, selection);
    QFETCH(QString, item);
    QFETCH(PropVariant, value);
    QFETCH(QString, message);
    Drawing d;
    DrawingPropertyBag bag(&d.document, &d.undo);
    bag.setSelection(handles(d, selection));
    const int index = itemNamed(bag, item);
    QVERIFY(index >= 0);
    if (message.isEmpty())
    {
      QVERIFY(!bag.isEditable(index, 0));
      QVERIFY(bag.getValue(index, value));
      value.setVaries(false);
    }
    else
    {
      OdString said;
      QVERIFY(!bag.validate(index, 0, value, said));
      QCOMPARE(toQString(said), message);
    }
    const QString before = d.dump();
    QVERIFY(!bag.setValue(index, value));
    QCOMPARE(d.dump(), before);
    QCOMPARE(d.undo.count(), 0);
  }

  void wrongKindsAndIndexesWriteNothing()
  {
    Drawing d;
    DrawingPropertyBag bag(&d.document, &d.undo);
    bag.setSelection({d.line1, d.circle});
    const QString before = d.dump();
    PropVariant words;
    words.setString(OdString(L"red"));
    QVERIFY(!bag.setValue(itemNamed(bag, QStringLiteral("Colour")), words));
    QVERIFY(!bag.setValue(itemNamed(bag, QStringLiteral("Visible")), real(1)));
    // An id that names no layer of the drawing.
    QVERIFY(!bag.setValue(itemNamed(bag, QStringLiteral("Layer")), propVariantFromObjectId(OdDbObjectId(987654))));
    QVERIFY(!bag.setValue(-1, real(1)));
    QVERIFY(!bag.setValue(bag.getItemCount(), real(1)));
    PropVariant v;
    QVERIFY(!bag.getValue(bag.getItemCount(), v));
    QVERIFY(!bag.getElementValue(0, 0, v));
    QCOMPARE(d.dump(), before);
    QCOMPARE(d.undo.count(), 0);
    // A bag without a document has nothing to show.
    DrawingPropertyBag empty(nullptr, nullptr);
    empty.setSelection({1, 2});
    QCOMPARE(empty.getItemCount(), 0);
  }

  void anEditIsOneUndoStepOverTheSelection_data()
  {
    QTest::addColumn<QString>("selection");
    QTest::addColumn<QString>("item");
    QTest::addColumn<int>("element");
    QTest::addColumn<PropVariant>("value");
    QTest::addColumn<QString>("stepText");
    OdCmColor red;
    red.setColorIndex(1);
    OdDoubleArray twice{2.0, 2.0};
    PropVariant scale;
    scale.setDoubleArray(twice);
    QTest::newRow("radius") << "circle+arc" << "Radius" << -1 << real(7.5) << "Change Radius";
    QTest::newRow("colour") << "line1+line2+text" << "Colour" << -1 << propVariantFromColor(red) << "Change Colour";
    QTest::newRow("start point Y") << "line1+line2" << "Start point" << 1 << real(-4) << "Change Start point";
    QTest::newRow("vertex 2 X") << "polyline" << "Vertices" << 3 << real(9) << "Change Vertices";
    QTest::newRow("locked scale") << "insert" << "Scale" << 0 << scale << "Change Scale";
  }

  void anEditIsOneUndoStepOverTheSelection()
  {
    QFETCH(QString, selection);
    QFETCH(QString, item);
    QFETCH(int, element);
    QFETCH(PropVariant, value);
    QFETCH(QString, stepText);
    // GIVEN a selection and a drawing as it was
    Drawing d;
    DrawingPropertyBag bag(&d.document, &d.undo);
    bag.setSelection(handles(d, selection));
    const QString before = d.dump();
    const int index = itemNamed(bag, item);
    QSignalSpy changed(&d.document, &DrawingDocument::entitiesChanged);
    // WHEN one edit is written
    QVERIFY(element < 0 ? bag.setValue(index, value) : bag.setElementValue(index, unsigned(element), value));
    // THEN it is one step, every selected entity took it, and the bag shows it as one value
    QCOMPARE(d.undo.count(), 1);
    QCOMPARE(d.undo.text(0), stepText);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.first().first().value<QVector<quint64> >().size(), bag.selection().size());
    PropVariant shown;
    if (element < 0)
      QVERIFY(bag.getValue(index, shown));
    else
      QVERIFY(bag.getElementValue(index, unsigned(element), shown));
    QVERIFY(!shown.isVaries());
    const QString after = d.dump();
    QVERIFY(after != before);
    // AND undo and redo bring back each state exactly
    d.undo.undo();
    QCOMPARE(d.dump(), before);
    d.undo.redo();
    QCOMPARE(d.dump(), after);
  }

  void theBagFollowsTheDocument()
  {
    // GIVEN a selected line
    Drawing d;
    DrawingPropertyBag bag(&d.document, &d.undo);
    bag.setSelection({d.line1});
    const int length = itemNamed(bag, QStringLiteral("Length"));
    // WHEN the document grows far enough to move its storage THEN the bag still reads the line
    for (int i = 0; i < 2000; ++i)
      d.document.addEntity(entity(EntityKind::Line, {{0, 0, 0}, {1, 0, 0}}));
    PropVariant v;
    QVERIFY(bag.getValue(length, v));
    QCOMPARE(v.getDouble(), 9.0);
    // WHEN the drawing is replaced, even by one that reuses the handles, THEN nothing stays selected
    d.document.clear();
    d.document.addEntity(entity(EntityKind::Circle, {{0, 0, 0}}));
    QVERIFY(bag.selection().isEmpty());
    QCOMPARE(bag.getItemCount(), 0);
    QVERIFY(!bag.getValue(0, v));
  }

  void aValueAlreadyHeldIsNoStep()
  {
    Drawing d;
    DrawingPropertyBag bag(&d.document, &d.undo);
    bag.setSelection({d.circle});
    QVERIFY(bag.setValue(itemNamed(bag, QStringLiteral("Radius")), real(5)));
    QCOMPARE(d.undo.count(), 0);
  }

  void theControlShowsTheRefusalAndBothFormsFollowUndo()
  {
    // GIVEN a palette over a circle and an arc
    MessageCatcher messages;
    Drawing d;
    DrawingPropertyBag bag(&d.document, &d.undo);
    bag.setSelection({d.circle, d.arc});
    PropertyPalette palette(&bag);
    const int radius = itemNamed(bag, QStringLiteral("Radius"));
    auto* control = qobject_cast<PropUiQDistanceCtrl*>(palette.panel()->controls().value(radius).data());
    QVERIFY(control);
    QVERIFY(control->isVaries());
    const QModelIndex cell = palette.grid()->model()->index(radius, 1);
    QCOMPARE(cell.data().toString(), QStringLiteral("*VARIES*"));

    // WHEN the user types a negative radius THEN the bag's message is shown and nothing is written
    control->lineEdit()->setText(QStringLiteral("-1"));
    control->onEditingFinished();
    QTRY_COMPARE(messages.shown.size(), 1);
    QCOMPARE(messages.shown.first().text, QStringLiteral("The radius must be greater than zero."));
    QCOMPARE(d.undo.count(), 0);

    // WHEN a good radius is typed THEN the grid shows it
    control->lineEdit()->setText(QStringLiteral("3"));
    control->onEditingFinished();
    QCOMPARE(d.undo.count(), 1);
    QTRY_COMPARE(cell.data().toString(), QStringLiteral("3.0000"));
    QCOMPARE(d.document.entity(d.arc)->radius, 3.0);

    // WHEN it is undone THEN both forms show the selection's two radii again
    d.undo.undo();
    QTRY_VERIFY(control->isVaries());
    QCOMPARE(cell.data().toString(), QStringLiteral("*VARIES*"));
  }
};

QTEST_MAIN(TestDrawingPalette)
#include "tst_DrawingPalette.moc"

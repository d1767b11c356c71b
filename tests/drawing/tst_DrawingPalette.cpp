#include "DrawingDocument.h"
#include "Drawings.h"
#include "DrawingHatchPatterns.h"
#include "DrawingPropertyBag.h"
#include "DrawingShape.h"
#include "MessageCatcher.h"
#include "OdStringQt.h"
#include "PaletteGrid.h"
#include "PalettePanel.h"
#include "PropUiQComboBox.h"
#include "PropUiQDistanceCtrl.h"
#include "QHostComboBox.h"
#include "PropVariantConversions.h"
#include "PropertyPalette.h"
#include "RunningModule.h"
#include "TestValues.h"
#include <QAbstractItemModelTester>
#include <QUndoStack>
#include <QtTest>
#include <cmath>
#include <limits>

Q_DECLARE_METATYPE(PropVariant)

namespace
{

/**
 * One entity of every kind, two of some with values that differ in one
 * place only, so that a selection shows agreement and disagreement.
 */
struct Drawing
{
  DrawingDocument document;
  QUndoStack undo;
  quint64 line1, line2, circle, arc, polyline, text, mtext, insert, dimension, ellipse, spline, point, hatch;
  /** The handles above by their names, for a selection written "line1+circle". */
  QMap<QString, quint64> named;

  quint64 add(const char* name, const DrawingEntity& e) { return named[QLatin1String(name)] = document.addEntity(e); }

  Drawing()
  {
    OdDbDatabase& db = document.database();
    db.addLayer(OdString(L"Walls"));
    line1 = add("line1", entityOf(EntityKind::Line, {{1, 2, 0}, {10, 2, 0}}));
    DrawingEntity second = entityOf(EntityKind::Line, {{1, 5, 0}, {4, 9, 0}});
    second.layer = db.getLayerId(OdString(L"Walls"));
    line2 = add("line2", second);
    DrawingEntity c = entityOf(EntityKind::Circle, {{0, 0, 0}});
    c.radius = 5;
    circle = add("circle", c);
    DrawingEntity a = entityOf(EntityKind::Arc, {{0, 0, 0}});
    a.radius = 2;
    a.startAngle = 0;
    a.endAngle = 90;
    arc = add("arc", a);
    DrawingEntity p = entityOf(EntityKind::Polyline, {{0, 0, 0}, {4, 0, 0}, {4, 3, 0}});
    p.bulges = {0, 0, 0};
    polyline = add("polyline", p);
    p.closed = true;
    add("closed", p);
    // A bulge of 1 turns the closing edge of this counter-clockwise outline into a half circle outside it.
    p.bulges = {0, 0, 1};
    add("bulged", p);
    DrawingEntity t = entityOf(EntityKind::Text, {{3, 3, 0}});
    t.height = 2.5;
    t.text = QStringLiteral("Hello");
    text = add("text", t);
    DrawingEntity m = entityOf(EntityKind::MText, {{3, 8, 0}});
    m.height = 2.5;
    m.text = QStringLiteral("World\\PSecond \\\\P end");
    mtext = add("mtext", m);
    DrawingEntity i = entityOf(EntityKind::Insert, {{7, 7, 0}});
    i.blockName = QStringLiteral("Door");
    i.rotation = 30;
    for (const auto& tagged : {std::make_pair("ROOM", "101"), std::make_pair("AREA", "12 m2")})
    {
      DrawingEntity attribute = entityOf(EntityKind::Text, {{7, 7, 0}});
      attribute.blockName = QString::fromLatin1(tagged.first);
      attribute.text = QString::fromLatin1(tagged.second);
      i.editDetails().attributes.push_back(attribute);
    }
    insert = add("insert", i);
    dimension = add("dimension", entityOf(EntityKind::Dimension, {{0, 0, 0}, {3, 4, 0}, {0, 6, 0}}));
    // A major axis 8 long along Y, and a minor one of 4.
    DrawingEntity el = entityOf(EntityKind::Ellipse, {{1, 1, 0}, {0, 4, 0}});
    el.ratio = 0.5;
    el.endAngle = 360;
    ellipse = add("ellipse", el);
    DrawingEntity sp = entityOf(EntityKind::Spline, {{0, 0, 0}, {1, 2, 0}, {3, 2, 0}, {4, 0, 0}});
    sp.editDetails().degree = 3;
    sp.editDetails().knots = {0, 0, 0, 0, 1, 1, 1, 1};
    spline = add("spline", sp);
    point = add("point", entityOf(EntityKind::Point, {{5, 6, 7}}));
    DrawingEntity h = entityOf(EntityKind::Hatch, {});
    h.editDetails().pattern = QStringLiteral("ANSI31");
    h.editDetails().patternLines = hatchPatternLines(QStringLiteral("ANSI31"), 1, 0);
    h.editDetails().loops = {DrawingHatchLoop{{{0, 0, 0}, {4, 0, 0}, {4, 4, 0}}, {0, 0, 0}}};
    hatch = add("hatch", h);
    document.textStyle(QStringLiteral("Notes")).font = QStringLiteral("isocp.shx");
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
        << n(e.scale.x) << n(e.scale.y) << n(e.scale.z) << e.blockName << e.text << QString::number(e.dimensionType)
        << n(e.ratio) << e.style << n(e.widthFactor) << n(e.oblique) << QString::number(e.horizontalAlignment)
        << QString::number(e.verticalAlignment) << QString::number(e.details().degree) << e.details().pattern
        << n(e.details().patternScale) << n(e.details().patternAngle) << QString::number(e.details().solidFill);
      for (const DrawingHatchLine& l : e.details().patternLines)
        f << n(l.angle) << n(l.offset.x) << n(l.offset.y) << QString::number(l.dashes.size());
      for (const DrawingEntity& a : e.details().attributes)
        f << a.blockName << a.text;
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

/** What the bag shows for an item or one of its elements (-1: the whole item); "*varies*" for a varying value. */
QString shownText(DrawingPropertyBag& bag, int index, int element)
{
  PropVariant v;
  if (element < 0 ? !bag.getValue(index, v) : !bag.getElementValue(index, unsigned(element), v))
    return QStringLiteral("(unread)");
  if (v.isVaries())
    return QStringLiteral("*varies*");
  OdString text;
  return bag.formatValue(index, element < 0 ? 0 : unsigned(element), v, text) ? toQString(text) : QStringLiteral("(unformatted)");
}

QStringList listedNames(DrawingPropertyBag& bag, int index)
{
  OdStringArray names;
  PropKeyArray keys;
  bag.getValueList(index, names, keys);
  QStringList list;
  for (const OdString& name : names)
    list << toQString(name);
  return list;
}

const QStringList kGeneral{QStringLiteral("Show"), QStringLiteral("Type"), QStringLiteral("Layer"), QStringLiteral("Colour"), QStringLiteral("Linetype"),
                           QStringLiteral("Lineweight"), QStringLiteral("Linetype scale"), QStringLiteral("Visible")};

} // namespace

class TestDrawingPalette : public QObject
{
  Q_OBJECT
  RunningModule module;

  QVector<quint64> handles(Drawing& d, const QString& which)
  {
    QVector<quint64> result;
    for (const QString& name : which.split(QLatin1Char('+')))
      result << d.named.value(name);
    return result;
  }

private slots:
  void initTestCase()
  {
    QLocale::setDefault(QLocale::c());
    qRegisterMetaType<QVector<quint64> >();
  }

  void onlySharedPropertiesShow_data()
  {
    QTest::addColumn<QString>("selection");
    QTest::addColumn<QStringList>("geometry");
    QTest::newRow("two lines") << "line1+line2" << QStringList{"Start point", "End point", "Length"};
    QTest::newRow("circle and arc") << "circle+arc" << QStringList{"Centre", "Radius", "Diameter"};
    QTest::newRow("arc alone") << "arc" << QStringList{"Centre", "Radius", "Diameter", "Start angle", "End angle", "Arc length"};
    QTest::newRow("text and insert") << "text+insert" << QStringList{"Position", "Rotation"};
    QTest::newRow("both texts") << "text+mtext" << QStringList{"Position", "Rotation", "Style", "Height"};
    QTest::newRow("text") << "text"
                          << QStringList{"Position", "Rotation", "Contents", "Style", "Alignment", "Height", "Width factor", "Oblique angle"};
    QTest::newRow("multi-line text") << "mtext" << QStringList{"Position", "Rotation", "Contents", "Style", "Height"};
    QTest::newRow("ellipse") << "ellipse" << QStringList{"Centre", "Major axis", "Minor axis", "Ratio", "Start angle", "End angle"};
    QTest::newRow("arc and ellipse") << "arc+ellipse" << QStringList{"Centre", "Start angle", "End angle"};
    QTest::newRow("spline") << "spline" << QStringList{"Control points", "Closed", "Degree"};
    QTest::newRow("polyline and spline") << "polyline+spline" << QStringList{"Closed"};
    QTest::newRow("point and text") << "point+text" << QStringList{"Position"};
    QTest::newRow("hatch") << "hatch" << QStringList{"Pattern", "Pattern scale", "Pattern angle", "Solid fill"};
    QTest::newRow("insert") << "insert" << QStringList{"Position", "Rotation", "Scale", "Block", "Attributes"};
    QTest::newRow("open polyline") << "polyline" << QStringList{"Vertices", "Number of vertices", "Length", "Closed"};
    QTest::newRow("dimension") << "dimension"
                               << QStringList{"First point", "Second point", "Dimension line", "Measurement", "Dimension text"};
    QTest::newRow("line and circle") << "line1+circle" << QStringList();
    QTest::newRow("every kind") << "line1+circle+arc+polyline+text+mtext+insert+dimension+ellipse+spline+point+hatch" << QStringList();
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

  void refusedWritesChangeNothing_data()
  {
    QTest::addColumn<QString>("selection");
    QTest::addColumn<QString>("item");
    QTest::addColumn<PropVariant>("value");
    QTest::addColumn<QString>("message"); // none: a read-only item, offered the value it shows
    QTest::newRow("length") << "line1" << "Length" << PropVariant() << "";
    QTest::newRow("arc length") << "arc" << "Arc length" << PropVariant() << "";
    QTest::newRow("circumference") << "circle" << "Circumference" << PropVariant() << "";
    QTest::newRow("measurement") << "dimension" << "Measurement" << PropVariant() << "";
    QTest::newRow("block") << "insert" << "Block" << PropVariant() << "";
    QTest::newRow("type") << "line1+circle" << "Type" << PropVariant() << "";
    QTest::newRow("degree") << "spline" << "Degree" << PropVariant() << "";
    QTest::newRow("control points") << "spline" << "Control points" << PropVariant() << "";
    QTest::newRow("number of vertices") << "polyline" << "Number of vertices" << PropVariant() << "";
    QTest::newRow("width factor zero") << "text" << "Width factor" << realValue(0) << "The width factor must be greater than zero.";
    QTest::newRow("oblique too far") << "text" << "Oblique angle" << realValue(-86) << "The oblique angle must lie between -85° and 85°.";
    QTest::newRow("ratio zero") << "ellipse" << "Ratio" << realValue(0) << "The ratio must be greater than zero and at most 1.";
    QTest::newRow("ratio above one") << "ellipse" << "Ratio" << realValue(1.5) << "The ratio must be greater than zero and at most 1.";
    QTest::newRow("minor beyond major") << "ellipse" << "Minor axis" << realValue(8.5)
                                        << "The minor axis must be longer than zero and no longer than the major axis.";
    QTest::newRow("major zero") << "ellipse" << "Major axis" << realValue(0) << "The major axis must be longer than zero.";
    QTest::newRow("style the drawing lacks") << "text+mtext" << "Style" << textValue(QStringLiteral("Bold")) << "Style takes one of the values it lists.";
    QTest::newRow("alignment not listed") << "text" << "Alignment" << intValue(35) << "Alignment takes one of the values it lists.";
    QTest::newRow("pattern scale zero") << "hatch" << "Pattern scale" << realValue(0) << "The pattern scale must be greater than zero.";
    QTest::newRow("unknown pattern") << "hatch" << "Pattern" << textValue(QStringLiteral("BRICKS")) << "Pattern takes one of the values it lists.";
    QTest::newRow("solid fill") << "hatch" << "Solid fill" << PropVariant() << "";
    QTest::newRow("a kind not selected") << "line1" << "Show" << intValue(int(EntityKind::Circle) + 1)
                                         << "Show takes one of the values it lists.";
    QTest::newRow("radius zero") << "circle+arc" << "Radius" << realValue(0) << "The radius must be greater than zero.";
    QTest::newRow("diameter zero") << "circle" << "Diameter" << realValue(0) << "The diameter must be greater than zero.";
    QTest::newRow("text height zero") << "text+mtext" << "Height" << realValue(0) << "The text height must be greater than zero.";
    QTest::newRow("text height negative") << "text" << "Height" << realValue(-2) << "The text height must be greater than zero.";
    QTest::newRow("linetype scale zero") << "line1" << "Linetype scale" << realValue(0)
                                         << "The linetype scale must be greater than zero.";
    QTest::newRow("scale zero") << "insert" << "Scale" << realsValue({0.0, 1.0}) << "A scale cannot be zero.";
    QTest::newRow("radius not a number") << "circle" << "Radius" << realValue(std::nan(""))
                                         << "Radius must lie between -1e100 and 1e100.";
    QTest::newRow("rotation infinite") << "text" << "Rotation" << realValue(std::numeric_limits<double>::infinity())
                                       << "Rotation must lie between -1e100 and 1e100.";
    // Finite, but the circle's area would not be.
    QTest::newRow("radius too large") << "circle" << "Radius" << realValue(1e308) << "Radius must lie between -1e100 and 1e100.";
    QTest::newRow("radius as text") << "circle" << "Radius" << textValue(QStringLiteral("big")) << "Radius takes a number.";
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
    QVERIFY(!bag.setValue(itemNamed(bag, QStringLiteral("Colour")), textValue(QStringLiteral("red"))));
    QVERIFY(!bag.setValue(itemNamed(bag, QStringLiteral("Visible")), realValue(1)));
    // An id that names no layer of the drawing.
    QVERIFY(!bag.setValue(itemNamed(bag, QStringLiteral("Layer")), propVariantFromObjectId(OdDbObjectId(987654))));
    QVERIFY(!bag.setValue(-1, realValue(1)));
    QVERIFY(!bag.setValue(bag.getItemCount(), realValue(1)));
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
    QTest::newRow("radius") << "circle+arc" << "Radius" << -1 << realValue(7.5) << "Change Radius";
    QTest::newRow("radius already held") << "circle" << "Radius" << -1 << realValue(5) << "";
    QTest::newRow("colour") << "line1+line2+text" << "Colour" << -1 << propVariantFromColor(red) << "Change Colour";
    QTest::newRow("start point Y") << "line1+line2" << "Start point" << 1 << realValue(-4) << "Change Start point";
    QTest::newRow("vertex 2 X") << "polyline" << "Vertices" << 3 << realValue(9) << "Change Vertices";
    QTest::newRow("locked scale") << "insert" << "Scale" << 0 << realsValue({2.0, 2.0}) << "Change Scale";
    QTest::newRow("major axis") << "ellipse" << "Major axis" << -1 << realValue(10) << "Change Major axis";
    QTest::newRow("minor axis") << "ellipse" << "Minor axis" << -1 << realValue(2) << "Change Minor axis";
    QTest::newRow("ratio") << "ellipse" << "Ratio" << -1 << realValue(1) << "Change Ratio";
    QTest::newRow("end angles") << "arc+ellipse" << "End angle" << -1 << realValue(180) << "Change End angle";
    QTest::newRow("spline closed") << "spline" << "Closed" << -1 << PropVariant().setBool(true) << "Change Closed";
    QTest::newRow("style") << "text+mtext" << "Style" << -1 << textValue(QStringLiteral("Notes")) << "Change Style";
    QTest::newRow("alignment") << "text" << "Alignment" << -1 << intValue(12) << "Change Alignment";
    QTest::newRow("width factor") << "text" << "Width factor" << -1 << realValue(0.8) << "Change Width factor";
    QTest::newRow("oblique") << "text" << "Oblique angle" << -1 << realValue(15) << "Change Oblique angle";
    QTest::newRow("paragraph") << "mtext" << "Contents" << 1 << textValue(QStringLiteral(" two ")) << "Change Contents";
    QTest::newRow("new paragraph") << "mtext" << "Contents" << 2 << textValue(QStringLiteral("Third")) << "Change Contents";
    QTest::newRow("point Z") << "point" << "Position" << 2 << realValue(0) << "Change Position";
    QTest::newRow("attribute") << "insert" << "Attributes" << 1 << textValue(QStringLiteral("14 m2")) << "Change Attributes";
    QTest::newRow("pattern") << "hatch" << "Pattern" << -1 << textValue(QStringLiteral("SOLID")) << "Change Pattern";
    QTest::newRow("pattern scale") << "hatch" << "Pattern scale" << -1 << realValue(2.5) << "Change Pattern scale";
    QTest::newRow("pattern angle") << "hatch" << "Pattern angle" << -1 << realValue(45) << "Change Pattern angle";
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
    if (stepText.isEmpty()) // a value every selected entity holds already is no step
    {
      QCOMPARE(d.undo.count(), 0);
      QCOMPARE(d.dump(), before);
      return;
    }
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

  void valuesShowAsPeopleReadThem_data()
  {
    QTest::addColumn<QString>("selection");
    QTest::addColumn<QString>("item");
    QTest::addColumn<int>("element");
    QTest::addColumn<QString>("shown");
    // Two lines share their start's X and Z, not its Y, and sit on different layers; the whole point varies.
    QTest::newRow("shared start X") << "line1+line2" << "Start point" << 0 << "1.0000";
    QTest::newRow("start Y apart") << "line1+line2" << "Start point" << 1 << "*varies*";
    QTest::newRow("shared start Z") << "line1+line2" << "Start point" << 2 << "0.0000";
    QTest::newRow("start point") << "line1+line2" << "Start point" << -1 << "*varies*";
    QTest::newRow("layers apart") << "line1+line2" << "Layer" << -1 << "*varies*";
    QTest::newRow("shared colour") << "line1+line2" << "Colour" << -1 << "ByLayer";
    QTest::newRow("lengths apart") << "line1+line2" << "Length" << -1 << "*varies*";
    QTest::newRow("one line's length") << "line1" << "Length" << -1 << "9.0000";
    QTest::newRow("closed polyline's area") << "closed" << "Area" << -1 << "6.0000";
    QTest::newRow("bulged polyline's area") << "bulged" << "Area" << -1 << QString::number(6.0 + M_PI * 2.5 * 2.5 / 2, 'g', 10);
    QTest::newRow("one kind") << "line1+line2" << "Type" << -1 << "Line";
    QTest::newRow("two kinds") << "line1+circle" << "Type" << -1 << "*varies*";
    QTest::newRow("filter") << "line1+line2+circle" << "Show" << -1 << "All (3)";
    QTest::newRow("alignment") << "text" << "Alignment" << -1 << "Left";
    QTest::newRow("unnamed style") << "text" << "Style" << -1 << "Standard";
    QTest::newRow("degree") << "spline" << "Degree" << -1 << "3";
    QTest::newRow("control point") << "spline" << "Control points" << 4 << "2.0000";
    QTest::newRow("vertices") << "polyline" << "Number of vertices" << -1 << "3";
    QTest::newRow("major axis") << "ellipse" << "Major axis" << -1 << "8.0000";
    QTest::newRow("minor axis") << "ellipse" << "Minor axis" << -1 << "4.0000";
    // The paragraphs apart, never the break's code; an escaped backslash is no break.
    QTest::newRow("paragraphs") << "mtext" << "Contents" << -1 << "World \u00B6 Second \\\\P end";
    QTest::newRow("first paragraph") << "mtext" << "Contents" << 0 << "World";
    QTest::newRow("second paragraph") << "mtext" << "Contents" << 1 << "Second \\\\P end";
    QTest::newRow("new paragraph") << "mtext" << "Contents" << 2 << "";
    QTest::newRow("attributes") << "insert" << "Attributes" << -1 << "101, 12 m2";
    QTest::newRow("attribute") << "insert" << "Attributes" << 1 << "12 m2";
  }

  void valuesShowAsPeopleReadThem()
  {
    QFETCH(QString, selection);
    QFETCH(QString, item);
    QFETCH(int, element);
    QFETCH(QString, shown);
    Drawing d;
    DrawingPropertyBag bag(&d.document, &d.undo);
    bag.setSelection(handles(d, selection));
    QCOMPARE(shownText(bag, itemNamed(bag, item), element), shown);
  }

  void theFilterShowsAndEditsOneKind_data()
  {
    QTest::addColumn<QString>("selection");
    QTest::addColumn<QStringList>("entries");
    QTest::addColumn<int>("chosen");
    QTest::addColumn<QStringList>("geometry");
    QTest::newRow("lines and a circle") << "line1+circle+line2" << QStringList{"All (3)", "Line (2)", "Circle (1)"} << 2
                                        << QStringList{"Centre", "Radius", "Diameter", "Circumference", "Area"};
    // In the kinds' own order, whatever the selection's.
    QTest::newRow("four kinds") << "point+spline+ellipse+arc"
                                << QStringList{"All (4)", "Arc (1)", "Ellipse (1)", "Spline (1)", "Point (1)"} << 3
                                << QStringList{"Control points", "Closed", "Degree"};
  }

  void theFilterShowsAndEditsOneKind()
  {
    QFETCH(QString, selection);
    QFETCH(QStringList, entries);
    QFETCH(int, chosen);
    QFETCH(QStringList, geometry);
    // GIVEN a selection of several kinds
    Drawing d;
    DrawingPropertyBag bag(&d.document, &d.undo);
    QVector<bool> rebuilds;
    bag.setChangeListener([&rebuilds](bool same) { rebuilds << same; });
    bag.setSelection(handles(d, selection));
    const int filter = itemNamed(bag, QStringLiteral("Show"));
    QCOMPARE(filter, 0);
    QCOMPARE(listedNames(bag, filter), entries);
    QCOMPARE(shownText(bag, itemNamed(bag, QStringLiteral("Type")), -1), QStringLiteral("*varies*"));
    // WHEN one kind is chosen THEN the palette is built anew over that kind alone, and the selection stays
    PropVariant kind;
    QVERIFY(bag.getListValue(filter, unsigned(chosen), kind));
    QVERIFY(bag.setValue(filter, kind));
    QCOMPARE(rebuilds, QVector<bool>{false});
    QCOMPARE(namesOf(bag), kGeneral + geometry);
    const QString kindName = entries[chosen].section(QLatin1Char(' '), 0, 0);
    QCOMPARE(shownText(bag, itemNamed(bag, QStringLiteral("Type")), -1), kindName);
    QCOMPARE(shownText(bag, filter, -1), entries[chosen]);
    QCOMPARE(bag.selection(), handles(d, selection));
    QCOMPARE(d.undo.count(), 0);
    // WHEN the colour is set THEN only the entities of that kind take it, and the filter stays through the change
    OdCmColor red;
    red.setColorIndex(1);
    QVERIFY(bag.setValue(itemNamed(bag, QStringLiteral("Colour")), propVariantFromColor(red)));
    int reds = 0;
    for (quint64 handle : handles(d, selection))
      reds += d.document.entity(handle)->color.colorIndex() == 1 ? 1 : 0;
    QCOMPARE(reds, entries[chosen].section(QLatin1Char('('), 1).chopped(1).toInt());
    QCOMPARE(shownText(bag, filter, -1), entries[chosen]);
    // WHEN the selection changes THEN every kind shows again
    bag.setSelection(handles(d, selection));
    QCOMPARE(shownText(bag, filter, -1), entries.first());
  }

  void writesThatMoveOtherFields()
  {
    Drawing d;
    DrawingPropertyBag bag(&d.document, &d.undo);
    // A text given an alignment stays where it was drawn: its new alignment point is where that point of the text lies.
    const auto drawnBounds = [&d]() {
      DrawingShape shape;
      shape.build(d.document, *d.document.entity(d.text), DrawingLook());
      return shape.bounds();
    };
    const QRectF before = drawnBounds();
    for (int code : {23, 12, 40, 30, 50, 0})
    {
      bag.setSelection({d.text});
      QVERIFY(bag.setValue(itemNamed(bag, QStringLiteral("Alignment")), intValue(code)));
      const DrawingEntity* t = d.document.entity(d.text);
      QCOMPARE(t->horizontalAlignment * 10 + t->verticalAlignment, code);
      const QRectF after = drawnBounds();
      for (const auto& [was, is] : {std::pair(before.topLeft(), after.topLeft()), std::pair(before.bottomRight(), after.bottomRight())})
        QVERIFY2(QLineF(was, is).length() < before.height() * 1e-6,
                 qPrintable(QStringLiteral("%1: (%2, %3) moved to (%4, %5)").arg(code).arg(was.x()).arg(was.y()).arg(is.x()).arg(is.y())));
      d.undo.undo();
    }
    // A hatch's lines follow its pattern, scale and angle.
    bag.setSelection({d.hatch});
    QVERIFY(bag.setValue(itemNamed(bag, QStringLiteral("Pattern")), textValue(QStringLiteral("NET"))));
    QVERIFY(bag.setValue(itemNamed(bag, QStringLiteral("Pattern angle")), realValue(30)));
    const DrawingEntityDetail& hatch = d.document.entity(d.hatch)->details();
    QCOMPARE(hatch.patternLines.size(), hatchPatternLines(QStringLiteral("NET"), 1, 30).size());
    QCOMPARE(hatch.patternLines[0].angle, hatchPatternLines(QStringLiteral("NET"), 1, 30)[0].angle);
    bag.setSelection({d.mtext});
    const int contents = itemNamed(bag, QStringLiteral("Contents"));
    PropKeyArray elements;
    OdStringArray captions;
    QCOMPARE(bag.getElements(contents, elements, captions), 3u);
    QCOMPARE(toQString(captions[2]), QStringLiteral("New paragraph"));
    QCOMPARE(toQString(captions[1]), QStringLiteral("Paragraph 2"));
    QVERIFY(bag.setElementValue(contents, 0, textValue(QStringLiteral("Hello"))));
    QCOMPARE(d.document.entity(d.mtext)->text, QStringLiteral("Hello\\PSecond \\\\P end"));
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
      d.document.addEntity(entityOf(EntityKind::Line, {{0, 0, 0}, {1, 0, 0}}));
    PropVariant v;
    QVERIFY(bag.getValue(length, v));
    QCOMPARE(v.getDouble(), 9.0);
    // WHEN the drawing is replaced, even by one that reuses the handles, THEN nothing stays selected
    d.document.clear();
    d.document.addEntity(entityOf(EntityKind::Circle, {{0, 0, 0}}));
    QVERIFY(bag.selection().isEmpty());
    QCOMPARE(bag.getItemCount(), 0);
    QVERIFY(!bag.getValue(0, v));
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

    // WHEN the filter's combo picks the arcs THEN both forms show the arc alone, the grid's model holding up
    QAbstractItemModelTester tester(palette.grid()->model(), QAbstractItemModelTester::FailureReportingMode::QtTest);
    auto* filter = qobject_cast<PropUiQComboBox*>(palette.panel()->controls().value(0).data());
    QVERIFY(filter);
    QCOMPARE(filter->comboBox()->accessibleName(), QStringLiteral("Show"));
    const int arcs = filter->comboBox()->findText(QStringLiteral("Arc (1)"));
    QVERIFY(arcs > 0);
    filter->comboBox()->setCurrentIndex(arcs);
    filter->onActivated(arcs);
    QTRY_COMPARE(palette.panel()->controls().size(), bag.getItemCount());
    QCOMPARE(palette.grid()->model()->rowCount(), bag.getItemCount());
    QVERIFY(bag.findItem(OdString(L"Arc length")) > 0);
    QCOMPARE(palette.grid()->model()->index(0, 1).data().toString(), QStringLiteral("Arc (1)"));
    QCOMPARE(palette.grid()->model()->index(1, 1).data().toString(), QStringLiteral("Arc"));
    // Choosing what to show is no edit of the drawing.
    QCOMPARE(d.undo.count(), 1);
  }
};

QTEST_MAIN(TestDrawingPalette)
#include "tst_DrawingPalette.moc"

#include "DrawingCanvas.h"
#include "DrawingDocument.h"
#include "DrawingPropertyBag.h"
#include "DrawingShape.h"
#include "Drawings.h"
#include "DxfReader.h"
#include "DxfWriter.h"
#include "OdDbLayerTableRecord.h"
#include "OdDbLinetypeTableRecord.h"
#include "MessageCatcher.h"
#include "OdStringQt.h"
#include "PaletteGrid.h"
#include "PalettePanel.h"
#include "PropUiQLineEdit.h"
#include "PropertyPalette.h"
#include "RunningModule.h"
#include "SampleDrawing.h"
#include <QDir>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QUndoStack>
#include <QtTest>
#include <cmath>
#include <set>

namespace
{

QString nameOf(const OdDbDatabase& db, const OdDbObjectId& id)
{
  const OdDbSymbolTableRecord* record = db.openObject(id);
  return record ? toQString(record->getName()) : QStringLiteral("<none>");
}

QString describe(const OdCmColor& c)
{
  return QString::number(c.color(), 16);
}

/** One line per property, so that two documents compare as text and a difference reads as what it is. */
QStringList entityLines(const OdDbDatabase& db, const DrawingEntity& e)
{
  QStringList lines;
  const QString id = QStringLiteral("%1 #%2 ").arg(int(e.kind)).arg(e.handle, 0, 16);
  lines << id + QStringLiteral("layer ") + nameOf(db, e.layer) << id + QStringLiteral("color ") + describe(e.color)
        << id + QStringLiteral("linetype ") + nameOf(db, e.linetype)
        << id + QStringLiteral("weight %1 ltscale %2 visible %3").arg(e.lineWeight).arg(e.linetypeScale).arg(e.visible);
  for (std::size_t i = 0; i < e.points.size(); ++i)
    lines << id + QStringLiteral("point %1 %2 %3 %4").arg(i).arg(e.points[i].x).arg(e.points[i].y).arg(e.points[i].z);
  for (std::size_t i = 0; i < e.bulges.size(); ++i)
    lines << id + QStringLiteral("bulge %1 %2").arg(i).arg(e.bulges[i]);
  lines << id + QStringLiteral("closed %1 radius %2 angles %3 %4").arg(e.closed).arg(e.radius).arg(e.startAngle).arg(e.endAngle)
        << id + QStringLiteral("height %1 rotation %2 width %3 attachment %4").arg(e.height).arg(e.rotation).arg(e.width).arg(e.attachment)
        << id + QStringLiteral("scale %1 %2 %3 block %4").arg(e.scale.x).arg(e.scale.y).arg(e.scale.z).arg(e.blockName)
        << id + QStringLiteral("text %1 type %2").arg(e.text).arg(e.dimensionType)
        << id + QStringLiteral("style %1 width %2 oblique %3 align %4 %5 ratio %6 other %7 paper %8")
                    .arg(e.style).arg(e.widthFactor).arg(e.oblique).arg(e.horizontalAlignment)
                    .arg(e.verticalAlignment).arg(e.ratio).arg(e.typeName).arg(e.paperSpace);
  if (e.detail)
  {
    const DrawingEntityDetail& d = e.details();
    lines << id + QStringLiteral("pattern %1 %2 %3 %4 loops %5 lines %6 image %7 %8x%9 attributes %10 knots %11")
                      .arg(d.pattern).arg(d.solidFill).arg(d.patternScale).arg(d.patternAngle).arg(d.loops.size())
                      .arg(d.patternLines.size()).arg(d.imageFile).arg(d.pixelsWide).arg(d.pixelsHigh)
                      .arg(d.attributes.size()).arg(d.knots.size());
    for (const DrawingEntity& attribute : d.attributes)
      lines << entityLines(db, attribute);
  }
  return lines;
}

QStringList documentLines(const DrawingDocument& document)
{
  const OdDbDatabase& db = document.database();
  QStringList lines;
  for (const OdDbObjectId& id : db.getLinetypeIds())
  {
    const OdDbLinetypeTableRecord* lt = db.openLinetype(id);
    QString dashes;
    for (int i = 0; i < lt->numDashes(); ++i)
      dashes += QStringLiteral(" %1").arg(lt->dashLengthAt(i));
    lines << QStringLiteral("linetype %1 '%2'%3").arg(nameOf(db, id), toQString(lt->comments()), dashes);
  }
  for (const OdDbObjectId& id : db.getLayerIds())
  {
    const OdDbLayerTableRecord* layer = db.openLayer(id);
    lines << QStringLiteral("layer %1 color %2 linetype %3 weight %4 off %5 frozen %6 locked %7")
                 .arg(nameOf(db, id), describe(layer->color()), nameOf(db, layer->linetypeObjectId()))
                 .arg(layer->lineWeight())
                 .arg(layer->isOff())
                 .arg(layer->isFrozen())
                 .arg(layer->isLocked());
  }
  for (const auto& [name, block] : document.blocks())
  {
    lines << QStringLiteral("block %1 at %2 %3 %4").arg(name).arg(block.basePoint.x).arg(block.basePoint.y).arg(block.basePoint.z);
    for (const DrawingEntity& e : block.entities)
      lines << entityLines(db, e);
  }
  for (const DrawingEntity& e : document.entities())
    lines << entityLines(db, e);
  return lines;
}

/** The first line where the two differ, or an empty string. */
QString firstDifference(const DrawingDocument& a, const DrawingDocument& b)
{
  const QStringList left = documentLines(a);
  const QStringList right = documentLines(b);
  for (int i = 0; i < std::min(left.size(), right.size()); ++i)
    if (left[i] != right[i])
      return left[i] + QStringLiteral("  <>  ") + right[i];
  return left.size() == right.size() ? QString() : QStringLiteral("%1 against %2 lines").arg(left.size()).arg(right.size());
}

/** Items whose value cell is empty, in the grid: neither a value nor the varies state. */
QStringList blankRows(QAbstractItemModel* model)
{
  QStringList blank;
  for (int row = 0; row < model->rowCount(); ++row)
  {
    const QModelIndex item = model->index(row, 0);
    if (model->index(row, 1).data().toString().isEmpty())
      blank << item.data().toString();
    // A long polyline lists hundreds of coordinates; the first vertices stand for the rest.
    const int children = std::min(model->rowCount(item), 12);
    for (int e = 0; e < children; ++e)
      if (model->index(e, 1, item).data().toString().isEmpty())
        blank << item.data().toString() + QLatin1Char('/') + model->index(e, 0, item).data().toString();
  }
  return blank;
}

/**
 * Selects every entity in the palette, in both its forms, and edits the linetype scale in the panel
 * and undoes it: what went wrong, or nothing when every item showed something and the drawing
 * saves again to @p file.
 */
QString paletteOverEverything(DrawingDocument& document, const QString& saved, const QByteArray& file)
{
  QVector<quint64> all;
  for (const DrawingEntity& e : document.entities())
    all << e.handle;
  if (all.isEmpty())
    return QString();
  QUndoStack undo;
  DrawingPropertyBag bag(&document, &undo);
  bag.setSelection(all);
  PropertyPalette palette(&bag);
  const int items = bag.getItemCount();
  if (palette.panel()->controls().size() != items || palette.panel()->controls().contains(nullptr)
      || palette.grid()->model()->rowCount() != items)
    return QStringLiteral("the palette does not show every item");
  const QStringList blank = blankRows(palette.grid()->model());
  if (!blank.isEmpty())
    return QStringLiteral("blank in the palette: ") + blank.join(QStringLiteral(", "));
  const int item = bag.findItem(OdString(L"Linetype scale"));
  auto* edit = qobject_cast<PropUiQLineEdit*>(palette.panel()->controls().value(item).data());
  if (!edit)
    return QStringLiteral("no linetype scale in the panel");
  edit->lineEdit()->setText(QStringLiteral("3.25"));
  edit->onEditingFinished();
  if (undo.count() != 1)
    return QStringLiteral("an edit in the panel is not one undo step");
  undo.undo();
  QString error;
  if (!writeDxf(saved, document, &error) || contentsOf(saved) != file)
    return QStringLiteral("an edit in the panel, undone, changes the save");
  return QString();
}

/** A file of the directory holding @p contents; its path, or an empty string when it could not be written. */
QString fileWith(const QTemporaryDir& dir, const QByteArray& contents)
{
  const QString path = dir.filePath(QStringLiteral("drawing.dxf"));
  QFile file(path);
  return file.open(QIODevice::WriteOnly) && file.write(contents) == contents.size() ? path : QString();
}

enum class Edit
{
  ColourAndEnd,
  Alignment,
  TrueColour,
  AddVertex,
  NewLine
};

/** An edit of every kind's own values, as the palette makes them; the @p index varies the colour. */
void editForTest(DrawingEntity& e, int index)
{
  e.color.setColorIndex(OdInt16(1 + index % 250));
  e.linetypeScale = 2.0;
  switch (e.kind)
  {
  case EntityKind::Line:
    e.points[1].x += 1.0;
    break;
  case EntityKind::Circle:
  case EntityKind::Arc:
    e.radius += 1.0;
    break;
  case EntityKind::Text:
    e.horizontalAlignment = 2;
    e.verticalAlignment = 1;
    e.points.resize(1);
    e.points.push_back({e.points[0].x + 10.0, e.points[0].y, e.points[0].z});
    e.text += QStringLiteral(" (edited)");
    break;
  case EntityKind::MText:
    e.text = QStringLiteral("edited\\P") + e.text;
    e.height += 0.5;
    break;
  case EntityKind::Hatch:
    e.editDetails().patternScale *= 2.0;
    e.editDetails().patternAngle = 15.0;
    break;
  case EntityKind::Insert:
    e.rotation += 10.0;
    if (e.detail)
      for (DrawingEntity& attribute : e.editDetails().attributes)
        attribute.text = QStringLiteral("A");
    break;
  case EntityKind::Polyline:
    if (!e.points.empty())
      e.points.back().x += 1.0;
    break;
  case EntityKind::Ellipse:
    e.ratio = 0.5;
    break;
  case EntityKind::Point:
  case EntityKind::Solid:
  case EntityKind::Trace:
  case EntityKind::Image:
    e.points[0].x += 1.0;
    break;
  default:
    break;
  }
}

/**
 * A real drawing, opened, saved unedited, after an edit in the palette undone, after every entity was
 * edited back as an undo does, and with every entity edited: what went wrong, or nothing when every
 * unedited save is the file byte for byte and the edited save reopens as the edited drawing.
 */
QString keepsBytesAndEdits(const QString& path, const QString& saved, qint64& entities)
{
  DrawingDocument document;
  QString error;
  if (!readDxf(path, document, &error))
    return error;
  entities += qint64(document.entities().size());
  for (const DrawingEntity& e : document.entities())
  {
    DrawingShape shape;
    shape.build(document, e, DrawingLook());
    const QRectF box = shape.bounds();
    if (!shape.isEmpty() && !(std::isfinite(box.width()) && std::isfinite(box.height())))
      return QStringLiteral("entity %1 draws without a finite box").arg(e.handle, 0, 16);
  }

  const QByteArray file = contentsOf(path);
  if (!writeDxf(saved, document, &error))
    return error;
  if (contentsOf(saved) != file)
    return QStringLiteral("the unedited save differs from the file");
  if (const QString wrong = paletteOverEverything(document, saved, file); !wrong.isEmpty())
    return wrong;
  document.replaceEntities(document.entities());
  if (!writeDxf(saved, document, &error) || contentsOf(saved) != file)
    return QStringLiteral("an edit taken back changes the save");

  std::vector<DrawingEntity> edited = document.entities();
  for (std::size_t i = 0; i < edited.size(); ++i)
    editForTest(edited[i], int(i));
  document.replaceEntities(edited);
  DrawingDocument reopened;
  if (!writeDxf(saved, document, &error) || !readDxf(saved, reopened, &error))
    return error;
  return firstDifference(document, reopened);
}

} // namespace

class TestDxfFiles : public QObject
{
  Q_OBJECT

private Q_SLOTS:
  void sampleDrawingSurvivesSaveAndOpen()
  {
    // GIVEN the demo's drawing, saved
    QTemporaryDir dir;
    DrawingDocument sample;
    makeSampleDrawing(sample);
    const QString first = dir.filePath(QStringLiteral("first.dxf"));
    QString error;
    QVERIFY2(writeDxf(first, sample, &error), qPrintable(error));

    // WHEN it is opened again
    DrawingDocument reopened;
    int skipped = -1;
    QVERIFY2(readDxf(first, reopened, &error, &skipped), qPrintable(error));

    // THEN every table, block and entity came back as it was, and nothing was skipped
    QCOMPARE(firstDifference(sample, reopened), QString());
    QCOMPARE(skipped, 0);
    std::set<EntityKind> kinds;
    std::set<int> dimensionTypes;
    for (const DrawingEntity& e : reopened.entities())
    {
      kinds.insert(e.kind);
      if (e.kind == EntityKind::Dimension)
        dimensionTypes.insert(e.dimensionType);
    }
    QCOMPARE(int(kinds.size()), 8);
    QVERIFY(dimensionTypes.size() >= 4);

    // AND saving the reopened drawing, or the same one twice, gives the same bytes
    const QString second = dir.filePath(QStringLiteral("second.dxf"));
    const QString third = dir.filePath(QStringLiteral("third.dxf"));
    QVERIFY(writeDxf(second, reopened, &error));
    QVERIFY(writeDxf(third, sample, &error));
    QCOMPARE(contentsOf(second), contentsOf(first));
    QCOMPARE(contentsOf(third), contentsOf(first));
    // AND the copy the demo ships is the drawing as it is made now
    QCOMPARE(contentsOf(QStringLiteral(PROP_DEMO_DRAWINGS "/flange-plate.dxf")), contentsOf(first));
  }

  void readsWhatTheFileSays()
  {
    // GIVEN a drawing written by hand, as other programs write them
    const QByteArray dxf = "  0\nSECTION\n  2\nHEADER\n  9\n$LTSCALE\n 40\n2.5\n  9\n$EXTMIN\n 10\n-1.0\n 20\n-2.0\n  0\nENDSEC\n"
                           "  0\nSECTION\n  2\nTABLES\n"
                           "  0\nTABLE\n  2\nSTYLE\n  0\nSTYLE\n  2\nCyr\n 70\n0\n 40\n0.0\n 41\n0.8\n 50\n15.0\n  3\ncyrillic.shx\n"
                           "  0\nENDTAB\n"
                           "  0\nTABLE\n  2\nLTYPE\n"
                           "  0\nLTYPE\n  2\nDASHDOT\n  3\nDash dot\n 72\n65\n 73\n3\n 40\n10.0\n 49\n6.0\n 49\n-2.0\n 49\n0.0\n"
                           "  0\nENDTAB\n"
                           "  0\nTABLE\n  2\nLAYER\n"
                           "  0\nLAYER\n  2\nWalls\n 70\n5\n 62\n-3\n  6\nDASHDOT\n370\n50\n"
                           "  0\nLAYER\n  2\nGlass\n 70\n0\n 62\n5\n420\n1193046\n  6\nCONTINUOUS\n"
                           "  0\nENDTAB\n  0\nENDSEC\n"
                           "  0\nSECTION\n  2\nENTITIES\n"
                           "  0\nLINE\n  5\n2F\n  8\nWalls\n 62\n0\n420\n65280\n370\n35\n 48\n2.5\n 60\n1\n  6\nDASHDOT\n"
                           " 10\n1.5\n 20\n2.5\n 30\n0.0\n 11\n3.5\n 21\n4.5\n 31\n0.0\n"
                           "  0\nCIRCLE\n  8\nNowhere\n 10\n0.0\n 20\n0.0\n 40\n2.0\n"
                           "  0\nHATCH\n  8\nWalls\n"
                           "  0\nLINE\n 67\n1\n  8\nWalls\n 10\n0.0\n 20\n0.0\n 11\n1.0\n 21\n1.0\n"
                           "  0\nTEXT\n  8\n0\n 10\n1.0\n 20\n2.0\n 40\n2.5\n  1\nNot\xC3\xA9\n  7\nCyr\n 41\n0.9\n 72\n4\n"
                           " 11\n5.0\n 21\n6.0\n 73\n2\n"
                           "  0\nINSERT\n  8\n0\n 66\n1\n  2\nB\n 10\n0.0\n 20\n0.0\n"
                           "  0\nATTRIB\n  8\n0\n 10\n0.0\n 20\n0.0\n 40\n1.0\n  1\n\xB0R1\n  2\nREF\n 70\n0\n"
                           "  0\nSEQEND\n  8\n0\n"
                           "  0\n3DFACE\n  8\n0\n 10\n0.0\n 20\n0.0\n"
                           "  0\nENDSEC\n  0\nEOF\n";
    QTemporaryDir dir;
    const QString path = fileWith(dir, dxf);
    QVERIFY(!path.isEmpty());

    // WHEN it is opened
    DrawingDocument document;
    QString error;
    int skipped = -1;
    QVERIFY2(readDxf(path, document, &error, &skipped), qPrintable(error));

    // THEN the tables say what the file says: a negative colour is a layer that is off
    const OdDbDatabase& db = document.database();
    const OdDbLayerTableRecord* walls = db.openLayer(db.getLayerId(OdString(L"Walls")));
    QVERIFY(walls);
    QVERIFY(walls->isOff() && walls->isFrozen() && walls->isLocked());
    QCOMPARE(int(walls->color().colorIndex()), 3);
    QCOMPARE(int(walls->lineWeight()), 50);
    QCOMPARE(nameOf(db, walls->linetypeObjectId()), QStringLiteral("DASHDOT"));
    const OdDbLayerTableRecord* glass = db.openLayer(db.getLayerId(OdString(L"Glass")));
    QVERIFY(glass && !glass->isOff() && !glass->isFrozen() && !glass->isLocked());
    QVERIFY(glass->color().isByColor());
    QCOMPARE(int(glass->color().red()), 0x12);
    const OdDbLinetypeTableRecord* dashDot = db.openLinetype(db.getLinetypeId(OdString(L"DASHDOT")));
    QCOMPARE(toQString(dashDot->comments()), QStringLiteral("Dash dot"));
    QCOMPARE(dashDot->numDashes(), 3);
    QCOMPARE(dashDot->dashLengthAt(1), -2.0);

    // AND the entities too, each in its place: the hatch, and the line in paper space, which the canvas skips
    QCOMPARE(int(document.entities().size()), 7);
    QCOMPARE(skipped, 2);
    QCOMPARE(int(document.entities()[2].kind), int(EntityKind::Hatch));
    QVERIFY(document.entities()[3].paperSpace && !document.entities()[0].paperSpace);
    // AND a text's style and alignment, an insert's attributes, a kind the model does not know, in their places
    const DrawingEntity& text = document.entities()[4];
    QCOMPARE(text.style, QStringLiteral("Cyr"));
    // a text in UTF-8 is read as such, one that is not (the attribute's) as Latin-1
    QCOMPARE(text.text, QStringLiteral("Not\u00e9"));
    QCOMPARE(text.widthFactor, 0.9);
    QCOMPARE(text.horizontalAlignment * 10 + text.verticalAlignment, 42);
    QCOMPARE(text.points.at(1).y, 6.0);
    const DrawingEntity& insert = document.entities()[5];
    QCOMPARE(int(insert.details().attributes.size()), 1);
    QCOMPARE(insert.details().attributes[0].blockName + insert.details().attributes[0].text, QStringLiteral("REF\u00b0R1"));
    QCOMPARE(document.entities()[6].typeName, QStringLiteral("3DFACE"));
    // AND the header's numbers and the text styles
    QCOMPARE(document.headerReal(QStringLiteral("$LTSCALE"), 0.0), 2.5);
    QCOMPARE(document.headerReal(QStringLiteral("$EXTMIN/20"), 0.0), -2.0);
    QCOMPARE(document.textStyles().at(QStringLiteral("Cyr")).font, QStringLiteral("cyrillic.shx"));
    QCOMPARE(document.textStyles().at(QStringLiteral("Cyr")).widthFactor, 0.8);
    const DrawingEntity& line = document.entities()[0];
    QCOMPARE(line.handle, quint64(0x2F));
    QCOMPARE(nameOf(db, line.layer), QStringLiteral("Walls"));
    // a true colour wins over the palette index beside it
    QVERIFY(line.color.isByColor());
    QCOMPARE(int(line.color.green()), 0xFF);
    QCOMPARE(int(line.lineWeight), 35);
    QCOMPARE(line.linetypeScale, 2.5);
    QVERIFY(!line.visible);
    QCOMPARE(nameOf(db, line.linetype), QStringLiteral("DASHDOT"));
    QCOMPARE(line.points[1].y, 4.5);
    // an entity on a layer the table does not list gets that layer, and defaults everywhere else
    const DrawingEntity& circle = document.entities()[1];
    QCOMPARE(nameOf(db, circle.layer), QStringLiteral("Nowhere"));
    QVERIFY(circle.color.isByLayer());
    QCOMPARE(circle.linetype, db.getLinetypeByLayerId());
    QCOMPARE(int(circle.lineWeight), int(OdDb::kLnWtByLayer));
    QVERIFY(circle.visible);
    QVERIFY(circle.handle != line.handle);
  }

  void realDrawingsKeepTheirBytesAndTheirEdits()
  {
    MessageCatcher messages;
    QLocale::setDefault(QLocale::c());
    RunningModule module;
    const QStringList paths = realDrawings();
    QVERIFY(!paths.isEmpty());
    QTemporaryDir dir;
    QStringList failures;
    qint64 entities = 0;
    QElapsedTimer clock;
    clock.start();
    for (const QString& path : paths)
      if (const QString wrong = keepsBytesAndEdits(path, dir.filePath(QStringLiteral("saved.dxf")), entities); !wrong.isEmpty())
        failures << QFileInfo(path).fileName() + QStringLiteral(": ") + wrong;
    qInfo("%d drawings, %lld entities, %.1f ms per drawing to open, save, edit, save and reopen", int(paths.size()),
          entities, double(clock.elapsed()) / paths.size());
    QVERIFY2(failures.isEmpty(), qPrintable(failures.mid(0, 5).join(QLatin1Char('\n'))));
    QVERIFY(messages.shown.isEmpty());
  }

  void everyKindIsRead_data()
  {
    QTest::addColumn<QString>("file");
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("count");
    // what the parts library's drawings hold, counted in the model space and every block
    QTest::newRow("ellipses") << QStringLiteral("elektro/power/pe25.dxf") << int(EntityKind::Ellipse) << 56;
    QTest::newRow("splines") << QStringLiteral("plan/air_water/aw21.dxf") << int(EntityKind::Spline) << 15;
    QTest::newRow("hatches") << QStringLiteral("misc/a3.dxf") << int(EntityKind::Hatch) << -1;
    QTest::newRow("points") << QStringLiteral("elektro/transistor/vt17.dxf") << int(EntityKind::Point) << -1;
    QTest::newRow("image") << QStringLiteral("plan/architect/Complete-Lib-V.dxf") << int(EntityKind::Image) << 1;
  }

  void everyKindIsRead()
  {
    QFETCH(QString, file);
    QFETCH(int, kind);
    QFETCH(int, count);
    const QString path = QStringLiteral("/usr/share/librecad/library/") + file;
    if (!QFile::exists(path))
      QSKIP("the parts library is not installed");
    DrawingDocument document;
    QString error;
    QVERIFY2(readDxf(path, document, &error), qPrintable(error));
    std::vector<const DrawingEntity*> found;
    const auto collect = [&](const std::vector<DrawingEntity>& entities) {
      for (const DrawingEntity& e : entities)
        if (int(e.kind) == kind)
          found.push_back(&e);
    };
    collect(document.entities());
    for (const auto& block : document.blocks())
      collect(block.second.entities);
    if (count < 0)
      QVERIFY(!found.empty());
    else
      QCOMPARE(int(found.size()), count);
    for (const DrawingEntity* e : found)
      switch (e->kind)
      {
      case EntityKind::Hatch:
        QVERIFY(!e->details().loops.empty() && e->details().loops.front().points.size() >= 3);
        break;
      case EntityKind::Image:
        QCOMPARE(e->details().imageFile, QStringLiteral("I:\\SHARED\\COLEG.BMP"));
        QCOMPARE(e->details().pixelsWide, 88.0);
        break;
      case EntityKind::Spline:
        QVERIFY(e->points.size() > std::size_t(e->details().degree));
        break;
      default:
        QVERIFY(e->points.size() >= 1);
        break;
      }
  }

  void editChangesOnlyItsGroups_data()
  {
    QTest::addColumn<QByteArray>("record");
    QTest::addColumn<int>("edit");
    QTest::addColumn<QByteArray>("expected");
    const QByteArray line = "  0\nLINE\n  5\n2A\n330\n1F\n100\nAcDbEntity\n  8\nWalls\n100\nAcDbLine\n"
                            " 10\n1.50000\n 20\n2.0\n 30\n0.0\n 11\n3.0\n 21\n4.0\n 31\n0.0\n";
    const QByteArray xdata = "1001\nAPP\n1000\nnote\n";
    // a colour the record lacks goes after the layer; the number not edited keeps its text; extended data stays last
    QTest::newRow("colour and end point") << line + xdata << int(Edit::ColourAndEnd)
                                          << QByteArray("  0\nLINE\n  5\n2A\n330\n1F\n100\nAcDbEntity\n  8\nWalls\n"
                                                        " 62\n     1\n100\nAcDbLine\n 10\n1.50000\n 20\n2.0\n 30\n0.0\n"
                                                        " 11\n3.0\n 21\n5.0\n 31\n0.0\n") + xdata;
    // the text's alignment and its second point go in its first part, the vertical alignment after its second marker
    QTest::newRow("text alignment")
        << QByteArray("  0\nTEXT\n  5\n2B\n100\nAcDbEntity\n  8\n0\n100\nAcDbText\n 10\n1.0\n 20\n2.0\n 30\n0.0\n"
                      " 40\n2.5\n  1\nNote\n100\nAcDbText\n")
        << int(Edit::Alignment)
        << QByteArray("  0\nTEXT\n  5\n2B\n100\nAcDbEntity\n  8\n0\n100\nAcDbText\n 10\n1.0\n 20\n2.0\n 30\n0.0\n"
                      " 40\n2.5\n  1\nNote\n 72\n     1\n 11\n5.0\n 21\n2.0\n100\nAcDbText\n 73\n     2\n");
    // R12 has no subclass markers and writes its codes as it likes; a true colour falls back to the nearest index
    QTest::newRow("R12 text, true colour") << QByteArray("0\r\nTEXT\r\n8\r\n0\r\n10\r\n1.0\r\n20\r\n2.0\r\n40\r\n2.5\r\n1\r\nNote\r\n")
                                           << int(Edit::TrueColour)
                                           << QByteArray("0\r\nTEXT\r\n8\r\n0\r\n62\r\n1\r\n10\r\n1.0\r\n20\r\n2.0\r\n"
                                                         "40\r\n2.5\r\n1\r\nNote\r\n");
    // an entity added to a read drawing is written in the file's form, under a handle of its own
    QTest::newRow("new line") << line << int(Edit::NewLine)
                              << line + "  0\nLINE\n  5\n2B\n100\nAcDbEntity\n  8\n0\n 62\n     1\n100\nAcDbLine\n"
                                        " 10\n0.0\n 20\n0.0\n 11\n1.0\n 21\n1.0\n";
    // a vertex count of its own: the vertices are written anew where they were, the count and width kept in place
    QTest::newRow("light polyline grows")
        << QByteArray("  0\nLWPOLYLINE\n  5\n2C\n100\nAcDbEntity\n  8\n0\n100\nAcDbPolyline\n 90\n2\n 70\n0\n"
                      " 43\n0.5\n 10\n0.0\n 20\n0.0\n 10\n1.0\n 20\n0.0\n")
        << int(Edit::AddVertex)
        << QByteArray("  0\nLWPOLYLINE\n  5\n2C\n100\nAcDbEntity\n  8\n0\n100\nAcDbPolyline\n 90\n     3\n 70\n0\n"
                      " 43\n0.5\n 10\n0.0\n 20\n0.0\n 10\n1.0\n 20\n0.0\n 10\n1.0\n 20\n1.0\n 42\n0.5\n");
  }

  void editChangesOnlyItsGroups()
  {
    QFETCH(QByteArray, record);
    QFETCH(int, edit);
    QFETCH(QByteArray, expected);
    // GIVEN a drawing of the one record, in the version its form says
    const bool r12 = record.contains('\r');
    const QByteArray eol = r12 ? "\r\n" : "\n";
    QByteArray head = "  0\nSECTION\n  2\nHEADER\n  9\n$ACADVER\n  1\n" + QByteArray(r12 ? "AC1009" : "AC1015")
                      + "\n  0\nENDSEC\n  0\nSECTION\n  2\nENTITIES\n";
    QByteArray tail = "  0\nENDSEC\n  0\nEOF\n";
    if (r12)
    {
      head.replace("\n", eol);
      tail.replace("\n", eol);
    }
    QTemporaryDir dir;
    const QString path = fileWith(dir, head + record + tail);
    DrawingDocument document;
    QString error;
    QVERIFY2(readDxf(path, document, &error), qPrintable(error));
    QCOMPARE(int(document.entities().size()), 1);

    // WHEN its entity is edited and the drawing saved
    DrawingEntity e = document.entities().front();
    switch (Edit(edit))
    {
    case Edit::ColourAndEnd:
      e.color.setColorIndex(1);
      e.points[1].y = 5.0;
      break;
    case Edit::Alignment:
      e.horizontalAlignment = 1;
      e.verticalAlignment = 2;
      e.points.push_back({5.0, 2.0, 0.0});
      break;
    case Edit::TrueColour:
      e.color.setRGB(255, 0, 0);
      break;
    case Edit::AddVertex:
      e.points.push_back({1.0, 1.0, 0.0});
      e.bulges = {0.0, 0.0, 0.5};
      break;
    case Edit::NewLine:
    {
      DrawingEntity added;
      added.points = {{0.0, 0.0, 0.0}, {1.0, 1.0, 0.0}};
      added.color.setColorIndex(1);
      document.addEntity(added);
      break;
    }
    }
    document.replaceEntities({e});
    const QString saved = dir.filePath(QStringLiteral("saved.dxf"));
    QVERIFY2(writeDxf(saved, document, &error), qPrintable(error));

    // THEN the record changed in those groups only, and all around it is as it was
    QCOMPARE(contentsOf(saved), head + expected + tail);
    // AND a file that cannot hold the edit says so beforehand
    QCOMPARE(dxfSaveReport(document).losses.size(), r12 ? 1 : 0);
  }

  // Broken files, and every file that once crashed, hung or misled the DXF fuzzer
  // (tests/fuzz/dxf-regressions), opened as a user opens a file over the drawing on screen.
  void aFileIsRefusedOrOpensWhole_data()
  {
    QTest::addColumn<QByteArray>("contents");
    QTest::addColumn<QString>("fuzzed"); // the fuzzer's file, which may also open
    QTest::addColumn<QString>("says");
    const QByteArray line = "  0\nSECTION\n  2\nENTITIES\n  0\nLINE\n";
    QTest::newRow("empty") << QByteArray() << QString() << QString();
    QTest::newRow("not a drawing") << QByteArray("hello\nworld\n") << QString() << QString();
    QTest::newRow("binary") << QByteArray("AutoCAD Binary DXF\r\n\x1a\0\0\0", 24) << QString() << QString();
    QTest::newRow("truncated") << line + "  8\n0\n 10\n1.0\n 20\n" << QString() << QString();
    QTest::newRow("odd lines") << QByteArray("  0\nSECTION\n  2\n") << QString() << QString();
    // dxflib reads these as something else, or not at all; the message names the line
    QTest::newRow("code that is not") << line + "ten\n1.0\n" << QString() << QStringLiteral("line 7:");
    QTest::newRow("number that is not") << line + " 10\nnan\n" << QString() << QStringLiteral("line 8:");
    QTest::newRow("number beyond") << line + " 10\n1e300\n" << QString() << QStringLiteral("line 8:");
    QTest::newRow("line beyond") << line + "  1\n" + QByteArray(2000, 'x') + "\n" << QString() << QStringLiteral("line 8:");
    const QDir folder(QStringLiteral(PROP_DXF_REGRESSIONS));
    for (const QFileInfo& file : folder.entryInfoList(QDir::Files, QDir::Name))
      QTest::newRow(qPrintable(file.fileName())) << QByteArray() << file.filePath() << QString();
  }

  void aFileIsRefusedOrOpensWhole()
  {
    QFETCH(QByteArray, contents);
    QFETCH(QString, fuzzed);
    QFETCH(QString, says);
    QTemporaryDir dir;
    const QString path = fuzzed.isEmpty() ? fileWith(dir, contents) : fuzzed;
    QVERIFY(!path.isEmpty());

    // GIVEN an open drawing
    DrawingDocument document;
    makeSampleDrawing(document);
    const QStringList before = documentLines(document);
    QSignalSpy resets(&document, &DrawingDocument::documentReset);

    // WHEN the file is opened into it
    QString error;
    if (!readDxf(path, document, &error))
    {
      // THEN it is refused with a message, and the drawing stays as it was
      QVERIFY(!error.isEmpty());
      QVERIFY2(error.contains(says), qPrintable(error));
      QCOMPARE(documentLines(document), before);
      QCOMPARE(resets.count(), 0);
      return;
    }

    // OR, a fuzzer's file only, it opens, saves, and the save opens with every entity
    QVERIFY2(!fuzzed.isEmpty(), "a broken file opened");
    const QString saved = dir.filePath(QStringLiteral("saved.dxf"));
    QVERIFY2(writeDxf(saved, document, &error), qPrintable(error));
    DrawingDocument reopened;
    QVERIFY2(readDxf(saved, reopened, &error), qPrintable(error));
    QCOMPARE(reopened.entities().size(), document.entities().size());
    // AND saving that again writes the same bytes, and every entity has a handle of its own
    const QString again = dir.filePath(QStringLiteral("again.dxf"));
    QVERIFY2(writeDxf(again, reopened, &error), qPrintable(error));
    QCOMPARE(contentsOf(again), contentsOf(saved));
    for (const DrawingEntity& entity : document.entities())
      QCOMPARE(document.entity(entity.handle), &entity);

    // AND a canvas draws it with everything selected
    DrawingCanvas canvas(&document);
    canvas.resize(160, 120);
    canvas.show();
    QVERIFY(QTest::qWaitForWindowExposed(&canvas));
    canvas.selectAll();
    QVERIFY(!canvas.grab().isNull());
  }

  void entitiesShortOfPointsAreSaved()
  {
    // a host may hand over an entity without the points its kind needs; the save still works
    DrawingDocument document;
    for (int kind = 0; kind <= int(EntityKind::Other); ++kind)
      document.addEntity(entityOf(EntityKind(kind), {}));
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("short.dxf"));
    QString error;
    QVERIFY2(writeDxf(path, document, &error), qPrintable(error));
    DrawingDocument reopened;
    QVERIFY2(readDxf(path, reopened, &error), qPrintable(error));
    // dxflib cannot write an insert of no block, an image or a kind it does not know, and the report says
    // so of the last two; every other entity comes back under its own handle
    QCOMPARE(int(reopened.entities().size()), 13);
    QCOMPARE(dxfSaveReport(document).losses.size(), 2);
    QVERIFY(dxfSaveReport(document).versionChange.isEmpty());
    for (const DrawingEntity& e : reopened.entities())
      QCOMPARE(int(e.kind), int(document.entity(e.handle)->kind));
  }

  void missingFileIsRefused()
  {
    DrawingDocument document;
    QString error;
    QVERIFY(!readDxf(QStringLiteral("/nonexistent/drawing.dxf"), document, &error));
    QVERIFY(error.contains(QStringLiteral("drawing.dxf")));
    QVERIFY(!writeDxf(QStringLiteral("/nonexistent/drawing.dxf"), document, &error));
    QVERIFY(!error.isEmpty());
  }
};

QTEST_MAIN(TestDxfFiles)
#include "tst_DxfFiles.moc"

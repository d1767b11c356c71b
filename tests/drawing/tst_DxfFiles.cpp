#include "DrawingDocument.h"
#include "DxfReader.h"
#include "DxfWriter.h"
#include "OdDbLayerTableRecord.h"
#include "OdDbLinetypeTableRecord.h"
#include "OdStringQt.h"
#include "SampleDrawing.h"
#include <QDir>
#include <QTemporaryDir>
#include <QtTest>
#include <set>

namespace
{

const char kPartsLibrary[] = "/usr/share/librecad/library";

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
        << id + QStringLiteral("text %1 type %2").arg(e.text).arg(e.dimensionType);
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

QByteArray contentsOf(const QString& path)
{
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
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
  }

  void editThenRestoreSavesTheSameBytes()
  {
    QTemporaryDir dir;
    DrawingDocument document;
    makeSampleDrawing(document);
    const QString before = dir.filePath(QStringLiteral("before.dxf"));
    QVERIFY(writeDxf(before, document, nullptr));

    // an edit reaches the file...
    const DrawingEntity original = document.entities().front();
    DrawingEntity edited = original;
    edited.linetypeScale = 3.5;
    edited.color.setRGB(1, 2, 3);
    document.replaceEntities({edited});
    const QString during = dir.filePath(QStringLiteral("during.dxf"));
    QVERIFY(writeDxf(during, document, nullptr));
    QVERIFY(contentsOf(during) != contentsOf(before));

    // ...and taking it back leaves no trace
    document.replaceEntities({original});
    const QString after = dir.filePath(QStringLiteral("after.dxf"));
    QVERIFY(writeDxf(after, document, nullptr));
    QCOMPARE(contentsOf(after), contentsOf(before));
  }

  void realDrawingsSurviveSaveAndOpen_data()
  {
    QTest::addColumn<QString>("path");
    QDir library(QString::fromLatin1(kPartsLibrary));
    if (!library.exists())
      return;
    // A spread across the library's folders, the same on every run; the smallest
    // files are empty sheets with nothing but the tables.
    QStringList all;
    QDirIterator it(library.path(), {QStringLiteral("*.dxf")}, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext())
      if (it.next(); it.fileInfo().size() > 15000)
        all << it.filePath();
    all.sort();
    const int wanted = 12;
    for (int i = 0; i < wanted && !all.isEmpty(); ++i)
    {
      const QString path = all[i * all.size() / wanted];
      QTest::newRow(qPrintable(library.relativeFilePath(path))) << path;
    }
  }

  void realDrawingsSurviveSaveAndOpen()
  {
    QFETCH(QString, path);
    DrawingDocument original;
    QString error;
    QVERIFY2(readDxf(path, original, &error), qPrintable(error));
    QVERIFY(!original.entities().empty());

    QTemporaryDir dir;
    const QString saved = dir.filePath(QStringLiteral("saved.dxf"));
    QVERIFY2(writeDxf(saved, original, &error), qPrintable(error));
    DrawingDocument reopened;
    QVERIFY2(readDxf(saved, reopened, &error), qPrintable(error));
    QCOMPARE(firstDifference(original, reopened), QString());
  }

  void brokenFileIsRefused_data()
  {
    QTest::addColumn<QByteArray>("contents");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("not a drawing") << QByteArray("hello\nworld\n");
    QTest::newRow("binary") << QByteArray("AutoCAD Binary DXF\r\n\x1a\0\0\0", 26);
    QTest::newRow("truncated") << QByteArray("  0\nSECTION\n  2\nENTITIES\n  0\nLINE\n  8\n0\n 10\n1.0\n 20\n");
    QTest::newRow("odd lines") << QByteArray("  0\nSECTION\n  2\n");
    QTest::newRow("absurd vertex count") << QByteArray(
        "  0\nSECTION\n  2\nENTITIES\n  0\nLWPOLYLINE\n 90\n-7\n 10\n1\n 20\n2\n 10\n3\n 20\n4\n  0\nENDSEC\n  0\nEOF\n");
  }

  void brokenFileIsRefused()
  {
    QFETCH(QByteArray, contents);
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("broken.dxf"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(contents);
    file.close();

    DrawingDocument document;
    makeSampleDrawing(document);
    QString error;
    const bool read = readDxf(path, document, &error);
    if (read)
    {
      // a file that is damaged but still readable may open, with what it holds
      QVERIFY(error.isEmpty());
      return;
    }
    QVERIFY(!error.isEmpty());
    QVERIFY(document.entities().empty());
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

#include "DrawingCanvas.h"
#include "Drawings.h"
#include "DxfReader.h"
#include "DxfWriter.h"
#include "SampleDrawing.h"
#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

// Every file that once crashed, hung or misled the DXF fuzzer (tests/fuzz/dxf-regressions),
// opened as a user opens a file over the drawing on screen.
class TestDxfRegressions : public QObject
{
  Q_OBJECT

private Q_SLOTS:
  void fuzzedFileIsRefusedOrWorks_data()
  {
    QTest::addColumn<QString>("path");
    const QDir folder(QStringLiteral(PROP_DXF_REGRESSIONS));
    for (const QFileInfo& file : folder.entryInfoList(QDir::Files, QDir::Name))
      QTest::newRow(qPrintable(file.fileName())) << file.filePath();
  }

  void fuzzedFileIsRefusedOrWorks()
  {
    QFETCH(QString, path);
    // GIVEN an open drawing
    DrawingDocument document;
    makeSampleDrawing(document);
    const std::size_t entities = document.entities().size();
    QSignalSpy resets(&document, &DrawingDocument::documentReset);

    // WHEN the file is opened into it
    QString error;
    if (!readDxf(path, document, &error))
    {
      // THEN it is refused with a message, and the drawing stays as it was
      QVERIFY(!error.isEmpty());
      QCOMPARE(resets.count(), 0);
      QCOMPARE(document.entities().size(), entities);
      return;
    }

    // OR it opens, saves, and the save opens with every entity
    QTemporaryDir dir;
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
};

QTEST_MAIN(TestDxfRegressions)
#include "tst_DxfRegressions.moc"

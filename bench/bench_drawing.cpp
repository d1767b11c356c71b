// What a large drawing costs a user: drawings of 100,000 and 1,000,000
// entities (lines, circles, arcs and closed light polylines on 20 layers, as
// a CAD program writes them) are written to a temporary folder, then each is
// read as bytes alone, opened into a document and saved unedited; then it is
// shown as the editor shows it (the canvas at 1600 x 1000, its first frame at
// zoom extents), everything is selected (its highlight drawn) and the palette built for it, one
// property is changed on every entity and the change undone. The figures are
// wall time, the process's peak memory (which only grows from one drawing to
// the next) and the document's own size: the file's bytes it keeps, and what
// its entities take. The first table compares the open with reading the
// bytes; the second is the editor's side.
//
//   bench_drawing [ENTITIES...]   (default 100000 1000000; run with QT_QPA_PLATFORM=offscreen)

#include "DrawingCanvas.h"
#include "DrawingDocument.h"
#include "DrawingPropertyBag.h"
#include "DxfReader.h"
#include "DxfWriter.h"
#include "OdRxModule.h"
#include "PropWidgetsEntry.h"
#include "PropertyPalette.h"
#include <QApplication>
#include <QImage>
#include <QUndoStack>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <cstdio>
#include <ctime>
#include <random>
#include <sys/resource.h>

namespace
{

double cpuSeconds()
{
  timespec t{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &t);
  return double(t.tv_sec) + double(t.tv_nsec) * 1e-9;
}

double peakMegabytes()
{
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return double(usage.ru_maxrss) / 1024.0;
}

double currentMegabytes()
{
  QFile statm(QStringLiteral("/proc/self/statm"));
  if (!statm.open(QIODevice::ReadOnly))
    return 0.0;
  const QList<QByteArray> fields = statm.readAll().split(' ');
  return fields.size() > 1 ? fields[1].toDouble() * 4096.0 / (1 << 20) : 0.0;
}

/** A drawing of @p count entities in AutoCAD 2000 form, each record as such a program writes it. */
bool writeDrawing(const QString& path, int count)
{
  QFile file(path);
  if (!file.open(QIODevice::WriteOnly))
    return false;
  std::mt19937 random(7);
  std::uniform_real_distribution<double> coordinate(0.0, 10000.0);
  std::uniform_real_distribution<double> size(1.0, 50.0);
  const auto number = [](double v) { return QByteArray::number(v, 'f', 6); };
  QByteArray out = "  0\nSECTION\n  2\nHEADER\n  9\n$ACADVER\n  1\nAC1015\n  9\n$HANDSEED\n  5\n"
                   + QByteArray::number(count + 0x100, 16).toUpper() + "\n  0\nENDSEC\n"
                   "  0\nSECTION\n  2\nTABLES\n  0\nTABLE\n  2\nLAYER\n  5\n2\n100\nAcDbSymbolTable\n 70\n20\n";
  for (int layer = 0; layer < 20; ++layer)
    out += "  0\nLAYER\n  5\n" + QByteArray::number(0x10 + layer, 16).toUpper()
           + "\n100\nAcDbSymbolTableRecord\n100\nAcDbLayerTableRecord\n  2\nLayer" + QByteArray::number(layer)
           + "\n 70\n0\n 62\n" + QByteArray::number(1 + layer % 7) + "\n  6\nCONTINUOUS\n";
  out += "  0\nENDTAB\n  0\nENDSEC\n  0\nSECTION\n  2\nENTITIES\n";
  for (int i = 0; i < count; ++i)
  {
    const QByteArray head = "  5\n" + QByteArray::number(0x100 + i, 16).toUpper()
                            + "\n330\n1F\n100\nAcDbEntity\n  8\nLayer" + QByteArray::number(i % 20) + "\n";
    const double x = coordinate(random);
    const double y = coordinate(random);
    const double r = size(random);
    switch (i % 4)
    {
    case 0:
      out += "  0\nLINE\n" + head + "100\nAcDbLine\n 10\n" + number(x) + "\n 20\n" + number(y) + "\n 30\n0.0\n 11\n"
             + number(x + r) + "\n 21\n" + number(y + r) + "\n 31\n0.0\n";
      break;
    case 1:
      out += "  0\nCIRCLE\n" + head + "100\nAcDbCircle\n 10\n" + number(x) + "\n 20\n" + number(y) + "\n 30\n0.0\n 40\n"
             + number(r) + "\n";
      break;
    case 2:
      out += "  0\nARC\n" + head + "100\nAcDbCircle\n 10\n" + number(x) + "\n 20\n" + number(y) + "\n 30\n0.0\n 40\n"
             + number(r) + "\n100\nAcDbArc\n 50\n" + number(r * 3) + "\n 51\n" + number(r * 7) + "\n";
      break;
    default:
      out += "  0\nLWPOLYLINE\n" + head + "100\nAcDbPolyline\n 90\n        4\n 70\n     1\n 43\n0.0\n";
      for (int v = 0; v < 4; ++v)
        out += " 10\n" + number(x + (v == 1 || v == 2 ? r : 0)) + "\n 20\n" + number(y + (v >= 2 ? r : 0)) + "\n";
      break;
    }
    if (out.size() > (8 << 20))
    {
      if (file.write(out) != out.size())
        return false;
      out.clear();
    }
  }
  out += "  0\nENDSEC\n  0\nSECTION\n  2\nOBJECTS\n  0\nDICTIONARY\n  5\nC\n100\nAcDbDictionary\n  0\nENDSEC\n  0\nEOF\n";
  return file.write(out) == out.size();
}

/** What the entities take in memory: each one, its points and bulges. */
double entityMegabytes(const DrawingDocument& document)
{
  double bytes = 0;
  for (const DrawingEntity& e : document.entities())
    bytes += double(sizeof(DrawingEntity)) + double(e.points.capacity() * sizeof(DrawingPoint))
             + double(e.bulges.capacity() * sizeof(double));
  return bytes / (1 << 20);
}

/** What the entities' records take in the file. */
double recordMegabytes(const DrawingDocument& document)
{
  double bytes = 0;
  for (const DrawingEntity& e : document.entities())
    bytes += double(e.recordSize);
  return bytes / (1 << 20);
}

double secondsOf(QElapsedTimer& clock)
{
  const double seconds = double(clock.nsecsElapsed()) * 1e-9;
  clock.restart();
  return seconds;
}

/** The editor's side: show, select all with the palette, one change on all of it, its undo. */
bool runEditor(DrawingDocument& document, QByteArray& line)
{
  QUndoStack undo;
  QElapsedTimer clock;
  clock.start();
  DrawingCanvas canvas(&document);
  canvas.resize(1600, 1000);
  canvas.show();
  canvas.zoomExtents();
  QImage frame(canvas.size(), QImage::Format_ARGB32_Premultiplied);
  canvas.QWidget::render(&frame);
  const double show = secondsOf(clock);

  DrawingPropertyBag bag(&document, &undo);
  PropertyPalette palette(&bag);
  palette.resize(400, 900);
  palette.show();
  clock.restart();
  canvas.selectAll();
  QApplication::processEvents();
  canvas.QWidget::render(&frame);
  const double select = secondsOf(clock);
  bag.setSelection(canvas.selection());
  palette.rebuild();
  QApplication::processEvents();
  const double shown = secondsOf(clock);

  const int item = bag.findItem(OdString(L"Linetype scale"));
  PropVariant scale;
  scale.setDouble(2.5);
  if (item < 0 || !bag.setValue(item, scale))
  {
    std::fprintf(stderr, "bench_drawing: the palette takes no linetype scale\n");
    return false;
  }
  QApplication::processEvents();
  canvas.QWidget::render(&frame);
  const double edit = secondsOf(clock);
  undo.undo();
  QApplication::processEvents();
  canvas.QWidget::render(&frame);
  const double undone = secondsOf(clock);
  line = QByteArray::number(qulonglong(document.entities().size())).rightJustified(10) + ' '
         + QByteArray::number(show, 'f', 2).rightJustified(9) + ' ' + QByteArray::number(select, 'f', 3).rightJustified(9) + ' ' + QByteArray::number(shown, 'f', 3).rightJustified(9)
         + ' ' + QByteArray::number(edit, 'f', 2).rightJustified(9) + ' ' + QByteArray::number(undone, 'f', 2).rightJustified(9)
         + ' ' + QByteArray::number(peakMegabytes(), 'f', 0).rightJustified(9);
  return true;
}

} // namespace

int main(int argc, char** argv)
{
  QApplication app(argc, argv);
  odrxCreateModuleObject()->initApp();
  QList<int> counts;
  for (int i = 1; i < argc; ++i)
    counts << QByteArray(argv[i]).toInt();
  if (counts.isEmpty())
    counts = {100000, 1000000};
  QTemporaryDir dir;
  QList<QByteArray> editorLines;
  // wall time, and the CPU time of the open: on a shared machine the wall clock also counts the others' work
  std::printf("%10s %9s %10s %9s %9s %9s %9s %9s %10s %9s %9s\n", "entities", "file MB", "records MB", "bytes s",
              "open s", "open cpu", "save s", "peak MB", "source MB", "ents MB", "rss MB");
  for (int count : counts)
  {
    const QString path = dir.filePath(QStringLiteral("drawing-%1.dxf").arg(count));
    const QString saved = dir.filePath(QStringLiteral("saved-%1.dxf").arg(count));
    if (!writeDrawing(path, count))
    {
      std::fprintf(stderr, "bench_drawing: cannot write %s\n", qPrintable(path));
      return 1;
    }
    QElapsedTimer clock;
    clock.start();
    {
      QFile file(path);
      if (!file.open(QIODevice::ReadOnly) || file.readAll().isEmpty())
        return 1;
    }
    const double bytesSeconds = double(clock.nsecsElapsed()) * 1e-9;
    DrawingDocument document;
    QString error;
    clock.restart();
    const double cpuBefore = cpuSeconds();
    if (!readDxf(path, document, &error))
    {
      std::fprintf(stderr, "bench_drawing: %s\n", qPrintable(error));
      return 1;
    }
    const double openSeconds = double(clock.nsecsElapsed()) * 1e-9;
    const double openCpu = cpuSeconds() - cpuBefore;
    clock.restart();
    if (!writeDxf(saved, document, &error))
    {
      std::fprintf(stderr, "bench_drawing: %s\n", qPrintable(error));
      return 1;
    }
    const double saveSeconds = double(clock.nsecsElapsed()) * 1e-9;
    std::printf("%10d %9.1f %10.1f %9.2f %9.2f %9.2f %9.2f %9.0f %10.1f %9.1f %9.0f\n", count,
                double(QFile(path).size()) / (1 << 20), recordMegabytes(document), bytesSeconds, openSeconds, openCpu, saveSeconds, peakMegabytes(),
                double(document.source().bytes.size()) / (1 << 20), entityMegabytes(document), currentMegabytes());
    QFile::remove(path);
    QFile::remove(saved);
    // printed after the table of opens, so that each table reads as one
    QByteArray line;
    if (!runEditor(document, line))
      return 1;
    editorLines << line;
  }
  std::printf("\n%10s %9s %9s %9s %9s %9s %9s\n", "entities", "show s", "select s", "palette s", "edit s", "undo s", "peak MB");
  for (const QByteArray& line : editorLines)
    std::printf("%s\n", line.constData());
  return 0;
}

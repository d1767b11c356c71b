// Opens one input through the demo's DXF reader, as a user opening a file,
// and when it opens, does with the drawing what the editor does next: saves
// it (which must write the input's bytes), edits every entity and saves
// again, opens that save (whose own save must be the same bytes) and draws
// every entity. Any of those failing on what the reader accepted is a fault, and so
// is a refusal without a message or one that touched the drawing open before.
// Given file paths, the program reads each once (libFuzzer's replay), which is
// how a saved crash is looked at.

#include "DrawingDocument.h"
#include "DrawingDisplayList.h"
#include "DxfReader.h"
#include "DxfWriter.h"
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <unistd.h>
#include <vector>

namespace
{

void check(bool condition, const char* what, const QString& detail = QString())
{
  if (condition)
    return;
  std::fprintf(stderr, "fuzz_DxfReader: %s %s\n", what, qPrintable(detail));
  std::abort();
}

// Every input paints thousands of warnings (points at infinity, empty paths): they are not faults.
void quiet(QtMsgType type, const QMessageLogContext&, const QString& message)
{
  if (type == QtFatalMsg)
    check(false, "Qt gave up:", message);
}

/** Where the save goes: memory, one file per process, as libFuzzer may run several. */
QString savePath()
{
  const QString folder = QDir(QStringLiteral("/dev/shm")).exists() ? QStringLiteral("/dev/shm") : QDir::tempPath();
  return QStringLiteral("%1/fuzz_DxfReader-%2.dxf").arg(folder).arg(getpid());
}

QByteArray contentsOf(const QString& path)
{
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/**
 * Does what a canvas does with a drawing: works out its display list, paints
 * the whole, selects what a window around it encloses and what one in its
 * middle crosses, paints that, and paints each entity close up and picks it
 * at its middle.
 */
void draw(const DrawingDocument& document)
{
  static QImage image(48, 48, QImage::Format_ARGB32_Premultiplied);
  DrawingDisplayList list;
  list.rebuild(&document, DrawingLook());
  const DrawingBox extents = list.extents();
  std::vector<bool> selected(list.size(), false);
  const auto paintArea = [&](const DrawingBox& area) {
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    const double width = area.right - area.left;
    const double height = area.bottom - area.top;
    const double scale = width > 0 && height > 0 ? std::min(image.width() / width, image.height() / height) : 1.0;
    painter.scale(scale, scale);
    painter.translate(-area.left, -area.top);
    list.paint(&painter, area, scale, selected);
  };
  if (!extents.isValid())
    return;
  paintArea(extents);
  for (std::uint32_t enclosed : list.enclosedBy(extents))
    selected[enclosed] = true;
  const DrawingBox middle{extents.left + (extents.right - extents.left) / 3, extents.top + (extents.bottom - extents.top) / 3,
                          extents.right - (extents.right - extents.left) / 3, extents.bottom - (extents.bottom - extents.top) / 3};
  for (std::uint32_t crossed : list.crossedBy(middle))
    check(crossed < selected.size() && list.isShown(crossed), "a crossing found an entity not shown");
  paintArea(extents);
  for (std::size_t i = 0; i < list.size(); ++i)
  {
    if (!list.isShown(i))
      continue;
    const DrawingBox box = list.bounds(i);
    paintArea(box);
    list.nearest(QPointF(box.left / 2 + box.right / 2, box.top / 2 + box.bottom / 2), (box.right - box.left) / 100 + 1e-3);
  }
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qInstallMessageHandler(quiet);
  static int argc = 1;
  static char name[] = "fuzz_DxfReader";
  static char* argv[] = {name, nullptr};
  new QApplication(argc, argv);
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
  const QByteArray bytes = QByteArray::fromRawData(reinterpret_cast<const char*>(data), int(size));
  DrawingDocument document;
  DrawingEntity open;
  open.points = {{0, 0, 0}, {1, 1, 0}};
  document.addEntity(open);
  const OdDbDatabase* openDatabase = &document.database();

  QString error;
  if (!readDxfData(bytes, QStringLiteral("input.dxf"), document, &error))
  {
    check(!error.isEmpty(), "refused without a message");
    check(&document.database() == openDatabase && document.entities().size() == 1,
          "refused, but changed the drawing:", error);
    return 0;
  }

  const QString path = savePath();
  check(writeDxf(path, document, &error), "accepted, but cannot be saved:", error);
  check(contentsOf(path) == bytes, "accepted, but its unedited save is not the file");
  // an edit of every entity, worked into the records it was read from
  std::vector<DrawingEntity> edited = document.entities();
  for (DrawingEntity& entity : edited)
  {
    entity.color.setColorIndex(1);
    entity.linetypeScale = 2.0;
    if (!entity.points.empty())
      entity.points[0].x += 1.0;
    entity.text += QStringLiteral("x");
  }
  document.replaceEntities(edited);
  check(writeDxf(path, document, &error), "accepted, but its edit cannot be saved:", error);
  DrawingDocument reopened;
  check(readDxf(path, reopened, &error), "accepted, but its save does not open:", error);
  check(reopened.entities().size() == document.entities().size(), "accepted, but its save lost entities");
  for (const DrawingEntity& entity : reopened.entities())
    check(entity.paperSpace || entity.kind == EntityKind::Other || entity.color.colorIndex() == 1,
          "accepted, but an edit did not reach the save");
  // what a save writes, it reads back as it was: saving that again writes the same bytes
  const QByteArray saved = contentsOf(path);
  check(writeDxf(path, reopened, &error), "accepted, but its reopened save cannot be saved:", error);
  check(contentsOf(path) == saved, "accepted, but its save reads back as another drawing");
  // the palette and the canvas find entities by their handles
  for (const DrawingEntity& entity : document.entities())
    check(entity.handle != 0 && document.entity(entity.handle) == &entity, "accepted, but two entities share a handle");
  // What inserts multiply a few kilobytes to (the reader bounds it) takes long to draw, not a fault to find.
  if (document.drawnEntityCount(250001) <= 250000)
    draw(document);
  return 0;
}

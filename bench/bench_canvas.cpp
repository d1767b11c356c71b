// What the drawing canvas costs for a drawing of many entities: lines,
// circles, arcs and closed polylines scattered over 20 layers, made in memory
// (no file). It prints the time to build the canvas, to paint its first frame
// at zoom extents (1600 x 1000), to select everything and paint the
// highlight, to repaint after one property changed on every entity, and the
// memory the canvas holds (resident size before and after it is built).
//
//   bench_canvas [ENTITIES]   (default 1000000; run with QT_QPA_PLATFORM=offscreen)
//
// Times are wall-clock seconds of one run; the machine's load moves them.

#include "DrawingCanvas.h"
#include "DrawingDocument.h"
#include "OdDbLayerTableRecord.h"
#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QSignalBlocker>
#include <cmath>
#include <cstdio>
#include <memory>
#include <random>

namespace
{

double residentMegabytes(const char* field = "VmRSS:")
{
  QFile status(QStringLiteral("/proc/self/status"));
  if (!status.open(QIODevice::ReadOnly))
    return 0;
  for (const QByteArray& line : status.readAll().split('\n'))
    if (line.startsWith(field))
      return line.mid(int(qstrlen(field))).trimmed().split(' ').value(0).toDouble() / 1024.0;
  return 0;
}

/** A drawing like a large plan: each entity in its own cell of a square grid, a few cells across. */
void fill(DrawingDocument& document, int count)
{
  OdDbDatabase& db = document.database();
  std::vector<OdDbObjectId> layers;
  for (int i = 0; i < 20; ++i)
  {
    const OdDbObjectId id = db.addLayer(OdString(QStringLiteral("Layer%1").arg(i).toStdWString().c_str()));
    OdCmColor color;
    color.setColorIndex(OdUInt16(1 + i % 9));
    db.openLayer(id)->setColor(color);
    layers.push_back(id);
  }
  std::mt19937 random(7);
  std::uniform_real_distribution<double> unit(0.0, 1.0);
  const int side = int(std::ceil(std::sqrt(double(count))));
  const double cell = 10.0;
  for (int i = 0; i < count; ++i)
  {
    const double x = (i % side) * cell + unit(random) * cell * 0.5;
    const double y = (i / side) * cell + unit(random) * cell * 0.5;
    const double size = cell * (0.2 + unit(random) * 0.6);
    DrawingEntity e;
    e.layer = layers[std::size_t(i) % layers.size()];
    switch (i % 4)
    {
    case 0:
      e.kind = EntityKind::Line;
      e.points = {{x, y, 0}, {x + size, y + size * (unit(random) - 0.5), 0}};
      break;
    case 1:
      e.kind = EntityKind::Circle;
      e.points = {{x, y, 0}};
      e.radius = size / 2;
      break;
    case 2:
      e.kind = EntityKind::Arc;
      e.points = {{x, y, 0}};
      e.radius = size / 2;
      e.startAngle = unit(random) * 360.0;
      e.endAngle = e.startAngle + 30.0 + unit(random) * 270.0;
      break;
    default:
      e.kind = EntityKind::Polyline;
      e.closed = true;
      e.points = {{x, y, 0}, {x + size, y, 0}, {x + size, y + size, 0}, {x, y + size, 0}};
      e.bulges = {0, 0.3, 0, 0};
      break;
    }
    document.addEntity(std::move(e));
  }
}

double paintSeconds(DrawingCanvas& canvas, QImage& frame)
{
  QElapsedTimer timer;
  timer.start();
  frame.fill(Qt::transparent);
  canvas.QWidget::render(&frame);
  return timer.nsecsElapsed() * 1e-9;
}

} // namespace

int main(int argc, char** argv)
{
  QApplication app(argc, argv);
  const int count = argc > 1 ? std::max(1, QByteArray(argv[1]).toInt()) : 1000000;
  DrawingDocument document;
  fill(document, count);
  const double before = residentMegabytes();

  QElapsedTimer timer;
  timer.start();
  auto canvas = std::make_unique<DrawingCanvas>(&document);
  const double build = timer.nsecsElapsed() * 1e-9;
  timer.restart();
  canvas->resize(1600, 1000);
  canvas->show();
  QApplication::processEvents();
  canvas->zoomExtents();
  const double show = timer.nsecsElapsed() * 1e-9;
  QImage frame(canvas->size(), QImage::Format_ARGB32_Premultiplied);
  const double first = paintSeconds(*canvas, frame);
  const double held = residentMegabytes() - before;

  timer.restart();
  canvas->selectAll();
  const double selectAll = timer.nsecsElapsed() * 1e-9 + paintSeconds(*canvas, frame);

  std::vector<DrawingEntity> changed = document.entities();
  for (DrawingEntity& e : changed)
    e.color.setColorIndex(3);
  // the document's own share, copying the entities in, with nobody told; then the same with the canvas told
  double documentShare = 0;
  {
    const QSignalBlocker quiet(&document);
    timer.restart();
    document.replaceEntities(changed);
    documentShare = timer.nsecsElapsed() * 1e-9;
  }
  timer.restart();
  document.replaceEntities(changed);
  const double change = timer.nsecsElapsed() * 1e-9 - documentShare;
  const double changeFrame = paintSeconds(*canvas, frame);
  changed.clear();
  changed.shrink_to_fit();

  std::printf("entities            %d\n", count);
  std::printf("canvas built        %.3f s\n", build);
  std::printf("shown, at extents   %.3f s (includes a paint at the first size)\n", show);
  std::printf("first frame         %.3f s\n", first);
  std::printf("canvas memory       %.0f MB (resident, after the first frame)\n", held);
  std::printf("select all + frame  %.3f s (%d selected)\n", selectAll, int(canvas->selection().size()));
  std::printf("change all           %.3f s in the canvas + %.3f s frame (the document's own copy: %.3f s)\n", change,
              changeFrame, documentShare);
  std::printf("peak resident       %.0f MB\n", residentMegabytes("VmHWM:"));
  return 0;
}

#pragma once

// What the tests of the demo's drawing side share: entities made in a line, files read whole, real drawings to open.

#include "DrawingDocument.h"
#include <QDir>
#include <QDirIterator>
#include <QStringList>
#include <limits>

inline DrawingEntity entityOf(EntityKind kind, std::vector<DrawingPoint> points)
{
  DrawingEntity e;
  e.kind = kind;
  e.points = std::move(points);
  return e;
}

/**
 * What a broken file or a careless host could leave, four of every kind: one bare, and three with numbers
 * that are not numbers, sizes out of range and half a formatting code for their text, whose heights are
 * not a number, zero and a real one.
 */
inline std::vector<DrawingEntity> brokenEntities()
{
  const double nan = std::numeric_limits<double>::quiet_NaN();
  std::vector<DrawingEntity> broken;
  for (int k = 0; k <= int(EntityKind::Other); ++k)
  {
    DrawingEntity e;
    e.kind = EntityKind(k);
    broken.push_back(e);
    e.points = {{nan, 1, 0}, {2, nan, 0}, {1e300, -1e300, 0}, {0, 0, 0}};
    e.bulges = {1e12, nan};
    e.radius = -5;
    e.height = nan;
    e.ratio = nan;
    e.endAngle = 1e300;
    e.width = 1e-300;
    e.widthFactor = 0;
    e.oblique = 90;
    e.horizontalAlignment = 5;
    e.attachment = 42;
    e.dimensionType = 2;
    e.text = QStringLiteral("{\\fArial;\\S1^2;}\\P%%c{\\S1^;\\U+zz\\M+;\\");
    DrawingEntityDetail& detail = e.editDetails();
    detail.degree = -3;
    detail.knots = {1, 0, nan};
    detail.weights = {0, 0, 0, 0};
    detail.fitPoints = {{nan, 0, 0}};
    detail.loops = {{{{0, 0, 0}, {1e300, 0, 0}, {0, nan, 0}}, {nan}}};
    detail.patternLines = {{45, {0, 0, 0}, {0, 0, 0}, {}}, {nan, {0, 0, 0}, {1, 1, 0}, {-1, -1}}};
    detail.pixelsWide = 1e308;
    detail.pixelsHigh = nan;
    broken.push_back(e);
    e.height = 0;
    broken.push_back(e);
    // A text must have a height before its broken codes are read at all.
    e.height = 2.5;
    broken.push_back(e);
  }
  return broken;
}

inline QByteArray contentsOf(const QString& path)
{
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/**
 * Real drawings to open: every drawing of Debian's parts library
 * (librecad-data) when it is installed, otherwise the drawings the demo ships.
 * Under AddressSanitizer, where every allocation walks its stack, one in
 * sixty-four, so that the run stays short; the choice is the same on every run.
 */
inline QStringList realDrawings()
{
  QString folder = QStringLiteral("/usr/share/librecad/library");
  if (!QDir(folder).exists())
    folder = QStringLiteral(PROP_DEMO_DRAWINGS);
  QStringList paths;
  QDirIterator it(folder, {QStringLiteral("*.dxf")}, QDir::Files, QDirIterator::Subdirectories);
  while (it.hasNext())
    paths << it.next();
  paths.sort();
#if defined(__SANITIZE_ADDRESS__)
  QStringList sampled;
  for (int i = 0; i < paths.size(); i += 64)
    sampled << paths[i];
  return sampled;
#else
  return paths;
#endif
}

#pragma once

// What the tests of the demo's drawing side share: entities made in a line, files read whole, real drawings to open.

#include "DrawingDocument.h"
#include <QDir>
#include <QDirIterator>
#include <QStringList>

inline DrawingEntity entityOf(EntityKind kind, std::vector<DrawingPoint> points)
{
  DrawingEntity e;
  e.kind = kind;
  e.points = std::move(points);
  return e;
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

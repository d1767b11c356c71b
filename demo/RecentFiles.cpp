#include "RecentFiles.h"

#include "DemoSettings.h"
#include <QFileInfo>
#include <algorithm>

namespace
{

const char kKey[] = "editor/recentFiles";

/** The same file, however the path spells it: "a/../b.dxf" and "b.dxf" from the same folder are one entry. */
QString comparable(const QString& path)
{
  return QFileInfo(path).absoluteFilePath();
}

} // namespace

QStringList RecentFiles::files() const
{
  QStringList files = demoSettings()->value(QLatin1String(kKey)).toStringList();
  files.removeAll(QString());
  return files.mid(0, kMaxCount);
}

void RecentFiles::add(const QString& path)
{
  if (path.isEmpty())
    return;
  QStringList kept = files();
  const QString added = comparable(path);
  kept.erase(std::remove_if(kept.begin(), kept.end(), [&](const QString& p) { return comparable(p) == added; }),
             kept.end());
  kept.prepend(added);
  store(kept.mid(0, kMaxCount));
}

void RecentFiles::remove(const QString& path)
{
  QStringList kept = files();
  const QString removed = comparable(path);
  kept.erase(std::remove_if(kept.begin(), kept.end(), [&](const QString& p) { return comparable(p) == removed; }),
             kept.end());
  store(kept);
}

void RecentFiles::clear()
{
  store({});
}

void RecentFiles::store(const QStringList& files)
{
  demoSettings()->setValue(QLatin1String(kKey), files);
}

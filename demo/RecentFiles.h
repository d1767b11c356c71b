#pragma once

#include <QString>
#include <QStringList>

/**
 * The drawings opened or saved last, newest first, kept in the demo's
 * settings so that the next session offers them too. Each call reads and
 * writes the settings, so two windows never undo each other's entries.
 */
class RecentFiles
{
public:
  static constexpr int kMaxCount = 8;

  /** Newest first, at most kMaxCount. */
  QStringList files() const;
  /** Puts @p path first; an entry naming the same file moves rather than repeats. */
  void add(const QString& path);
  void remove(const QString& path);
  void clear();

private:
  void store(const QStringList& files);
};

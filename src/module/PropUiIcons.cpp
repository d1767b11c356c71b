#include "PropUiIcons.h"

#include "HostQtStyleManager.h"
#include <QHash>

QIcon propUiGetIcon(const QString& name)
{
  static QHash<QString, QIcon> cache;
  const bool dark = hostGetQtStyleManager()->theme() == 0;
  const QString path = (dark ? QStringLiteral(":/res/dark/") : QStringLiteral(":/res/light/")) + name + QStringLiteral(".ico");
  auto it = cache.find(path);
  if (it == cache.end())
    it = cache.insert(path, QIcon(path));
  return it.value();
}

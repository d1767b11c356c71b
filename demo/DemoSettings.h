#pragma once

#include <QSettings>
#include <memory>

/** Where the demo keeps what outlives a session (recent files, the window's place), under the project's name. */
inline std::unique_ptr<QSettings> demoSettings()
{
  return std::make_unique<QSettings>(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("libPropWidgets"),
                                     QStringLiteral("propwidgets-demo"));
}

#pragma once

#include "HostExport.h"
#include <QObject>

/** The host's look: which theme is current, and the palette that goes with it. */
class HOST_EXPORT HostQtStyleManager : public QObject
{
  Q_OBJECT

public:
  enum Theme
  {
    Dark = 0,
    Light = 1
  };

  /** 0 for the dark theme, anything else is light. */
  int theme() const { return m_theme; }
  /** Switches the theme and, when an application exists, its palette; the application's style is wrapped in HostQtStyle. */
  void setTheme(int theme);

Q_SIGNALS:
  void themeChanged(int theme);

private:
  int m_theme = Light;
};

/** The one style manager of the process. */
HOST_EXPORT HostQtStyleManager* hostGetQtStyleManager();

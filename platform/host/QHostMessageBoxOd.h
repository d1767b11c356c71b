#pragma once

#include "HostExport.h"
#include "OdString.h"
#include <functional>

class QString;

namespace host_qt_ui
{

/**
 * The host's message box. An interceptor, when set, receives every message
 * instead of a modal box, so that tests and unattended runs never block.
 */
class HOST_EXPORT QHostMessageBoxOd
{
public:
  enum Kind
  {
    Critical,
    Information
  };
  enum Button
  {
    Ok = 0x400,
    Cancel = 0x400000
  };
  typedef std::function<int(Kind kind, const QString& text, int buttons)> Interceptor;

  static int critical(const OdString& message, int buttons = Ok);
  static int information(const OdString& message, int buttons = Ok);

  /** Replaces the modal box; an empty function restores it. */
  static void setInterceptor(const Interceptor& interceptor);

private:
  static int show(Kind kind, const OdString& message, int buttons);
};

} // namespace host_qt_ui

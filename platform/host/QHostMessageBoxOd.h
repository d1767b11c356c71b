#pragma once

#include "HostExport.h"
#include "OdString.h"
#include <functional>

class QString;
class QWidget;

namespace host_qt_ui
{

/**
 * The host's message box. A message is shown as a balloon at the field it
 * is about (the given anchor, else the widget with the focus), which leaves
 * the focus there; without a field, or when the host asks for it, as a
 * modal box. An interceptor, when set, receives every message instead, so
 * that tests and unattended runs never block.
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
  enum Presentation
  {
    Balloon,
    ModalBox
  };
  typedef std::function<int(Kind kind, const QString& text, int buttons)> Interceptor;

  /** A balloon answers Ok at once; a modal box answers the button pressed. */
  static int critical(const OdString& message, int buttons = Ok, QWidget* anchor = nullptr);
  static int information(const OdString& message, int buttons = Ok, QWidget* anchor = nullptr);

  /** Replaces the balloon and the modal box; an empty function restores them. */
  static void setInterceptor(const Interceptor& interceptor);
  /** Balloon (the default) or a modal box for every message. */
  static void setPresentation(Presentation presentation);
  static Presentation presentation();

private:
  static int show(Kind kind, const OdString& message, int buttons, QWidget* anchor);
};

} // namespace host_qt_ui
